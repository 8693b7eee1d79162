#include "intake/store_level.h"

#include <chrono>
#include <system_error>
#include <utility>
#include <vector>

#include "archive/level_files.h"
#include "archive/level_store.h"
#include "audio/dialog_converti_mp3.h"
#include "audio/wave_header.h"
#include "foundation/catalogue_records.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/folder_names.h"
#include "foundation/services/folder_swap.h"
#include "foundation/services/paths.h"
#include "foundation/services/pe_version.h"
#include "foundation/services/strings.h"
#include "foundation/services/unfinished_work.h"
#include "intake/level_file_list.h"
#include "intake/text_ids.h"
#include "web/dialog_zip.h"
#include "web/text_ids.h"
#include "web/zlib_tool.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

constexpr int kLoadPictureQuality = 90;

}  // namespace

bool ReplaceStoredFiles(Program& program, const fs::path& source, const fs::path& target) {
  UnfinishedWork note(program, LeftoverKind::kSwap, target);
  return ReplaceFolderWhole(target, [&](const fs::path& staging) {
    // A media level's store sub-folder isn't part of the files being replaced: it comes along.
    for (const fs::path& sub : ListSubfolders(target))
      if (!CopyLevelTree(sub, staging / sub.filename())) return false;
    // The staging folder grows with each file: its names are read once, not once a file.
    FolderNames names(staging);
    for (const fs::path& f : ListFiles(source, "*"))
      if (!CopyFileOverPlaced(f, names.Place(f.filename().string()), "store-copy")) return false;
    return true;
  });
}

namespace {

std::vector<long long> VersionParts(const std::string& version) {
  std::vector<long long> parts;
  std::size_t start = 0;
  while (true) {
    const std::size_t dot = version.find('.', start);
    const std::string part = Trim(version.substr(start, dot - start));
    long long value = 0;
    for (char c : part)
      if (c >= '0' && c <= '9') value = value * 10 + (c - '0');
    parts.push_back(value);
    if (dot == std::string::npos) break;
    start = dot + 1;
  }
  return parts;
}

}  // namespace

bool DeleteLevelFolders(Program& program, std::int32_t code, Label* label, ProgressBar* bar) {
  const fs::path folder = GetLevelFolder(program, code, false);
  if (folder.empty()) return false;
  return DeleteLevelTree(program, folder, label, bar);
}

