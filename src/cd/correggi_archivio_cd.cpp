#include "cd/correggi_archivio_cd.h"

#include <charconv>
#include <filesystem>
#include <map>
#include <string>

#include "archive/catalogue_file.h"
#include "archive/level_store.h"
#include "cd/cd_image_reader.h"
#include "cd/dialog_insert_cd.h"
#include "cd/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr const char* kLineEnd = "\r\n";

// The levels of CD `n` by code: from its image, or from the LEVEL_ folders of its disc whose
// files folder holds a level file. False, with the user told, when the CD can't be read.
bool ReadCd(Program& p, const CdSource& cd, std::int32_t n, std::map<std::int32_t, int>& found) {
  const std::string files = WithoutLeadingSeparators(p.GetText(text::CorrectCdFiles));
  const std::string pattern = p.GetText(text::CorrectCdPattern);
  if (!cd.image.empty()) {
    std::vector<std::int32_t> codes;
    if (!ListLevelsInImage(cd.image, files, pattern, codes)) {
      AskUser(p, p.GetText(text::CdImageUnreadable, {"\"" + cd.image.string() + "\"", ""}),
              msg::kError);
      return false;
    }
    for (std::int32_t code : codes) found.emplace(code, n);
    return true;
  }
  const fs::path root = FindCdRootWithLevels(cd.mount_point);
  if (root.empty()) {
    AskUser(p, p.GetText(text::CorrectNoLevels), msg::kError);
    return false;
  }
  // The root is named as the archive followed by the CD's number.
  std::string main_dir = root.string();
  main_dir.resize(main_dir.size() - std::min(main_dir.size(), std::to_string(n).size()));
  p.catalogue.header.MainDir = main_dir;
  for (const fs::path& sub : ListSubfolders(root)) {
    std::int64_t number = -1;
    const std::string name = sub.filename().string();
    if (IsLevelFolderName(name) && LevelNumberOf(name, number) &&
        !ListFiles(JoinFragment(sub, p.GetText(text::CorrectCdFiles)), pattern).empty())
      found.emplace(static_cast<std::int32_t>(number), n);
  }
  return true;
}

}  // namespace

void CorreggiArchivioCD(Program& p, Label* label, ProgressBar* bar,
                        const std::function<void(int index)>& remove_level) {
  if (AskUser(p, p.GetText(text::CorrectAsk), msg::kOkCancel) != msg::kOk) return;
  CatalogueHeader& h = p.catalogue.header;
  const std::string answer =
      Trim(p.ui().AskInput(p.GetText(text::CorrectCdCount), p.GetText(text::CorrectCdCountTitle),
                           std::to_string(h.CdCount < 2 ? 1 : h.CdCount)));
  if (answer.empty()) return;
  std::int32_t count = 0;
  auto [end, ec] = std::from_chars(answer.data(), answer.data() + answer.size(), count);
  if (ec != std::errc() || end != answer.data() + answer.size() || count < 1) {
    AskUser(p, p.GetText(text::CorrectNotNumeric), msg::kError);
    return;
  }
  h.CdCount = count;

  std::map<std::int32_t, int> on_cd;  // code -> CD number
  for (std::int32_t n = 1; n <= count; ++n) {
    Dialog_InsertCd form(p);
    if (!form.ImpostaValori(0, n)) return;
    if (!form.CdFound) p.ui().ShowModal(form);
    if (!form.CdFound) return;
    ShowStatus(label, p.GetText(text::CorrectReadingCd));
    if (!ReadCd(p, form.Found, n, on_cd)) return;
  }

  ShowStatus(label, p.GetText(text::CorrectChecking));
  int corrections = 0;
  auto& levels = p.catalogue.levels;
  for (std::size_t i = 1; i < levels.size(); ++i) {
    if (bar) SetProgressPercent(*bar, static_cast<double>(levels.size()), static_cast<double>(i));
    LevelRecord& r = levels[i];
    const fs::path disk =
        JoinFragment(HardDiskLevelFolder(p, r.Code), p.GetText(text::CorrectDiskFiles));
    const bool on_disk = !ListFiles(disk, p.GetText(text::CorrectDiskPattern)).empty();
    const std::string name = "\"" + Trim(r.Name) + "\"";
    const auto cd = on_cd.find(r.Code);
    if (!on_disk && cd != on_cd.end()) {
      if (r.CdNumber != 0) continue;
      r.CdNumber = cd->second;
      CatalogueChanged(p);
      ++corrections;
    } else if (!on_disk) {
      const int choice =
          AskUser(p, p.GetText(text::CorrectNowhere, {name, kLineEnd}), msg::kYesNoCancel);
      if (choice == msg::kCancel) {
        ShowStatus(label, {});
        AskUser(p, p.GetText(text::CorrectStopped), msg::kInformation);
        return;
      }
      if (choice == msg::kYes && remove_level) {
        remove_level(static_cast<int>(i));
        --i;  // the last record took this place
      }
    } else if (r.CdNumber > 0) {
      const std::string drive = fs::path(Trim(h.MainDir)).parent_path().string();
      const int choice =
          AskUser(p, p.GetText(text::CorrectOnBoth, {name, drive + kLineEnd}), msg::kYesNoCancel);
      if (choice == msg::kCancel) {
        ShowStatus(label, {});
        AskUser(p, p.GetText(text::CorrectCancelled), msg::kInformation);
        return;
      }
      if (choice == msg::kYes) {
        r.CdNumber = 0;
        CatalogueChanged(p);
        ++corrections;
      }
    }
  }
  ShowStatus(label, {});
  if (bar) bar->SetValue(0);
  AskUser(p, std::to_string(corrections) + p.GetText(text::CorrectDone, {kLineEnd}),
          msg::kInformation);
}

}  // namespace vardolin
