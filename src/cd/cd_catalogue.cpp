#include "cd/cd_catalogue.h"

#include <vector>

#include "archive/catalogue_file.h"
#include "archive/editor_backup.h"
#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "cd/cd_drives.h"
#include "cd/cd_image_reader.h"
#include "cd/cd_images.h"
#include "cd/dialog_insert_cd.h"
#include "cd/dialog_setup_cd.h"
#include "cd/remove_moved_levels.h"
#include "cd/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr const char* kLineEnd = "\r\n";

bool IsBelow(const fs::path& path, const fs::path& folder) {
  std::error_code ec;
  const fs::path full = fs::weakly_canonical(path, ec);
  const fs::path root = fs::weakly_canonical(folder, ec);
  auto [end, _] = std::mismatch(root.begin(), root.end(), full.begin(), full.end());
  return end == root.end();
}

bool IsCdImage(const Program& p, const fs::path& path) {
  return EndsWithNoCase(path.filename().string(), "." + p.GetText(text::MuoviImageExtension));
}

// A fragment's name relative to a level's folder, '/' separated: "files/load.jpg".
std::string Relative(const Program& p, std::int32_t id) {
  std::string name = WithoutLeadingSeparators(p.GetText(id));
  for (char& c : name)
    if (c == '\\') c = '/';
  return name;
}

enum class Copied { Whole, NotWhole, CdRefused };

// The level's folder from its CD (all of it, or all but its files for a compact setup) into
// `target`, and the one file that even a compact setup takes (text 1159) beside it.
Copied CopyLevelFromCd(Program& p, int index, const fs::path& target, bool full) {
  const std::int32_t code = p.catalogue.levels[static_cast<std::size_t>(index)].Code;
  const std::string one_file = Relative(p, text::SetupCdOneFile);
  const fs::path one_file_to = JoinFragment(target, p.GetText(text::SetupCdOneFileTo));
  CdSource where;
  if (!RequestCdOfLevel(p, index, &where)) return Copied::CdRefused;
  if (!MakeFolder(target)) return Copied::NotWhole;
  if (!where.image.empty()) {
    // Nothing is fetched twice: the one file comes with the rest and is moved where it goes.
    const std::string files = Relative(p, text::FilesFolder) + "/";
    std::string error;
    const bool whole = ExtractImageFolder(
        where.image, where.folder_in_image, target, error, [&](const std::string& relative) {
          return full || !StartsWithNoCase(relative + "/", files) ||
                 EqualsNoCase(relative, one_file);
        });
    const fs::path fetched = JoinFragment(target, p.GetText(text::SetupCdOneFile));
    if (full)
      CopyFileOver(fetched, one_file_to);
    else if (FileExists(fetched) && MoveFileOver(fetched, one_file_to))
      DeleteFolderTree(JoinFragment(target, p.GetText(text::FilesFolder)));
    return whole ? Copied::Whole : Copied::NotWhole;
  }
  // A level not on CD (or found on a disc) is copied from where its folder stands.
  const fs::path source = where.mount_point.empty() ? GetLevelFolder(p, code, true)
                                                    : FindLevelOnCd(code, where.mount_point);
  if (source.empty()) return Copied::NotWhole;
  CopyFileOver(JoinFragment(source, p.GetText(text::SetupCdOneFile)), one_file_to);
  return CopyFolderTree(p, source, target, false, false, !full) ? Copied::Whole : Copied::NotWhole;
}

// Files copied off a disc keep its read-only marks: the archive's own copy must be writable.
void MakeWritable(const fs::path& folder) {
  std::error_code ec;
  fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, ec);
  for (auto it = fs::recursive_directory_iterator(folder, ec);
       !ec && it != fs::recursive_directory_iterator(); it.increment(ec)) {
    const bool dir = it->is_directory(ec);
    fs::permissions(it->path(),
                    dir ? fs::perms::owner_all : fs::perms::owner_read | fs::perms::owner_write,
                    fs::perm_options::add, ec);
  }
}

// The CD numbers whose level folder ("<archive><n>") stands in the image's root.
std::vector<std::int32_t> CdNumbersInImage(const Program& p, const fs::path& image) {
  std::vector<std::string> folders;
  std::string none;
  std::vector<std::int32_t> numbers;
  if (!ReadImageRoot(image, {}, folders, none)) return numbers;
  const std::string archive = ExtractFileName(Trim(p.catalogue.header.MainDir));
  for (const std::string& folder : folders) {
    if (folder.size() <= archive.size() || !StartsWithNoCase(folder, archive)) continue;
    const std::string digits = folder.substr(archive.size());
    if (digits.size() < 10 && digits.find_first_not_of("0123456789") == std::string::npos)
      numbers.push_back(std::stoi(digits));
  }
  return numbers;
}

