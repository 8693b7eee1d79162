#include "cd/dialog_insert_cd.h"

#include <chrono>
#include <thread>

#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "cd/cd_image_reader.h"
#include "cd/cd_images.h"
#include "cd/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr int kReadyTries = 6;
constexpr std::chrono::milliseconds kReadyPause{300};
// Files fetched out of an image wait here for the caller; each fetch empties it first.
constexpr std::string_view kFetchedFolder = "cd_fetched";

// Text 474 behind the level's folder must match a file: a folder left without its files
// doesn't count as the level.
bool HoldsLevelFiles(const Program& program, const fs::path& level) {
  const std::string pattern = program.GetText(text::InsertCdLevelFiles);
  const std::size_t cut = pattern.find_last_of("\\/");
  const fs::path folder =
      cut == std::string::npos ? level : JoinFragment(level, pattern.substr(0, cut));
  return !ListFiles(folder, cut == std::string::npos ? pattern : pattern.substr(cut + 1)).empty();
}

const CdDrive* DriveOf(const std::vector<CdDrive>& drives, const std::string& device) {
  for (const CdDrive& d : drives)
    if (d.device == device) return &d;
  return nullptr;
}

}  // namespace

Dialog_InsertCd::Dialog_InsertCd(Program& program)
    : Form(program, "Dialog_InsertCd", " Cd Request") {}

void Dialog_InsertCd::Set_Caption_Texts() {
  CaptionFromText(text::InsertCdCaption);
  CaptionFromText(Label1, text::InsertCdLabelDrive);
  CaptionFromText(Pul_Ok, text::InsertCdOk);
  CaptionFromText(Pul_Cancel, text::InsertCdCancel);
  CaptionFromText(Pul_Image, text::InsertCdImage);
  Label_Mex.SetCaption(program().GetText(text::InsertCdMessage, {std::to_string(number_)}));
}

void Dialog_InsertCd::PutDriveInMainDir(const std::string& mount_point) {
  std::string& main_dir = program().catalogue.header.MainDir;
  const std::string moved = (fs::path(mount_point) / ExtractFileName(Trim(main_dir))).string();
  if (Trim(main_dir) == moved) return;
  main_dir = moved;
  program().CatalogueDirty = true;
}

std::string Dialog_InsertCd::QuotedLevelFolder() const {
  return "\"" + WithoutLeadingSeparators(LevelFolderName(program(), code_)) + "\"";
}

bool Dialog_InsertCd::ImpostaValori(int index, std::int32_t number) {
  Program& p = program();
  if (index < 0 || index >= static_cast<int>(p.catalogue.levels.size())) return false;
  const LevelRecord& r = p.catalogue.levels[static_cast<std::size_t>(index)];
  code_ = r.Code;
  ordinary_ = number == -1;
  number_ = ordinary_ ? r.CdNumber : number;
  expected_folder_ = ExtractFileName(Trim(p.catalogue.header.MainDir)) + std::to_string(number_);
  Label_Mex.SetCaption(p.GetText(text::InsertCdMessage, {std::to_string(number_)}));
  CdFound = false;
  Found = {};

  // The image remembered for the CD answers before any drive: it is what the user chose last.
  const fs::path image = RememberedCdImage(p, number_);
  if (!image.empty()) {
    const ImageLevel in_image = FindLevelInImage(image, ordinary_ ? code_ : -1);
    if (ordinary_ ? !in_image.folder.empty() : in_image.readable) {
      Found.image = image;
      Found.folder_in_image = in_image.folder;
      CdFound = true;
      return true;
    }
  }

  // MainDir names the drive that worked last; on Linux that may be any mounted folder (a disc
  // the desktop mounted elsewhere, a copy of the disc), not only an optical drive.
  const CatalogueHeader& h = p.catalogue.header;
  if (ordinary_ && Trim(h.MainDir) != Trim(h.SecondaryDir)) {
    const fs::path last = fs::path(Trim(h.MainDir)).parent_path();
    const fs::path level = FindLevelOnCd(code_, last);
    if (!level.empty() && HoldsLevelFiles(p, level)) {
      Found.mount_point = last.string();
      CdFound = true;
      return true;
    }
  }

  // Every optical drive is offered, with or without a disc: the user may be about to insert it.
  drives_ = ListCdDrives(p.platform());
  Combo_Unita.Clear();
  for (std::size_t i = 0; i < drives_.size(); ++i) {
    const CdDrive& d = drives_[i];
    Combo_Unita.AddItem(d.mount_point.empty() ? d.device : d.device + "  " + d.mount_point,
                        static_cast<std::int64_t>(i));
    if (!ordinary_ || !d.Ready()) continue;
    const fs::path level = FindLevelOnCd(code_, d.mount_point);
    if (level.empty() || !HoldsLevelFiles(p, level)) continue;
    PutDriveInMainDir(d.mount_point);
    Found.mount_point = d.mount_point;
    CdFound = true;
    return true;
  }
  if (Combo_Unita.ListCount() > 0) Combo_Unita.SetListIndex(0);
  return true;
}

