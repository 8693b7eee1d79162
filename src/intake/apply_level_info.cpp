#include "intake/apply_level_info.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "archive/level_store.h"
#include "cd/cd_drives.h"
#include "cd/cd_image_reader.h"
#include "cd/cd_images.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "intake/completeness.h"
#include "intake/dialog_add_wads.h"
#include "intake/dialog_new_level.h"
#include "intake/install_script.h"
#include "intake/level_info.h"
#include "intake/text_ids.h"
#include "web/dialog_download.h"
#include "web/url_list_offers.h"
#include "web/zip_layer.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// A name that an info file gives is joined onto the level's folder like any name from a package.
fs::path InFolder(const fs::path& folder, const std::string& name) {
  const SafeJoinResult joined = SafeJoin(folder, name);
  return joined ? joined.path : fs::path();
}

// A CD that media files come from, as it stands now: a disc mounted in an optical drive under
// its label (the desktop names the mount point after the disc's volume label), or an image
// remembered under that name.
struct MediaCd {
  fs::path mount;
  fs::path image;
};

std::optional<MediaCd> FindMediaCd(Program& p, const std::string& label) {
  if (Trim(label).empty()) return std::nullopt;
  for (const CdDrive& d : ListCdDrives(p.platform()))
    if (d.Ready() && EqualsNoCase(fs::path(d.mount_point).filename().string(), Trim(label)))
      return MediaCd{d.mount_point, {}};
  for (const CdImage& known : ReadCdImageList(p))
    if (EqualsNoCase(known.cd, Trim(label)) && FileExists(known.image))
      return MediaCd{{}, known.image};
  return std::nullopt;
}

// The file `on_cd` (a path on the CD, either separator) copied to `target`; its length in
// `length`. False when the CD doesn't hold it.
bool FetchFromMediaCd(Program& p, const MediaCd& cd, const std::string& on_cd,
                      const fs::path& target, std::uintmax_t& length) {
  std::string name = WithoutLeadingSeparators(on_cd);
  std::replace(name.begin(), name.end(), '\\', '/');
  std::error_code ec;
  if (!cd.mount.empty()) {
    const SafeJoinResult source = SafeJoin(cd.mount, name);
    if (!source || !FileExists(source.path) || !CopyFileOver(ResolveCase(source.path), target))
      return false;
    length = fs::file_size(target, ec);
    return !ec;
  }
  const std::size_t cut = name.rfind('/');
  const std::string folder = cut == std::string::npos ? std::string() : name.substr(0, cut);
  const std::string file = name.substr(cut == std::string::npos ? 0 : cut + 1);
  // Fetched beside the target under its name on the CD, then given the target's name.
  const fs::path fetched = target.parent_path() / file;
  const bool stood = FileExists(fetched);
  std::string error;
  if (stood && !EqualsNoCase(fetched.filename().string(), target.filename().string())) return false;
  if (!ExtractImageFolder(
          cd.image, folder, target.parent_path(), error,
          [&](const std::string& relative) { return EqualsNoCase(relative, file); }) ||
      !FileExists(fetched))
    return false;
  if (fetched.filename() != target.filename() && !MoveFileOver(fetched, target)) return false;
  length = fs::file_size(target, ec);
  return !ec;
}

}  // namespace

