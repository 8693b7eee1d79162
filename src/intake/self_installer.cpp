#include "intake/self_installer.h"

#include <fstream>
#include <system_error>

#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/folder_names.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "intake/byte_source.h"
#include "intake/text_ids.h"
#include "web/text_ids.h"
#include "web/zip_layer.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// Longer names than Windows allows are no file names.
constexpr std::size_t kMaxNameBytes = 260;
constexpr const char* kTemporaryFolder = "\\temp_vardm15";

// The installer wrote each file directly into its folder: a name with a folder, a drive or a
// ".." part would write elsewhere.
bool IsPlainFileName(const fs::path& target, const std::string& name) {
  return name.find_first_of("\\/:") == std::string::npos && SafeJoin(target, name).ok;
}

}  // namespace

InstallerTrailer ReadInstallerTrailer(ByteSource& source, std::string_view magic,
                                      std::vector<InstallerEntry>& entries) {
  entries.clear();
  const std::uint64_t size = source.Size();
  if (size < 4) return InstallerTrailer::NotInstaller;
  // The content ends where the offset of the trailer begins.
  const std::uint64_t end = size - 4;
  SourceCursor tail(source, end);
  const std::uint64_t start = tail.U32();
  std::string head;
  SourceCursor in(source, start);
  if (!tail.Ok() || start >= size || !in.Bytes(magic.size() + 1, head) ||
      std::string_view(head).substr(0, magic.size()) != magic || head.back() != '\0')
    return InstallerTrailer::NotInstaller;
  in.Skip(4);
  const std::int32_t count = in.I32();
  if (!in.Ok() || count < 0) return InstallerTrailer::Damaged;
  for (std::int32_t i = 0; i < count; ++i) {
    InstallerEntry entry;
    entry.size = in.U32();
    if (!in.Ok() || !in.UpToNul(kMaxNameBytes, entry.name)) return InstallerTrailer::Damaged;
    entry.offset = in.Position();
    if (entry.offset > end || entry.size > end - entry.offset) return InstallerTrailer::Damaged;
    in.Skip(entry.size);
    entries.push_back(std::move(entry));
  }
  return InstallerTrailer::Ok;
}

bool UnpackSelfInstaller(Program& program, const fs::path& exe, const fs::path& target,
                         bool emptyTarget) {
  FileSource source(ResolveCase(exe));
  if (!source.IsOpen()) return false;
  std::vector<InstallerEntry> entries;
  const InstallerTrailer found =
      ReadInstallerTrailer(source, program.GetText(text::SelfInstallerMagic), entries);
  if (found == InstallerTrailer::NotInstaller) return false;
  if (found == InstallerTrailer::Damaged) {
    AskUser(program, program.GetText(text::InstallerDamaged, {exe.string()}), msg::kError);
    return false;
  }
  for (const InstallerEntry& entry : entries)
    if (!IsPlainFileName(target, entry.name)) {
      AskUser(program, program.GetText(text::InstallerUnsafeName, {exe.string(), entry.name}),
              msg::kError);
      return false;
    }
  std::error_code ec;
  fs::create_directories(target, ec);
  if (emptyTarget) DeleteMatchingFiles(target, "*");
  // Every name was checked above to be a plain name that stays inside the target.
  FolderNames names(target);
  for (const InstallerEntry& entry : entries) {
    std::ofstream out(names.Place(entry.name), std::ios::binary | std::ios::trunc);
    if (!out || !CopySourceBytes(source, entry.offset, entry.size, out)) {
      AskUser(program, program.GetText(text::InstallerDamaged, {exe.string()}), msg::kError);
      return false;
    }
  }
  return true;
}

void UnpackSelfInstallers(Program& program, const fs::path& folder, Label* info) {
  const fs::path temporary = JoinFragment(program.Home(), kTemporaryFolder);
  const std::string zips = WithoutLeadingSeparators(program.GetText(text::ZipPatternInFolder));
  bool unpacked = false;
  for (const fs::path& exe : ListFiles(folder, "*.exe")) {
    // The temporary folder is emptied for the first installer only, so that a level spread over
    // several installers comes in whole.
    if (!UnpackSelfInstaller(program, exe, temporary, !unpacked)) continue;
    unpacked = true;
    for (const fs::path& zip : ListFiles(temporary, zips)) {
      ShowStatus(info, program.GetText(text::UnpackingArchiveNamed, {zip.filename().string()}));
      // A level's files lie flat in its folder, as the zips the user adds are unpacked.
      if (!ExtractZip(program, zip, temporary, nullptr, false, false))
        AskUser(program, zip.filename().string() + program.GetText(text::CannotUnpackArchive),
                msg::kError);
      DeleteFileForced(zip);
    }
    DeleteFileForced(exe);
  }
  if (!unpacked) return;
  for (std::int32_t id = text::InstallerOwnFile1; id <= text::InstallerOwnFile5; ++id) {
    const SafeJoinResult own = SafeJoin(temporary, program.GetText(id));
    if (own.ok) DeleteFileForced(own.path);
  }
  ShowStatus(info, program.GetText(text::CopyingFiles));
  // File by file, so that a file that stands in the folder in another case is the one replaced.
  bool copied = true;
  FolderTreeWalker walker;
  walker.WalkFolderTree(temporary);
  FolderNames names(folder);
  for (const fs::path& file : walker.Files())
    copied = CopyFileOverPlaced(file, names.Place(file.filename().string())) && copied;
  if (!copied)
    AskUser(program, program.GetText(text::UnpackedCopyFailed, {folder.string()}), msg::kError);
  std::error_code ec;
  fs::remove_all(temporary, ec);
}

}  // namespace vardolin
