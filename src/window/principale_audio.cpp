// The main window's Audio Converter entries of the Tools menu.

#include "audio/dialog_convert_audio.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "window/principale.h"

namespace vardolin {

void Principale::WireAudio() {
  mnu_DecodeMp3.SetHandler([this] { OpenAudioConverter(true, false); });
  mnu_EncodeMp3.SetHandler([this] { OpenAudioConverter(false, true); });
  mnu_ConvertWav.SetHandler([this] { OpenAudioConverter(false, false); });
}

void Principale::OpenAudioConverter(bool mp3_sources, bool mp3_target) {
  Dialog_ConvertAudio converter(program());
  converter.Load();
  converter.ImpostaValori(mp3_sources, mp3_target);
  program().ui().ShowModal(converter);
}

}  // namespace vardolin
