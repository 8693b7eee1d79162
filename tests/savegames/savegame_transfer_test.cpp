// Savegames out of the program and in: what comes in never lands outside the slots, is a real
// savegame, and asks before it replaces one; what goes out lands whole; mail goes through the
// desktop's mailer, here a recording stand-in first on PATH.

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>

#include "archive_writer.h"
#include "environment.h"
#include "savegame_panel_fixture.h"
#include "savegames/dialog_list_save_game.h"
#include "savegames/savegame_transfer.h"
#include "store_fixture.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::GameSavegameBytes;
using testing::SavegamePanelFixture;

// Chooses every row of the selection dialog, sets its boxes and presses OK.
auto ChooseAll(bool zip, bool delete_sources) {
  return [zip, delete_sources](Form& form) {
    auto& dialog = static_cast<Dialog_ListSaveGame&>(form);
    dialog.Check_CreaFileZip.SetValue(zip);
    dialog.Check_Elimina.SetValue(delete_sources);
    dialog.Pul_SelezionaTutti.Click();
    dialog.Pul_Ok.Click();
  };
}

TEST(SavegameTransfer, AFriendsZipBringsOnlySavegamesAndNothingOutsideTheSlots) {
  SavegamePanelFixture f;
  const fs::path zip = f.Path("friend.zip");
  testing::WriteArchive(zip, {{"savegame.1", GameSavegameBytes(5, "Good")},
                              {"../climb/savegame.2", GameSavegameBytes(6, "Up")},
                              {"/tmp/vardolin_absolute/savegame.3", GameSavegameBytes(7, "Abs")},
                              {"kept/savegame.4", GameSavegameBytes(8, "Deep")},
                              {"savegame.5", "a readme under a savegame's name"}});
  f.ui.Answer(msg::kOk, "climb")
      .Answer(msg::kOk, "savegame.5")
      .Answer(msg::kYes, "not in the level \"Alpha\"");
  EXPECT_EQ(ReceiveSavegameFile(f.program, 1, zip), 2);
  for (const char* title : {"\"Good\"", "\"Deep\""})
    EXPECT_NE(f.ui.Messages().back().find(title), std::string::npos) << title;
  EXPECT_EQ(f.SlotNumbers(SlotFolder(f.program, 1)), (std::vector<int>{5, 8}));
  EXPECT_FALSE(fs::exists(f.program.Home() / "climb"));
  EXPECT_FALSE(fs::exists("/tmp/vardolin_absolute"));
  EXPECT_FALSE(fs::exists(f.program.Home() / "receive_savegames"));
}

// Savegames that carry another level's title come in only when the user says so; those of the
// level's name, or of a title its own savegames carry, come in without a question.
TEST(SavegameTransfer, SavegamesOfAnotherLevelAreAskedAbout) {
  const std::tuple<std::string, int, int> cases[] = {
      // the title they carry, the answer (0: not asked), how many are taken
      {"The Packed Vault", msg::kYes, 1},
      {"The Packed Vault", msg::kNo, 0},
      {"ALPHA", 0, 1},
      {"Save 7", 0, 1}};
  for (const auto& [title, answer, taken] : cases) {
    SavegamePanelFixture f;
    f.FillSet(1, 1, {7});
    const fs::path zip = f.Path("friend.zip");
    testing::WriteArchive(zip, {{"savegame.0", GameSavegameBytes(9, title)}});
    if (answer) f.ui.Answer(answer, "\"" + title + "\", not in the level \"Alpha\"");
    EXPECT_EQ(ReceiveSavegameFile(f.program, 1, zip), taken) << title;
  }
}

