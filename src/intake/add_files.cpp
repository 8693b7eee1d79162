#include "intake/add_files.h"

#include <cstring>
#include <system_error>
#include <vector>

#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/folder_names.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/text_ids.h"
#include "web/text_ids.h"
#include "web/zip_layer.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// A text that holds extensions separated by ';'.
bool ExtensionIn(std::string_view extension, const std::string& list) {
  if (extension.empty()) return false;
  std::size_t start = 0;
  while (start <= list.size()) {
    std::size_t end = list.find(';', start);
    if (end == std::string::npos) end = list.size();
    if (EqualsNoCase(Trim(std::string_view(list).substr(start, end - start)), extension))
      return true;
    start = end + 1;
  }
  return false;
}

std::string FileNameOf(const fs::path& file) {
  return file.filename().string();
}

}  // namespace

bool IsArchiveToUnpack(Program& program, std::string_view file) {
  const std::string extension = ExtractExtension(file);
  return ExtensionIn(extension, program.GetText(text::UnpackedExtensions)) ||
         ExtensionIn(extension, program.GetText(text::OtherArchiveExtensions));
}

bool IsZipPackage(Program& program, std::string_view file) {
  return ExtensionIn(ExtractExtension(file), program.GetText(text::ZipExtension));
}

bool AddFromFile(Program& program, const fs::path& target, ProgressBar* bar, Label* label,
                 bool oneType, const std::string& extension) {
  FileRequest request;
  if (oneType) {
    request.title = program.GetText(text::OneKindTitle, {extension});
    request.filter = program.GetText(text::OneKindFilter) + extension + ")|*" + extension;
  } else {
    request.title = program.GetText(text::AddFileTitle);
    request.filter = program.GetText(text::PackageFilter) + program.GetText(text::AllFilesFilter);
  }
  request.start_folder = program.prefs.DefaultLoadDir;
  const std::string chosen = program.ui().AskOpenFile(request);
  if (chosen.empty()) return false;

  if (program.prefs.DefaultLoadDir == program.GetText(text::LoadDirDefault))
    program.prefs.DefaultLoadDir = ExtractFolder(chosen);
  const std::string ext = ExtractExtension(chosen);
  if (EqualsNoCase(ext, program.GetText(text::ZipExtensionDialog)))
    ShowStatus(label, program.GetText(text::UnpackingZipLabel));
  else if (ExtensionIn(ext, program.GetText(text::OtherArchiveExtensionsDialog)))
    ShowStatus(label, program.GetText(text::UnpackingArchiveLabel));
  else
    ShowStatus(label, program.GetText(text::CopyingFileLabel));
  program.LastPackagePath = chosen;
  std::string why;
  const bool ok = AddFileToFolder(program, chosen, target, false, label, bar, &why);
  if (!ok)
    AskUser(program, WithReason(ExtractFileName(chosen) + program.GetText(text::FileNotAdded), why),
            msg::kError);
  ShowStatus(label, {});
  return ok;
}

bool AddFromFolder(Program& program, const fs::path& target, ProgressBar* bar, Label* label,
                   bool keep, const std::string& mask, const fs::path& source_given) {
  fs::path source = source_given;
  if (source.empty()) {
    const std::string chosen = program.ui().AskFolder(program.prefs.DefaultLoadDir,
                                                      program.GetText(text::AddFolderCaption));
    if (chosen.empty()) return false;
    source = chosen;
    if (program.prefs.DefaultLoadDir == program.GetText(text::AddFolderDefault))
      program.prefs.DefaultLoadDir = chosen;
  }
  ShowStatus(label, program.GetText(text::ReadingFolder));

  std::vector<fs::path> files;
  bool walk = !ListSubfolders(source).empty();
  if (walk)
    walk = AskUser(program,
                   program.GetText(text::TakeSubfoldersQuestion, {"\"" + source.string() + "\""}),
                   msg::kYesNo) != msg::kNo;
  const bool every = mask == ".*" || mask.empty();
  if (walk) {
    FolderTreeWalker walker(&program.ui());
    walker.WalkFolderTree(source);
    for (const fs::path& f : walker.Files())
      if (every || EndsWithNoCase(FileNameOf(f), mask)) files.push_back(f);
  } else {
    files = ListFiles(source, every ? "*" : "*" + mask);
  }

  for (std::size_t i = 0; i < files.size(); ++i) {
    std::string why;
    if (!AddFileToFolder(program, files[i], target, false, label, nullptr, &why))
      AskUser(program,
              WithReason(
                  program.GetText(text::FileNotAddedFromFolder, {FileNameOf(files[i])}) + "]", why),
              msg::kError);
    if (bar) {
      bar->SetMax(static_cast<int>(files.size()));
      bar->SetValue(static_cast<int>(i + 1));
    }
    program.ui().DoEvents();
  }
  if (bar) bar->SetValue(0);
  (void)keep;  // kept for callers that copy a folder as it stands; every file is taken here
  return true;
}

