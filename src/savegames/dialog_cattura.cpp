#include "savegames/dialog_cattura.h"

#include <system_error>

#include "archive/catalogue_ops.h"
#include "foundation/dialogs/ask.h"
#include "foundation/pictures/bitmap.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "savegames/capture.h"
#include "savegames/shot_store.h"
#include "savegames/text_ids.h"

namespace vardolin {

Dialog_Cattura::Dialog_Cattura(Program& program)
    : Form(program, "Dialog_Cattura", " Tomb Raider screen-shot captured") {
  Check_AutoSave.SetCaption(
      "In future don't prompt me. Save screen-shot with progressive name: counter + level name");
  Image1.SetStretch(true);
}

void Dialog_Cattura::Set_Caption_Texts() {
  CaptionFromText(text::CatturaCaption);
  CaptionFromText(Check_AutoSave, text::CatturaAutoSave);
  CaptionFromText(Pul_Save, text::CatturaPulSave);
  CaptionFromText(Pul_Cancel, text::CatturaPulCancel);
}

void Dialog_Cattura::ImpostaValori(const std::string& DirScreenShots) {
  ExitValue = false;
  SavedPath.clear();
  folder_ = DirScreenShots;
  // The picture is shown from the temporary bitmap that storing it passes through anyway.
  Bitmap picture;
  const std::filesystem::path preview = TemporaryShotPath(program());
  if (program().ui().ClipboardImage(picture) &&
      WritePictureFile(preview, picture) == PictureResult::Ok) {
    Image1.SetPicture(preview.string());
    Image1.Refresh();
  } else {
    Image1.SetPicture({});
  }
}

void Dialog_Cattura::Check_AutoSave_Click() {
  // Counts at once, even when the dialog is cancelled afterwards.
  program().prefs.PromptCapture = !Check_AutoSave.Value();
}

void Dialog_Cattura::Pul_Save_Click() {
  Program& p = program();
  FileRequest request;
  request.filter = p.GetText(text::CaptureSaveFilter);
  request.start_folder = folder_;
  const std::string chosen = p.ui().AskSaveFile(request);
  if (chosen.empty()) return;
  std::string why;
  if (StoreClipboardImage(p, chosen, &why)) {
    SavedPath = chosen;
    std::error_code ec;
    const auto bytes = std::filesystem::file_size(SavedPath, ec);
    AddLevelSize(p, ec ? 0.0 : static_cast<double>(bytes), ActiveLevelIndex(p), SizeKind::User);
  } else {
    AskUser(p, p.GetText(text::CaptureNotSaved, {"\r\n" + chosen + "\r\n"}) + why, msg::kError);
  }
  ExitValue = true;
  RiattivaTombRaider();
  Unload();
}

void Dialog_Cattura::Pul_Cancel_Click() {
  RiattivaTombRaider();
  Unload();
}

bool Dialog_Cattura::QueryUnload() {
  RiattivaTombRaider();
  return true;
}

bool Dialog_Cattura::RiattivaTombRaider() {
  Platform& platform = program().platform();
  const WindowHandle window = platform.FindProcessWindow(GameProcess);
  return window != 0 && platform.ActivateWindow(window);
}

}  // namespace vardolin