void ApplyLevelInfo(Dialog_NewLevel& form) {
  Program& p = form.program();
  const fs::path info = ResolveCase(JoinFragment(form.WorkFolder, p.GetText(text::LevelInfoFile)));
  bool has_info = FileExists(info);
  if (has_info && (p.InfoFileFlag || !ReadLevelInfoFile(p, info, form.Info))) {
    // A level takes one info file only, and a bad one is as if it had never come: the install
    // script and the known patch still get their turn.
    DeleteFileForced(info);
    form.RefreshFiles();
    has_info = false;
  }
  bool from_script = false;
  const fs::path script =
      ResolveCase(JoinFragment(form.WorkFolder, p.GetText(text::InstallScriptFile)));
  if (!has_info) ApplyInstallScript(p, script, form.Info, from_script);
  // The author's script speaks to the installer: read, it is no file of the level.
  if (from_script) DeleteFileForced(script);

  if (has_info || from_script) {
    LevelRecord& r = form.Record();
    form.Text_NameLevel.SetText(form.Info.LevelName);
    form.Text_Note.SetText(form.Info.Note);
    r.AuthorName = Trim(form.Info.AuthorName);
    r.AuthorEmails = Trim(form.Info.AuthorEmails);
    r.AuthorSites = Trim(form.Info.AuthorSites);
    r.AuthorNote = Trim(form.Info.AuthorNote);
    r.MoreInfoFile = Trim(form.Info.MoreInfoFile);
    form.SelectMoreInfo(ExtractFileName(r.MoreInfoFile));
    form.Refresh();
    if (has_info) DeleteFileForced(info);
    form.RefreshFiles();

    bool going = RequireListedWads(form) && ApplyCopies(form) && FetchMediaFiles(form);
    if (going && !Trim(form.Info.SetupDestination).empty())
      form.RunSetup(form.Info.SetupDestination);
    if (going) ApplyTomLinks(form);
    form.RefreshFiles();
    form.SelectMoreInfo(ExtractFileName(r.MoreInfoFile));
    p.InfoFileFlag = true;
    ShowStatus(&form.Label_Info, {});
    if (from_script && !has_info && CheckListedFiles(form, false) &&
        !ListFiles(form.WorkFolder, WithoutLeadingSeparators(p.GetText(text::TomToCompile)))
             .empty())
      form.CompileTom();
  }
  if (!p.InfoFileFlag) OfferKnownPatch(form);
}

bool RequireListedWads(Dialog_NewLevel& form) {
  Program& p = form.program();
  const std::vector<std::string> pairs = SplitNulList(form.Info.WadFiles);
  std::string url;
  for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
    if (pairs[i].empty()) continue;
    const fs::path file =
        JoinFragment(p.prefs.EditorFolder, p.GetText(text::ListedWadFolder) + pairs[i]);
    const bool there = ContainsNoCase(pairs[i], p.GetText(text::RevisedWadsWord))
                           ? RevisedWadsInstalled(p)
                           : FileExists(file);
    if (!there && url.empty()) url = pairs[i + 1];
  }
  if (url.empty()) return true;
  const std::string zip = AskForZipFile(p, Trim(form.Info.WadsDescription), url);
  if (zip.empty()) {
    AskUser(p, p.GetText(text::WadsNotGiven), msg::kError);
    form.Pul_Cancel.Click();
    return false;
  }
  ShowStatus(&form.Label_Info, p.GetText(text::ImportingWads));
  const bool imported = ImportWadZip(p, zip);
  ShowStatus(&form.Label_Info, {});
  if (!imported) form.Pul_Cancel.Click();
  return imported;
}

bool ApplyCopies(Dialog_NewLevel& form) {
  Program& p = form.program();
  const std::vector<std::string> pairs = SplitNulList(form.Info.FileCopies);
  if (pairs.size() < 2) return true;
  ShowStatus(&form.Label_Info, p.GetText(text::ApplyingCopies));
  for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
    ShowStatus(&form.Label_Info, p.GetText(text::ApplyingCopy));
    for (const fs::path& f : ListFiles(form.WorkFolder, pairs[i])) {
      const std::string name =
          ExtractBaseName(pairs[i + 1]) + ExtractExtension(f.filename().string());
      const fs::path target = InFolder(form.WorkFolder, name);
      if (!target.empty() && !FileExists(target)) CopyFileOver(f, target);
    }
  }
  return true;
}

