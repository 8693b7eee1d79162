#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>

#include "foundation/services/strings.h"
#include "foundation/texts/text_catalogue.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;

struct English {
  std::string bytes;
  TrcParse parsed;
  std::map<std::int32_t, std::string> texts;
};

const English& LoadEnglish() {
  static const English english = [] {
    English e;
    e.bytes = ReadFile(fs::path(VARDOLIN_RESOURCES_DIR) / "english.trc");
    e.parsed = ParseTrc(e.bytes, 1252);
    for (const TextEntry& entry : e.parsed.entries) e.texts.emplace(entry.id, entry.text);
    return e;
  }();
  return english;
}

TEST(EnglishTexts, FileIsWellFormed) {
  const English& e = LoadEnglish();
  ASSERT_TRUE(e.parsed.ok) << e.parsed.error;
  // Every line ends in CR LF and the count on the first line is the number of entries.
  size_t lf = std::count(e.bytes.begin(), e.bytes.end(), '\n');
  size_t crlf = 0;
  for (size_t at = e.bytes.find("\r\n"); at != std::string::npos; at = e.bytes.find("\r\n", at + 2))
    ++crlf;
  EXPECT_EQ(lf, crlf);
  ASSERT_TRUE(e.bytes.ends_with("\r\n"));
  EXPECT_EQ(static_cast<size_t>(e.parsed.declared_count), (lf - 1) / 3);
  EXPECT_EQ((lf - 1) % 3, 0u);
  EXPECT_EQ(e.texts.size(), e.parsed.entries.size()) << "an id appears twice";
}

TEST(EnglishTexts, EveryIdTheCodeNamesHasAWording) {
  const English& e = LoadEnglish();
  std::regex constant(R"(constexpr\s+std::int32_t\s+(\w+)\s*=\s*(\d+);)");
  int checked = 0;
  for (const auto& entry :
       fs::recursive_directory_iterator(fs::path(VARDOLIN_SOURCE_DIR) / "src")) {
    if (entry.path().filename() != "text_ids.h") continue;
    std::string header = ReadFile(entry.path());
    for (std::sregex_iterator it(header.begin(), header.end(), constant), end; it != end; ++it) {
      std::int32_t id = std::stoi((*it)[2]);
      auto found = e.texts.find(id);
      EXPECT_TRUE(found != e.texts.end() && !Trim(found->second).empty())
          << (*it)[1] << " = " << id << " in " << entry.path() << " has no English text";
      ++checked;
    }
  }
  EXPECT_GT(checked, 50);
}

TEST(EnglishTexts, IdsThatNameTheSameThingAgree) {
  const English& e = LoadEnglish();
  auto text = [&](std::int32_t id) {
    auto it = e.texts.find(id);
    return it == e.texts.end() ? std::string("<missing ") + std::to_string(id) + ">" : it->second;
  };
  struct Same {
    std::int32_t a, b;
  };
  // The catalogue extension; the program's own file; the system file copied beside it; the
  // level's play, savegame and screenshot folders under both their numbers.
  for (Same s : {Same{1079, 1652}, Same{1650, 2490}, Same{2259, 2260}, Same{1546, 1632},
                 Same{1547, 1633}, Same{1548, 1634}})
    EXPECT_EQ(text(s.a), text(s.b)) << s.a << " and " << s.b;

  EXPECT_EQ(text(1079).size(), 4u);  // the command line compares the last four characters
  EXPECT_TRUE(text(1681).ends_with(text(1079)));
  EXPECT_EQ(text(1622), "\\LEVEL_0000");
  for (std::int32_t place : {1623, 1625, 1627})
    EXPECT_TRUE(text(place).starts_with(text(1622) + "\\")) << place;
  EXPECT_TRUE(text(1627).ends_with(text(1631)));
  EXPECT_TRUE(text(1623).starts_with(text(1622) + text(1632)));
  EXPECT_EQ(text(1089), "Vardolin.prf");  // read under this name before any language file
}

}  // namespace
}  // namespace vardolin
