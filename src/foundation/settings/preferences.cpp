// The settings record and its file, Vardolin.prf: one fixed image of 1848 bytes.

#include "foundation/settings/preferences.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/paths.h"
#include "foundation/text_ids.h"

namespace vardolin {
namespace {

constexpr size_t kStringWidth = 256;
constexpr int kAnsi = 1252;
// The name the file has always had; text 1089 holds the same, but the settings are read before
// any language file is.
constexpr const char* kSettingsFileName = "Vardolin.prf";

// Reads each field only when its bytes are all there, so that a short file keeps the defaults
// from where it ends. A string cut by the end keeps the characters it has.
class FieldReader {
 public:
  explicit FieldReader(std::string_view bytes) : r_(bytes) {}
  void Flag(bool& field) {
    if (r_.Remaining() >= 2)
      field = r_.Flag();
    else
      r_.Skip(2);
  }
  void Int(std::int32_t& field) {
    if (r_.Remaining() >= 4)
      field = r_.I32();
    else
      r_.Skip(4);
  }
  void String(std::string& field) {
    if (r_.Remaining() > 0)
      field = r_.FixedString(kStringWidth, kAnsi);
    else
      r_.Skip(kStringWidth);
  }

 private:
  ByteReader r_;
};

std::filesystem::path SettingsPath(const Program& program, bool from_texts) {
  std::string name = from_texts ? program.GetText(text::SettingsFileName) : std::string();
  if (name.empty()) name = kSettingsFileName;
  return JoinFragment(program.Home(), name);
}

}  // namespace

ParsedPreferences ParsePreferences(std::string_view bytes) {
  ParsedPreferences out;
  Preferences& p = out.prefs;
  FieldReader f(bytes);
  f.Flag(p.ShowScreenshotPanel);
  f.Flag(p.PromptCapture);
  f.Flag(p.NoAutoCompile);
  f.Flag(p.CheckEqualLevels);
  f.Flag(p.Reserved);
  f.String(p.LastArchive);
  f.String(p.EditorFolder);
  f.String(p.CompilerName);
  f.String(p.GameName);
  f.String(p.DefaultLoadDir);
  f.Flag(p.NoDecompress);
  f.Flag(p.FullBackupDone);
  f.Flag(p.AutoSave);
  // Offset 1296: where the earlier format ended.
  f.Flag(p.ArchiveSavegames);
  f.Int(p.SavegamesToArchive);
  f.Flag(p.AutoUpdateUrls);
  f.Int(p.AssociationMinutes);
  f.String(p.GraphicsProgram);
  f.Int(p.CheckTenths);
  f.Flag(p.VerifyImage);
  f.Flag(p.EnableJoystick);
  f.Int(p.JoyCaptureButtons);
  f.Flag(p.JoyCaptureAlone);
  f.Int(p.JoyCloseButtons);
  f.Flag(p.JoyCloseAlone);
  f.Int(p.JoystickNumber);
  f.Int(p.Flags);
  f.String(p.Language);

  if (bytes.size() != Preferences::kFileSize) {
    // Another version wrote this file: trust only what the earlier format held.
    out.upgraded = true;
    const Preferences defaults;
    p.ArchiveSavegames = defaults.ArchiveSavegames;
    p.SavegamesToArchive = defaults.SavegamesToArchive;
    p.AutoUpdateUrls = defaults.AutoUpdateUrls;
    p.AssociationMinutes = defaults.AssociationMinutes;
    p.GraphicsProgram = defaults.GraphicsProgram;
    p.CheckTenths = defaults.CheckTenths;
    p.VerifyImage = defaults.VerifyImage;
    p.EnableJoystick = defaults.EnableJoystick;
    p.JoyCaptureButtons = defaults.JoyCaptureButtons;
    p.JoyCaptureAlone = defaults.JoyCaptureAlone;
    p.JoyCloseButtons = defaults.JoyCloseButtons;
    p.JoyCloseAlone = defaults.JoyCloseAlone;
    p.JoystickNumber = defaults.JoystickNumber;
    p.Flags = 0;
    p.Language.clear();
  }
  return out;
}

std::string SerializePreferences(const Preferences& p) {
  ByteWriter w;
  w.Flag(p.ShowScreenshotPanel);
  w.Flag(p.PromptCapture);
  w.Flag(p.NoAutoCompile);
  w.Flag(p.CheckEqualLevels);
  w.Flag(p.Reserved);
  w.FixedString(p.LastArchive, kStringWidth, kAnsi);
  w.FixedString(p.EditorFolder, kStringWidth, kAnsi);
  w.FixedString(p.CompilerName, kStringWidth, kAnsi);
  w.FixedString(p.GameName, kStringWidth, kAnsi);
  w.FixedString(p.DefaultLoadDir, kStringWidth, kAnsi);
  w.Flag(p.NoDecompress);
  w.Flag(p.FullBackupDone);
  w.Flag(p.AutoSave);
  w.Flag(p.ArchiveSavegames);
  w.I32(p.SavegamesToArchive);
  w.Flag(p.AutoUpdateUrls);
  w.I32(p.AssociationMinutes);
  w.FixedString(p.GraphicsProgram, kStringWidth, kAnsi);
  w.I32(p.CheckTenths);
  w.Flag(p.VerifyImage);
  w.Flag(p.EnableJoystick);
  w.I32(p.JoyCaptureButtons);
  w.Flag(p.JoyCaptureAlone);
  w.I32(p.JoyCloseButtons);
  w.Flag(p.JoyCloseAlone);
  w.I32(p.JoystickNumber);
  w.I32(p.Flags);
  w.FixedString(p.Language, kStringWidth, kAnsi);
  return w.Take();
}

LoadResult LoadPreferences(Program& program) {
  LoadResult result;
  program.prefs = Preferences{};
  std::filesystem::path path = SettingsPath(program, false);
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) {
    result.FirstRun = true;
    return result;
  }
  std::ifstream in(path, std::ios::binary);
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  ParsedPreferences parsed = ParsePreferences(bytes);
  program.prefs = std::move(parsed.prefs);
  result.PrefsUpgraded = parsed.upgraded;
  return result;
}

void SavePreferences(Program& program) {
  if (program.before_save_preferences) program.before_save_preferences(program);
  // A file that can't be written loses this run's settings without a word, as it always has.
  AtomicWriteFile(SettingsPath(program, true), SerializePreferences(program.prefs));
}

}  // namespace vardolin
