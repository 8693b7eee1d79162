#pragma once
// The settings window: edits a copy of the settings record and writes it back on Cancel.

#include "foundation/forms/form.h"
#include "foundation/settings/preferences.h"

namespace vardolin {

class Dialog_Settings : public Form {
 public:
  explicit Dialog_Settings(Program& program);
  // Takes a copy of the settings and fills the controls from it.
  void ImpostaValori();
  // Set when the dialog closed through Pul_Ok; read by the caller after the modal show.
  bool Result = false;

  Label Label1{*this, "Label1", "TR Level editor Path:"};
  Label Label_PathTrle{*this, "Label_PathTrle"};
  Button Pul_SfogliaPathTrle{*this, "Pul_SfogliaPathTrle", "Browse",
                             [this] { Pul_SfogliaPathTrle_Click(); }};
  Label Label4{*this, "Label4", "Default download folder:"};
  Label Label_DefaultLoadDir{*this, "Label_DefaultLoadDir"};
  Button Pul_SfogliaLoadDir{*this, "Pul_SfogliaLoadDir", "Browse",
                            [this] { Pul_SfogliaLoadDir_Click(); }};
  Label Label5{*this, "Label5", "Full backup:"};
  Label Label_FullBackup{*this, "Label_FullBackup"};

  Frame Frame1{*this, "Frame1", " Screen-shot capture "};
  OptionButton Opt_PromptCapture{*this, "Opt_PromptCapture", "Frame1"};
  OptionButton Opt_NonPrompt{*this, "Opt_NonPrompt", "Frame1"};
  CheckBox Check_VerifyImage{*this, "Check_VerifyImage"};
  Label Label9{*this, "Label9", "Graphical program"};
  Label Label_EditorGrafico{*this, "Label_EditorGrafico"};
  Button Pul_ScegliEditor{*this, "Pul_ScegliEditor", "Browse",
                          [this] { Pul_ScegliEditor_Click(); }};

  Frame Frame2{*this, "Frame2", " Advanced settings "};
  CheckBox Check_NoAutoCompila{*this, "Check_NoAutoCompila"};
  CheckBox Check_TestCOntrollaUguali{*this, "Check_TestCOntrollaUguali"};
  CheckBox Check_NonDecomprimere{*this, "Check_NonDecomprimere"};
  CheckBox Check_AutoSave{*this, "Check_AutoSave"};
  CheckBox Check_AggiornamentoUrl{*this, "Check_AggiornamentoUrl"};
  Label Label8{*this, "Label8", "Interval time to check pressing keys and screenshot capture"};
  ComboBox Combo_Decimi{*this, "Combo_Decimi"};
  CheckBox Check_DisableSound{*this, "Check_DisableSound"};
  Label Label2{*this, "Label2", "Language used in Vardolin:"};
  ComboBox Combo_Lingua{*this, "Combo_Lingua"};

  Frame Frame3{*this, "Frame3", " Savegame Settings "};
  CheckBox Check_ArchiviaSavegame{*this, "Check_ArchiviaSavegame"};
  ComboBox Combo_NSavegame{*this, "Combo_NSavegame"};
  Label Label3{*this, "Label3", " savegames"};
  Label Label6{*this, "Label6",
               "Associate Savegame with screenshot if difference between their dates is <= than"};
  TextBox Text_MinutiDifferenza{*this, "Text_MinutiDifferenza"};
  Label Label7{*this, "Label7", "minutes"};

  Frame Frame4{*this, "Frame4", " JoyStick Settings "};
  CheckBox Check_EnableJoystick{*this, "Check_EnableJoystick"};
  Button Pul_SetJoy{*this, "Pul_SetJoy", "Change joystick settings", {}};

  Button Pul_Ok{*this, "Pul_Ok", "OK", [this] { Pul_Ok_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Pul_Cancel_Click(); }};
  // The help viewer lies above the settings: whoever opens the form gives this its handler.
  Button Pul_Help{*this, "Pul_Help", "Help", {}};

 protected:
  void Set_Caption_Texts() override;

 private:
  void FillCombos();
  void Pul_Ok_Click();
  void Pul_Cancel_Click();
  void Pul_ScegliEditor_Click();
  void Pul_SfogliaPathTrle_Click();
  void Pul_SfogliaLoadDir_Click();

  Preferences copy_;
};

}  // namespace vardolin
