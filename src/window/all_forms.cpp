#include "window/all_forms.h"

#include "archive/dialog_new_arc.h"
#include "archive/dialog_pref_arc.h"
#include "audio/dialog_convert_audio.h"
#include "audio/dialog_converti_mp3.h"
#include "cd/dialog_insert_cd.h"
#include "cd/dialog_muovi_su_cd.h"
#include "cd/dialog_setup_cd.h"
#include "editor/dialog_compare_trle.h"
#include "editor/dialog_installa_trle.h"
#include "editor/dialog_tipo_exe.h"
#include "editor/dialog_trova_trle.h"
#include "foundation/dialogs/dialog_get_dir.h"
#include "foundation/dialogs/dialog_input_box.h"
#include "foundation/dialogs/dialog_msg_box.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/dialog_splash.h"
#include "foundation/dialogs/dialog_wait.h"
#include "foundation/settings/dialog_settings.h"
#include "intake/dialog_add_wads.h"
#include "intake/dialog_assistant.h"
#include "intake/dialog_autore.h"
#include "intake/dialog_cerca_livelli.h"
#include "intake/dialog_compila.h"
#include "intake/dialog_new_level.h"
#include "intake/dialog_scambia_nomi.h"
#include "play/dialog_restore.h"
#include "savegames/dialog_cattura.h"
#include "savegames/dialog_joy_stick.h"
#include "savegames/dialog_list_save_game.h"
#include "savegames/dialog_resize.h"
#include "savegames/dialog_screen_shot.h"
#include "web/dialog_download.h"
#include "web/dialog_indice.h"
#include "web/dialog_input_testo.h"
#include "web/dialog_siti.h"
#include "web/dialog_testo.h"
#include "web/dialog_zip.h"
#include "window/principale.h"

namespace vardolin {
namespace {

template <class F>
FormFactory Entry(const char* name) {
  return {name, [](Program& p) -> std::unique_ptr<Form> { return std::make_unique<F>(p); }};
}

}  // namespace

const std::vector<FormFactory>& AllForms() {
  static const std::vector<FormFactory> forms = {
      // One line per form.
      Entry<Principale>("Principale"),
      Entry<Dialog_Settings>("Dialog_Settings"),
      Entry<Dialog_GetDir>("Dialog_GetDir"),
      Entry<Dialog_InputBox>("Dialog_InputBox"),
      Entry<Dialog_MsgBox>("Dialog_MsgBox"),
      Entry<Dialog_Progress>("Dialog_Progress"),
      Entry<Dialog_Splash>("Dialog_Splash"),
      Entry<Dialog_Wait>("Dialog_Wait"),
      Entry<Dialog_NewArc>("Dialog_NewArc"),
      Entry<Dialog_PrefArc>("Dialog_PrefArc"),
      Entry<Dialog_Cattura>("Dialog_Cattura"),
      Entry<Dialog_TrovaTrle>("Dialog_TrovaTrle"),
      Entry<Dialog_TipoExe>("Dialog_TipoExe"),
      Entry<Dialog_Restore>("Dialog_Restore"),
      Entry<Dialog_CompareTrle>("Dialog_CompareTrle"),
      Entry<Dialog_InstallaTrle>("Dialog_InstallaTrle"),
      Entry<Dialog_Zip>("Dialog_Zip"),
      Entry<Dialog_Resize>("Dialog_Resize"),
      Entry<Dialog_ListSaveGame>("Dialog_ListSaveGame"),
      Entry<Dialog_ScreenShot>("Dialog_ScreenShot"),
      Entry<Dialog_InputTesto>("Dialog_InputTesto"),
      Entry<Dialog_Autore>("Dialog_Autore"),
      Entry<Dialog_JoyStick>("Dialog_JoyStick"),
      Entry<Dialog_NewLevel>("Dialog_NewLevel"),
      Entry<Dialog_Download>("Dialog_Download"),
      Entry<Dialog_Siti>("Dialog_Siti"),
      Entry<Dialog_ConvertAudio>("Dialog_ConvertAudio"),
      Entry<Dialog_ConvertiMp3>("Dialog_ConvertiMp3"),
      Entry<Dialog_CercaLivelli>("Dialog_CercaLivelli"),
      Entry<Dialog_Testo>("Dialog_Testo"),
      Entry<Dialog_Indice>("Dialog_Indice"),
      Entry<Dialog_InsertCd>("Dialog_InsertCd"),
      Entry<Dialog_MuoviSuCd>("Dialog_MuoviSuCd"),
      Entry<Dialog_SetupCd>("Dialog_SetupCd"),
      Entry<Dialog_Compila>("Dialog_Compila"),
      Entry<Dialog_Assistant>("Dialog_Assistant"),
      Entry<Dialog_AddWads>("Dialog_AddWads"),
      Entry<Dialog_ScambiaNomi>("Dialog_ScambiaNomi"),
  };
  return forms;
}

}  // namespace vardolin
