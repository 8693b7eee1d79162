#include "foundation/services/processes.h"

#include <chrono>
#include <system_error>

namespace vardolin {

std::optional<Process> StartProcess(Platform& platform, const std::filesystem::path& program,
                                    const std::vector<std::string>& arguments, bool hidden) {
  return platform.Start({program, arguments, {}, hidden});
}

bool RunAndWait(Platform& platform, const std::filesystem::path& program,
                const std::vector<std::string>& arguments, bool hidden) {
  std::optional<Process> process = StartProcess(platform, program, arguments, hidden);
  if (!process) return false;
  platform.Wait(*process, std::chrono::milliseconds{-1});
  return true;
}

bool IsKeyCombinationDown(Platform& platform, int key1, int key2, int key3) {
  bool any = false;
  for (int key : {key1, key2, key3}) {
    if (key == 0) continue;
    any = true;
    if (!platform.IsKeyDown(key)) return false;
  }
  return any;
}

std::filesystem::path GetTempFolder() {
  std::error_code ec;
  std::string temp = std::filesystem::temp_directory_path(ec).string();
  if (ec || temp.empty()) return "/tmp";
  while (temp.size() > 1 && temp.back() == '/') temp.pop_back();
  return temp;
}

}  // namespace vardolin
