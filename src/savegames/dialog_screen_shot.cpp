#include "savegames/dialog_screen_shot.h"

#include "foundation/pictures/picture_file.h"
#include "foundation/program.h"
#include "savegames/text_ids.h"

namespace vardolin {

Dialog_ScreenShot::Dialog_ScreenShot(Program& program) : Form(program, "Dialog_ScreenShot") {
  Image1.SetStretch(true);
}

bool Dialog_ScreenShot::ImpostaValori(const std::string& NomeShot) {
  Bitmap picture;
  if (ReadPictureFile(NomeShot, picture) != PictureResult::Ok) {
    Image1.SetPicture({});
    SetCaption({});
    return false;
  }
  Image1.SetPicture(NomeShot);
  SetCaption(program().GetText(text::ZoomCaption) + NomeShot);
  return true;
}

}  // namespace vardolin
