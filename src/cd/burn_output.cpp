#include "cd/burn_output.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>

#include "foundation/services/ole_date.h"
#include "foundation/services/strings.h"
#include "foundation/services/text_scan.h"

namespace vardolin {

namespace {

std::size_t FindNoCase(std::string_view text, std::string_view word, std::size_t from = 0) {
  if (word.empty() || text.size() < word.size()) return std::string_view::npos;
  for (std::size_t i = from; i + word.size() <= text.size(); ++i)
    if (EqualsNoCase(text.substr(i, word.size()), word)) return i;
  return std::string_view::npos;
}

std::size_t LineEnd(std::string_view text, std::size_t from) {
  std::size_t end = text.find_first_of("\r\n", from);
  return end == std::string_view::npos ? text.size() : end;
}

std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  std::size_t pos = 0;
  while (pos < text.size()) {
    const std::size_t end = LineEnd(text, pos);
    lines.push_back(text.substr(pos, end - pos));
    pos = end + 1;
  }
  return lines;
}

std::vector<std::string> Split(std::string_view text, char at) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  while (true) {
    const std::size_t end = text.find(at, start);
    parts.emplace_back(text.substr(start, end == std::string_view::npos ? end : end - start));
    if (end == std::string_view::npos) return parts;
    start = end + 1;
  }
}

// The leading number of a field (blanks before it allowed); -1 when it has none.
long long LeadingNumber(std::string_view field) {
  std::size_t i = 0;
  while (i < field.size() && field[i] == ' ') ++i;
  std::size_t j = i;
  while (j < field.size() && j - i < 9 && field[j] >= '0' && field[j] <= '9') ++j;
  return j == i ? -1 : std::atoll(std::string(field.substr(i, j - i)).c_str());
}

// Collects the rest of the line from each of `words` on, the nearest first, one a line.
std::string CollectLines(std::string_view output, const std::vector<std::string_view>& words,
                         bool from_word, std::string_view skip_holding = {}) {
  std::string found;
  std::size_t pos = 0;
  while (pos < output.size()) {
    std::size_t best = std::string_view::npos, best_len = 0;
    for (std::string_view w : words) {
      const std::size_t at = FindNoCase(output, w, pos);
      if (at < best) best = at, best_len = w.size();
    }
    if (best == std::string_view::npos) break;
    const std::size_t start = from_word ? best : best + best_len;
    const std::size_t end = LineEnd(output, start);
    const std::string rest = Trim(output.substr(start, end - start));
    if (skip_holding.empty() || FindNoCase(rest, skip_holding) == std::string_view::npos) {
      if (!found.empty()) found += "\r\n";
      found += rest;
    }
    pos = end;
  }
  return found;
}

}  // namespace

void ToolLineSplitter::Feed(std::string_view bytes, const LineHandler& on_line) {
  for (char c : bytes) {
    if (c == '\r' || c == '\n') {
      if (column_ > 0) on_line(std::string(buffer_, column_));
      column_ = 0;
    } else if (c == '\b') {
      if (column_ > 0) --column_;
    } else if (c == '\t') {
      for (int i = 0; i < 4; ++i) {
        if (column_ == kWidth) Finish(on_line);
        buffer_[column_++] = ' ';
      }
    } else {
      // A line longer than the buffer goes on as a line of its own rather than being lost.
      if (column_ == kWidth) Finish(on_line);
      buffer_[column_++] = c;
    }
  }
}

void ToolLineSplitter::Finish(const LineHandler& on_line) {
  if (column_ > 0) on_line(std::string(buffer_, column_));
  column_ = 0;
}

long long NumberBehind(std::string_view text, std::string_view label) {
  std::size_t at = FindNoCase(text, label);
  if (at == std::string_view::npos) return -1;
  std::size_t pos = at + label.size();
  const std::string digits = NextNumberInText(text, pos);
  if (digits.empty()) return -1;
  return std::atoll(digits.substr(0, 12).c_str());
}

