#include "foundation/services/native_programs.h"

#include <fstream>
#include <string>

#include "foundation/services/sha256.h"

namespace vardolin {
namespace fs = std::filesystem;

fs::path AllowedProgramsFile(const fs::path& home) {
  return home / "allowed_programs.sha256";
}

bool IsAllowedNativeProgram(const fs::path& home, const fs::path& program) {
  std::ifstream list(AllowedProgramsFile(home));
  if (!list) return false;
  const std::string sum = Sha256OfFile(program);
  if (sum.empty()) return false;
  std::string line;
  while (std::getline(list, line))
    if (line.compare(0, sum.size(), sum) == 0 &&
        (line.size() == sum.size() || line[sum.size()] == ' '))
      return true;
  return false;
}

bool AllowNativeProgram(const fs::path& home, const fs::path& program) {
  if (IsAllowedNativeProgram(home, program)) return true;
  const std::string sum = Sha256OfFile(program);
  if (sum.empty()) return false;
  std::ofstream list(AllowedProgramsFile(home), std::ios::app);
  list << sum << "  " << program.filename().string() << "\n";
  return static_cast<bool>(list.flush());
}

}  // namespace vardolin
