#include "archive/store_conversion.h"

#include <algorithm>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "archive/catalogue_ops.h"
#include "archive/level_files.h"
#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "foundation/forms/controls.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/wildcard.h"
#include "web/text_ids.h"
#include "web/zlib_tool.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr int kJpegQuality = 90;

std::string BareName(const Program& program, std::int32_t id) {
  std::string name = program.GetText(id);
  while (!name.empty() && (name.front() == '\\' || name.front() == '/')) name.erase(0, 1);
  return name;
}

bool EndsWithNoCase(std::string_view text, std::string_view end) {
  if (text.size() < end.size()) return false;
  return WildcardMatch(text.substr(text.size() - end.size()), end);
}

// One file of the level and what becomes of it.
struct Step {
  enum Kind { Carry, Pack, Expand, Picture } kind = Carry;
  fs::path source;
  std::string target_name;
};

struct Plan {
  std::vector<Step> steps;
  std::vector<fs::path> subfolders;
};

Plan MakePlan(const Program& program, const fs::path& files, bool compress) {
  const std::string suffix = program.GetText(text::PackedSuffix);
  const std::string bitmap_name = BareName(program, text::ConvertLoadBitmap);
  const std::string jpeg_name = BareName(program, text::ConvertLoadJpeg);
  std::vector<std::string> pack_patterns;
  for (std::int32_t id = text::PackPattern1; id <= text::PackPattern4; ++id)
    pack_patterns.push_back(BareName(program, id));

  Plan plan;
  std::vector<Step> carried, converted;
  std::error_code ec;
  for (fs::directory_iterator it(files, ec), end; !ec && it != end; it.increment(ec)) {
    std::error_code type_ec;
    if (it->is_symlink(type_ec)) continue;
    if (it->is_directory(type_ec)) {
      plan.subfolders.push_back(it->path());
      continue;
    }
    if (!it->is_regular_file(type_ec)) continue;
    const std::string name = it->path().filename().string();
    Step step{Step::Carry, it->path(), name};
    if (compress) {
      if (WildcardMatch(name, bitmap_name)) {
        step = {Step::Picture, it->path(), jpeg_name};
      } else if (!EndsWithNoCase(name, suffix) &&
                 std::any_of(pack_patterns.begin(), pack_patterns.end(),
                             [&](const std::string& p) { return WildcardMatch(name, p); })) {
        step = {Step::Pack, it->path(), name + suffix};
      }
    } else if (WildcardMatch(name, jpeg_name)) {
      step = {Step::Picture, it->path(), bitmap_name};
    } else if (EndsWithNoCase(name, suffix) && name.size() > suffix.size()) {
      step = {Step::Expand, it->path(), name.substr(0, name.size() - suffix.size())};
    }
    (step.kind == Step::Carry ? carried : converted).push_back(step);
  }
  auto by_name = [](const Step& a, const Step& b) { return a.source < b.source; };
  std::sort(carried.begin(), carried.end(), by_name);
  std::sort(converted.begin(), converted.end(), by_name);
  std::sort(plan.subfolders.begin(), plan.subfolders.end());
  // Carried files first, so that a converted file wins over a stale one of the same name.
  plan.steps = std::move(carried);
  plan.steps.insert(plan.steps.end(), converted.begin(), converted.end());
  return plan;
}

// A file that stays as it is: a second link to it costs nothing when the two folders share a
// file system, and the swap leaves exactly one.
bool Carry(const fs::path& source, const fs::path& target) {
  std::error_code ec;
  fs::remove(target, ec);
  fs::create_hard_link(source, target, ec);
  return !ec || CopyFileOver(source, target);
}

// Runs one step; `why` gets the reason of a failure.
bool RunStep(const Step& step, const fs::path& target, ProgressBar* bar, Program& program,
             std::string& why) {
  if (step.kind == Step::Carry) {
    if (Carry(step.source, target)) return true;
    why = "copy failed";
    return false;
  }
  if (step.kind == Step::Picture) {
    PictureResult result = PictureResult::Ok;
    if (ConvertPictureFile(step.source, target, kJpegQuality, &result)) return true;
    why = PictureResultName(result);
    return false;
  }
  ZlibTool tool;
  tool.InputFile = step.source.string();
  tool.OutputFile = target.string();
  tool.CompressionLevel = 9;
  tool.Progress = [&](std::uint64_t, std::uint64_t) { program.ui().DoEvents(); };
  bool ok = step.kind == Step::Pack ? tool.Compress() : tool.Decompress();
  if (!ok) why = ZlResultName(tool.LastResult());
  return ok;
}

}  // namespace

