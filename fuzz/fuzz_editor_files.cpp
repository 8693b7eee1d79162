// The engine patch over arbitrary program files, and the Wine registry writer over arbitrary
// registry text: no crash, a written row reads as done, a written value reads back.

#include "foundation/platform/wine_registry.h"
#include "foundation/platform/wine_registry_write.h"
#include "play/engine_patch.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  for (const auto* table : {&vardolin::EnginePatchTableA(), &vardolin::EnginePatchTableB()}) {
    for (const vardolin::PatchRow& row : *table) {
      // Offsets far beyond a small input are brought near it, so that rows are tried in place.
      vardolin::PatchRow near = row;
      near.offset = size ? row.offset % static_cast<std::uint32_t>(size) : 0;
      std::string bytes = input;
      if (vardolin::ApplyPatchRow(bytes, near, false, false, false) == vardolin::kPatchApplied &&
          vardolin::ApplyPatchRow(bytes, near, false, false, true) != vardolin::kPatchAlreadyDone)
        std::abort();
    }
  }
  if (input.find('[') == std::string::npos) {
    std::string value;
    for (char c : input)
      if (c != '\n' && c != '\r' && c != '\0') value += c;
    const char* key = "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\winroomedit.exe";
    std::string reg = vardolin::SetWineRegistryString(input, key, "", value);
    auto found = vardolin::FindWineRegistryValue(reg, key, "");
    if (!found || *found != value) std::abort();
  }
  return 0;
}