std::string WithReason(const std::string& message, const std::string& why) {
  return why.empty() ? message : message + "\r\n\r\n" + why;
}

bool AddFileToFolder(Program& program, const fs::path& file, const fs::path& target, bool direct,
                     Label* label, ProgressBar* bar, std::string* why) {
  std::string reason;
  auto failed = [&](std::string told) {
    WriteLog(program, FileNameOf(file) + ": " + told);
    if (why) *why = std::move(told);
    return false;
  };
  const std::string name = FileNameOf(file);
  if (!IsArchiveToUnpack(program, name)) {
    ShowStatus(label, program.GetText(text::CopyingNamedFile, {name}));
    MakeFolder(target);
    const fs::path to = target / name;
    // A file the level holds already is the user's to keep unless they agree.
    if (FileExists(to) && !EqualsNoCase(fs::absolute(file).string(), fs::absolute(to).string()) &&
        !AskReplaceFile(program, file, ResolveCase(to)))
      return true;
    return CopyFileOver(file, to) || failed(std::strerror(errno));
  }
  const bool zip = IsZipPackage(program, name);
  auto unpack_into = [&](const fs::path& folder) {
    const bool ok = zip ? ExtractZip(program, file, folder, bar, false, false, &reason)
                        : ExtractWithTool(program, file, folder, false, bar, false, &reason);
    if (!ok) return failed(reason);
    // The files that came in are the level's; those that couldn't are named, once.
    if (!reason.empty())
      AskUser(program, program.GetText(text::EntriesLeftOut, {name, "\r\n\r\n" + reason}),
              msg::kWarning);
    return true;
  };
  // Into a folder that holds no file nothing can be replaced, so there is nothing to ask and no
  // need for the detour through a folder of the program's.
  if (direct || ListFiles(target, "*").empty()) {
    ShowStatus(label,
               program.GetText(zip ? text::UnpackingZipDirect : text::UnpackingArchiveDirect));
    return unpack_into(target);
  }

  const fs::path unpack = JoinFragment(program.Home(), program.GetText(text::UnpackFolder));
  MakeEmptyFolder(unpack);
  ShowStatus(label, program.GetText(zip ? text::UnpackingZipTemp : text::UnpackingArchiveTemp));
  bool ok = unpack_into(unpack);
  if (ok) {
    ShowStatus(label, program.GetText(text::CopyingUnpacked));
    ok = CopyFilesWithProgress(program, unpack, target, bar, false, "*") ||
         failed(std::strerror(errno));
  }
  std::error_code ec;
  fs::remove_all(unpack, ec);
  return ok;
}

bool CopyFilesWithProgress(Program& program, const fs::path& source, const fs::path& target,
                           ProgressBar* bar, bool overwrite, std::string_view pattern,
                           std::vector<fs::path>* failed) {
  const std::vector<fs::path> files = ListFiles(source, pattern);
  std::error_code ec;
  double total = 0;
  for (const fs::path& f : files) total += static_cast<double>(fs::file_size(f, ec));
  MakeFolder(target);
  bool all = true;
  double done = 0;
  auto move_bar = [&](double value) {
    if (!bar) return;
    bar->SetMax(100);
    bar->SetValue(total > 0 ? static_cast<int>(value * 100 / total) : 0);
  };
  // The target grows with each file: its names are read once, not once a file.
  FolderNames names(ResolveCase(target));
  for (const fs::path& f : files) {
    const fs::path to = names.Place(f.filename().string());
    if (!overwrite && fs::is_regular_file(to, ec) && !AskReplaceFile(program, f, to)) {
      done += static_cast<double>(fs::file_size(f, ec));
      continue;
    }
    if (!CopyFileOverPlaced(f, to)) {
      if (!failed) {
        move_bar(0);
        return false;
      }
      failed->push_back(f);
      all = false;
    }
    done += static_cast<double>(fs::file_size(f, ec));
    move_bar(done);
    program.ui().DoEvents();
  }
  move_bar(0);
  return all;
}

}  // namespace vardolin
