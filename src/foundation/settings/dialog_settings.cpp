#include "foundation/settings/dialog_settings.h"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "foundation/platform/wine_registry.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"
#include "foundation/texts/text_catalogue.h"

namespace vardolin {
namespace {

constexpr int kTenthsChoices = 9;
constexpr int kTenthsFallbackIndex = 4;  // the fifth entry, 5 tenths
constexpr int kMaxSavegamesToArchive = 15;

// A number as a person types it: sign, digits, an optional fraction and exponent, blanks around.
bool ParseNumber(const std::string& typed, double& value) {
  std::string s = Trim(typed);
  if (s.empty()) return false;
  size_t i = 0;
  if (s[i] == '+' || s[i] == '-') ++i;
  size_t digits = 0;
  while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) ++i, ++digits;
  if (i < s.size() && (s[i] == '.' || s[i] == ',')) {
    ++i;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) ++i, ++digits;
  }
  if (digits == 0) return false;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    size_t exp_digits = 0;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) ++i, ++exp_digits;
    if (exp_digits == 0) return false;
  }
  if (i != s.size()) return false;
  for (char& c : s)
    if (c == ',') c = '.';
  value = std::strtod(s.c_str(), nullptr);
  return std::isfinite(value);
}

}  // namespace

Dialog_Settings::Dialog_Settings(Program& program)
    : Form(program, "Dialog_Settings", " Vardolin Settings") {
  Opt_PromptCapture.SetCaption("Prompt me after capture to choose a name for new screen-shot");
  Opt_NonPrompt.SetCaption(
      "Don't prompt me. Save screen-shot with progressive name: counter + level name");
  Check_VerifyImage.SetCaption("Verify and ignore captured images (screnshots) all blacks");
  Check_NoAutoCompila.SetCaption(" Disable auto-compile for tom files");
  Check_TestCOntrollaUguali.SetCaption(" Check for equal levels in [add level] phase");
  Check_NonDecomprimere.SetCaption(" Don't decompress to show level properties");
  Check_AutoSave.SetCaption(" Auto save (save archive after every change)");
  Check_AggiornamentoUrl.SetCaption("Automatic request  for update online database");
  Check_DisableSound.SetCaption("Disable Vardolin sounds");
  Check_ArchiviaSavegame.SetCaption(
      " When tomb raider slots are full, move and archive  automatically");
  Check_EnableJoystick.SetCaption("Use also JoyStick to command Vardolin");
  // Whoever can open the joystick window gives the button its handler and enables it.
  Pul_SetJoy.SetEnabled(false);
}

void Dialog_Settings::Set_Caption_Texts() {
  CaptionFromText(text::SettingsTitle);
  CaptionFromText(Label1, text::SettingsEditorPath);
  for (Button* b : {&Pul_SfogliaPathTrle, &Pul_SfogliaLoadDir, &Pul_ScegliEditor})
    CaptionFromText(*b, text::SettingsBrowse);
  CaptionFromText(Label4, text::SettingsLoadDir);
  CaptionFromText(Label5, text::SettingsFullBackup);
  CaptionFromText(Frame1, text::SettingsCaptureFrame);
  CaptionFromText(Opt_PromptCapture, text::SettingsPromptCapture);
  CaptionFromText(Opt_NonPrompt, text::SettingsNonPrompt);
  CaptionFromText(Check_VerifyImage, text::SettingsVerifyImage);
  CaptionFromText(Label9, text::SettingsGraphicsProgram);
  CaptionFromText(Frame2, text::SettingsAdvancedFrame);
  CaptionFromText(Check_NoAutoCompila, text::SettingsNoAutoCompile);
  CaptionFromText(Check_TestCOntrollaUguali, text::SettingsCheckEqual);
  CaptionFromText(Check_NonDecomprimere, text::SettingsNoDecompress);
  CaptionFromText(Check_AutoSave, text::SettingsAutoSave);
  CaptionFromText(Check_AggiornamentoUrl, text::SettingsAutoUpdateUrls);
  CaptionFromText(Label8, text::SettingsCheckInterval);
  CaptionFromText(Check_DisableSound, text::SettingsDisableSound);
  CaptionFromText(Label2, text::SettingsLanguage);
  CaptionFromText(Frame3, text::SettingsSavegameFrame);
  CaptionFromText(Check_ArchiviaSavegame, text::SettingsArchiveSavegames);
  CaptionFromText(Label3, text::SettingsSavegamesSuffix);
  CaptionFromText(Label6, text::SettingsAssociate);
  CaptionFromText(Label7, text::SettingsMinutes);
  CaptionFromText(Frame4, text::SettingsJoystickFrame);
  CaptionFromText(Check_EnableJoystick, text::SettingsEnableJoystick);
  CaptionFromText(Pul_SetJoy, text::SettingsSetJoy);
  CaptionFromText(Pul_Ok, text::SettingsOk);
  CaptionFromText(Pul_Cancel, text::SettingsCancel);
}

