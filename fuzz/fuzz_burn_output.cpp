// A burn's text, fed in pieces of any size: the lines come out the same however the bytes are
// cut, no line is empty or longer than the line buffer, and the result, error and progress
// readers take any line.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cd/burn_output.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::size_t piece = 1 + data[0] % 7;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  std::vector<std::string> whole, cut;
  vardolin::ToolLineSplitter a, b;
  a.Feed(text, [&](const std::string& l) { whole.push_back(l); });
  a.Finish([&](const std::string& l) { whole.push_back(l); });
  for (std::size_t i = 0; i < text.size(); i += piece)
    b.Feed(text.substr(i, piece), [&](const std::string& l) { cut.push_back(l); });
  b.Finish([&](const std::string& l) { cut.push_back(l); });
  if (whole != cut) __builtin_trap();
  for (const std::string& line : whole) {
    if (line.empty() || line.size() > 257) __builtin_trap();
    double written = 0, total = 0;
    vardolin::TrackProgress(line, 0, written, total);
    const int percent = vardolin::PercentDone(line);
    if (percent > 100) __builtin_trap();
  }
  std::int32_t speed = 0;
  vardolin::BurnSucceeded(text, speed);
  vardolin::CdrecordErrors(text);
  vardolin::MkisofsErrors(text);
  return 0;
}
