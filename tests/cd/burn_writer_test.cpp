// Burning, erasing, scanning and verifying with the writer replaced by the wodim stand-in on
// PATH (tests/support/programs/standin_wodim.cpp), which records what it was given and prints
// what it is told.
#include <gtest/gtest.h>
#include <signal.h>

#include <cerrno>
#include <chrono>
#include <fstream>
#include <sstream>

#include "cd/burn_engine.h"
#include "environment.h"
#include "foundation/forms/controls.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"
#include "test_program.h"

namespace vardolin {
namespace {

using testing::TempDir;
namespace fs = std::filesystem;

const char* const kDevice = "1'0'0'/media/cdrom0''HL-DT-ST' 'DVD-RAM GSA-H22N' '1.01' ";

// The end of a good burn, as wodim 1.1.11 tells it; its progress rewritten with CR.
std::string GoodBurn(const std::string& writing_time = "146.557") {
  return "Starting to write CD/DVD at speed  48.0 in real TAO mode for single session.\n"
         "Track 01:    1 of    3 MB written (fifo 100%) [buf  99%]  47.2x.\r@sleep 40\n"
         "Track 01:    2 of    3 MB written (fifo 100%) [buf  99%]  47.2x.\r@sleep 40\n"
         "Track 01:    3 of    3 MB written (fifo 100%) [buf  99%]  47.2x.\n"
         "Track 01: Total bytes read/written: 3145728/3145728 (1536 sectors).\n"
         "Writing  time:  " +
         writing_time +
         "s\nAverage write speed  32.7x.\nFixating...\nFixating time:   11.459s\n"
         "wodim: fifo had 10703 puts and 10703 gets.\n";
}

struct WriterFixture : ::testing::Test {
  testing::TestProgram t;
  TempDir bin, src;
  testing::ScopedEnv path{"PATH", bin.path().string() + ":" + std::getenv("PATH")};
  BurnEngine engine{t.program};
  testing::StandInMainWindow window{t.program};

  void SetUp() override {
    fs::create_symlink(testing::Standin("standin_wodim"), bin / "wodim");
    src.Write("store/LEVEL_0001/data/level.tr4", std::string(300000, 'L'));
    src.Write("store/LEVEL_0001/data/notes.txt", "notes");
    ASSERT_TRUE(engine.BurnCommand(cw_Init, kDevice, "16"));
    ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "Arc1/LEVEL_0001/=" + Level()));
    engine.IsoPath = (src / "cd.iso").string();
  }
  std::string Level() const { return (src / "store/LEVEL_0001").string(); }
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
      if (fs::exists(bin / "wodim.pid"))
        engine.StopRequested = true;
      else
        StopOnceTheWriterRuns();
    };
  }
};

TEST_F(WriterFixture, GoodBurnGivesTheImageToTheWriterAndFollowsItsProgress) {
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
  // Each rewrite of the counter is a line of its own, shown as it comes.
  for (const char* line : {"Track 01:    1 of    3 MB written (fifo 100%) [buf  99%]  47.2x.",
                           "Track 01:    2 of    3 MB written (fifo 100%) [buf  99%]  47.2x.",
                           "Fixating, lead-in and lead-out ..."})
    EXPECT_NE(std::find(captions.begin(), captions.end(), line), captions.end()) << line;
  EXPECT_NE(engine.ToolOutput.find("47.2x.\r\nTrack 01:    2 of"), std::string::npos);
  EXPECT_NE(std::find(bar.begin(), bar.end(), 33), bar.end());
  EXPECT_NE(std::find(bar.begin(), bar.end(), 100), bar.end());
  EXPECT_EQ(window.Label_Info.Caption(), "");
  EXPECT_EQ(window.ProgressBar1.Value(), 0);
}

TEST_F(WriterFixture, BurnsThatWentWrongFailWithTheWritersOwnWords) {
  ASSERT_TRUE(engine.BurnCommand(cw_CreateIso)) << engine.ErrorMessage();
  const struct {
    std::string script;
    std::string text;
  } cases[] = {
      // Writing a whole CD never takes a second: the writer gave up at once.
      {GoodBurn("1.020"), "fifo had 10703 puts and 10703 gets."},
      {"Sense Key: 0x3 Medium Error, Segment 0\n"
       "Sense Code: 0x0C Qual 0x00 (write error) Fru 0x0\n",
       "0x0C Qual 0x00 (write error) Fru 0x0"},
      {"wodim: No disk / Wrong disk!\n", "No disk / Wrong disk!"},
      {GoodBurn() + "@exit 254\n", "fifo had 10703 puts and 10703 gets."},
  };
  for (const auto& c : cases) {
    Script(c.script);
    EXPECT_FALSE(engine.BurnCommand(cw_BurnIso)) << c.script;
    EXPECT_EQ(engine.ErrorCode, kBurnFailed);
    EXPECT_EQ(engine.ErrorTitle, "Burning CD failed");
    EXPECT_EQ(engine.ErrorText, c.text);
  }
  // No image, no writer run.
  fs::remove(bin / "wodim.args");
  ASSERT_TRUE(engine.BurnCommand(cw_DeleteIso));
  EXPECT_FALSE(engine.BurnCommand(cw_BurnIso));
  EXPECT_EQ(engine.ErrorText, "No ISO image to burn");
  EXPECT_FALSE(fs::exists(bin / "wodim.args"));
}

