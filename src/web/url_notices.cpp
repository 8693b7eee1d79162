#include "web/url_notices.h"

#include <cstdio>
#include <string>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "foundation/services/text_scan.h"
#include "web/text_ids.h"
#include "web/url_list.h"

namespace vardolin {

namespace {

void OpenAddress(Program& program, const std::string& url) {
  program.platform().ShellOpen(Trim(url), "", program.Home());
}

void Message(Program& program, const UrlEntry& e) {
  if (Trim(e.Url) == "*") {
    AskUser(program, e.Name, msg::kInformation);
    return;
  }
  if (AskUser(program, e.Name + "\r\n" + program.GetText(text::UrlOpenMessage), msg::kYesNo) ==
      msg::kYes)
    OpenAddress(program, e.Url);
}

void NewVersion(Program& program, const UrlEntry& e) {
  std::size_t pos = 0;
  const std::string digits = NextNumberInText(e.Name, pos);
  // More digits than any version has: a damaged entry, not a version from the far future.
  if (digits.empty() || digits.size() > 9) return;
  const long number = std::stol(digits);
  if (number <= kProgramVersionNumber) return;
  const std::size_t colon = e.Name.find(':');
  const std::string description = colon == std::string::npos ? "" : Trim(e.Name.substr(colon + 1));
  char version[32];
  std::snprintf(version, sizeof version, "%ld.%02ld", number / 100, number % 100);
  if (AskUser(program, program.GetText(text::UrlNewVersion, {version + ("\r\n" + description)}),
              msg::kYesNo) == msg::kYes)
    OpenAddress(program, e.Url);
}

}  // namespace

void ProcessNotices(Program& program, const UrlList& list) {
  for (const UrlEntry& e : list.entries) {
    if (e.Type == url_type::kMessage) Message(program, e);
    if (e.Type == url_type::kNewVersion) NewVersion(program, e);
  }
}

}  // namespace vardolin
