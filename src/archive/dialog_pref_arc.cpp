#include "archive/dialog_pref_arc.h"

#include <filesystem>

#include "archive/catalogue_file.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"

namespace vardolin {
namespace fs = std::filesystem;

Dialog_PrefArc::Dialog_PrefArc(Program& program)
    : Form(program, "Dialog_PrefArc", " Archive properties") {
  Check_Compresso.SetCaption("Compress files in .zl and load.bmp in load.jpg");
  Check_WavInMp3.SetCaption("Encode wav files in mp3 format");
}

void Dialog_PrefArc::Set_Caption_Texts() {
  CaptionFromText(text::PrefArcTitle);
  CaptionFromText(Frame1, text::PrefArcReferences);
  CaptionFromText(Label1, text::PrefArcLevels);
  CaptionFromText(Label2, text::PrefArcFullPath);
  CaptionFromText(Label3, text::PrefArcTotCd);
  CaptionFromText(Label4, text::PrefArcOnCd);
  CaptionFromText(Label7, text::PrefArcFolderSize);
  CaptionFromText(Label5, text::PrefArcSizeCd);
  CaptionFromText(Label6, text::PrefArcSizeHd);
  CaptionFromText(Label8, text::PrefArcMainDir);
  CaptionFromText(Label9, text::PrefArcSecondaryDir);
  CaptionFromText(Pul_SfogliaMainDir, text::PrefArcBrowse);
  CaptionFromText(Pul_SfogliaSecDir, text::PrefArcBrowse);
  CaptionFromText(Frame2, text::PrefArcCompression);
  CaptionFromText(Check_Compresso, text::PrefArcCompress);
  CaptionFromText(Check_WavInMp3, text::PrefArcWavInMp3);
  CaptionFromText(Pul_Ok, text::PrefArcOk);
  CaptionFromText(Pul_Cancel, text::PrefArcCancel);
}

void Dialog_PrefArc::ImpostaValori(const CatalogueHeader& header) {
  Program& p = program();
  CatalogueHeader& live = p.catalogue.header;
  saved_ = header;
  bool any_on_cd = false;
  double size_cd = 0, size_hd = 0;
  for (const LevelRecord& level : p.catalogue.levels) {
    size_hd += level.UserSize;
    if (level.CdNumber != 0) {
      any_on_cd = true;
      size_cd += level.FilesSize;
    } else {
      size_hd += level.FilesSize;
    }
  }
  // With every level on hard disk the read-only folder is the writable one.
  if (!any_on_cd && live.MainDir != live.SecondaryDir) {
    live.MainDir = live.SecondaryDir;
    CatalogueChanged(p);
  }
  Label_Levels.SetCaption(std::to_string(live.LevelCount));
  Label_FullPath.SetCaption(p.prefs.LastArchive);
  Label_TotCd.SetCaption(std::to_string(live.CdCount));
  Label_OnCd.SetCaption(p.GetText(any_on_cd ? text::PrefArcSomeOnCd : text::PrefArcNoneOnCd));
  Label_FolderSize.SetCaption(FormatFileSize(live.TotalFilesSize + live.TotalUserSize));
  Label_SizeCd.SetCaption(live.CdCount == 0 ? std::string("0") : FormatFileSize(size_cd));
  Label_SizeHd.SetCaption(FormatFileSize(size_hd));
  Label_MainDir.SetCaption(Trim(live.MainDir));
  Label_SecondaryDir.SetCaption(Trim(live.SecondaryDir));
  filling_ = true;
  Check_Compresso.SetValue(live.CompressFiles);
  Check_WavInMp3.SetValue(live.WavInMp3);
  filling_ = false;
}

bool Dialog_PrefArc::BrowseArchiveFolder(std::int32_t title, std::int32_t pattern,
                                         std::int32_t error, std::string& folder, Label& shown) {
  Program& p = program();
  std::string chosen = p.ui().AskFolder(Trim(folder), p.GetText(title));
  if (chosen.empty()) return false;
  // A folder counts as an archive folder when it holds level folders.
  std::string pattern_name = p.GetText(pattern);
  if (!pattern_name.empty() && pattern_name.front() == '\\') pattern_name.erase(0, 1);
  bool holds_levels = false;
  for (const fs::path& sub : ListSubfolders(chosen))
    holds_levels = holds_levels || WildcardMatch(sub.filename().string(), pattern_name);
  if (!holds_levels) {
    AskUser(p, p.GetText(error), msg::kError);
    return false;
  }
  folder = chosen;
  shown.SetCaption(chosen);
  CatalogueChanged(p);
  return true;
}

void Dialog_PrefArc::Pul_SfogliaMainDir_Click() {
  BrowseArchiveFolder(text::ChooseMainDirTitle, text::MainDirLevelPattern, text::MainDirNoLevels,
                      program().catalogue.header.MainDir, Label_MainDir);
}

void Dialog_PrefArc::Pul_SfogliaSecDir_Click() {
  BrowseArchiveFolder(text::ChooseSecondaryDirTitle, text::SecondaryDirLevelPattern,
                      text::SecondaryDirNoLevels, program().catalogue.header.SecondaryDir,
                      Label_SecondaryDir);
}

void Dialog_PrefArc::Check_Compresso_Click() {
  if (!filling_) program().catalogue.header.CompressFiles = Check_Compresso.Value();
}

void Dialog_PrefArc::Check_WavInMp3_Click() {
  if (!filling_) program().catalogue.header.WavInMp3 = Check_WavInMp3.Value();
}

void Dialog_PrefArc::Pul_Ok_Click() {
  Program& p = program();
  CatalogueHeader& live = p.catalogue.header;
  if (live.CompressFiles != saved_.CompressFiles || live.WavInMp3 != saved_.WavInMp3) {
    CatalogueChanged(p);
    ConvertStore = AskUser(p, p.GetText(text::AskConvertStore), msg::kYesNo) == msg::kYes;
  }
  Unload();
}

void Dialog_PrefArc::Pul_Help_Click() {
  ShowHelp(program(), help::PrefArc);
}

void Dialog_PrefArc::Pul_Cancel_Click() {
  program().catalogue.header = saved_;
  Unload();
}

}  // namespace vardolin