TEST_F(WriterFixture, BurnWithoutImageStreamsTheImageIntoTheWriter) {
  Script("@image\n" + GoodBurn());
  ASSERT_TRUE(engine.BurnCommand(cw_BurnWithoutIso)) << engine.ErrorMessage();
  EXPECT_EQ(Arguments().back(), "-");
  EXPECT_FALSE(fs::exists(engine.IsoPath));
  ASSERT_TRUE(
      engine.BurnCommand(cw_ReportIsoFileList, "ReferenceList", (bin / "wodim.image").string()))
      << engine.ErrorMessage();
  ASSERT_EQ(engine.ReportItems.size(), 5u);
  EXPECT_EQ(engine.ReportItems[4].path, "/Arc1/LEVEL_0001/data/notes.txt");
  EXPECT_EQ(engine.ReportItems[3].size, 300000);

  Script("@image\n" + GoodBurn("0.5"));
  EXPECT_FALSE(engine.BurnCommand(cw_BurnWithoutIso));
  EXPECT_EQ(engine.ErrorCode, kBurnWithoutImageFailed);
  EXPECT_EQ(engine.ErrorTitle, "Burning CD without ISO image failed");
}

TEST_F(WriterFixture, StopEndsEveryToolOfTheRun) {
  for (int command : {cw_BurnWithoutIso, cw_BurnIso}) {
    if (command == cw_BurnIso) ASSERT_TRUE(engine.BurnCommand(cw_CreateIso));
    // The writer takes nothing yet: the image maker stands blocked on a full pipe meanwhile.
    Script("Waiting for reader process to fill input buffer ...\n@sleep 20000\n@image\n");
    fs::remove(bin / "wodim.pid");
    ShowProgress();
    StopOnceTheWriterRuns();
    const auto started = std::chrono::steady_clock::now();
    EXPECT_FALSE(engine.BurnCommand(command));
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(10));
    EXPECT_EQ(engine.ErrorCode, kBurnStopped);
    EXPECT_EQ(engine.ErrorTitle, "Operation stopped by user");
    EXPECT_FALSE(engine.StopRequested);
    int pid = 0, group = 0;
    std::istringstream(ReadWholeFile(bin / "wodim.pid")) >> pid >> group;
    ASSERT_GT(group, 1);
    EXPECT_EQ(::kill(-group, 0), -1);
    EXPECT_EQ(errno, ESRCH);
  }
}

TEST_F(WriterFixture, ErasingNeedsItsTimeAndAKnownWay) {
  const struct {
    std::string how;
    std::string script;
    std::int32_t code;
  } cases[] = {
      {"half", "", kBurnInvalidOperand},
      {"fast", "Starting to write CD/DVD at speed  10.0\nBlanking time:   12.345s\n", kBurnNoError},
      {"ALL", "Blanking time:    1.103s\nwodim: Cannot blank disk, aborting.\n", kBurnEraseFailed},
  };
  for (const auto& c : cases) {
    Script(c.script);
    EXPECT_EQ(engine.BurnCommand(cw_CancellaCdRiscrivibile, c.how), c.code == kBurnNoError);
    EXPECT_EQ(engine.ErrorCode, c.code) << c.how;
  }
  EXPECT_EQ(engine.LastSpeed, 10);
  EXPECT_EQ(Arguments(), (std::vector<std::string>{"-v", "speed=16", "-dev=1,0,0", "blank=all"}));
  EXPECT_EQ(engine.ErrorText, "Cannot blank disk, aborting.");
}

TEST_F(WriterFixture, ScanGivesTheWritersWithTheirDrives) {
  Script(ReadWholeFile(fs::path(VARDOLIN_SOURCE_DIR) / "tests/cd/data/cdrecord_two_drives.txt"));
  // One optical drive, its disc mounted at /media/cdrom.
  t.platform.optical = {{"sr0", "/dev/sr0", "11:0"}};
  t.platform.mountinfo = "36 25 11:0 / /media/cdrom ro - iso9660 /dev/sr0 ro\n";
  ASSERT_TRUE(engine.BurnCommand(cw_ScanBus)) << engine.ErrorMessage();
  EXPECT_EQ(engine.ResultNumber(), 2);
  EXPECT_EQ(Arguments(), std::vector<std::string>{"-scanbus"});
  ASSERT_EQ(engine.FoundWriters.size(), 2u);
  EXPECT_TRUE(engine.FoundWriters[0].starts_with("0'0'0'/media/cdrom''LG"));
  EXPECT_TRUE(engine.FoundWriters[1].starts_with("0'1'0'X:''PIONEER"));

  Script("");
  EXPECT_FALSE(engine.BurnCommand(cw_ScanBus));
  EXPECT_EQ(engine.ErrorCode, kBurnNoWriter);
  EXPECT_EQ(engine.ErrorText, "Scan bus SCSI failed");

  testing::ScopedEnv no_path{"PATH", src.path().string()};
  EXPECT_FALSE(engine.BurnCommand(cw_ScanBus));
  EXPECT_EQ(engine.ErrorCode, kBurnNoCdrecord);
  EXPECT_EQ(engine.ErrorTitle, "In application path is missing 'wodim' utility");
}