bool FetchMediaFiles(Dialog_NewLevel& form) {
  Program& p = form.program();
  const std::vector<std::string> groups = SplitNulList(form.Info.MediaFiles);
  const fs::path editor_media =
      JoinFragment(p.prefs.EditorFolder, p.GetText(text::EditorMediaFolder));
  for (std::size_t i = 0; i + 2 < groups.size(); i += 4) {
    const std::string& label = groups[i];
    const std::string& file = groups[i + 1];
    ShowStatus(&form.Label_Info, p.GetText(text::FetchingMedia, {file}));
    const fs::path target = InFolder(form.WorkFolder, groups[i + 2]);
    const std::string second = i + 3 < groups.size() ? groups[i + 3] : std::string();
    if (target.empty() || FileExists(target)) continue;
    if (!second.empty() && (FileExists(InFolder(form.WorkFolder, second)) ||
                            FileExists(InFolder(editor_media, second))))
      continue;
    std::optional<MediaCd> cd = FindMediaCd(p, label);
    if (!cd && AskUser(p, p.GetText(text::MediaCdMissing), msg::kYesNo) == msg::kYes) {
      while (!cd && AskUser(p, p.GetText(text::InsertMediaCd), msg::kOkCancel) == msg::kOk) {
        cd = FindMediaCd(p, label);
        if (!cd && AskUser(p, p.GetText(text::GoOnLookingForCd), msg::kYesNo) == msg::kNo) break;
      }
    }
    if (!cd) {
      AskUser(p, p.GetText(text::MediaCdUnknown, {file}), msg::kInformation);
      continue;
    }
    ShowStatus(&form.Label_Info, p.GetText(text::CopyingMedia));
    std::uintmax_t length = 0;
    if (!FetchFromMediaCd(p, *cd, file, target, length)) {
      AskUser(p, p.GetText(text::MediaStillMissing, {file}), msg::kError);
      continue;
    }
    // The list of the level's files names the file with the size the CD gives.
    LevelInfo& info = form.Info;
    for (std::size_t n = 0; n < info.ListedNames.size() && n < info.ListedSizes.size(); ++n)
      if (EqualsNoCase(ExtractFileName(info.ListedNames[n]), target.filename().string()))
        info.ListedSizes[n] = static_cast<std::int32_t>(length);
  }
  ShowStatus(&form.Label_Info, {});
  return true;
}

void LinkWadForTom(Program& p, const fs::path& folder, const std::string& pattern,
                   const std::string& baseName) {
  std::vector<fs::path> found =
      ListFiles(JoinFragment(p.prefs.EditorFolder, p.GetText(text::TomLinkWadsFolder)), pattern);
  if (found.empty()) found = ListFiles(folder, pattern);
  for (const fs::path& f : found) {
    const fs::path target = InFolder(folder, baseName + ExtractExtension(f.filename().string()));
    if (!target.empty() && !FileExists(target)) CopyFileOver(f, target);
  }
}

void ApplyTomLinks(Dialog_NewLevel& form) {
  const std::vector<std::string> links = SplitNulList(form.Info.TomLinks);
  for (std::size_t i = 0; i + 1 < links.size(); i += 2)
    LinkWadForTom(form.program(), form.WorkFolder, links[i + 1], links[i]);
}

bool CheckListedFiles(Dialog_NewLevel& form, bool ask) {
  Program& p = form.program();
  bool result = true;
  if (p.InfoFileFlag && !form.PatchApplied) {
    const LevelInfo& info = form.Info;
    for (std::size_t i = 0; i < info.ListedNames.size() && i < info.ListedSizes.size(); ++i) {
      const fs::path file = InFolder(form.WorkFolder, ExtractFileName(info.ListedNames[i]));
      std::string finding;
      std::error_code ec;
      if (file.empty() || !FileExists(file))
        finding = p.GetText(text::ListedFileMissing, {info.ListedNames[i]});
      else if (fs::file_size(ResolveCase(file), ec) !=
               static_cast<std::uintmax_t>(info.ListedSizes[i]))
        finding = p.GetText(text::ListedFileSizeDiffers, {info.ListedNames[i]});
      if (finding.empty()) continue;
      if (!ask ||
          AskUser(p, p.GetText(text::ListedFileGoOn, {finding, "\r\n"}), msg::kYesNo) == msg::kNo)
        return false;
    }
  }
  CheckWadsForToms(p, form.WorkFolder, ask, result);
  return result;
}