bool StoreCompressedLevel(Program& program, const fs::path& source, const LevelRecord& level,
                          ZlibTool& zl, Label* label, ProgressBar* bar) {
  const std::string never[] = {ToLower(program.GetText(text::NeverPacked1)),
                               ToLower(program.GetText(text::NeverPacked2)),
                               ToLower(program.GetText(text::NeverPacked3))};
  const std::string packed = ToLower(program.GetText(text::PackedSuffixThree));

  // Built before packing changes the names, written once the store holds what it lists.
  const LevelFileList list = BuildLevelFileList(program, source);
  const auto stored = [&] {
    if (!list.empty()) WriteLevelFileList(program, level.Code, list);
    return true;
  };
  const fs::path level_folder = GetLevelFolder(program, level.Code, true);
  if (level_folder.empty()) return false;
  const fs::path target = JoinFragment(level_folder, program.GetText(text::StoredFolder));
  std::error_code ec;
  const bool same = fs::equivalent(source, target, ec);

  if (level.Code == 0) {
    if (!same) {
      ShowStatus(label, program.GetText(text::StoringBaseLevel));
      if (ReplaceStoredFiles(program, source, target)) stored();
    }
    return false;
  }

  if (program.catalogue.header.WavInMp3) {
    const std::vector<fs::path> waves = ListFiles(source, program.GetText(text::WavesToMp3Pattern));
    std::string message;
    if (!waves.empty()) {
      const bool converted = RunAudioConversion(program, waves, source, wave_kind::kMp3, message);
      if (!converted) {
        AskUser(program, program.GetText(text::WavesToMp3Failed) + message, msg::kError);
        if (AskUser(program, program.GetText(text::StoreWavesAsTheyAre), msg::kYesNo) == msg::kNo)
          return false;
      }
      // A wave goes only once its MP3 stands beside it.
      for (const fs::path& w : waves)
        if (FileExists(ChangeExtension(w.string(), ".mp3"))) DeleteFileForced(w);
    }
  }

  if (!program.catalogue.header.CompressFiles) {
    if (!same && !ReplaceStoredFiles(program, source, target)) return false;
    return stored();
  }

  const fs::path load_bitmap = JoinFragment(source, program.GetText(text::LoadBitmapInFolder));
  if (FileExists(load_bitmap)) {
    ShowStatus(label, program.GetText(text::ConvertingLoadPicture));
    if (ConvertPictureFile(
            ResolveCase(JoinFragment(source, program.GetText(text::LoadBitmapSource))),
            JoinFragment(source, program.GetText(text::LoadJpegTarget)), kLoadPictureQuality))
      DeleteFileForced(ResolveCase(JoinFragment(source, program.GetText(text::LoadBitmapDeleted))));
    ShowStatus(label, {});
  }

  const std::string more_info = Trim(level.MoreInfoFile);
  const std::string suffix = program.GetText(text::PackedSuffix);
  std::vector<fs::path> to_pack;
  for (const fs::path& f : ListFiles(source, "*")) {
    const std::string name = ToLower(f.filename().string());
    const std::string last4 = name.size() >= 4 ? name.substr(name.size() - 4) : name;
    // MP3 is packed audio already: packing it again gains nothing.
    bool keep = name.ends_with(packed) || name.ends_with(".mp3") ||
                (!more_info.empty() && EqualsNoCase(name, more_info));
    for (const std::string& e : never) keep = keep || last4 == e;
    if (!keep) to_pack.push_back(f);
  }
  for (std::size_t i = 0; i < to_pack.size(); ++i) {
    const fs::path& f = to_pack[i];
    ShowStatus(label, program.GetText(text::PackingFile, {f.filename().string()}));
    zl.InputFile = f.string();
    zl.OutputFile = f.string() + suffix;
    zl.CompressionLevel = 9;
    const bool ok = zl.Compress();
    zl.InputFile.clear();
    if (!ok) return false;
    DeleteFileForced(f);
    if (bar) {
      bar->SetMax(static_cast<int>(to_pack.size()));
      bar->SetValue(static_cast<int>(i + 1));
    }
  }
  if (bar) bar->SetValue(0);
  ShowStatus(label, program.GetText(text::CopyingPackedFiles));
  if (!same && !ReplaceStoredFiles(program, source, target)) return false;
  return stored();
}

int CompareFileVersions(const fs::path& a, const fs::path& b) {
  if (!FileExists(a)) return -1;
  if (!FileExists(b)) return 1;
  const std::vector<long long> va = VersionParts(GetFileVersionText(ResolveCase(a)));
  const std::vector<long long> vb = VersionParts(GetFileVersionText(ResolveCase(b)));
  if (va.size() == vb.size()) {
    for (std::size_t i = 0; i < va.size(); ++i)
      if (va[i] != vb[i]) return va[i] > vb[i] ? 1 : -1;
    return 0;
  }
  std::error_code ec;
  const auto ta = fs::last_write_time(ResolveCase(a), ec);
  const auto tb = fs::last_write_time(ResolveCase(b), ec);
  // Dates are compared to the second, as the file system of the game's day kept them.
  const auto sa = std::chrono::floor<std::chrono::seconds>(ta);
  const auto sb = std::chrono::floor<std::chrono::seconds>(tb);
  if (sa == sb) return 0;
  return sa > sb ? 1 : -1;
}

fs::path ExpandFileForViewing(Program& program, const fs::path& path, bool showDialog) {
  const std::string name = path.filename().string();
  if (showDialog) ShowZipDialog(program, program.GetText(text::ExpandingForViewing) + name);
  const fs::path folder = JoinFragment(program.Home(), program.GetText(text::ViewFolder));
  MakeFolder(folder);
  const fs::path output = folder / RemoveExtension(name);
  ZlibTool zl;
  zl.InputFile = path.string();
  zl.OutputFile = output.string();
  const bool ok = zl.Decompress();
  if (showDialog) HideZipDialog(program);
  if (ok && FileExists(output)) return output;
  AskUser(program, program.GetText(text::CannotExpandForView) + name, msg::kError);
  return {};
}

}  // namespace vardolin