bool RecoverInterruptedConversion(Program& program, const fs::path& level_folder) {
  const fs::path files =
      ResolveCase(JoinFragment(level_folder, program.GetText(text::ConvertFilesFolder)));
  const fs::path fresh =
      ResolveCase(JoinFragment(level_folder, program.GetText(text::ConvertedFilesFolder)));
  const fs::path old =
      ResolveCase(JoinFragment(level_folder, program.GetText(text::ReplacedFilesFolder)));
  std::error_code ec;
  if (FolderExists(old)) {
    if (!FolderExists(files)) {
      // Broken off between the two renames of the swap: the old files are the whole ones.
      fs::rename(old, files, ec);
      if (ec) return false;
    } else if (!DeleteLevelTree(program, old, nullptr, nullptr)) {
      return false;  // the swap was done; only the old copy was left
    }
  }
  if (FolderExists(fresh) && !DeleteLevelTree(program, fresh, nullptr, nullptr)) return false;
  return true;
}

bool ConvertLevelStore(Program& program, std::int32_t code, bool compress, Label* label,
                       ProgressBar* bar) {
  const int index = FindLevelIndex(program.catalogue, code);
  if (index < 0) return false;
  const LevelRecord& record = program.catalogue.levels[static_cast<std::size_t>(index)];
  if (record.CdNumber > 0) return false;

  const fs::path level = GetLevelFolder(program, code, false);
  if (!RecoverInterruptedConversion(program, level)) return false;
  const fs::path files =
      ResolveCase(JoinFragment(level, program.GetText(text::ConvertFilesFolder)));
  if (!FolderExists(files)) return true;

  if (label) label->SetCaption(program.GetText(text::ConvertingLevel, {record.Name}));
  if (bar) bar->SetValue(0);
  program.ui().DoEvents();

  const fs::path fresh = JoinFragment(level, program.GetText(text::ConvertedFilesFolder));
  auto fail = [&](const std::string& file, const std::string& why) {
    DeleteLevelTree(program, fresh, nullptr, nullptr);
    program.ui().AskUser(program.GetText(text::ConvertFileFailed, {file, record.Name, why}),
                         msg::kError, {});
    if (bar) bar->SetValue(0);
    return false;
  };
  if (!MakeFolder(fresh)) return fail(fresh.filename().string(), "folder not made");

  const Plan plan = MakePlan(program, files, compress);
  const std::size_t total = plan.steps.size() + plan.subfolders.size();
  std::size_t done = 0;
  for (const Step& step : plan.steps) {
    SafeJoinResult target = SafeJoin(fresh, step.target_name);
    std::string why = target.error;
    if (!target || !RunStep(step, target.path, bar, program, why))
      return fail(step.source.filename().string(), why);
    if (bar) bar->SetValue(static_cast<int>(++done * 100 / total));
    program.ui().DoEvents();
  }
  for (const fs::path& sub : plan.subfolders) {
    SafeJoinResult target = SafeJoin(fresh, sub.filename().string());
    if (!target || !CopyLevelTree(sub, target.path))
      return fail(sub.filename().string(), target ? "copy failed" : target.error);
    if (bar) bar->SetValue(static_cast<int>(++done * 100 / total));
  }

  // The swap: the old folder steps aside, the new one takes its name, the old one goes. A crash
  // between the steps is put right by RecoverInterruptedConversion.
  const fs::path old = JoinFragment(level, program.GetText(text::ReplacedFilesFolder));
  std::error_code ec;
  fs::rename(files, old, ec);
  if (!ec) {
    fs::rename(fresh, files, ec);
    if (ec) {
      std::error_code back;
      fs::rename(old, files, back);
    }
  }
  if (ec) {
    DeleteLevelTree(program, fresh, nullptr, nullptr);
    program.ui().AskUser(program.GetText(text::ConvertSwapFailed, {record.Name}), msg::kError, {});
    return false;
  }
  DeleteLevelTree(program, old, nullptr, nullptr);
  if (bar) bar->SetValue(0);
  return true;
}

}  // namespace vardolin
