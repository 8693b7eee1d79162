#pragma once
// What a fresh URL list carries beside links: messages to all users and the notice of a newer
// program version. Each update tells them again.

namespace vardolin {

class Program;
struct UrlList;

// This program's version as the list counts versions: 104 for 1.04.
inline constexpr int kProgramVersionNumber = 104;

void ProcessNotices(Program& program, const UrlList& list);

}  // namespace vardolin
