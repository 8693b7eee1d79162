#include "savegames/savegame_files.h"

#include <fstream>
#include <system_error>

#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "savegames/savegame_header.h"

namespace vardolin::savegame_files {

namespace fs = std::filesystem;

std::string Mask(const Program& program, std::int32_t id) {
  std::string mask = program.GetText(id);
  while (!mask.empty() && (mask.front() == '\\' || mask.front() == '/')) mask.erase(0, 1);
  return mask;
}

std::vector<fs::path> ListWithMask(const Program& program, const fs::path& folder,
                                   std::int32_t mask_id) {
  if (folder.empty()) return {};
  return ListFiles(folder, Mask(program, mask_id));
}

fs::path SlotName(const Program& program, const fs::path& folder, std::int32_t piece_id,
                  std::int32_t slot) {
  return JoinFragment(folder, program.GetText(piece_id) + std::to_string(slot));
}

fs::path NoteName(const Program& program, const fs::path& folder, std::int32_t name_id,
                  std::int32_t slot) {
  return JoinFragment(folder, program.GetText(name_id, {std::to_string(slot)}));
}

bool CopyIntoPlace(const fs::path& source, const fs::path& target) {
  const fs::path real_target = ResolveCase(target);
  const fs::path partial = real_target.parent_path() / kPartialCopyName;
  if (!CopyFileOver(source, partial)) {
    DeleteFileForced(partial);
    return false;
  }
  std::error_code ec;
  fs::rename(partial, real_target, ec);
  if (ec) DeleteFileForced(partial);
  return !ec;
}

bool MoveIntoPlace(const fs::path& source, const fs::path& target) {
  const fs::path real_source = ResolveCase(source);
  std::error_code ec;
  fs::rename(real_source, ResolveCase(target), ec);
  if (!ec) return true;
  return CopyIntoPlace(real_source, target) && DeleteFileForced(real_source);
}

bool SameBytes(const fs::path& a, const fs::path& b) {
  std::error_code ec_a, ec_b;
  const auto size_a = fs::file_size(ResolveCase(a), ec_a);
  const auto size_b = fs::file_size(ResolveCase(b), ec_b);
  if (ec_a || ec_b || size_a != size_b) return false;
  return ReadWholeFile(a) == ReadWholeFile(b);
}

std::vector<std::int32_t> SaveNumbers(const Program& program, const std::vector<fs::path>& files) {
  std::vector<std::int32_t> numbers;
  numbers.reserve(files.size());
  std::string title;
  for (const fs::path& file : files) numbers.push_back(ReadSavegameHeader(program, file, title));
  return numbers;
}

}  // namespace vardolin::savegame_files
