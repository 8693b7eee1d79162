#include "archive/store_conversion.h"

#include <filesystem>
#include <vector>

#include "archive/archive_ask.h"
#include "archive/catalogue_file.h"
#include "archive/catalogue_sizes.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "web/zlib_tool.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr int kJpegQuality = 90;
constexpr const char* kPackedPattern = "*.zl";
constexpr const char* kBitmapName = "load.bmp";
constexpr const char* kJpegName = "load.jpg";

// One planned change: `made` is written from `source`, which goes once the whole level is done.
struct Step {
  fs::path source;
  fs::path made;
};

bool IsNamed(const fs::path& file, const char* name) {
  return ToLower(file.filename().string()) == name;
}

// The files to pack: every plain file but the loading picture, which becomes a JPEG instead.
std::vector<Step> PlanCompress(const fs::path& folder) {
  std::vector<Step> steps;
  for (const fs::path& file : ListFiles(folder, "*")) {
    if (WildcardMatch(file.filename().string(), kPackedPattern)) continue;
    if (IsNamed(file, kBitmapName)) {
      steps.push_back({file, folder / kJpegName});
      continue;
    }
    if (IsNamed(file, kJpegName)) continue;
    fs::path packed = file;
    packed += ".zl";
    steps.push_back({file, packed});
  }
  return steps;
}

std::vector<Step> PlanExpand(const fs::path& folder) {
  std::vector<Step> steps;
  for (const fs::path& file : ListFiles(folder, kPackedPattern))
    steps.push_back({file, file.parent_path() / file.stem()});
  for (const fs::path& file : ListFiles(folder, kJpegName))
    steps.push_back({file, folder / kBitmapName});
  return steps;
}

bool MakeOne(const Step& step) {
  std::error_code ec;
  // A target that already stands belongs to the level; it must not be overwritten or later
  // deleted as if this run had made it.
  if (fs::exists(step.made, ec)) return false;
  std::string ext = ToLower(step.source.extension().string());
  std::string made_ext = ToLower(step.made.extension().string());
  if (made_ext == ".zl") {
    web::ZlibTool tool;
    tool.InputFile = step.source.string();
    tool.OutputFile = step.made.string();
    tool.CompressionLevel = 9;
    return tool.Compress();
  }
  if (ext == ".zl") {
    web::ZlibTool tool;
    tool.InputFile = step.source.string();
    tool.OutputFile = step.made.string();
    return tool.Decompress();
  }
  return ConvertPictureFile(step.source, step.made, kJpegQuality);
}

}  // namespace

bool ConvertLevelFiles(const fs::path& files_folder, bool compress, std::string& failed_file) {
  std::vector<Step> steps = compress ? PlanCompress(files_folder) : PlanExpand(files_folder);
  std::vector<fs::path> made;
  for (const Step& step : steps) {
    if (!MakeOne(step)) {
      failed_file = step.source.filename().string();
      for (const fs::path& m : made) DeleteFileForced(m);
      return false;
    }
    made.push_back(step.made);
  }
  for (const Step& step : steps) DeleteFileForced(step.source);
  return true;
}

StoreConversion ConvertWholeStore(Program& program, const CatalogueHeader& old_header, Label* label,
                                  ProgressBar* bar) {
  StoreConversion result;
  CatalogueHeader& header = program.catalogue.header;
  result.bytes_before = header.TotalFilesSize;
  bool compress = header.CompressFiles;
  if (compress != old_header.CompressFiles) {
    auto& levels = program.catalogue.levels;
    for (std::size_t i = 1; i < levels.size(); ++i) {
      const LevelRecord& level = levels[i];
      if (label) label->SetCaption(program.GetText(text::ConvertingLevel) + Trim(level.Name));
      if (bar) SetProgressPercent(*bar, static_cast<double>(levels.size()), static_cast<double>(i));
      program.ui().DoEvents();
      if (level.CdNumber != 0) continue;
      fs::path files = JoinFragment(HardDiskLevelFolder(program, level.Code),
                                    program.GetText(text::FilesFolder));
      if (!FolderExists(files)) continue;
      if (!ConvertLevelFiles(files, compress, result.failed_file)) {
        result.ok = false;
        result.failed_level = Trim(level.Name);
        break;
      }
      ++result.levels_converted;
    }
  }
  if (!result.ok) {
    header.CompressFiles = old_header.CompressFiles;
    CatalogueChanged(program);
    ArchiveAsk(
        program,
        program.GetText(text::ConversionFailed, {result.failed_level, result.failed_file, "\r\n"}),
        msg::kError);
  }
  RecomputeAllSizes(program, true);
  result.bytes_after = header.TotalFilesSize;
  if (label) label->SetCaption({});
  if (bar) bar->SetValue(0);
  ArchiveAsk(program,
             program.GetText(text::ConversionSizes, {FormatFileSize(result.bytes_before),
                                                     FormatFileSize(result.bytes_after), "\r\n"}),
             msg::kInformation);
  return result;
}

}  // namespace vardolin