TEST(SavegameTransfer, ImportFromAFolderMakesRoomAndAsksBeforeReplacing) {
  struct Case {
    const char* what;
    std::vector<std::int16_t> slots;
    int replace_answer;  // 0: no savegame of the folder has a twin in the slots
    std::vector<int> after;
  } cases[] = {
      {"14 in the slots and 2 chosen: the slots are archived first",
       {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14},
       0,
       {14, 50, 51}},
      // Taken in, a savegame takes the first free slot whatever its save number.
      {"a twin that the user keeps", {50, 2}, msg::kNo, {50, 2, 51}},
      {"a twin that the user replaces", {50, 2}, msg::kYes, {50, 2, 51}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    SavegamePanelFixture f;
    const fs::path slots = SlotFolder(f.program, 1);
    f.FillSlots(1, c.slots);
    const fs::path source = f.Path("from_friend");
    testing::WriteBytes(source / "savegame.0", GameSavegameBytes(50, "Save 50", 9));
    testing::WriteBytes(source / "savegame.1", GameSavegameBytes(51, "Save 51"));
    f.ChooseLevel(1);
    f.ui.Folder(source.string()).OnForm("Dialog_ListSaveGame", ChooseAll(false, false));
    f.ui.Answer(msg::kYes, "saved in \"Save 5");
    if (c.replace_answer) f.ui.Answer(c.replace_answer, "Replace file");
    f.main->mnu_ImportSaveGame.Click();
    EXPECT_EQ(f.SlotNumbers(slots), c.after);
    if (c.replace_answer) {
      EXPECT_EQ(ReadWholeFile(slots / "savegame.0") == ReadWholeFile(source / "savegame.0"),
                c.replace_answer == msg::kYes);
    }
    EXPECT_EQ(f.main->List_SaveGameTomb.ListCount(), static_cast<int>(c.after.size()));
  }
}

TEST(SavegameTransfer, ExportWritesEverySavegameIntoAZipOrAFolderAndLeavesNotesBehind) {
  SavegamePanelFixture f;
  const auto saves = f.FillSlots(1, {3, 4});
  f.WriteNote(saves[0], "my note");
  // The archive set numbers its files as the slots do: none may replace another on the way out.
  f.FillSet(1, 1, {1, 2});
  f.ChooseLevel(1);
  const fs::path zip = f.Path("out/savegames.zip");
  fs::create_directories(zip.parent_path());
  f.ui.OnForm("Dialog_ListSaveGame", ChooseAll(true, false))
      .SaveFile(zip.string())
      .Answer(msg::kOk, "is ready");
  f.main->mnu_ExportSavegame.Click();
  std::int32_t count = 0;
  EXPECT_EQ(ListZipEntries(zip, count, false),
            (std::vector<std::string>{"savegame.0", "savegame.1", "savegame.2", "savegame.3"}));
  EXPECT_EQ(f.ui.ClipboardText(), zip.string());
  EXPECT_FALSE(fs::exists(f.program.Home() / "zip_savegames"));

  const fs::path folder = f.Path("out/folder");
  fs::create_directories(folder);
  f.ui.OnForm("Dialog_ListSaveGame", ChooseAll(false, true)).Folder(folder.string());
  f.main->mnu_ExportSavegame.Click();
  EXPECT_EQ(f.SlotNumbers(folder), (std::vector<int>{3, 4, 1, 2}));
  EXPECT_FALSE(fs::exists(saves[0]));
  EXPECT_TRUE(fs::exists(SavegameNoteFile(f.program, saves[0])));
  EXPECT_EQ(f.main->List_SaveGameTomb.ListCount(), 0);
}

// An export from the window writes none of the program's own files, nothing over a file the user
// keeps and no zip that lacks a savegame, and loses no savegame: the target and the slots stay.
TEST(SavegameTransfer, AnExportThatMayNotWriteItAllLeavesEverythingAsItWas) {
  const std::tuple<char, const char*, std::int32_t, int, const char*> cases[] = {
      // z zip, s Save as, f folder, d folder deleting behind; target; level; answer to the text
      {'z', "home/no_image.jpg", 1, msg::kOk, "own data"},
      {'s', "home/no_image.jpg", 1, msg::kOk, "own data"},
      {'f', "archive", 1, msg::kOk, "own data"},
      {'f', "out", 1, msg::kNo, "exists already"},
      {'d', "trle", 0, msg::kYes, "exists already"},  // the active level's own slots
      {'z', "out/old.zip", 1, msg::kOk, "savegame.2"}};
  for (const auto& [how, name, level, answer, told] : cases) {
    SCOPED_TRACE(name);
    SavegamePanelFixture f;
    const fs::path slots = SlotFolder(f.program, level), target = f.Path(name);
    f.FillSlots(level, {3, 4});
    testing::WriteBytes(f.Path("out/savegame.0"), "the user's own");
    testing::WriteBytes(f.Path("out/old.zip"), "an older zip");
    // Bigger than the file-size limit below, which stands for a full disk.
    if (level) testing::WriteBytes(slots / "savegame.2", std::string(1 << 18, 's'));
    const auto state = [&] {
      return std::tuple(testing::Snapshot(target), ReadWholeFile(target), testing::Snapshot(slots));
    };
    const auto before = state();
    if (how != 's') f.ui.OnForm("Dialog_ListSaveGame", ChooseAll(how == 'z', how == 'd'));
    if (how == 'f' || how == 'd')
      f.ui.Folder(target.string());
    else
      f.ui.SaveFile(target.string());
    for (int i = how == 'd' ? 0 : 1; i < 2; ++i) f.ui.Answer(answer, told);
    f.ChooseLevel(level);
    f.main->List_SaveGameTomb.SetListIndex(0);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{1 << 17, limit.rlim_max};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    (how == 's' ? f.main->mnu_SalvaSavegame : f.main->mnu_ExportSavegame).Click();
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_TRUE(f.ui.Done());
    EXPECT_EQ(state(), before);
  }
}

TEST(SavegameTransfer, MailGoesToTheDesktopsMailerOrSaysThereIsNone) {
  struct Case {
    const char* what;
    const char* mailer;  // the stand-in's script; empty: there is none
    bool handed;
  } cases[] = {
      {"a mailer that takes it", "printf '%s\\n' \"$@\" > \"$0.args\"", true},
      {"a mailer that fails", "exit 3", false},
      {"no mailer at all", nullptr, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    SavegamePanelFixture f;
    const auto saves = f.FillSlots(1, {3});
    const fs::path bin = f.Path("bin");
    fs::create_directories(bin);
    if (c.mailer) {
      testing::WriteBytes(bin / "xdg-email", std::string("#!/bin/sh\n") + c.mailer + "\n");
      fs::permissions(bin / "xdg-email", fs::perms::owner_all);
    }
    // PATH holds only the folder with the stand-in.
    testing::ScopedEnv path("PATH", bin.string());
    f.ChooseLevel(1);
    f.main->List_SaveGameTomb.SetListIndex(0);
    if (!c.handed) f.ui.Answer(msg::kOk, "No mail program");
    f.main->Pul_ExportSaveGame.Click();
    if (!c.handed) continue;
    const std::string args = ReadWholeFile(bin / "xdg-email.args");
    for (const std::string& word : {std::string("--subject\nSavegame Save 3 - \"3\" \"Alpha\"\n"),
                                    std::string("--body\n   3 - Save 3  ("),
                                    ") -> savegame.0\n--attach\n" + saves[0].string()})
      EXPECT_NE(args.find(word), std::string::npos) << word << "\n" << args;
  }
}

}  // namespace
}  // namespace vardolin
