// vardolin-cli add and files, as a script that brings in a downloaded level uses them.

#include <gtest/gtest.h>

#include <filesystem>

#include "archive_writer.h"
#include "cli_runner.h"

namespace vardolin {
namespace {

using testing::CliResult;

TEST(CliAdd, AddsAPackageAndListsWhatTheLevelStores) {
  testing::CliHome at;
  ASSERT_EQ(at.NewCatalogue().code, 0);
  const auto zip = at.dir / "Temple.zip";
  testing::WriteArchive(zip, {{"Temple/data/temple.tr4", "level"},
                              {"Temple/script.dat", "script"},
                              {"Temple/readme.txt", "read me"}});
  struct Case {
    std::vector<std::string> args;
    int code;
    std::string says;
  };
  const Case cases[] = {
      {{"add", zip.string(), "--name", "The Temple", "--note", "short"}, 0, "1\n"},
      {{"info", "1"}, 0, "name: The Temple"},
      {{"files", "1"}, 0, "readme.txt\t7\tplain\nscript.dat\t6\tplain\ntemple.tr4\t5\tplain"},
      {{"files", "1", "--json"}, 0, "{\"name\": \"temple.tr4\", \"size\": 5, \"packed\": false}"},
      {{"add", (at.dir / "missing.zip").string()}, 1, "there is no file or folder"},
      // Without a level file the level can't be stored: nothing is added.
      {{"add", (at.dir / "Temple.zip").string(), "--answer", "ok"}, 1, "the level was not added"},
      {{"list"}, 0, "1\tThe Temple"},
  };
  for (const Case& c : cases) {
    if (c.code == 1 && c.says == "the level was not added")
      testing::WriteArchive(zip, {{"Temple/readme.txt", "no level here"}});
    const CliResult r = at.RunAt(c.args);
    EXPECT_EQ(r.code, c.code) << ::testing::PrintToString(c.args) << r.out << r.err;
    EXPECT_NE(r.Said().find(c.says), std::string::npos) << r.out << r.err;
  }
}

}  // namespace
}  // namespace vardolin
