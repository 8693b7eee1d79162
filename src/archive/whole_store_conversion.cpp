#include "archive/whole_store_conversion.h"

#include "archive/catalogue_file.h"
#include "archive/catalogue_sizes.h"
#include "archive/store_audio_conversion.h"
#include "archive/store_conversion.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {

StoreConversion ConvertWholeStore(Program& program, const CatalogueHeader& old_header, Label* label,
                                  ProgressBar* bar) {
  StoreConversion result;
  CatalogueHeader& header = program.catalogue.header;
  result.bytes_before = header.TotalFilesSize;
  const bool compress = header.CompressFiles;
  const bool to_mp3 = header.WavInMp3;
  // Codes first: the table doesn't change during the run, but a conversion saves it.
  std::vector<std::pair<std::int32_t, std::string>> levels;
  for (std::size_t i = 1; i < program.catalogue.levels.size(); ++i) {
    const LevelRecord& r = program.catalogue.levels[i];
    if (r.CdNumber == 0) levels.emplace_back(r.Code, Trim(r.Name));
  }
  if (to_mp3 != old_header.WavInMp3) {
    for (const auto& [code, name] : levels) {
      ShowStatus(label, program.GetText(text::ConvertingLevel, {name}));
      program.ui().DoEvents();
      std::string why;
      if (ConvertLevelAudio(program, code, to_mp3, why)) continue;
      if (AskUser(program, program.GetText(text::StoreAudioFailed, {name, why, "\r\n\r\n"}),
                  msg::kYesNo) == msg::kNo) {
        // As for compression below: the flag goes back, and asking again finishes the run.
        result.ok = false;
        result.failed_level = name;
        header.WavInMp3 = old_header.WavInMp3;
        break;
      }
    }
  }
  if (compress != old_header.CompressFiles && result.ok) {
    for (const auto& [code, name] : levels) {
      program.ui().DoEvents();
      if (!ConvertLevelStore(program, code, compress, label, bar)) {
        result.ok = false;
        result.failed_level = name;
        break;
      }
      ++result.levels_converted;
    }
  }
  if (!result.ok) {
    header.CompressFiles = old_header.CompressFiles;
    CatalogueChanged(program);
    AskUser(program, program.GetText(text::ConversionFailed, {result.failed_level, "\r\n"}),
            msg::kError);
  }
  RecomputeAllSizes(program, true);
  result.bytes_after = header.TotalFilesSize;
  ShowStatus(label, {});
  if (bar) bar->SetValue(0);
  AskUser(program,
          program.GetText(text::ConversionSizes, {FormatFileSize(result.bytes_before),
                                                  FormatFileSize(result.bytes_after), "\r\n"}),
          msg::kInformation);
  return result;
}

}  // namespace vardolin