void Dialog_InsertCd::Pul_Ok_Click() {
  Program& p = program();
  const int row = Combo_Unita.ListIndex();
  if (row < 0) {
    AskUser(p, p.GetText(text::InsertCdNoDrive), msg::kError);
    return;
  }
  const std::string device = drives_[static_cast<std::size_t>(Combo_Unita.ItemData(row))].device;
  CdDrive drive;
  for (int attempt = 0; attempt < kReadyTries; ++attempt) {
    if (attempt > 0) std::this_thread::sleep_for(kReadyPause);
    const std::vector<CdDrive> now = ListCdDrives(p.platform());
    const CdDrive* found = DriveOf(now, device);
    if (!found) {
      AskUser(p, p.GetText(text::InsertCdDriveGone, {device}), msg::kError);
      return;
    }
    drive = *found;
    if (drive.Ready()) break;
  }
  if (!drive.Ready()) {
    AskUser(p, p.GetText(text::InsertCdNotReady, {device}), msg::kError);
    return;
  }
  // The user may have changed the disc while the form stood: the drive is looked at afresh.
  if (ordinary_ && FindLevelOnCd(code_, drive.mount_point).empty()) {
    AskUser(p, p.GetText(text::InsertCdWrongCd, {QuotedLevelFolder()}), msg::kError);
    return;
  }
  PutDriveInMainDir(drive.mount_point);
  Found = {drive.mount_point, {}, {}};
  CdFound = true;
  Unload();
}

void Dialog_InsertCd::Pul_Cancel_Click() {
  CdFound = false;
  Unload();
}

void Dialog_InsertCd::Pul_Image_Click() {
  Program& p = program();
  FileRequest request;
  request.title = p.GetText(text::InsertCdImageTitle, {std::to_string(number_)});
  request.filter = p.GetText(text::InsertCdImageFilter);
  const fs::path remembered = RememberedCdImage(p, number_);
  if (!remembered.empty()) request.start_folder = remembered.parent_path().string();
  const std::string chosen = p.ui().AskOpenFile(request);
  if (chosen.empty()) return;
  const ImageLevel in_image = FindLevelInImage(chosen, code_);
  if (!in_image.readable) {
    AskUser(p, p.GetText(text::CdImageUnreadable, {"\"" + chosen + "\"", in_image.error}),
            msg::kError);
    return;
  }
  if (ordinary_ && in_image.folder.empty()) {
    AskUser(p, p.GetText(text::InsertCdWrongCd, {QuotedLevelFolder()}), msg::kError);
    return;
  }
  RememberCdImage(p, number_, chosen);
  Found = {{}, fs::absolute(chosen), in_image.folder};
  CdFound = true;
  Unload();
}

bool RequestCdOfLevel(Program& program, int index, CdSource* where) {
  if (index < 0 || index >= static_cast<int>(program.catalogue.levels.size())) return false;
  if (program.catalogue.levels[static_cast<std::size_t>(index)].CdNumber == 0) return true;
  Dialog_InsertCd form(program);
  if (!form.ImpostaValori(index, -1)) return false;
  if (!form.CdFound) program.ui().ShowModal(form);
  if (form.CdFound && where) *where = form.Found;
  return form.CdFound;
}

fs::path LevelFolderOnCd(Program& program, std::int32_t code) {
  const int index = FindLevelIndex(program.catalogue, code);
  CdSource where;
  if (index < 0 || !RequestCdOfLevel(program, index, &where)) return {};
  if (where.image.empty()) return FindLevelOnCd(code, where.mount_point);

  const fs::path fetched = program.Home() / kFetchedFolder;
  if (!DeleteLevelTree(program, fetched, nullptr, nullptr)) return {};
  const fs::path level = JoinFragment(fetched, LevelFolderName(program, code));
  const std::string files = WithoutLeadingSeparators(program.GetText(text::FilesFolder));
  std::string error;
  if (!ExtractImageFolder(where.image, where.folder_in_image + "/" + files,
                          JoinFragment(level, program.GetText(text::FilesFolder)), error)) {
    AskUser(program,
            program.GetText(text::CdImageFetchFailed, {"\"" + where.image.string() + "\"", error}),
            msg::kError);
    return {};
  }
  program.CdFetchedCopy = true;
  return level;
}

void InstallCdLevels(Program& program) {
  program.level_folder_on_cd = LevelFolderOnCd;
}

}  // namespace vardolin