void OfferKnownPatch(Dialog_NewLevel& form) {
  Program& p = form.program();
  // The files a patch matched still match once it is in: it is not offered a second time.
  if (form.PatchApplied) return;
  for (const UrlEntry& entry : KnownPatchesFor(p, form.WorkFolder)) {
    const std::string title = Trim(entry.Name.substr(0, entry.Name.find('-')));
    const std::string name = ExtractUrlFileName(entry.Url);
    if (AskUser(p, p.GetText(text::KnownPatchQuestion, {title, name}) + " ?", msg::kYesNo) ==
        msg::kNo)
      continue;
    // Never onto a file of the program's own: the name comes from a list off the web.
    const fs::path download = DownloadTarget(p, entry.Url);
    if (download.empty() || !DownloadToFile(p, entry.Url, download)) {
      AskUser(p, p.GetText(text::PatchNotDownloaded) + name, msg::kError);
      return;
    }
    const std::string file = download.filename().string();
    if (EndsWithNoCase(file, p.GetText(text::PatchZipExtension))) {
      ShowStatus(&form.Label_Info, p.GetText(text::UnpackingArchiveNamed, {file}));
      std::string why;
      const bool unpacked =
          ExtractZip(p, download, form.WorkFolder, &form.ProgressBar1, false, false, &why);
      DeleteFileForced(download);
      if (!unpacked) {
        AskUser(p, p.GetText(text::PatchNotUnpacked) + file + (why.empty() ? "" : "\r\n" + why),
                msg::kError);
        return;
      }
    } else {
      const fs::path folder = JoinFragment(form.WorkFolder, p.GetText(text::PatchFolder));
      MakeFolder(folder);
      CopyFileOver(download, folder / file);
      DeleteFileForced(download);
    }
    form.PatchApplied = true;
    form.FilesChangedFlag = true;
    form.RefreshFiles();
    ApplyLevelInfo(form);
    // A patch may be a setup program of its own, run like the one a package brings.
    if (form.IsLoaded()) form.RunSetup({});
    return;
  }
}

std::string AskForZipFile(Program& program, const std::string& description,
                          const std::string& url) {
  const std::string name = ExtractUrlFileName(url);
  auto choose = [&]() -> std::string {
    FileRequest request;
    request.title = program.GetText(text::NeededFileTitle);
    request.filter = program.GetText(text::NeededFileFilter, {name});
    request.start_folder = program.prefs.DefaultLoadDir;
    return program.ui().AskOpenFile(request);
  };
  const int have = AskUser(
      program, program.GetText(text::AskHaveFile, {"\r\n" + description + "\r\n"}) + name + "'?",
      msg::kYesNoCancel);
  if (have == msg::kYes) return choose();
  if (AskUser(program, program.GetText(text::AskDownloadFile) + name + "?", msg::kYesNo) ==
      msg::kNo)
    return {};
  const fs::path target = DownloadTarget(program, url);
  if (!target.empty() && EndsWithNoCase(url, program.GetText(text::DirectDownloadExtension))) {
    if (DownloadToFile(program, url, target)) return target.string();
    if (AskUser(program, program.GetText(text::DownloadFailedOpenPage), msg::kYesNo) == msg::kNo)
      return {};
  }
  AskUser(program, program.GetText(text::DownloadInBrowser) + "\"" + name + "\"",
          msg::kInformation);
  program.platform().ShellOpen(url, {}, program.Home());
  if (AskUser(program, program.GetText(text::AfterBrowserDownload), msg::kOkCancel) == msg::kCancel)
    return {};
  return choose();
}

}  // namespace vardolin
