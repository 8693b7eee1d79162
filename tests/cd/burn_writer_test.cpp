// The image made by the real genisoimage and listed by the real isoinfo; burning, erasing,
// scanning and verifying with the writer replaced by the wodim stand-in on PATH
// (tests/support/programs/standin_wodim.cpp), which records what it was given and prints what
// it is told.
#include <gtest/gtest.h>
#include <signal.h>

#include <cerrno>

#include "cd/burn_engine.h"
#include "environment.h"
#include "foundation/forms/controls.h"
#include "foundation/services/files.h"
#include "test_program.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

// The end of a good burn, as wodim 1.1.11 tells it; its progress rewritten with CR.
std::string GoodBurn(const std::string& writing_time = "146.557") {
  return "Starting to write CD/DVD at speed  48.0 in real TAO mode for single session.\n"
         "Track 01:    1 of    3 MB written (fifo 100%) [buf  99%]  47.2x.\r@sleep 40\n"
         "Track 01:    2 of    3 MB written (fifo 100%) [buf  99%]  47.2x.\r@sleep 40\n"
         "Track 01:    3 of    3 MB written (fifo 100%) [buf  99%]  47.2x.\n"
         "Track 01: Total bytes read/written: 3145728/3145728 (1536 sectors).\nWriting  time:  " +
         writing_time + "s\nFixating...\nFixating time:   11.459s\nwodim: fifo had 7 puts.\n";
}

struct WriterFixture : ::testing::Test {
  testing::TestProgram t;
  testing::TempDir bin, src, cd;
  testing::ScopedEnv path{"PATH", bin.path().string() + ":" + std::getenv("PATH")};
  BurnEngine engine{t.program};
  testing::StandInMainWindow window{t.program};
  std::string level = (src / "LEVEL_0001").string();

  void SetUp() override {
    fs::create_symlink(testing::Standin("standin_wodim"), bin / "wodim");
    for (const fs::path at : {src.path(), cd / "Arc1"}) {
      testing::WriteBytes(at / "LEVEL_0001/data/level.tr4", std::string(300000, 'L'));
      testing::WriteBytes(at / "LEVEL_0001/data/old's notes.txt", "notes");
    }
    ASSERT_TRUE(engine.BurnCommand(cw_Init, "1'0'0'" + cd.path().string() + "''HL' 'DVD' ", "16"));
    ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "Arc1/LEVEL_0001/=" + level));
    engine.IsoPath = (src / "cd.iso").string();
  }
  void Script(const std::string& text) const { WriteTextFile(bin / "wodim.script", text); }
  std::vector<std::string> Arguments() const {
    std::vector<std::string> args;
    std::istringstream in(ReadWholeFile(bin / "wodim.args"));
    for (std::string line; std::getline(in, line);) args.push_back(line);
    return args;
  }
  void ShowProgress() {
    engine.ProgressEnabled = true;
    engine.ProgressLabel = &window.Label_Info;
    engine.ProgressBar = &window.ProgressBar1;
  }
  // The user presses Stop once the writer runs.
  void StopOnceTheWriterRuns() {
    t.ui.on_events = [this] {
      fs::exists(bin / "wodim.pid") ? void(engine.StopRequested = true) : StopOnceTheWriterRuns();
    };
  }
};

TEST_F(WriterFixture, ImageHoldsTheItemsUnderTheirTargetsWithoutTheLeftOutOnes) {
  src.Write("readme.txt", "hello");
  src.Write("LEVEL_0001/data/secret.txt", "left out");
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, (src / "readme.txt").string()));
  ASSERT_TRUE(engine.BurnCommand(cw_AddNoItem, level + "/data/secret.txt"));
  engine.VolumeId = "Level CD 7";
  ASSERT_TRUE(engine.BurnCommand(cw_CreateIso)) << engine.ErrorMessage();
  EXPECT_EQ(engine.ErrorCode, kBurnNoError) << engine.ErrorMessage();
  EXPECT_EQ(engine.TotalSize, static_cast<double>(fs::file_size(engine.IsoPath)));
  EXPECT_EQ(ReadWholeFile(t.home / "mkiso.src"), "PREP=Tarnbrook\nVOLI=Level CD 7\n");
  // The files on the image are the files the engine's own report plans for the CD.
  std::set<std::string> made, planned;
  ASSERT_TRUE(engine.BurnCommand(cw_ReportIsoFileList, "ReferenceList"));
  for (const ReportItem& r : engine.ReportItems)
    if (r.size > 0) made.insert(r.path + " " + std::to_string(r.size));
  ASSERT_TRUE(engine.BurnCommand(cw_ReportItemsFileList, "Target"));
  for (const ReportItem& r : engine.ReportItems)
    if (r.path.back() != '/') planned.insert(r.path + " " + std::to_string(r.size));
  EXPECT_EQ(made, (std::set<std::string>{"/Arc1/LEVEL_0001/data/level.tr4 300000",
                                         "/Arc1/LEVEL_0001/data/old's notes.txt 5",
                                         "/" + src.path().filename().string() + "/readme.txt 5"}));
  EXPECT_EQ(made, planned);
  // The image maker counts its extents; each adds 11.3 bytes to the files' own sizes.
  ASSERT_TRUE(engine.BurnCommand(cw_ComputeSizeWithFs)) << engine.ErrorMessage();
  EXPECT_GT(engine.ResultNumber(), 300010 + 11.3 * 20);
}