bool BurnSucceeded(std::string_view output, std::int32_t& last_speed) {
  // A writer that lost the data half-way still tells both times, often above 2 seconds.
  if (FindNoCase(output, "write track data: error") != std::string_view::npos ||
      FindNoCase(output, "A write error occured") != std::string_view::npos)
    return false;
  if (NumberBehind(output, "Writing  time:") < 2) return false;
  if (NumberBehind(output, "Fixating time:") < 2) return false;
  const long long speed = NumberBehind(output, "at speed");
  if (speed >= 0) last_speed = static_cast<std::int32_t>(std::min(speed, 9999LL));
  return true;
}

std::string CdrecordErrors(std::string_view output) {
  std::string errors =
      CollectLines(output, {"cdrecord:", "wodim:"}, false, "Warning: using inofficial");
  return errors.empty() ? RestOfLineBehind(output, "Sense Code:") : errors;
}

std::string MkisofsErrors(std::string_view output) {
  return CollectLines(output, {"error:", "warning:", "genisoimage:", "mkisofs:"}, true);
}

std::string RestOfLineBehind(std::string_view output, std::string_view word) {
  const std::size_t at = FindNoCase(output, word);
  if (at == std::string_view::npos) return {};
  const std::size_t start = at + word.size();
  return Trim(output.substr(start, LineEnd(output, start) - start));
}

bool TrackProgress(std::string_view line, double expected_mb, double& written, double& total) {
  if (!StartsWithNoCase(line, "TRACK") || FindNoCase(line, "MB written") == std::string_view::npos)
    return false;
  std::size_t pos = std::string_view("TRACK 01: ").size();
  if (pos > line.size()) return false;
  const std::string done = NextNumberInText(line, pos);
  if (done.empty()) return false;
  written = std::atof(done.substr(0, 9).c_str());
  if (expected_mb > 0) {
    total = expected_mb;
  } else {
    const std::string of = NextNumberInText(line, pos);
    total = of.empty() ? 0 : std::atof(of.substr(0, 9).c_str());
  }
  return true;
}

int PercentDone(std::string_view line) {
  if (FindNoCase(line, "done, estimate finish") == std::string_view::npos) return -1;
  std::size_t pos = 0;
  const std::string digits = NextNumberInText(line, pos);
  if (digits.empty()) return -1;
  return static_cast<int>(std::min(100LL, std::atoll(digits.substr(0, 4).c_str())));
}

std::vector<std::string> ParseScanBus(std::string_view output,
                                      const std::vector<std::string>& units) {
  std::string text;
  for (char c : output)
    if (c != '\r') text += c;
  std::vector<std::string> writers;
  for (const std::string& line : Split(text, '\n')) {
    if (line.empty() || line[0] != '\t') continue;
    const std::size_t paren = line.find(')');
    if (paren == std::string::npos) continue;
    const std::size_t from = paren + 2;
    if (from < line.size() && line[from] == '*') continue;
    const std::string rest = from < line.size() ? line.substr(from) : std::string();
    if (StartsWithNoCase(rest, "HOST ADAPTOR") || line.find("NON CCS Disk") != std::string::npos)
      continue;
    // On Linux every disk of the machine answers the scan (SATA disks are SCSI devices to the
    // kernel); only an optical drive can be the writer, and only optical drives take the units.
    if (rest.find("CD-ROM") == std::string::npos) continue;
    const std::vector<std::string> fields = Split(line, '\t');
    if (fields.size() < 2) continue;
    const std::vector<std::string> address = Split(fields[1], ',');
    if (address.size() < 3) continue;
    const long long bus = LeadingNumber(address[0]), target = LeadingNumber(address[1]),
                    lun = LeadingNumber(address[2]);
    if (bus < 0 || target < 0 || lun < 0) continue;
    const std::string unit = writers.size() < units.size() ? units[writers.size()] : "X:";
    writers.push_back(std::to_string(bus) + "'" + std::to_string(target) + "'" +
                      std::to_string(lun) + "'" + unit + "'" +
                      ReplaceAll(rest, "Removable CD-ROM", ""));
  }
  return writers;
}