void Dialog_Settings::FillCombos() {
  Program& p = program();
  Combo_Decimi.Clear();
  for (int tenths = 1; tenths <= kTenthsChoices; ++tenths)
    Combo_Decimi.AddItem(p.GetText(text::CheckTenthsEntry) + std::to_string(tenths) + "  ", tenths);
  Combo_NSavegame.Clear();
  for (int n = 1; n <= kMaxSavegamesToArchive; ++n) Combo_NSavegame.AddItem(std::to_string(n), n);
  Combo_Lingua.Clear();
  for (const std::string& name : ListLanguages(p.Home())) Combo_Lingua.AddItem(name);
}

void Dialog_Settings::ImpostaValori() {
  Program& p = program();
  const Preferences& prefs = p.prefs;
  copy_ = prefs;
  FillCombos();

  Label_PathTrle.SetCaption(prefs.EditorFolder);
  Label_DefaultLoadDir.SetCaption(prefs.DefaultLoadDir);
  Label_FullBackup.SetCaption(
      p.GetText(prefs.FullBackupDone ? text::FullBackupDone : text::FullBackupNotDone));
  if (prefs.PromptCapture)
    Opt_PromptCapture.SetValue(true);
  else
    Opt_NonPrompt.SetValue(true);
  Check_VerifyImage.SetValue(prefs.VerifyImage);
  Label_EditorGrafico.SetCaption(prefs.GraphicsProgram);
  Check_NoAutoCompila.SetValue(prefs.NoAutoCompile);
  Check_TestCOntrollaUguali.SetValue(prefs.CheckEqualLevels);
  Check_NonDecomprimere.SetValue(prefs.NoDecompress);
  Check_AutoSave.SetValue(prefs.AutoSave);
  Check_AggiornamentoUrl.SetValue(prefs.AutoUpdateUrls);
  int tenths = Combo_Decimi.FindData(prefs.CheckTenths);
  Combo_Decimi.SetListIndex(tenths >= 0 ? tenths : kTenthsFallbackIndex);
  Check_DisableSound.SetValue(prefs.SoundDisabled());
  Combo_Lingua.SetListIndex(Combo_Lingua.FindText(prefs.Language));
  Check_ArchiviaSavegame.SetValue(prefs.ArchiveSavegames);
  Combo_NSavegame.SetListIndex(Combo_NSavegame.FindData(prefs.SavegamesToArchive));
  Text_MinutiDifferenza.SetText(std::to_string(prefs.AssociationMinutes));
  Check_EnableJoystick.SetValue(prefs.EnableJoystick);
}