TEST_F(WriterFixture, FailedImagesLeaveNoFileAndSayWhy) {
  // Two items whose files meet under one name on the CD: the image maker refuses.
  src.Write("other/LEVEL_0001/data/level.tr4", "clash");
  ASSERT_TRUE(
      engine.BurnCommand(cw_AddItem, "Arc1/LEVEL_0001/=" + (src / "other/LEVEL_0001").string()));
  WriteTextFile(engine.IsoPath, "an old image");
  EXPECT_FALSE(engine.BurnCommand(cw_CreateIso));
  EXPECT_NE(engine.ErrorText.find("level.tr4"), std::string::npos) << engine.ErrorText;
  EXPECT_FALSE(fs::exists(engine.IsoPath));
}

TEST_F(WriterFixture, GoodBurnsGiveTheImageToTheWriterAndFollowItsProgress) {
  ASSERT_TRUE(engine.BurnCommand(cw_CreateIso)) << engine.ErrorMessage();
  Script(GoodBurn());
  ShowProgress();
  std::vector<std::string> captions;
  std::vector<int> bar;
  window.Label_Info.Subscribe([&](Control& c, Change) { captions.push_back(c.Caption()); });
  window.ProgressBar1.Subscribe(
      [&](Control&, Change) { bar.push_back(window.ProgressBar1.Value()); });
  ASSERT_TRUE(engine.BurnCommand(cw_BurnIso)) << engine.ErrorMessage();

  EXPECT_EQ(Arguments(),
            (std::vector<std::string>{"-v", "speed=16", "-dev=1,0,0", engine.IsoPath}));
  EXPECT_EQ(ReadWholeFile(bin / "wodim.image"), ReadWholeFile(engine.IsoPath));
  EXPECT_EQ(engine.LastSpeed, 48);
  // Each rewrite of the counter is a line of its own, shown as it comes and moving the bar.
  for (const char* line : {"Track 01:    1 of    3 MB written (fifo 100%) [buf  99%]  47.2x.",
                           "Track 01:    2 of    3 MB written (fifo 100%) [buf  99%]  47.2x.",
                           "Fixating, lead-in and lead-out ...", ""})
    EXPECT_NE(std::find(captions.begin(), captions.end(), line), captions.end()) << line;
  EXPECT_EQ(bar, (std::vector<int>{33, 66, 100, 0}));

  // Without an image the image maker streams it into the writer.
  Script("@image\n" + GoodBurn());
  ASSERT_TRUE(engine.BurnCommand(cw_BurnWithoutIso)) << engine.ErrorMessage();
  EXPECT_EQ(Arguments().back(), "-");
  ASSERT_TRUE(engine.BurnCommand(cw_ReportIsoFileList, "FlatList", (bin / "wodim.image").string()));
  EXPECT_NE(engine.ResultText().find("/Arc1/LEVEL_0001/data/level.tr4"), std::string::npos);
}

TEST_F(WriterFixture, BurnsAndErasesThatWentWrongFailWithTheWritersOwnWords) {
  ASSERT_TRUE(engine.BurnCommand(cw_CreateIso)) << engine.ErrorMessage();
  const struct {
    int command;
    std::string operand, script;
    std::int32_t code;
    std::string text;
  } cases[] = {
      // Writing a whole CD never takes a second: the writer gave up at once.
      {cw_BurnIso, "", GoodBurn("1.020"), kBurnFailed, "fifo had 7 puts."},
      {cw_BurnIso, "", "Sense Code: 0x0C Qual 0x00 (write error) Fru 0x0\n", kBurnFailed,
       "0x0C Qual 0x00 (write error) Fru 0x0"},
      {cw_BurnIso, "", GoodBurn() + "@exit 254\n", kBurnFailed, "fifo had 7 puts."},
      {cw_BurnWithoutIso, "", GoodBurn("0.5"), kBurnWithoutImageFailed, "fifo had 7 puts."},
      {cw_CancellaCdRiscrivibile, "ALL", "Blanking time:    1.103s\nwodim: Cannot blank disk.\n",
       kBurnEraseFailed, "Cannot blank disk."},
      {cw_CancellaCdRiscrivibile, "fast", "at speed  10.0\nBlanking time:   12.345s\n",
       kBurnNoError, ""},
  };
  for (const auto& c : cases) {
    Script(c.script);
    EXPECT_EQ(engine.BurnCommand(c.command, c.operand), c.code == kBurnNoError) << c.script;
    EXPECT_EQ(std::pair(engine.ErrorCode, engine.ErrorText), std::pair(c.code, c.text));
  }
  EXPECT_EQ(engine.LastSpeed, 10);
  EXPECT_EQ(Arguments(), (std::vector<std::string>{"-v", "speed=16", "-dev=1,0,0", "blank=fast"}));
  // No image, no writer run.
  fs::remove(bin / "wodim.args");
  ASSERT_TRUE(engine.BurnCommand(cw_DeleteIso));
  EXPECT_FALSE(engine.BurnCommand(cw_BurnIso));
  EXPECT_EQ(engine.ErrorText, "No ISO image to burn");
  EXPECT_FALSE(fs::exists(bin / "wodim.args"));
}