bool ParseDeviceString(const std::string& device, DeviceFields& fields) {
  const std::vector<std::string> parts = Split(device, '\'');
  if (parts.size() < 8) return false;
  long long numbers[3];
  for (int i = 0; i < 3; ++i) {
    const std::string n = Trim(parts[i]);
    if (n.empty() || n.size() > 9 ||
        !std::all_of(n.begin(), n.end(), [](char c) { return c >= '0' && c <= '9'; }))
      return false;
    numbers[i] = std::atoll(n.c_str());
  }
  fields.bus = static_cast<std::int32_t>(numbers[0]);
  fields.target = static_cast<std::int32_t>(numbers[1]);
  fields.lun = static_cast<std::int32_t>(numbers[2]);
  fields.unit = parts[3];
  fields.vendor = Trim(parts[5]);
  fields.model = Trim(parts[7]);
  return true;
}

std::string IsoTreeList(std::string_view flat) {
  std::string report;
  std::vector<std::string> before;
  for (std::string_view line : SplitLines(flat)) {
    if (line.empty()) continue;
    const std::vector<std::string> parts = Split(line, '/');
    std::size_t same = 0;
    while (same < parts.size() && same < before.size() && parts[same] == before[same]) ++same;
    std::string out;
    for (std::size_t i = 0; i < same; ++i) out += std::string(parts[i].size(), ' ') + ' ';
    for (std::size_t i = same; i < parts.size(); ++i) out += (i > same ? "/" : "") + parts[i];
    report += out + "\r\n";
    before = parts;
  }
  return report;
}

std::vector<ReportItem> ParseIsoLongList(std::string_view listing,
                                         std::vector<std::string>* bad_months) {
  static constexpr std::array<std::string_view, 12> kMonths = {
      "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::vector<ReportItem> items;
  std::string folder;
  auto seen = [&](const std::string& path) {
    return std::any_of(items.begin(), items.end(),
                       [&](const ReportItem& r) { return r.path == path; });
  };
  for (std::string_view line : SplitLines(listing)) {
    if (line.starts_with("Di")) {
      folder = line.size() > 21 ? std::string(line.substr(21)) : std::string();
      continue;
    }
    const bool is_folder = line.starts_with("d-");
    if (!is_folder && !line.starts_with("--")) continue;
    // The name stands behind the bracketed extent, "[   35 00]  name"; a listing without that
    // column has it from position 65.
    const std::size_t bracket = line.size() > 52 ? line.find(']', 52) : std::string_view::npos;
    const std::size_t name_at = bracket != std::string_view::npos ? bracket + 1 : 64;
    if (name_at >= line.size()) continue;
    const std::string name = Trim(line.substr(name_at));
    if (name.empty() || name == "." || name == "..") continue;
    ReportItem item;
    item.path = ReplaceAll(folder + "/" + name, "//", "/");
    if (!is_folder) {
      const std::string_view month_text =
          line.size() >= 44 ? line.substr(41, 3) : std::string_view();
      const auto m = std::find(kMonths.begin(), kMonths.end(), month_text);
      if (m == kMonths.end()) {
        if (bad_months) bad_months->emplace_back(line);
        continue;
      }
      const long long day = line.size() > 45 ? LeadingNumber(line.substr(45, 2)) : -1;
      const long long year = line.size() > 48 ? LeadingNumber(line.substr(48, 4)) : -1;
      if (day >= 1 && day <= 31 && year >= 1900 && year <= 9999) {
        using namespace std::chrono;
        const sys_days when =
            year_month_day{std::chrono::year(static_cast<int>(year)),
                           std::chrono::month(static_cast<unsigned>(m - kMonths.begin() + 1)),
                           std::chrono::day(static_cast<unsigned>(day))};
        const sys_days epoch = year_month_day{std::chrono::year(1899), December, 30d};
        // Noon, so that no time zone moves the day.
        item.date = (when - epoch).count() + 0.5;
      }
      std::size_t pos = 26;
      const std::string size = pos < line.size() ? NextNumberInText(line, pos) : std::string();
      item.size = static_cast<std::int32_t>(
          std::min(std::atoll(size.substr(0, 12).c_str()), static_cast<long long>(INT32_MAX)));
    }
    if (!seen(item.path)) items.push_back(std::move(item));
  }
  return items;
}

std::string ReportLine(const ReportItem& item) {
  return item.path + "\t" + std::to_string(item.size) + "\t" +
         FormatOleDate(item.date, "%d/%m/%Y") + "\r\n";
}

}  // namespace vardolin
