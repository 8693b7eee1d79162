#include "foundation/dialogs/dialog_splash.h"

#include "foundation/program.h"
#include "foundation/text_ids.h"

namespace vardolin {

std::string VersionText() {
  return "1.04";
}

Dialog_Splash::Dialog_Splash(Program& program) : Form(program, "Dialog_Splash") {
  Image_Splash.SetStretch(true);
}

void Dialog_Splash::ImpostaValori(const std::string& picture) {
  Image_Splash.SetPicture(picture);
}

void Dialog_Splash::Set_Caption_Texts() {
  CaptionFromText(text::ProgramTitle);
  // The lines sit at the foot of the picture; the layout places the label there.
  Label_Version.SetCaption(program().GetText(text::SplashVersion) + VersionText() + "\n" +
                           program().GetText(text::SplashLine1) + "\n" +
                           program().GetText(text::SplashLine2));
}

}  // namespace vardolin
