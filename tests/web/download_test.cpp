#include <gtest/gtest.h>

#include "archive_fixture.h"
#include "environment.h"
#include "foundation/services/files.h"
#include "local_http_server.h"
#include "web/dialog_download.h"

namespace vardolin {
namespace {

using testing::LocalHttpServer;
namespace fs = std::filesystem;

LocalHttpServer::Reply Body(const std::string& bytes) {
  LocalHttpServer::Reply r;
  r.body = std::make_shared<std::string>(bytes);
  return r;
}

// The window's work runs on its timer's first tick, as the window's would.
void ExpectDownloadWindow(testing::ScriptedUi& ui) {
  ui.OnForm("Dialog_Download", [](Form& f) { static_cast<Dialog_Download&>(f).Timer1.Tick(); });
}

TEST(DownloadTest, EachAnswerOfTheServerGivesTheFileOrNothing) {
  const std::string body(300000, 'x');
  LocalHttpServer server;
  server.ServeFile("/level.zip", body);
  LocalHttpServer::Reply moved, cut = Body(body), no_length = Body(body), trickle = Body(body);
  moved.status = 302;
  moved.location = server.Url("/level.zip");
  cut.send_only = 1000;
  no_length.no_length = true;
  trickle.send_only = 10;
  trickle.trickle_ms = 100;
  server.Serve("/moved", moved);
  server.Serve("/cut", cut);
  server.Serve("/nolength", no_length);
  server.Serve("/trickle", trickle);
  // A floor of 100 bytes a second over one second instead of the minute a user waits.
  testing::ScopedEnv floor("VARDOLIN_SPEED_FLOOR", "100/1");
  struct Row {
    std::string url;
    bool done;
    bool told;  // the broken transfer is told to the user
  } rows[] = {
      {server.Url("/level.zip"), true, false},
      {server.Url("/moved"), true, false},
      {server.Url("/nolength"), true, false},
      {server.Url("/missing"), false, false},
      {server.Url("/cut"), false, true},
      {server.Url("/trickle"), false, true},
      // A port nobody listens on: the one the server had before it closed.
      {std::invoke([] { return LocalHttpServer().Url("/x"); }), false, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.url);
    testing::ArchiveFixture t;
    const fs::path target = t.Path("got/level.zip");
    fs::create_directories(target.parent_path());
    WriteTextFile(target, "an older download");
    ExpectDownloadWindow(t.ui);
    t.ui.AllowAnyMessage();
    EXPECT_EQ(DownloadToFile(t.program, row.url, target), row.done);
    EXPECT_EQ(t.ui.Messages().size(), row.told ? 1u : 0u);
    EXPECT_TRUE(!row.done || ReadWholeFile(target) == body);
    // Nothing half-written is left beside the target either.
    EXPECT_EQ(std::distance(fs::directory_iterator(target.parent_path()), {}), row.done ? 1 : 0);
  }
}

// A Ui whose interface loop runs a step of the test, as the user's presses would come.
struct StepUi : testing::ScriptedUi {
  std::function<void()> step;
  void DoEvents() override {
    if (step) step();
  }
};

TEST(DownloadTest, StopEndsAStalledTransferOfTwoGigabytesAtOnce) {
  LocalHttpServer server;
  LocalHttpServer::Reply big = Body(std::string(100000, 'b'));
  big.length = 2200000000ull;
  big.stall = true;
  server.Serve("/big.zip", big);
  testing::TempDir home;
  StepUi ui;
  testing::RecordingPlatform platform;
  Program program(home.path(), ui, platform);
  program.texts.EnglishTexts = testing::ReadEnglishForTests();
  Dialog_Download d(program);
  d.ImpostaValori(server.Url("/big.zip"), home / "big.zip");
  std::chrono::steady_clock::time_point stopped;
  std::string shown;
  ui.step = [&] {
    // The whole length is told as it is, not as a 32-bit number would hold it.
    if (shown.empty() && d.Label_Info.Caption().find("2.0 Gb") != std::string::npos) {
      shown = d.Label_Info.Caption();
      EXPECT_EQ(d.ProgressBar1.Value(), 0);
      stopped = std::chrono::steady_clock::now();
      d.Pul_Stop.Click();
    }
  };
  d.Timer1.Tick();
  EXPECT_LT(std::chrono::steady_clock::now() - stopped, std::chrono::seconds(1));
  EXPECT_NE(shown.find("(97 Kb / 2.0 Gb)"), std::string::npos) << shown;
  EXPECT_FALSE(d.DownloadDone);
  EXPECT_TRUE(fs::is_empty(home.path()));
}

}  // namespace
}  // namespace vardolin
