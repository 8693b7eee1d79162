// The import of Dialog_AddWads: each file sorted into its place, the maps the new files touch
// compiled, the level's block and name merged into the editor's script and language texts.

#include <filesystem>
#include <string>
#include <vector>

#include "archive/editor_backup.h"
#include "audio/wave_header.h"
#include "editor/tom_converter.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/codepage.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/dialog_add_wads.h"
#include "intake/dialog_scambia_nomi.h"
#include "intake/editor_script_files.h"
#include "intake/text_ids.h"
#include "play/active_level.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

constexpr const char* kCrLf = "\r\n";

std::string LastChars(const std::string& name, std::size_t n) {
  return name.size() <= n ? name : name.substr(name.size() - n);
}

int IndexOfLine(const std::vector<std::string>& lines, const std::string& line) {
  for (std::size_t j = 0; j < lines.size(); ++j)
    if (EqualsNoCase(lines[j], line)) return static_cast<int>(j);
  return -1;
}

// Line j takes the name; a list too short for it gets the name at its end, so none is lost.
void PutLine(std::vector<std::string>& lines, int j, const std::string& name) {
  if (static_cast<std::size_t>(j) < lines.size())
    lines[j] = name;
  else
    lines.push_back(name);
}

}  // namespace

std::string Dialog_AddWads::AskLevelName(const std::string& name, const std::string& proposed) {
  Dialog_ScambiaNomi dialog(program());
  dialog.ImpostaValori(name, proposed);
  program().ui().ShowModal(dialog);
  return dialog.ChosenName;
}