void Dialog_Settings::Pul_Ok_Click() {
  Program& p = program();
  Preferences& prefs = p.prefs;
  prefs.EditorFolder = Label_PathTrle.Caption();
  prefs.DefaultLoadDir = Label_DefaultLoadDir.Caption();
  prefs.PromptCapture = Opt_PromptCapture.Value();

  double minutes = 0;
  if (!ParseNumber(Text_MinutiDifferenza.Text(), minutes) ||
      std::trunc(minutes) > std::numeric_limits<std::int32_t>::max() ||
      std::trunc(minutes) < std::numeric_limits<std::int32_t>::min()) {
    p.ui().AskUser(p.GetText(text::MinutesNotNumber), msg::kError, "");
    return;
  }
  prefs.AssociationMinutes = static_cast<std::int32_t>(std::trunc(minutes));

  prefs.NoAutoCompile = Check_NoAutoCompila.Value();
  prefs.CheckEqualLevels = Check_TestCOntrollaUguali.Value();
  prefs.NoDecompress = Check_NonDecomprimere.Value();
  prefs.AutoSave = Check_AutoSave.Value();
  prefs.AutoUpdateUrls = Check_AggiornamentoUrl.Value();
  prefs.VerifyImage = Check_VerifyImage.Value();
  prefs.ArchiveSavegames = Check_ArchiviaSavegame.Value();
  if (prefs.ArchiveSavegames && Combo_NSavegame.ListIndex() >= 0)
    prefs.SavegamesToArchive =
        static_cast<std::int32_t>(Combo_NSavegame.ItemData(Combo_NSavegame.ListIndex()));

  prefs.GraphicsProgram = Trim(Label_EditorGrafico.Caption());
  prefs.EnableJoystick = Check_EnableJoystick.Value();
  if (prefs.EnableJoystick) {
    // Wakes the joystick up again and takes the stick's rest anew; whether it answers is
    // judged at the next start.
    JoystickState state;
    if (p.platform().ReadJoystick(prefs.JoystickNumber, state)) {
      p.JoystickNeutralX = state.x;
      p.JoystickNeutralY = state.y;
    }
  }

  if (Check_DisableSound.Value())
    prefs.Flags |= 1;
  else
    prefs.Flags &= ~1;
  if (Combo_Decimi.ListIndex() >= 0)
    prefs.CheckTenths = static_cast<std::int32_t>(Combo_Decimi.ItemData(Combo_Decimi.ListIndex()));
  if (p.main.timer1) p.main.timer1->SetInterval(prefs.CheckTenths * 100);

  if (Combo_Lingua.ListIndex() < 0) {
    p.ui().AskUser(p.GetText(text::NoLanguageChosen), msg::kError, "");
    return;
  }
  prefs.Language = Combo_Lingua.SelectedText();
  if (!EqualsNoCase(prefs.Language, copy_.Language)) ReloadLanguage(p);
  Result = true;
  Unload();
}

void Dialog_Settings::Pul_Cancel_Click() {
  program().prefs = copy_;
  Result = false;
  Unload();
}

void Dialog_Settings::Pul_ScegliEditor_Click() {
  Program& p = program();
  FileRequest request;
  request.title = p.GetText(text::ChooseGraphicsProgramTitle);
  request.filter = p.GetText(text::ProgramFileFilter);
  request.start_folder = ProgramFilesFolder().string();
  std::string chosen = p.ui().AskOpenFile(request);
  if (chosen.empty()) return;
  // Stored at once, like the old dialog did; Cancel puts the copy back.
  p.prefs.GraphicsProgram = chosen;
  Label_EditorGrafico.SetCaption(chosen);
}

void Dialog_Settings::Pul_SfogliaPathTrle_Click() {
  Program& p = program();
  std::string chosen =
      p.ui().AskFolder(Label_PathTrle.Caption(), p.GetText(text::ChooseEditorFolderTitle));
  if (!chosen.empty()) Label_PathTrle.SetCaption(chosen);
}

void Dialog_Settings::Pul_SfogliaLoadDir_Click() {
  Program& p = program();
  std::string chosen =
      p.ui().AskFolder(Label_DefaultLoadDir.Caption(), p.GetText(text::ChooseLoadDirTitle));
  if (!chosen.empty()) Label_DefaultLoadDir.SetCaption(chosen);
}

}  // namespace vardolin
