// The main window's Audio Converter entries of the Tools menu.

#include "audio/dialog_convert_audio.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "intake/add_files.h"
#include "window/audio_converter_adders.h"
#include "window/principale.h"

namespace vardolin {

void Principale::WireAudio() {
  mnu_DecodeMp3.SetHandler([this] { OpenAudioConverter(true, false); });
  mnu_EncodeMp3.SetHandler([this] { OpenAudioConverter(false, true); });
  mnu_ConvertWav.SetHandler([this] { OpenAudioConverter(false, false); });
}

void HandIntakeAddRoutines(Program& p, Dialog_ConvertAudio& converter) {
  converter.AddFromFile = [&p](const std::filesystem::path& folder, ProgressBar* bar, Label* label,
                               const std::string& extension) {
    return AddFromFile(p, folder, bar, label, true, extension);
  };
  converter.AddFromFolder = [&p](const std::filesystem::path& folder, ProgressBar* bar,
                                 Label* label, const std::string& extension) {
    return AddFromFolder(p, folder, bar, label, false, extension);
  };
}

void Principale::OpenAudioConverter(bool mp3_sources, bool mp3_target) {
  Dialog_ConvertAudio converter(program());
  HandIntakeAddRoutines(program(), converter);
  converter.Load();
  converter.ImpostaValori(mp3_sources, mp3_target);
  program().ui().ShowModal(converter);
}

}  // namespace vardolin
