#pragma once
// Where the rest of the program leads the user to the URL list.

#include <filesystem>
#include <vector>

#include "web/url_list.h"

namespace vardolin {

class Program;

// Before a level is added: when the list in the program's folder is older than its interval
// (text 2252, 30 days) and the settings allow automatic updates, offers the update (text 2253)
// and runs it in the list's window.
void OfferUrlListUpdate(Program& program);

// The known patches of the list in the program's folder that fit the files of `folder`; none
// without a list.
std::vector<UrlEntry> KnownPatchesFor(const Program& program, const std::filesystem::path& folder);

// Days in one step of the interval text: "d" 1, "ww" 7, "m" 30, "yyyy" 365; 0 for anything else.
double IntervalDays(const std::string& interval);

}  // namespace vardolin
