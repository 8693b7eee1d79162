#include "audio_commands.h"

#include <ostream>
#include <system_error>

#include "audio/dialog_converti_mp3.h"
#include "audio/mp3_duration.h"
#include "audio/text_ids.h"
#include "audio/wave_header.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

int CmdAudioInfo(Program& program, const std::vector<fs::path>& files, std::ostream& out,
                 std::ostream& err) {
  int rc = 0;
  for (const fs::path& file : files) {
    if (!FileExists(file)) {
      err << "vardolin-cli: " << file.string() << ": no such file\n";
      rc = 1;
      continue;
    }
    if (EndsWithNoCase(file.string(), program.GetText(text::ConvertiMp3Extension))) {
      out << file.string() << "\tmp3\t" << Mp3DurationSeconds(file) << " s\n";
      continue;
    }
    std::string description;
    int kind = 0;
    ClassifyWave(program, file, 0, description, kind);
    out << file.string() << '\t' << kind << '\t' << description << '\n';
  }
  return rc;
}

int CmdAudioConvert(Program& program, int target, const EncoderSettings& encoder,
                    const std::vector<fs::path>& files, const fs::path& folder, std::ostream& out,
                    std::ostream& err) {
  for (const fs::path& file : files)
    if (!FileExists(file)) {
      err << "vardolin-cli: " << file.string() << ": no such file\n";
      return 1;
    }
  // The command converts copies: a result that would land on one of the sources is refused
  // before anything is written.
  for (const fs::path& file : files) {
    const std::string result =
        ExtractBaseName(file.filename().string()) +
        program.GetText(target == wave_kind::kMp3 ? text::ConvertiMp3Out
                                                  : text::ConvertiOutExtension);
    for (const fs::path& source : files) {
      std::error_code ec;
      const fs::path out = fs::absolute(folder) / result;
      if (!fs::equivalent(out, source, ec) &&
          !EqualsNoCase(out.lexically_normal().string(),
                        fs::absolute(source).lexically_normal().string()))
        continue;
      err << "vardolin-cli: " << source.string()
          << ": the result would replace this source; choose another --out folder\n";
      return 1;
    }
  }
  if (!MakeFolder(folder)) {
    err << "vardolin-cli: " << folder.string() << ": the folder can't be made\n";
    return 1;
  }
  program.encoder = encoder;
  std::string why;
  const fs::path work = JoinFragment(program.Home(), program.GetText(text::AudioWorkFolder));
  if (!RunAudioConversionOnCopies(program, files, fs::absolute(folder), target, work, why)) {
    err << "vardolin-cli: " << (why.empty() ? std::string("the conversion failed") : why) << "\n";
    return 1;
  }
  out << files.size() << " file(s) converted into " << folder.string() << "\n";
  return 0;
}

}  // namespace vardolin
