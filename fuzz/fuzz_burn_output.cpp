// A burn's text fed in pieces of any size (the first byte chooses): the lines come out the same
// however the bytes are cut, none empty or longer than the line buffer, and the readers of
// progress, results and errors take them all.

#include "cd/burn_output.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  std::vector<std::string> lines[2];
  for (int cut = 0; cut < 2; ++cut) {
    const std::size_t piece = cut ? 1 + data[0] % 7 : text.size() + 1;
    vardolin::ToolLineSplitter splitter;
    auto keep = [&](const std::string& l) { lines[cut].push_back(l); };
    for (std::size_t i = 0; i < text.size(); i += piece) splitter.Feed(text.substr(i, piece), keep);
    splitter.Finish(keep);
  }
  if (lines[0] != lines[1]) __builtin_trap();
  double written = 0, total = 0;
  for (const std::string& line : lines[0])
    if (line.empty() || line.size() > 257 || vardolin::PercentDone(line) > 100 ||
        (vardolin::TrackProgress(line, 0, written, total) && written < 0))
      __builtin_trap();
  std::int32_t speed = 0;
  vardolin::BurnSucceeded(text, speed);
  vardolin::CdrecordErrors(text);
  vardolin::MkisofsErrors(text);
  return 0;
}
