#pragma once
// Reading the console tools' text: lines out of the raw bytes, the progress they tell, whether a
// burn went well, their error lines, the writers of a bus scan and the listings of an image.
// Nothing here runs a tool, so each reader can be fed any text.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cd/burn_engine.h"

namespace vardolin {

// Cuts a tool's output into lines as a terminal would show them: CR or LF ends a line (an empty
// one is not handed on), backspace steps back one column, tab is four blanks. So a counter that
// a tool rewrites with CR or backspaces gives one line for each rewrite.
class ToolLineSplitter {
 public:
  using LineHandler = std::function<void(const std::string& line)>;
  void Feed(std::string_view bytes, const LineHandler& on_line);
  // Hands on what stands after the last line end.
  void Finish(const LineHandler& on_line);

 private:
  static constexpr std::size_t kWidth = 257;
  char buffer_[kWidth] = {};
  std::size_t column_ = 0;
};

// The first run of digits behind the first `label` (without regard to case), as a number; -1
// when the label or the digits are missing.
long long NumberBehind(std::string_view text, std::string_view label);

// A burn's text: both the writing and the fixating time read at least 2 seconds, and no write
// error is told. The speed it started at goes into `last_speed` (left alone when not told).
bool BurnSucceeded(std::string_view output, std::int32_t& last_speed);
// The writer's error lines ("wodim:" or "cdrecord:", without the unofficial-build warning), one a
// line; when there is none, the rest of the "Sense Code:" line.
std::string CdrecordErrors(std::string_view output);
// The image maker's error and warning lines, each from its "error:", "warning:" or
// "genisoimage:" on, one a line.
std::string MkisofsErrors(std::string_view output);
// The rest of the line behind the first `word`; empty when it isn't there.
std::string RestOfLineBehind(std::string_view output, std::string_view word);

// A writer's progress line, "Track 01:   12 of  300 MB written ...": the megabytes written and
// the total (`expected_mb` when above 0, else the line's own). False for any other line.
bool TrackProgress(std::string_view line, double expected_mb, double& written, double& total);
// An image maker's "12.34% done, estimate finish ..." line: the whole percentage, at most 100;
// -1 for any other line.
int PercentDone(std::string_view line);

// The writers in a "-scanbus" text, as device strings bus'target'lun'unit'description: the
// optical drives (free ids, the host adaptor and disks are passed over). The n-th writer takes
// the n-th of `units` (the optical drives' mount points), "X:" once they run out.
std::vector<std::string> ParseScanBus(std::string_view output,
                                      const std::vector<std::string>& units);
// The fields of a device string; valid when it has 8 fields or more and the first three are
// numbers.
struct DeviceFields {
  std::int32_t bus = 0, target = 0, lun = 0;
  std::string unit;
  std::string vendor, model;
};
bool ParseDeviceString(const std::string& device, DeviceFields& fields);

// An image's flat listing ("isoinfo -f") shown as a tree: the leading components a line shares
// with the one before become blanks. Each line ends with CR LF.
std::string IsoTreeList(std::string_view flat);
// The records of a long listing ("isoinfo -l"): folders (size and date 0) and files, each path
// once, with "/". Lines of files whose month can't be read go to `bad_months`.
std::vector<ReportItem> ParseIsoLongList(std::string_view listing,
                                         std::vector<std::string>* bad_months = nullptr);
// One report line: path, tab, size, tab, the date as dd/mm/yyyy, CR LF.
std::string ReportLine(const ReportItem& item);

}  // namespace vardolin
