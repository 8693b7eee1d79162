#include "web_commands.h"

#include <chrono>
#include <filesystem>
#include <ostream>

#include "foundation/program.h"
#include "foundation/services/paths.h"
#include "json_text.h"
#include "web/dialog_siti.h"
#include "web/http_transfer.h"
#include "web/text_ids.h"
#include "web/url_list.h"
#include "web/url_notices.h"

namespace vardolin {

namespace {

constexpr auto kProgressEvery = std::chrono::milliseconds(500);

bool Listed(const UrlEntry& e) {
  return !IsHiddenEntry(e) && e.Type != url_type::kNewVersion && e.Type != url_type::kMessage;
}

// Through the window, so that a list file that couldn't be read is replaced only when the user
// agrees.
bool WriteList(Program& program, Dialog_Siti& window, std::ostream& err) {
  if (window.SaveList()) return true;
  err << "vardolin-cli: the list " << UrlListPath(program).string() << " was not written\n";
  return false;
}

}  // namespace

int CmdDownload(Program& program, const std::string& url, const std::string& file,
                std::ostream& out, std::ostream& err) {
  const std::filesystem::path target = std::filesystem::absolute(file);
  const std::string name = ExtractUrlFileName(url);
  auto last = std::chrono::steady_clock::now();
  const TransferResult r =
      HttpTransfer(url, target, program.GetText(text::DownloadAgent),
                   [&](std::int64_t received, std::int64_t total) {
                     const auto now = std::chrono::steady_clock::now();
                     if (now - last < kProgressEvery) return true;
                     last = now;
                     err << "\r" << name << ": " << FormatFileSize(static_cast<double>(received));
                     if (total > 0)
                       err << " / " << FormatFileSize(static_cast<double>(total)) << " ("
                           << received * 100 / total << "%)";
                     err << "    " << std::flush;
                     return true;
                   });
  if (!r.ok()) {
    err << "\nvardolin-cli: the download of " << url << " to " << target.string()
        << " failed: " << r.error << "\n";
    return 1;
  }
  out << "downloaded: " << target.string() << " ("
      << FormatFileSize(static_cast<double>(std::filesystem::file_size(target))) << ")\n";
  return 0;
}

int CmdUrls(Program& program, std::int32_t type, bool json, std::ostream& out, std::ostream& err) {
  UrlList list;
  if (!ReadUrlList(UrlListPath(program), list)) {
    err << "vardolin-cli: no readable list of web addresses in " << UrlListPath(program).string()
        << "\n";
    return 1;
  }
  const char* sep = "";
  if (json) out << "[";
  for (const UrlEntry& e : list.entries) {
    if (!Listed(e) || (type != 0 && e.Type != type)) continue;
    if (json) {
      out << sep << "{\"type\": " << e.Type << ", \"name\": " << JsonString(e.Name)
          << ", \"url\": " << JsonString(e.Url)
          << ", \"user\": " << (e.UserAdded ? "true" : "false") << "}";
      sep = ", ";
    } else {
      out << e.Type << (e.UserAdded ? "*" : "") << "\t" << e.Name << "\t" << e.Url << "\n";
    }
  }
  if (json) out << "]\n";
  return 0;
}

int CmdUrlsAdd(Program& program, const std::string& name, const std::string& url, std::int32_t type,
               std::ostream& out, std::ostream& err) {
  Dialog_Siti window(program);
  window.ImpostaValori(type, false);
  if (window.Combo_TipoUrl.FindData(type) < 0) {
    err << "vardolin-cli: type " << type << " is no category of the list (1 to 5, 8)\n";
    return 2;
  }
  // An address or a site the list holds already is asked about, as in the window.
  if (!window.CheckUrlCollision(url, -1)) {
    err << "vardolin-cli: " << url << " was not added\n";
    return 1;
  }
  window.List.entries.push_back({url, name, type, true});
  if (!WriteList(program, window, err)) return 1;
  out << "added: " << name << "\n";
  return 0;
}

int CmdUrlsUpdate(Program& program, const std::string& from, std::ostream& out, std::ostream& err) {
  if (!from.empty()) program.lists.UrlListSources = {from};
  Dialog_Siti window(program);
  window.ImpostaValori(url_type::kLevels, true);
  if (!window.Changed) {
    err << "vardolin-cli: the list was not updated; it stays as it was\n";
    return 1;
  }
  if (!WriteList(program, window, err)) return 1;
  out << "updated: " << window.List.Count() << " entries\n";
  return 0;
}

int CmdUrlsMerge(Program& program, const std::string& file, std::ostream& out, std::ostream& err) {
  UrlList fresh;
  if (!ReadUrlList(file, fresh)) {
    err << "vardolin-cli: " << file << " is no list of web addresses\n";
    return 1;
  }
  Dialog_Siti window(program);
  window.ImpostaValori(url_type::kLevels, false);
  window.List = MergeUrlLists(window.List, fresh, OleDateNow());
  ProcessNotices(program, window.List);
  if (!WriteList(program, window, err)) return 1;
  out << "merged: " << window.List.Count() << " entries\n";
  return 0;
}

}  // namespace vardolin
