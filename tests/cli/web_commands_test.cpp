#include <gtest/gtest.h>

#include "cli_runner.h"
#include "foundation/services/files.h"
#include "local_http_server.h"

namespace vardolin {
namespace {

TEST(Cli, DownloadsAFileAndUpdatesTheUrlListFromTheWeb) {
  testing::LocalHttpServer server;
  const std::string list =
      ReadWholeFile(std::filesystem::path(VARDOLIN_RESOURCES_DIR) / "urllist.bin");
  server.ServeFile("/urllist.bin", list);
  testing::CliHome h;
  // The update runs through the download window, which the terminal runs as well.
  const testing::CliResult update =
      h.RunAt({"urls", "update", "--from", server.Url("/urllist.bin")});
  EXPECT_EQ(update.code, 0) << update.err;
  const std::filesystem::path file = h.dir / "got.bin";
  EXPECT_EQ(h.RunAt({"download", server.Url("/urllist.bin"), file.string()}).code, 0);
  EXPECT_EQ(ReadWholeFile(file), list);
  EXPECT_EQ(h.RunAt({"download", server.Url("/none"), file.string()}).code, 1);
}

}  // namespace
}  // namespace vardolin