void Dialog_AddWads::Pul_Import_Click() {
  Program& p = program();
  auto T = [&](std::int32_t id) { return p.GetText(id); };
  std::string report;
  known_names_.clear();
  const fs::path mirror = mirror_root_ = EditorBackupFolder(p);
  const fs::path editor = editor_root_ = EditorFolderPath(p);

  // Preparation: what the mirror held before, so that only new levels get blocks.
  std::vector<std::string> baseline;
  for (const fs::path& f : ListFiles(JoinFragment(mirror, T(text::WadMirrorLevels)),
                                     WithoutLeadingSeparators(T(text::WadLevelPattern))))
    baseline.push_back(f.filename().string());
  const fs::path merge = JoinFragment(p.Home(), T(text::WadMergeFolder));
  MakeEmptyFolder(merge);
  ProgressBar1.SetValue(0);
  ShowStatus(&Label_Info, T(text::WadSorting));

  // Sorting, in the fixed order of the tests.
  std::vector<std::string> maps;
  const std::size_t total = ImportFiles.size();
  std::size_t done = 0;
  for (std::size_t i = 0; i < ImportFiles.size();) {
    const fs::path f = ImportFiles[i];
    const fs::path folder = f.parent_path();
    const std::string name = f.filename().string();
    const std::string ext = LastChars(name, 4);
    const std::string base = ExtractBaseName(name);
    auto is = [&](std::int32_t id) { return EqualsNoCase(ext, T(id)); };
    auto beside = [&](std::int32_t id) { return FileExists(folder / (base + T(id))); };
    bool handled = false;
    if (is(text::WadMapExt)) maps.push_back(name);
    if (IsWadSetFile(p, f)) {
      InstallEditorFile(f, T(text::WadSetFolder), report);
      handled = true;
    }
    if (!handled && (is(text::WadProjectExt) ||
                     (is(text::WadTextureExt) && !beside(text::WadTextureOwnerExt)))) {
      std::string sub;
      if (is(text::WadProjectOwnExt)) {
        sub = T(text::WadProjectFolder) + base + "\\";
      } else {
        for (const fs::path& other : ImportFiles) {
          const std::string o = other.filename().string();
          if (EqualsNoCase(LastChars(o, 4), T(text::WadTextureProjectExt)) &&
              StartsWithNoCase(o, name.substr(0, 3))) {
            sub = T(text::WadTextureFolder) + ExtractBaseName(o) + "\\";
            break;
          }
        }
      }
      if (!sub.empty()) {
        InstallEditorFile(f, sub, report);
        handled = true;
      }
    }
    if (!handled && (EqualsNoCase(name, T(text::WadScriptName)) ||
                     EqualsNoCase(name, T(text::WadEnglishName)) || is(text::WadScriptPieceExt) ||
                     (is(text::WadLanguageExt) && beside(text::WadLanguageSiblingExt)))) {
      report += name + T(text::WadReportToMerge);
      const bool copied = CopyFileOver(f, merge / name);
      report += T(copied ? text::WadReportMergeOk : text::WadReportMergeFailed) + kCrLf;
      handled = true;
    }
    if (!handled && EqualsNoCase(name, T(text::WadLoadPictureName))) {
      InstallEditorFile(f, T(text::WadLoadPictureFolder), report);
      handled = true;
    }
    if (!handled && is(text::WadSoundExt)) {
      bool marked = false;
      const bool convert = NeedsWaveConversion(p, f, marked);
      if (marked) {
        // A wave the game can't use stays out of the editor: it leaves the import folder only.
        DeleteFileForced(f);
        ImportFiles[i] = ImportFiles.back();
        ImportFiles.pop_back();
        SetProgressPercent(ProgressBar1, static_cast<double>(total), static_cast<double>(++done));
        continue;
      }
      InstallEditorFile(f, T(convert ? text::WadSampleFolder : text::WadMusicFolder), report);
      handled = true;
    }
    if (!handled && EqualsNoCase(LastChars(name, 2), T(text::WadRootEnding))) {
      InstallEditorFile(f, "\\", report);
      handled = true;
    }
    if (!handled && !is(text::WadQuietExt)) report += name + T(text::WadReportUnused) + kCrLf;
    SetProgressPercent(ProgressBar1, static_cast<double>(total), static_cast<double>(++done));
    ++i;
  }

  // Maps that new wads touch are compiled again.
  for (const fs::path& f : ImportFiles) {
    const std::string name = f.filename().string();
    if (!EqualsNoCase(LastChars(name, 4), T(text::WadTouchingExt))) continue;
    const std::string base = ExtractBaseName(name);
    bool listed = false;
    for (const std::string& m : maps) listed = listed || EqualsNoCase(ExtractBaseName(m), base);
    if (listed) continue;
    const std::string map = base + T(text::WadTouchedMapExt);
    if (NamesIn(ResolveCase(JoinFragment(editor, T(text::WadEditorMaps)))).count(ToLower(map)))
      maps.push_back(map);
  }

  if (!maps.empty()) {
    ShowStatus(&Label_Info, T(text::WadCompiling));
    ProgressBar1.SetValue(0);
    for (std::size_t k = 0; k < maps.size(); ++k) {
      const std::string& entry = maps[k];
      const fs::path ready = ImportFolder / (ExtractBaseName(entry) + T(text::WadCompiledExt));
      if (FileExists(ready)) {
        InstallEditorFile(ready, T(text::WadReadyLevelFolder), report);
      } else {
        const fs::path output = JoinFragment(editor, T(text::WadEditorLevels)) / ready.filename();
        const fs::path map = JoinFragment(editor, T(text::WadEditorMapsCompiled)) / entry;
        if (!RunTomConverterAsking(p, map)) {
          report += entry + T(text::WadReportNotCompiled) + kCrLf;
        } else {
          report += entry + T(text::WadReportCompiled) + kCrLf;
          const std::string out_name = output.filename().string();
          report += out_name + T(text::WadReportToMirror);
          const bool copied =
              CopyFileOver(output, JoinFragment(mirror, T(text::WadMirrorCompiled)) / out_name);
          report += T(copied ? text::WadReportMirrorOk : text::WadReportMirrorFailed) + kCrLf;
        }
      }
      SetProgressPercent(ProgressBar1, static_cast<double>(maps.size()),
                         static_cast<double>(k + 1));
    }
    ProgressBar1.SetValue(0);
    ShowStatus(&Label_Info, {});
  }

  // Merging the script.
  const std::vector<fs::path> levels =
      ListFiles(JoinFragment(editor, T(text::WadScriptLevels)),
                WithoutLeadingSeparators(T(text::WadScriptLevelPattern)));
  ShowStatus(&Label_Info, T(text::WadMerging));
  std::string language;
  for (const fs::path& f : ListFiles(mirror, WithoutLeadingSeparators(T(text::WadLanguagePattern))))
    if (!EqualsNoCase(f.filename().string(), T(text::WadNotALanguage))) {
      language = ExtractBaseName(f.filename().string());
      break;
    }
  const fs::path script_folder = JoinFragment(editor, T(text::WadScriptFolder));
  std::string import_head, names_head, names_tail;
  std::vector<std::string> import_blocks =
      ReadScriptFile(p, JoinFragment(merge, T(text::WadImportScript)), import_head);
  std::vector<std::string> import_names =
      ReadLanguageText(p, JoinFragment(merge, T(text::WadImportNames)), names_head, names_tail);
  if (import_head.empty()) import_blocks.clear();
  if (names_head.empty()) import_names.clear();

  if (import_blocks.empty() && import_names.empty()) {
    AskUser(p, p.GetText(text::WadNothingToMerge, {kCrLf}), msg::kError);
    CopyMatchingFiles(p, merge, script_folder, true, "*");
    CopyMatchingFiles(p, merge, JoinFragment(mirror, T(text::WadMirrorScript)), true, "*");
  } else {
    const int codepage = CodePageOfLanguage(language);
    std::string editor_head, editor_tail, script_head, second_head, second_tail;
    const fs::path language_file = script_folder / (language + T(text::WadLanguageFileExt));
    std::vector<std::string> editor_names =
        ReadLanguageText(p, language_file, editor_head, editor_tail);
    std::vector<std::string> editor_blocks =
        ReadScriptFile(p, JoinFragment(script_folder, T(text::WadEditorScript)), script_head);
    std::vector<std::string> second_names;
    if (!EqualsNoCase(language, T(text::WadEnglish)))
      second_names = ReadLanguageText(p, JoinFragment(script_folder, T(text::WadEditorEnglish)),
                                      second_head, second_tail);
    for (const fs::path& level : levels) {
      const std::string file = level.filename().string();
      bool in_baseline = false;
      for (const std::string& b : baseline) in_baseline = in_baseline || EqualsNoCase(b, file);
      if (in_baseline) continue;
      const std::string* block = nullptr;
      for (const std::string& entry : import_blocks)
        if (StartsWithNoCase(entry, file)) {
          block = &entry;
          break;
        }
      if (!block) {
        AskUser(p, p.GetText(text::WadNoBlock, {file}), msg::kError);
        continue;
      }
      editor_blocks.push_back(*block);
      const std::string name = ScriptEntryField(*block, 1);
      const int j = IndexOfLine(import_names, name);
      if (j < 0) {
        AskUser(p, p.GetText(text::WadNoName, {ToUtf8Lossy(name, codepage)}), msg::kError);
        continue;
      }
      // The texts keep their code page; the user sees and types the names in UTF-8.
      const std::string proposed =
          static_cast<std::size_t>(j) < editor_names.size() ? editor_names[j] : name;
      const std::string chosen =
          AskLevelName(ToUtf8Lossy(name, codepage), ToUtf8Lossy(proposed, codepage));
      PutLine(editor_names, j, FromUtf8Lossy(chosen, codepage));
      if (!second_names.empty()) PutLine(second_names, j, name);
    }
    if (!WriteScriptFile(JoinFragment(script_folder, T(text::WadScriptOut)), editor_blocks,
                         script_head))
      AskUser(p, T(text::WadScriptNotWritten), msg::kError);
    if (!WriteLanguageText(script_folder / (language + T(text::WadLanguageOutExt)), editor_names,
                           editor_head, editor_tail))
      AskUser(p, p.GetText(text::WadLanguageNotWritten, {language}), msg::kError);
    if (!second_names.empty() &&
        !WriteLanguageText(JoinFragment(script_folder, T(text::WadEnglishOut)), second_names,
                           second_head, second_tail))
      AskUser(p, T(text::WadEnglishNotWritten), msg::kError);
  }

  // Finishing.
  InstallEditorFile(JoinFragment(script_folder, T(text::WadScriptInstalled)), "\\", report);
  InstallEditorFile(script_folder / (language + T(text::WadLanguageInstalledExt)), "\\", report);
  CopyMatchingFiles(p, script_folder, JoinFragment(mirror, T(text::WadMirrorScriptAfter)), true,
                    "*");
  DeleteFolderTree(merge);
  report += std::string(kCrLf) + T(text::WadReportEnd) + kCrLf;
  Text_Prospetto.SetText(report);
  known_names_.clear();
  ProgressBar1.SetValue(0);
  ShowStatus(&Label_Info, {});
  AskUser(p, T(text::WadFinished), msg::kInformation);
  ImportDone = true;
  Pul_Cancel.SetCaption(T(text::WadCloseAfterImport));
  ShowStatus(&Label_Info, T(text::WadLabelAfterImport));
  DeleteMatchingFiles(ImportFolder, "*");
  RefreshFileList();
  DeleteFolderTree(ImportFolder);
  ShowStatus(&Label_Info, {});
}

}  // namespace vardolin