TEST_F(WriterFixture, StopEndsEveryToolOfTheRun) {
  for (int command : {cw_BurnWithoutIso, cw_BurnIso}) {
    if (command == cw_BurnIso) ASSERT_TRUE(engine.BurnCommand(cw_CreateIso));
    // The writer takes nothing yet: the image maker stands blocked on a full pipe meanwhile.
    Script("Waiting for reader process to fill input buffer ...\n@sleep 20000\n@image\n");
    fs::remove(bin / "wodim.pid");
    ShowProgress();
    StopOnceTheWriterRuns();
    EXPECT_FALSE(engine.BurnCommand(command));
    EXPECT_EQ(engine.ErrorTitle, "Operation stopped by user");
    EXPECT_FALSE(engine.StopRequested);
    int pid = 0, group = 0;
    std::istringstream(ReadWholeFile(bin / "wodim.pid")) >> pid >> group;
    ASSERT_GT(group, 1);
    EXPECT_TRUE(::kill(-group, 0) == -1 && errno == ESRCH) << "a tool of the run is left";
  }
}

TEST_F(WriterFixture, ScanGivesTheWritersOfTheToolsText) {
  // The scan's lines are told apart by their tabs, which the lines for the label lose. (Which
  // drive takes which writer is the parser's table; this machine's drives don't matter here.)
  Script(ReadWholeFile(fs::path(VARDOLIN_SOURCE_DIR) / "tests/cd/data/cdrecord_two_drives.txt"));
  ASSERT_TRUE(engine.BurnCommand(cw_ScanBus)) << engine.ErrorMessage();
  EXPECT_EQ(Arguments(), std::vector<std::string>{"-scanbus"});
  EXPECT_EQ(engine.ResultNumber(), 2);
  testing::ScopedEnv no_path{"PATH", src.path().string()};
  EXPECT_FALSE(engine.BurnCommand(cw_ScanBus));
  EXPECT_EQ(engine.ErrorTitle, "In application path is missing 'wodim' utility");
}

TEST_F(WriterFixture, VerifyWantsEveryFileOnTheCdWithItsSize) {
  std::vector<std::pair<std::string, bool>> doors;
  engine.door = [&](const std::string& unit, bool open) {
    doors.emplace_back(unit, open);
    return true;
  };
  t.platform.drives = {testing::MakeDrive(cd.path().string(), kDriveCdRom)};
  engine.ready_wait = std::chrono::milliseconds(10);
  ASSERT_TRUE(engine.BurnCommand(cw_VerifyCd, "All")) << engine.ErrorMessage();
  EXPECT_EQ(doors, (std::vector<std::pair<std::string, bool>>{{cd.path().string(), true},
                                                              {cd.path().string(), false}}));
  const fs::path notes = cd / "Arc1/LEVEL_0001/data/old's notes.txt";
  const std::string on_cd = "\"/Arc1/LEVEL_0001/data/";
  const struct {
    std::function<void()> change;
    std::string text;
  } cases[] = {
      {[&] { WriteTextFile(notes, "notes!"); },
       "Full path" + on_cd + "old's notes.txt\" has on CD a different size than source"},
      {[&] { fs::remove(notes); }, "Full path" + on_cd + "old's notes.txt\" is missing on CD"},
      {[&] { fs::remove_all(notes.parent_path()); }, "Folder " + on_cd + "\" is missing on CD"},
  };
  for (const auto& c : cases) {
    c.change();
    EXPECT_FALSE(engine.BurnCommand(cw_VerifyCd, "ALL"));
    EXPECT_EQ(engine.ErrorMessage(), "Error in cd burning: " + c.text);
  }
  // What is left out isn't looked for; a CD with a folder alone is not empty.
  ASSERT_TRUE(engine.BurnCommand(cw_AddNoItem, level + "/data"));
  EXPECT_TRUE(engine.BurnCommand(cw_VerifyCd, "All")) << engine.ErrorMessage();
  EXPECT_TRUE(engine.BurnCommand(cw_VerifyCd, "Fast"));
  fs::remove_all(cd / "Arc1");
  EXPECT_FALSE(engine.BurnCommand(cw_VerifyCd, "Fast"));
  EXPECT_EQ(engine.ErrorText, "Cd is empty");
  // A drive that stays not ready ends it when the user stops waiting.
  t.platform.drives[0].ready = false;
  t.ui.Answer(msg::kYes, "is not ready").Answer(msg::kNo, "is not ready");
  EXPECT_FALSE(engine.BurnCommand(cw_VerifyCd, "Fast"));
  EXPECT_EQ(engine.ErrorText, "Unit is not ready: unreadable CD (?)");
}

}  // namespace
}  // namespace vardolin
