// The burn engine's lists: what goes on the CD, what is left out, their sizes, the writer's
// address and the folder listings.
#include <algorithm>
#include <system_error>

#include "cd/burn_engine.h"
#include "cd/burn_output.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {

namespace fs = std::filesystem;

std::string SourceOf(const std::string& item) {
  const std::size_t eq = item.find('=');
  return Trim(eq == std::string::npos ? item : item.substr(eq + 1));
}

std::string TargetOf(const std::string& item) {
  const std::size_t eq = item.find('=');
  return eq == std::string::npos ? std::string() : ReplaceAll(item.substr(0, eq), "\\", "/");
}

std::string ItemCdPath(const std::string& item, const std::string& full_path) {
  const std::string source = SourceOf(item);
  const std::string target = TargetOf(item);
  std::string rest = full_path;
  if (StartsWithNoCase(rest, source)) rest = rest.substr(source.size());
  std::string path = target + rest;
  if (FileExists(source) && !target.empty() && target.back() == '/')
    path += ExtractFileName(source);
  while (path.find("//") != std::string::npos) path = ReplaceAll(path, "//", "/");
  if (path.empty() || path[0] != '/') path = "/" + path;
  return path;
}

bool BurnEngine::ParseDevice(const std::string& device) {
  if (Trim(device).empty())
    return Fail(kBurnNoWriter, "Impossbile find CD writer",
                "Missing Id Device string to locate Cd writer");
  DeviceFields fields;
  if (!ParseDeviceString(device, fields))
    return Fail(kBurnInvalidOperand, "Invalid operand", "ID Device string has not valid syntax");
  Bus = fields.bus;
  Target = fields.target;
  Lun = fields.lun;
  DeviceId = device;
  WriterUnit = ResolveWriterUnit(fields.unit);
  return true;
}

std::string BurnEngine::ResolveWriterUnit(const std::string& letter) {
  if (!ChosenUnit.empty()) return ChosenUnit;
  const std::string unit = Trim(letter).empty() ? "X:" : Trim(letter);
  if (!EqualsNoCase(unit, "X:") && !EqualsNoCase(unit, "X")) return unit;
  // A writer the bus scan could not tie to a drive: its mount point comes from the user. Three
  // unanswered asks leave it unknown rather than holding a script that can't answer forever.
  for (int ask = 0; ask < 3 && ChosenUnit.empty(); ++ask) {
    std::string answer = Trim(program_.ui().AskInput(
        "It's not possibile identify automatically the unit letter for CD Writer.\r\nPlease, "
        "type unit letter that corresponds to your cd writer",
        "Request CD writer unit letter", ""));
    while (answer.size() > 1 && answer.back() == '/') answer.pop_back();
    ChosenUnit = answer;
  }
  return ChosenUnit.empty() ? unit : ChosenUnit;
}

bool BurnEngine::AddItem(const std::string& given) {
  const std::string source = SourceOf(given);
  const bool has_target = given.find('=') != std::string::npos;
  if (source.empty() || source.back() == '/' || source.back() == '\\')
    return Fail(kBurnInvalidPath, "Invalid path",
                "Invalid character. You cann't end a path with '\\' or '/' characters");
  if (source.find_first_of("*?") != std::string::npos)
    return Fail(kBurnInvalidPath, "Invalid path", "Invalid char. You cannot use jolly characters");
  const std::string title = "Impossible insert item in VetItems()";
  if (source[0] != '/')
    return Fail(kBurnCantInsert, title, "In VetItems() all paths must have unit letter ");
  const bool is_folder = FolderExists(source);
  if (!is_folder && !FileExists(source))
    return Fail(kBurnCantInsert, title, "Path \"" + source + "\"not exist");
  std::string target = TargetOf(given);
  if (is_folder && has_target && (target.empty() || target.back() != '/'))
    return Fail(kBurnCantInsert, title,
                "Relative path for folder must terminate with '\\' or '/' character");
  if (!has_target) {
    // A folder keeps its name on the CD; a file lands in a folder named as its own folder.
    const fs::path p(source);
    const std::string component =
        is_folder ? p.filename().string() : p.parent_path().filename().string();
    target = component.empty() ? "/" : component + "/";
  }
  const std::string item = target + "=" + source;
  const bool present = std::any_of(VetItems.begin(), VetItems.end(), [&](const std::string& i) {
    return EqualsNoCase(SourceOf(i), source);
  });
  if (!present) VetItems.push_back(item);
  return true;
}

