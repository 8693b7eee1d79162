#include "intake/packed_level_expand.h"

#include <string>
#include <vector>

#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "intake/packed_level.h"
#include "intake/packed_level_header.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// A working file of the level, which the add-level flow must see in the folder.
bool IsWorkingFile(const Program& program, const PackageHeader& header, const std::string& name) {
  const std::string extension = ExtractExtension(name);
  if (EqualsNoCase(extension, program.GetText(text::KeptExtension)) &&
      !IsAudioTrackName(program, name) && IsKeptName(program, header, name))
    return false;
  for (std::int32_t id : {text::WorkingName1, text::WorkingName2, text::WorkingName3})
    if (EqualsNoCase(name, program.GetText(id))) return true;
  if (EqualsNoCase(RemoveExtension(name), program.GetText(text::WorkingBaseName))) return true;
  for (std::int32_t id = text::WorkingExtensionFirst; id <= text::WorkingExtensionLast; ++id)
    if (!extension.empty() && EqualsNoCase(extension, program.GetText(id))) return true;
  return false;
}

}  // namespace

void ExpandPackedLevel(Program& program, const fs::path& folder, Label* info, ProgressBar* bar) {
  const fs::path archive = JoinFragment(folder, program.GetText(text::PackedLevelFile));
  if (!FileExists(archive)) return;
  PackageHeader header;
  const fs::path header_file = JoinFragment(folder, program.GetText(text::PackageHeaderFile));
  if (FileExists(header_file)) ReadPackageHeader(program, header_file, header, false);

  FileArchive packed(program);
  ArchiveDirectory directory;
  std::vector<std::string> chosen;
  if (packed.ArchiveOperation(archive, kArchiveReadDirectory, {}, {}, directory))
    for (const std::string& name : directory.Names)
      if (IsWorkingFile(program, header, name)) chosen.push_back(name);

  if (!chosen.empty()) {
    for (const std::string& name : chosen) {
      const SafeJoinResult target = SafeJoin(folder, name);
      if (target.ok)
        packed.ArchiveOperation(archive, kArchiveTakeOne, name, target.path.string(), directory);
    }
    ShowStatus(info, program.GetText(text::ExpandingPackedLevel));
    if (packed.ArchiveOperation(archive, kArchiveMoveOut, {}, {}, directory)) {
      if (bar) bar->SetMax(static_cast<int>(chosen.size()));
      for (std::size_t i = 0; i < chosen.size(); ++i) {
        packed.ArchiveOperation(archive, kArchiveRemove, chosen[i], {}, directory);
        if (bar) bar->SetValue(static_cast<int>(i + 1));
      }
      packed.ArchiveOperation(archive, kArchiveMoveIn, {}, {}, directory);
    }
  }
  DeleteFileForced(JoinFragment(folder, program.GetText(text::PackedLevelLeftover)));
  ShowStatus(info, {});
  if (bar) bar->SetValue(0);
}

}  // namespace vardolin
