#pragma once
// What the program shares for a whole run. Passed by reference everywhere; there are no globals,
// so tests can run several programs side by side.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "foundation/catalogue_records.h"
#include "foundation/data_lists.h"
#include "foundation/forms/open_forms.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/watch_clock.h"
#include "foundation/settings/preferences.h"
#include "foundation/texts/text_catalogue.h"

namespace vardolin {

class Ui;
class Platform;
class Form;
class Label;
class ProgressBar;
class Timer;

// What routines deep down tell the main window, which subscribes while it exists. Each call is a
// no-op without a subscriber, so the routines work the same under the command line and in tests.
class Notifications {
 public:
  // The catalogue's rows or the level in the editor folder changed: rebuild the level list.
  void LevelListChanged() const { Call(level_list_changed); }
  // A catalogue was opened: the list shows it, with the level in the editor folder chosen.
  void CatalogueLoaded() const { Call(catalogue_loaded); }
  // New screenshots of the level on show were stored: show the pair with the newest one.
  void NewestShotsStored() const { Call(newest_shots_stored); }

  std::function<void()> level_list_changed;
  std::function<void()> catalogue_loaded;
  std::function<void()> newest_shots_stored;

 private:
  static void Call(const std::function<void()>& f) {
    if (f) f();
  }
};

// The parts of the main window that services anywhere write to: the status line and bar at its
// foot, and the watcher's timer. Null until the main window exists.
struct MainWindowParts {
  Form* form = nullptr;
  Label* info = nullptr;
  ProgressBar* bar = nullptr;
  Timer* timer1 = nullptr;
};

// The MP3 encoder's choices, kept for the run: kbit/s, 1 mono or 2 stereo, and the rate in Hz
// (0 keeps the source's).
struct EncoderSettings {
  std::int32_t Mp3BitRate = 48;
  std::int16_t Mp3Channels = 1;
  std::int32_t Mp3Frequency = 0;
};

// A folder the zip search looked in, and when: an OLE date (days since 30 December 1899).
struct SearchedFolder {
  std::string Path;
  double LastUsed = 0;
};

class Program {
 public:
  Program(std::filesystem::path home, Ui& ui, Platform& platform);

  Ui& ui() const { return ui_; }
  Platform& platform() const { return platform_; }
  // The clock that watch loops wait on: the real one unless a test set its own.
  WatchClock& watch_clock() const { return clock_ ? *clock_ : real_clock_; }
  void SetWatchClock(WatchClock* clock) { clock_ = clock; }
  // The program's folder: settings, language files, backups, the log.
  const std::filesystem::path& Home() const { return home_; }

  std::string GetText(std::int32_t id, const std::vector<std::string>& values = {}) const {
    return texts.GetText(id, values);
  }

  Preferences prefs;
  TextCatalogue texts;
  MainWindowParts main;
  Notifications notify;
  Catalogue catalogue;
  // Modeless windows kept up by the services: Dialog_Progress, Dialog_Wait, Dialog_Splash.
  OpenForms open_forms;

  // Shared state of the run.
  std::string BackupFolder;
  bool ClosingDown = false;
  bool BaseLevelBuilt = false;
  bool NewWindowsFamily = true;
  bool CatalogueDirty = false;
  bool CdRefused = false;
  // Set with the folder of a CD level that was fetched out of a disc image: the folder is a copy
  // of the program's own that the caller may empty (activation moves its files instead of
  // copying them). Cleared where CdRefused is.
  bool CdFetchedCopy = false;
  bool GameRunning = false;
  bool MediaPlay = false;
  EncoderSettings encoder;
  // The launched game (tomb4.exe) and play_the_game.exe of a media level; a process id of 0 or
  // less is none.
  Process GameProcess;
  Process MediaProcess;
  // The screenshots of the level on show, and the index of the left one of the pair shown.
  std::int32_t ShotCount = 0;
  std::int32_t FirstShotShown = 0;
  // Where the joystick's stick rests, on the 0 to 65535 scale of its axes: read at start-up, when
  // the joystick is confirmed in the settings and when another one is chosen.
  std::uint32_t JoystickNeutralX = 32767;
  std::uint32_t JoystickNeutralY = 32767;
  // Built by start-up.
  DataLists lists;
  // The command line as one text, each argument a quoted token; read by start-up.
  std::string CommandLine;
  // Start-up runs once per process, even when the main window loads again.
  bool StartedUp = false;
  // The level being added: the slot just behind the table's last level, which the properties
  // form fills before the level count rises (so a cancelled level never shows in the list).
  LevelRecord PendingLevel;
  // The package the user most recently chose for the level being edited.
  std::string LastPackagePath;
  // Set when a level info file was applied to the level being edited.
  bool InfoFileFlag = false;
  // The folders of the zip search, read from Old_Search.bin while empty, kept for the run.
  std::vector<SearchedFolder> SearchHistory;

  // Set by the archive so that writing the settings first saves or gives up a changed
  // catalogue, without the foundation knowing the catalogue.
  std::function<void(Program&)> before_save_preferences;
  // Set by the CD subsystem so that the level store reaches a level on CD without knowing CDs:
  // the level's folder on its disc (or fetched from its image), asking for the CD when needed;
  // empty when the user doesn't give it.
  std::function<std::filesystem::path(Program&, std::int32_t code)> level_folder_on_cd;
  // Set by the CD subsystem so that opening a catalogue knows catalogues on CD. The first reads
  // the catalogue's copy out of a CD image opened as a catalogue (false when the path is no
  // image). The second runs once the catalogue is in memory: `go_on` comes in true and goes
  // false when the normal opening goes on; otherwise the answer ends the opening.
  std::function<bool(Program&, const std::filesystem::path& image, std::string& bytes)>
      catalogue_in_image;
  std::function<bool(Program&, const std::filesystem::path& catalogue, bool& go_on)> cd_catalogue;

 private:
  std::filesystem::path home_;
  Ui& ui_;
  Platform& platform_;
  WatchClock* clock_ = nullptr;
  mutable RealWatchClock real_clock_;
};

}  // namespace vardolin
