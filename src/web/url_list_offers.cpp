#include "web/url_list_offers.h"

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "web/dialog_siti.h"
#include "web/text_ids.h"

namespace vardolin {

namespace {

// The list is offered for an update once it is this many steps of the interval old.
constexpr int kUpdateEvery = 30;

}  // namespace

double IntervalDays(const std::string& interval) {
  const std::string unit = ToLower(Trim(interval));
  if (unit == "d" || unit == "y" || unit == "w") return 1;
  if (unit == "ww") return 7;
  if (unit == "m") return 30;
  if (unit == "q") return 91;
  if (unit == "yyyy") return 365;
  return 0;
}

void OfferUrlListUpdate(Program& program) {
  UrlList list;
  if (!ReadUrlList(UrlListPath(program), list) || !program.prefs.AutoUpdateUrls) return;
  // A language file without the interval still offers the update monthly.
  double step = IntervalDays(program.GetText(text::UrlUpdateInterval));
  if (step == 0) step = 1;
  if (list.LastUpdate + kUpdateEvery * step > OleDateNow()) return;
  if (AskUser(program, program.GetText(text::UrlUpdateOffer, {"\r\n\r\n"}), msg::kYesNo) ==
      msg::kNo)
    return;
  ShowUrlListWindow(program, url_type::kLevels, true);
}

std::vector<UrlEntry> KnownPatchesFor(const Program& program, const std::filesystem::path& folder) {
  UrlList list;
  if (!ReadUrlList(UrlListPath(program), list)) return {};
  return MatchingKnownPatches(list, folder);
}

}  // namespace vardolin