bool BurnEngine::AddNoItem(const std::string& path) {
  if (path.find('=') != std::string::npos)
    return Fail(kBurnInvalidOperand, "Invalid path",
                "In No Items is not allowed use relative path '='");
  if (path.find_first_of("*?") != std::string::npos)
    return Fail(kBurnInvalidPath, "Invalid path", "Invalid char. You cannot use jolly characters");
  if (path.empty() || (!FolderExists(path) && !FileExists(path)))
    return Fail(kBurnCantInsert, "Impossible insert item in No Items",
                "Path \"" + path + "\"not exist");
  if (std::any_of(NoItems.begin(), NoItems.end(),
                  [&](const std::string& p) { return EqualsNoCase(p, path); }))
    return Fail(kBurnAlreadyPresent, "Item already present",
                "Item No Item \"" + path + "\"is already present in No Items");
  NoItems.push_back(path);
  return true;
}

bool BurnEngine::RemoveFrom(std::vector<std::string>& list, const std::string& item,
                            bool by_source) {
  if (Trim(item).empty()) return Fail(kBurnNotFound, "Operand 1 is missing");
  const std::string key = by_source ? SourceOf(item) : item;
  const auto found = std::find_if(list.begin(), list.end(), [&](const std::string& entry) {
    return EqualsNoCase(by_source ? SourceOf(entry) : entry, key);
  });
  if (found == list.end())
    return Fail(kBurnNotFound, "Item not found", "Item \"" + item + "\" missing");
  // The last entry moves into the gap, as the lists have always been kept.
  *found = std::move(list.back());
  list.pop_back();
  return true;
}

bool BurnEngine::StepStopped() {
  if (!ProgressEnabled) return false;
  program_.ui().DoEvents();
  return StopRequested;
}

bool BurnEngine::ComputeSize(bool with_fs) {
  auto fail = [&](std::int32_t code, std::string title, std::string text) {
    if (with_fs)
      TotalSize = 0;
    else
      ItemsSize = NoItemsSize = 0;
    ClearProgress();
    StopRequested = false;
    return Fail(code, std::move(title), std::move(text));
  };
  if (ProgressEnabled) ShowStatus(ProgressLabel, "Computing size files in progress ...");
  const double steps = static_cast<double>(VetItems.size() + NoItems.size());
  double step = 0;
  auto size_of = [&](const std::string& path, double& sum) {
    std::error_code ec;
    if (FolderExists(path))
      sum += FolderSizeBytes(path, "*");
    else if (FileExists(path))
      sum += static_cast<double>(fs::file_size(path, ec));
    else
      return false;
    if (ProgressEnabled && ProgressBar) SetProgressPercent(*ProgressBar, steps, ++step);
    return true;
  };
  double items = 0, left_out = 0;
  for (int pass = 0; pass < 2; ++pass)
    for (const std::string& entry : pass == 0 ? VetItems : NoItems) {
      const std::string path = pass == 0 ? SourceOf(entry) : entry;
      if (!size_of(path, pass == 0 ? items : left_out))
        return fail(kBurnInvalidPath, "Error computing size files",
                    "File: \"" + path + "\"not exist");
      if (StepStopped()) return fail(kBurnStopped, "Operation stopped by user", "");
    }
  ItemsSize = items;
  NoItemsSize = left_out;
  TotalSize = items - left_out;
  ClearProgress();
  if (!with_fs) return true;
  double fs_bytes = 0;
  if (!FileSystemBytes(fs_bytes)) {
    TotalSize = 0;
    return false;
  }
  TotalSize += fs_bytes;
  return true;
}

bool BurnEngine::AddAutoRunInf(const std::string& item, const std::string& option) {
  const std::string source = SourceOf(item);
  if (Trim(item).empty() || !FileExists(source))
    return Fail(kBurnInvalidOperand, "Invalid operand for AddAutoRun_Inf command",
                "You must insert full source path");
  std::string on_cd = ItemCdPath(item, source);
  if (!on_cd.empty() && on_cd[0] == '/') on_cd.erase(0, 1);
  // autorun.inf is read by Windows, which wants its own separator.
  const fs::path inf = program_.Home() / "autorun.inf";
  if (!WriteTextFile(inf, "[autorun]\r\nOPEN=" + ReplaceAll(on_cd, "/", "\\") + "\r\n"))
    return Fail(kBurnInvalidPath, "Invalid path", "Error creating file in: " + inf.string());
  if (!AddItem("/=" + inf.string())) return false;
  if (EqualsNoCase(option, "NotAddFile")) return true;
  return AddItem(item);
}

bool BurnEngine::ListFolder(const std::string& folder, const std::string& pattern, bool tree) {
  FolderFiles.clear();
  FolderFolders.clear();
  if (folder.empty() || !FolderExists(folder))
    return Fail(kBurnInvalidPath, "Path not exist", "Path is not a valid folder");
  if (!tree) {
    for (const fs::path& f : ListFiles(folder, pattern.empty() ? "*" : pattern))
      FolderFiles.push_back(f.string());
    return true;
  }
  FolderTreeWalker walker;
  walker.WalkFolderTree(folder);
  for (const fs::path& f : walker.Files()) FolderFiles.push_back(f.string());
  for (const fs::path& f : walker.Folders()) FolderFolders.push_back(f.string());
  return true;
}

}  // namespace vardolin
