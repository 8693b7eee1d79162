#include "intake/copy_info_file.h"

#include <string>
#include <system_error>

#include "archive/text_ids.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"

namespace vardolin {

bool CopyInfoFile(Program& program, const std::filesystem::path& source,
                  const std::filesystem::path& target) {
  std::error_code ec;
  std::filesystem::create_directories(target.parent_path(), ec);
  if (!FolderExists(target.parent_path())) return false;
  const std::string name = source.string();
  const std::string ext4 = program.GetText(text::InfoPageExtension4);
  const std::string ext5 = program.GetText(text::InfoPageExtension5);
  const bool page =
      (!ext4.empty() && name.size() >= 4 && EndsWithNoCase(name, ext4) && ext4.size() == 4) ||
      (!ext5.empty() && name.size() >= 5 && EndsWithNoCase(name, ext5) && ext5.size() == 5);
  if (!page) return CopyFileOver(source, target);
  bool ok = true;
  for (std::int32_t id : {text::InfoPagePatternPage, text::InfoPagePatternJpg,
                          text::InfoPagePatternGif, text::InfoPagePatternPng}) {
    const std::string pattern = "*" + program.GetText(id);
    if (!CopyMatchingFiles(program, source.parent_path(), target.parent_path(), true, pattern))
      ok = false;
  }
  return ok;
}

}  // namespace vardolin
