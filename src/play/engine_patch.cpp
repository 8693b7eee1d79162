#include "play/engine_patch.h"

#include <sstream>

#include "archive/editor_backup.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "play/activation.h"
#include "play/text_ids.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

std::vector<std::uint8_t> Hex(const char* text) {
  std::vector<std::uint8_t> bytes;
  std::istringstream in(text);
  unsigned value = 0;
  while (in >> std::hex >> value) bytes.push_back(static_cast<std::uint8_t>(value));
  return bytes;
}

std::vector<std::uint8_t> Nops(std::size_t count) {
  return std::vector<std::uint8_t>(count, 0x90);
}

PatchRow Row(std::uint32_t offset, std::vector<std::uint8_t> expected,
             std::vector<std::uint8_t> replacement) {
  return {offset, std::move(expected), std::move(replacement)};
}

bool OwnerMayWrite(const fs::path& path) {
  std::error_code ec;
  return (fs::status(path, ec).permissions() & fs::perms::owner_write) != fs::perms::none && !ec;
}

}  // namespace

const PatchTable& EnginePatchTableA() {
  static const PatchTable table = {
      Row(0x74BDB, Hex("a1 ac 32 53 00 85 c0 75 f7"), Hex("e8 0a 93 02 00 90 90 90 90")),
      Row(0x8D1F2, Hex("a1 45 39 75 00 85 c0 75 f7"), Nops(9)),
      Row(0x922E1, Nops(6), Hex("53 6c 65 65 70 00")),
      Row(0x9DEEA,
          Hex("33 c0 64 8b 0d 00 00 00 00 81 79 04 60 de 49 00 75 10 8b 51 0c 8b 52 0c 39 51 08 "
              "75 05 b8 01 00 00 00 c3 53 51"),
          Hex("68 6c 8f 4a 00 ff 15 70 70 4a 00 68 e1 22 49 00 50 ff 15 1c 71 4a 00 6a 64 ff d0 "
              "a1 ac 32 53 00 85 c0 75 dc c3")),
  };
  return table;
}

const PatchTable& EnginePatchTableB() {
  static const PatchTable table = {
      Row(0x74BAB, Hex("a1 7c 32 53 00 85 c0 75 f7"), Hex("e8 71 db 00 00 90 90 90 90")),
      Row(0x82721, Nops(13), Hex("60 b9 7c 32 53 00 e8 05 af 00 00 61 c3")),
      Row(0x82F91, Nops(13), Hex("60 b9 15 39 75 00 e8 75 a6 00 00 61 c3")),
      Row(0x866C1, Nops(13), Hex("60 b9 15 39 75 00 e8 65 6f 00 00 61 c3")),
      Row(0x8D1C2, Hex("a1 15 39 75 00 85 c0 75 f7"), Hex("e8 fa 94 ff ff 90 90 90 90")),
      Row(0x8D1D5, Hex("a1 15 39 75 00 85 c0 74 f7"), Hex("e8 b7 5d ff ff 90 90 90 90")),
      Row(0x8D611, Nops(14), Hex("51 e8 3a 00 00 00 59 8b 01 85 c0 74 f3 c3")),
      Row(0x8D631, Nops(14), Hex("51 e8 1a 00 00 00 59 8b 01 85 c0 75 f3 c3")),
      Row(0x8D651, Nops(15), Hex("e8 4b 11 00 00 e8 06 13 00 00 6a 0a ff d0 c3")),
      Row(0x8E7A1, Nops(12), Hex("68 d1 17 49 00 ff 15 70 70 4a 00 c3")),
      Row(0x8E961, Nops(13), Hex("68 b1 22 49 00 50 ff 15 1c 71 4a 00 c3")),
      Row(0x917D1, Nops(13), Hex("6b 65 72 6e 65 6c 33 32 2e 64 6c 6c 00")),
      Row(0x922B1, Nops(6), Hex("53 6c 65 65 70 00")),
  };
  return table;
}

int ApplyPatchRow(std::string& bytes, const PatchRow& row, bool reverse, bool force, bool test) {
  const auto& look_for = reverse ? row.replacement : row.expected;
  const auto& write = reverse ? row.expected : row.replacement;
  // A file of another build may be shorter than the offsets of this one.
  if (row.offset > bytes.size() || bytes.size() - row.offset < write.size())
    return kPatchDoesNotFit;
  auto at = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[row.offset + i]); };
  if (!force) {
    for (std::size_t i = 0; i < look_for.size(); ++i) {
      if (at(i) == look_for[i]) continue;
      for (std::size_t j = 0; j < write.size(); ++j)
        if (at(j) != write[j]) return kPatchDoesNotFit;
      return kPatchAlreadyDone;
    }
  }
  if (!test)
    for (std::size_t i = 0; i < write.size(); ++i)
      bytes[row.offset + i] = static_cast<char>(write[i]);
  return kPatchApplied;
}

int ApplyPatchTable(const fs::path& path, const PatchTable& table) {
  std::string bytes = ReadWholeFile(path);
  for (const PatchRow& row : table) {
    int answer = ApplyPatchRow(bytes, row, false, false, false);
    if (answer != kPatchApplied) return answer;
  }
  // A read-only program stays as the user left it; root may write it anyway, so ask the mode.
  if (!OwnerMayWrite(path) || !AtomicWriteFile(path, bytes)) return kPatchNotWritten;
  return kPatchApplied;
}

bool IsGamePatched(Program& program, const fs::path& path) {
  if (!FileExists(path)) return true;
  std::string mark = program.GetText(text::EnginePatchMark);
  mark.push_back('\0');
  return ReadWholeFile(ResolveCase(path)).find(mark) != std::string::npos;
}

bool PatchGameFile(Program& program, const fs::path& path, bool show) {
  auto tell = [&](std::int32_t id, int style) {
    if (show) AskUser(program, program.GetText(id, {path.string()}), style);
  };
  if (IsGamePatched(program, path)) {
    tell(text::EnginePatchAlreadyDone, msg::kInformation);
    return false;
  }
  for (const PatchTable* table : {&EnginePatchTableA(), &EnginePatchTableB()}) {
    int answer = ApplyPatchTable(ResolveCase(path), *table);
    if (answer == kPatchNotWritten) {
      WriteLog(program, "engine patch: " + path.string() + " could not be written");
      tell(text::EnginePatchNotWritten, msg::kError);
      return false;
    }
    if (answer != kPatchDoesNotFit) return true;
  }
  tell(text::EnginePatchUnknownBuild, msg::kError);
  return false;
}

void ApplyEnginePatch(Program& program, bool show) {
  SetLevelInTrle(program, 0);
  fs::path backup = ResolveCase(
      JoinFragment(EditorBackupFolder(program), program.GetText(text::EnginePatchBackupGame)));
  if (!FileExists(backup) || !PatchGameFile(program, backup, show)) return;
  fs::path target =
      JoinFragment(Trim(program.prefs.EditorFolder), program.GetText(text::EnginePatchEditorGame));
  if (!CopyFileOver(backup, target)) {
    if (show)
      AskUser(program, program.GetText(text::EnginePatchNotWritten, {target.string()}),
              msg::kError);
    return;
  }
  AskUser(program, program.GetText(text::EnginePatchDone), msg::kInformation);
}

}  // namespace vardolin
