// A wad package's script: any bytes give blocks and a head whose lines end as they're written.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "intake/editor_script_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  static const vardolin::ScriptKeys keys{"[Level]", "Name=", 5, "Level=", ".tr4"};
  std::string head;
  for (const std::string& entry : vardolin::ParseScriptFile(bytes, keys, head)) {
    const std::string file = vardolin::ScriptEntryField(entry, 0);
    const std::string name = vardolin::ScriptEntryField(entry, 1);
    // A file and a name are one line each, and a block ends its lines as the file must.
    if (file.find_first_of("\r\n") != std::string::npos) std::abort();
    if (name.find_first_of("\r\n") != std::string::npos) std::abort();
    const std::string block = vardolin::ScriptEntryField(entry, 2);
    if (block.size() < 2 || block.compare(block.size() - 2, 2, "\r\n") != 0) std::abort();
  }
  if (!head.empty() && head.compare(head.size() - 2, 2, "\r\n") != 0) std::abort();
  return 0;
}
