#include "archive/store_audio_conversion.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "audio/dialog_converti_mp3.h"
#include "audio/wave_header.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"

namespace vardolin {
namespace fs = std::filesystem;

bool ConvertLevelAudio(Program& program, std::int32_t code, bool to_mp3, std::string& why) {
  const fs::path files = ResolveCase(JoinFragment(GetLevelFolder(program, code, false),
                                                  program.GetText(text::ConvertFilesFolder)));
  const std::string pattern = WithoutLeadingSeparators(
      program.GetText(to_mp3 ? text::StoreAudioWaves : text::StoreAudioMp3));
  std::vector<fs::path> sources = ListFiles(files, pattern);
  if (sources.empty()) return true;
  std::sort(sources.begin(), sources.end());

  const fs::path work = JoinFragment(program.Home(), program.GetText(text::StoreAudioFolder));
  const fs::path results = work / "out";
  bool ok =
      MakeEmptyFolder(results) &&
      RunAudioConversionOnCopies(program, sources, results,
                                 to_mp3 ? wave_kind::kMp3 : wave_kind::kMusic, work / "in", why);

  // Each result in first, then its source out: a file the user chose to skip keeps its source.
  const std::string extension =
      program.GetText(to_mp3 ? text::StoreAudioMp3 : text::StoreAudioWaves);
  for (const fs::path& source : sources) {
    if (!ok) break;
    const fs::path result =
        results / (ExtractBaseName(source.filename().string()) + ExtractExtension(extension));
    if (!FileExists(result)) continue;
    const fs::path stored = files / result.filename();
    if (!CopyFileOver(result, stored)) {
      why = "copy failed: " + stored.string();
      ok = false;
    } else {
      DeleteFileForced(source);
    }
  }
  DeleteLevelTree(program, work, nullptr, nullptr);
  return ok;
}

}  // namespace vardolin