// Steps 4 to 6: every level into the setup folder. False when it stopped (the user told).
bool CopyLevels(Program& p, const Dialog_SetupCd& setup) {
  Catalogue& c = p.catalogue;
  std::error_code ec;
  fs::create_directories(setup.SetupFolder, ec);
  ShowProgressDialog(p);
  ShowStatus(ProgressDialogLabel(p), p.GetText(text::SetupCdCopying));
  const int count = static_cast<int>(c.levels.size());
  for (int i = 1; i < count; ++i) {
    StepProgressDialog(p, i, count);
    LevelRecord& r = c.levels[static_cast<std::size_t>(i)];
    const fs::path target = JoinFragment(setup.SetupFolder, LevelFolderName(p, r.Code));
    const Copied copied = CopyLevelFromCd(p, i, target, setup.FullSetup);
    if (copied == Copied::CdRefused) {
      HideProgressDialog(p);
      AskUser(p, p.GetText(text::SetupCdRefused), msg::kError);
      return false;
    }
    for (std::int32_t id :
         {text::SetupCdUserFolder1, text::SetupCdUserFolder2, text::SetupCdUserFolder3})
      MakeFolder(JoinFragment(target, p.GetText(id)));
    if (copied == Copied::NotWhole &&
        AskUser(p, p.GetText(text::SetupCdCopyFailed, {"'" + target.string() + "'", kLineEnd}),
                msg::kYesNo) == msg::kNo) {
      HideProgressDialog(p);
      return false;
    }
    if (setup.FullSetup && copied == Copied::Whole) r.CdNumber = 0;
  }
  HideProgressDialog(p);
  return true;
}

}  // namespace

bool IsDriveOfPathCd(Program& program, const fs::path& path) {
  for (const CdDrive& d : ListCdDrives(program.platform()))
    if (!d.mount_point.empty() && IsBelow(path, d.mount_point)) return true;
  return false;
}

bool ReadCatalogueInImage(Program& program, const fs::path& path, std::string& bytes) {
  if (!IsCdImage(program, path)) return false;
  std::vector<std::string> folders;
  const std::string pattern =
      "*" + program.GetText(text::CatalogueExtension);  // the copy keeps the catalogues' ending
  return ReadImageRoot(path, pattern, folders, bytes);
}

bool CheckCdCatalogue(Program& p, const fs::path& path, bool& go_on) {
  CatalogueHeader& h = p.catalogue.header;
  const bool image = IsCdImage(p, path);
  if (!image && !IsDriveOfPathCd(p, path)) {
    go_on = false;
    // A run that stops keeps the levels' files on the disk and OnCd set, so the next opening
    // tries again; the catalogue itself is sound and opens.
    if (h.OnCd) RemoveMovedLevels(p);
    return true;
  }
  h.OnCd = false;
  std::string main_dir =
      (fs::absolute(path).parent_path() / ExtractFileName(Trim(h.SecondaryDir))).string();
  h.MainDir = main_dir;
  // The image opened is a CD of the archive: its levels come straight out of it.
  if (image)
    for (std::int32_t number : CdNumbersInImage(p, path)) RememberCdImage(p, number, path);

  Dialog_SetupCd setup(p);
  setup.ImpostaValori();
  p.ui().ShowModal(setup);
  if (!setup.SetupAccepted || !CopyLevels(p, setup)) return false;

  if (setup.FullSetup) {
    h.MainDir = setup.SetupFolder;
    h.CdCount = 0;
  }
  h.SecondaryDir = setup.SetupFolder;
  ShowProgressDialog(p);
  ShowStatus(ProgressDialogLabel(p), p.GetText(text::SetupCdWritable));
  const int count = static_cast<int>(p.catalogue.levels.size());
  for (int i = 1; i < count; ++i) {
    StepProgressDialog(p, i, count);
    MakeWritable(JoinFragment(setup.SetupFolder, LevelFolderName(p, p.catalogue.levels[i].Code)));
  }
  HideProgressDialog(p);

  const fs::path file = FreeCatalogueName(p);
  p.CatalogueDirty = true;
  if (file.empty() || !SaveCatalogueFile(p, file)) {
    AskUser(p, p.GetText(text::CatalogueSaveFailed) + file.string(), msg::kError);
    return false;
  }
  AskUser(p, p.GetText(text::SetupCdDone, {"\"" + file.string() + "\"", kLineEnd}), msg::kOkOnly);
  go_on = false;
  return true;
}

void InstallCdCatalogue(Program& program) {
  program.catalogue_in_image = ReadCatalogueInImage;
  program.cd_catalogue = CheckCdCatalogue;
}

}  // namespace vardolin
