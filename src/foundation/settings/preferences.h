#pragma once
// The settings record. Its file image is 1848 bytes, field by field; an earlier format ended at
// offset 1296.

#include <cstdint>
#include <string>
#include <string_view>

namespace vardolin {

class Program;

struct Preferences {
  static constexpr size_t kFileSize = 1848;
  static constexpr size_t kOldFileSize = 1296;

  bool ShowScreenshotPanel = true;
  bool PromptCapture = false;
  bool NoAutoCompile = false;
  bool CheckEqualLevels = true;
  bool Reserved = false;
  std::string LastArchive;
  std::string EditorFolder;
  std::string CompilerName = "tom2pc.exe";
  std::string GameName = "tomb4.exe";
  std::string DefaultLoadDir = "c:\\";
  bool NoDecompress = true;
  bool FullBackupDone = false;
  bool AutoSave = true;
  bool ArchiveSavegames = true;
  std::int32_t SavegamesToArchive = 5;
  bool AutoUpdateUrls = true;
  std::int32_t AssociationMinutes = 5;
  std::string GraphicsProgram;
  std::int32_t CheckTenths = 5;
  bool VerifyImage = true;
  bool EnableJoystick = true;
  std::int32_t JoyCaptureButtons = 0;
  bool JoyCaptureAlone = false;
  std::int32_t JoyCloseButtons = 0;
  bool JoyCloseAlone = false;
  std::int32_t JoystickNumber = 0;
  std::int32_t Flags = 0;
  std::string Language;

  bool SoundDisabled() const { return (Flags & 1) != 0; }
  bool operator==(const Preferences&) const = default;
};

// Pure image conversion. Parsing never fails: a short file keeps defaults where it ends, and a
// file of any length other than 1848 has everything from offset 1296 set back to defaults.
struct ParsedPreferences {
  Preferences prefs;
  bool upgraded = false;
};
ParsedPreferences ParsePreferences(std::string_view bytes);
std::string SerializePreferences(const Preferences& prefs);

struct LoadResult {
  bool FirstRun = false;
  bool PrefsUpgraded = false;
};
// Reads the settings file of the program's home into program.prefs.
LoadResult LoadPreferences(Program& program);
// Saves a changed catalogue first (or gives it up), then writes the settings file atomically.
void SavePreferences(Program& program);

}  // namespace vardolin
