#include <filesystem>
#include <string>

#include "archive/level_files.h"
#include "archive/level_store.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "intake/copy_info_file.h"
#include "intake/equal_levels.h"
#include "intake/level_file_list.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

std::string Quoted(const std::string& text) {
  return "\"" + text + "\"";
}

// The level's folder where its files are: on a CD that stands in a drive now for a CD level.
// Empty, with CdRefused set, when that CD isn't there.
fs::path LevelFolderWithCd(Program& program, const LevelRecord& level) {
  if (level.CdNumber <= 0) return GetLevelFolder(program, level.Code, false);
  const fs::path folder = FindLevelOnAnyCd(program, level.Code);
  program.CdRefused = folder.empty();
  return folder;
}

}  // namespace

int CheckEqualLevelsInArchive(Program& program) {
  ShowProgressDialog(program, program.GetText(text::EqualCheckCaption));
  const std::vector<EqualLevelFind> finds = FindAllEqualLevels(
      program, [&](int done, int count) { StepProgressDialog(program, done, count); });
  const auto& levels = program.catalogue.levels;
  int count = 0;
  for (const EqualLevelFind& find : finds) {
    HideProgressDialog(program);
    const std::string question = program.GetText(
        text::EqualLevelsFound,
        {Quoted(Trim(levels[find.level].Name)), Quoted(Trim(levels[find.equal].Name)), find.file});
    if (AskUser(program, question, msg::kYesNo) == msg::kNo) return count;
    ++count;
    ShowProgressDialog(program, program.GetText(text::EqualCheckGoesOn));
    StepProgressDialog(program, find.level, TableLevelCount(program));
  }
  HideProgressDialog(program);
  const std::int32_t id = count > 0 ? text::EqualCheckFinds : text::EqualCheckNone;
  AskUser(program, program.GetText(id, {std::to_string(count), "\r\n"}), msg::kInformation);
  return count;
}

void CreateAllLevelFileLists(Program& program) {
  ShowProgressDialog(program, program.GetText(text::ListsCaption));
  const std::int32_t count = TableLevelCount(program);
  for (std::int32_t i = 0; i < count; ++i) {
    StepProgressDialog(program, i, count);
    const LevelRecord& level = program.catalogue.levels[i];
    const fs::path list = JoinFragment(GetLevelFolder(program, level.Code, false),
                                       program.GetText(text::ListsFileName));
    if (FileExists(list)) continue;
    const fs::path folder = LevelFolderWithCd(program, level);
    if (folder.empty()) {
      HideProgressDialog(program);
      AskUser(program, program.GetText(text::ListsCdMissing), msg::kError);
      return;
    }
    const fs::path files = JoinFragment(folder, program.GetText(text::ListsFilesFolder));
    const std::string plain = WithoutLeadingSeparators(program.GetText(text::ListsPlainPattern));
    if (!ListFiles(files, plain).empty()) {
      WriteLevelFileList(program, level.Code, BuildLevelFileList(program, files));
      continue;
    }
    fs::path temporary;
    if (!PrepareLevelFiles(program, files, temporary)) {
      AskUser(program, program.GetText(text::ListsExpandFailed) + Trim(level.Name) + "]",
              msg::kError);
      continue;
    }
    WriteLevelFileList(program, level.Code,
                       BuildLevelFileList(program, temporary.empty() ? files : temporary));
    if (!temporary.empty()) DeleteLevelTree(program, temporary, nullptr, nullptr);
  }
  HideProgressDialog(program);
}

void CopyAllInfoFilesFromCd(Program& program) {
  if (program.catalogue.header.CdCount <= 0) {
    AskUser(program, program.GetText(text::InfoCopyNoCd), msg::kInformation);
    return;
  }
  const std::int32_t count = TableLevelCount(program);
  for (std::int32_t i = 1; i < count; ++i) {
    const LevelRecord& level = program.catalogue.levels[i];
    const std::string file = Trim(level.MoreInfoFile);
    if (file.empty() || level.CdNumber <= 0) continue;
    const fs::path cd = LevelFolderWithCd(program, level);
    if (cd.empty()) {
      AskUser(program, program.GetText(text::InfoCopyCdMissing), msg::kError);
      return;
    }
    // The name comes from the catalogue, which came from a package: it stays in its folder.
    const SafeJoinResult source =
        SafeJoin(JoinFragment(cd, program.GetText(text::InfoCopySourceFolder)), file);
    const SafeJoinResult target =
        SafeJoin(JoinFragment(GetLevelFolder(program, level.Code, false),
                              program.GetText(text::InfoCopyTargetFolder)),
                 file);
    if (!source || !target || !CopyInfoFile(program, source.path, target.path)) {
      AskUser(program,
              program.GetText(text::InfoCopyFailed) + (source ? source.path.string() : file),
              msg::kError);
      return;
    }
  }
}

}  // namespace vardolin