struct VerifyFixture : WriterFixture {
  TempDir cd;
  std::vector<std::pair<std::string, bool>> doors;
  void SetUp() override {
    WriterFixture::SetUp();
    engine.door = [this](const std::string& unit, bool open) {
      doors.emplace_back(unit, open);
      return true;
    };
    t.platform.drives = {testing::MakeDrive(cd.path().string(), kDriveCdRom)};
    engine.WriterUnit = cd.path().string();
    engine.ready_wait = std::chrono::milliseconds(10);
    cd.Write("Arc1/LEVEL_0001/data/level.tr4", std::string(300000, 'L'));
    cd.Write("Arc1/LEVEL_0001/data/notes.txt", "notes");
  }
};

TEST_F(VerifyFixture, AllFilesMustStandOnTheCdWithTheirSizes) {
  ASSERT_TRUE(engine.BurnCommand(cw_VerifyCd, "All")) << engine.ErrorMessage();
  EXPECT_EQ(doors, (std::vector<std::pair<std::string, bool>>{{cd.path().string(), true},
                                                              {cd.path().string(), false}}));
  const struct {
    std::string change;
    std::string text;
  } cases[] = {
      {"size",
       "Full path\"/Arc1/LEVEL_0001/data/notes.txt\" has on CD a different size than "
       "source"},
      {"gone", "Full path\"/Arc1/LEVEL_0001/data/notes.txt\" is missing on CD"},
      {"folder", "Folder \"/Arc1/LEVEL_0001/data/\" is missing on CD"},
  };
  for (const auto& c : cases) {
    if (c.change == "size") WriteTextFile(cd / "Arc1/LEVEL_0001/data/notes.txt", "notes!");
    if (c.change == "gone") fs::remove(cd / "Arc1/LEVEL_0001/data/notes.txt");
    if (c.change == "folder") fs::remove_all(cd / "Arc1/LEVEL_0001/data");
    EXPECT_FALSE(engine.BurnCommand(cw_VerifyCd, "ALL"));
    EXPECT_EQ(engine.ErrorCode, kBurnFailed);
    EXPECT_EQ(engine.ErrorMessage(), "Error in cd burning: " + c.text);
  }
  // What is left out isn't looked for.
  ASSERT_TRUE(engine.BurnCommand(cw_AddNoItem, Level() + "/data"));
  EXPECT_TRUE(engine.BurnCommand(cw_VerifyCd, "All")) << engine.ErrorMessage();
  // A CD with a folder alone is not empty.
  EXPECT_TRUE(engine.BurnCommand(cw_VerifyCd, "Fast"));
  fs::remove_all(cd / "Arc1");
  EXPECT_FALSE(engine.BurnCommand(cw_VerifyCd, "Fast"));
  EXPECT_EQ(engine.ErrorText, "Cd is empty");
  EXPECT_FALSE(engine.BurnCommand(cw_VerifyCd, "Some"));
  EXPECT_EQ(engine.ErrorCode, kBurnInvalidOperand);
}

TEST_F(VerifyFixture, ADriveThatStaysNotReadyEndsItWhenTheUserStopsWaiting) {
  t.platform.drives[0].ready = false;
  t.ui.Answer(msg::kYes, "is not ready").Answer(msg::kNo, "is not ready");
  EXPECT_FALSE(engine.BurnCommand(cw_VerifyCd, "Fast"));
  EXPECT_EQ(engine.ErrorMessage(), "Error in cd burning: Unit is not ready: unreadable CD (?)");
}

TEST_F(VerifyFixture, DoorsGoToTheWriterUnlessANamedDrive) {
  ASSERT_TRUE(engine.BurnCommand(cw_OpenDoor, ""));
  ASSERT_TRUE(engine.BurnCommand(cw_CloseDoor, "/media/other"));
  EXPECT_EQ(doors, (std::vector<std::pair<std::string, bool>>{{cd.path().string(), true},
                                                              {"/media/other", false}}));
  engine.door = [](const std::string&, bool) { return false; };
  EXPECT_FALSE(engine.BurnCommand(cw_OpenDoor, "/media/other"));
  EXPECT_EQ(engine.ErrorTitle, "Unit letter not correct");
}

}  // namespace
}  // namespace vardolin
