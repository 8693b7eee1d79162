#pragma once
// OLE dates, as the program's own files keep them: days since 30 December 1899, the time of day
// as the fraction.

#include <chrono>
#include <filesystem>
#include <string>

namespace vardolin {

double OleDateOf(std::chrono::system_clock::time_point when);
double OleDateNow();
// A damaged date reads as the Unix epoch rather than as a time no clock can hold.
std::chrono::system_clock::time_point TimeOfOleDate(double date);
// The date in a strftime layout, in local time, to the nearest second.
std::string FormatOleDate(double ole_date, const std::string& layout);
// When the file was last written; 0 for a file that cannot be read.
double FileOleDate(const std::filesystem::path& file);

}  // namespace vardolin
