#include "savegames/savegame_transfer.h"

#include <set>
#include <system_error>

#include "archive/catalogue_ops.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/export_target.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "intake/add_files.h"
#include "savegames/savegame_files.h"
#include "savegames/savegame_header.h"
#include "savegames/savegame_sets.h"
#include "savegames/savegame_store.h"
#include "savegames/text_ids.h"
#include "web/zip_layer.h"

namespace vardolin {

namespace fs = std::filesystem;
using namespace savegame_files;

namespace {

constexpr const char* kLineEnd = "\r\n";
// The slots hold at most this many savegames before an import must archive.
constexpr std::size_t kImportRoom = 16;

// Empties or makes a work folder of the program's home.
fs::path FreshWorkFolder(const Program& p, std::int32_t fragment) {
  const fs::path folder = JoinFragment(p.Home(), p.GetText(fragment));
  MakeEmptyFolder(folder);
  return folder;
}

bool IsSavegameFile(const fs::path& file) {
  return IsGameSavegame(ReadWholeFile(ResolveCase(file)));
}

// The slot savegame that the file would replace: same save number and title.
fs::path SameSavegameInSlots(const Program& p, const fs::path& slots, const fs::path& file) {
  std::string title;
  const std::int32_t number = ReadSavegameHeader(p, file, title);
  for (const fs::path& standing : ListSavegames(p, slots)) {
    std::string other;
    if (ReadSavegameHeader(p, standing, other) == number && other == title) return standing;
  }
  return {};
}

// Keeps the savegames among the files and names the others to the user.
std::vector<fs::path> TakeSavegamesOnly(Program& p, const std::vector<fs::path>& files) {
  std::vector<fs::path> taken;
  std::string refused;
  for (const fs::path& f : files) {
    if (IsSavegameFile(f))
      taken.push_back(f);
    else
      refused += kLineEnd + f.filename().string();
  }
  if (!refused.empty()) AskUser(p, p.GetText(text::ImportNotSavegames) + refused, msg::kError);
  return taken;
}

// Savegames saved in another level would only confuse the game: when the level titles they carry
// are none of this level's (its name, the titles of its own savegames), the user is asked first.
bool SavegamesOfThisLevel(Program& p, std::int32_t code, const std::vector<fs::path>& savegames) {
  const int index = FindLevelIndex(p.catalogue, code);
  const std::string level =
      index >= 0 ? Trim(p.catalogue.levels[static_cast<std::size_t>(index)].Name) : std::string();
  std::set<std::string> known = {ToLower(level)};
  std::vector<fs::path> own = ListSavegames(p, SlotFolder(p, code));
  for (const fs::path& archived : ListArchivedSavegames(p, code)) own.push_back(archived);
  std::string title;
  for (const fs::path& f : own) {
    ReadSavegameHeader(p, f, title);
    known.insert(ToLower(Trim(title)));
  }
  std::set<std::string> seen;
  std::string strangers;
  for (const fs::path& f : savegames) {
    ReadSavegameHeader(p, f, title);
    title = Trim(title);
    if (known.count(ToLower(title)) || !seen.insert(ToLower(title)).second) continue;
    strangers += (strangers.empty() ? "\"" : ", \"") + title + "\"";
  }
  if (strangers.empty()) return true;
  return AskUser(p, p.GetText(text::ImportOtherLevel, {strangers, "\"" + level + "\""}),
                 msg::kYesNo | msg::kQuestion) == msg::kYes;
}

// The savegames of the list that aren't in the slots already, or that the user lets replace
// the one that is; a replaced one is copied over its twin at once.
std::vector<fs::path> WithoutTwins(Program& p, const fs::path& slots,
                                   const std::vector<fs::path>& files, int& replaced) {
  std::vector<fs::path> rest;
  for (const fs::path& f : files) {
    const fs::path twin = SameSavegameInSlots(p, slots, f);
    if (twin.empty())
      rest.push_back(f);
    else if (AskReplaceFile(p, f, twin) && CopyIntoPlace(f, twin))
      ++replaced;
  }
  return rest;
}

// Where a savegame goes in an export: its own name, unless a savegame of this export took that
// name already (the slots and each archive set number their files alike); then the first free
// number behind the same stem.
fs::path ExportTarget(const fs::path& folder, const fs::path& file, std::set<std::string>& used) {
  std::string name = file.filename().string();
  for (int n = 0; used.count(ToLower(name)); ++n) {
    name = file.stem().string() + "." + std::to_string(n);
    if (FileExists(folder / name)) name = file.filename().string();
  }
  used.insert(ToLower(name));
  return folder / name;
}

}  // namespace

bool ZipSavegames(Program& p, const fs::path& zip, const std::vector<fs::path>& files, Label* label,
                  ProgressBar* bar) {
  const fs::path work = FreshWorkFolder(p, text::ZipSavegamesFolder);
  std::set<std::string> used;
  std::string failed;
  for (const fs::path& f : files)
    if (!CopyFileOver(f, ExportTarget(work, f, used))) failed += kLineEnd + f.string();
  std::error_code ec;
  // A zip that lacks a savegame would pass for all of them; the file that stood stays.
  if (!failed.empty()) {
    fs::remove_all(work, ec);
    AskUser(p, p.GetText(text::ZipSavegamesNotCopied) + failed, msg::kError);
    return false;
  }
  DeleteFileForced(zip);
  ShowStatus(label, p.GetText(text::ZipSavegamesZipping) + zip.filename().string());
  const bool zipped = ZipFolderToFile(p, work, zip, bar, false);
  ShowStatus(label, {});
  fs::remove_all(work, ec);
  if (!zipped) {
    AskUser(p, p.GetText(text::ZipSavegamesFailed) + kLineEnd + zip.string(), msg::kError);
    return false;
  }
  p.ui().SetClipboardText(zip.string());
  AskUser(p, p.GetText(text::ZipSavegamesDone, {kLineEnd + zip.string() + kLineEnd}),
          msg::kInformation);
  return true;
}

fs::path RefusedSavegameTarget(Program& p, const fs::path& target,
                               const std::vector<fs::path>& files, bool zip, bool replace_asked) {
  if (zip) return MayWriteExportTarget(p, target, replace_asked) ? fs::path() : target;
  // Into a folder each savegame goes under its own name, or under a free one when another took it.
  std::set<std::string> asked;
  for (const fs::path& f : files) {
    const fs::path written = target / f.filename();
    if (asked.insert(ToLower(written.filename().string())).second &&
        !MayWriteExportTarget(p, written, false))
      return written;
  }
  return {};
}

void ExportSavegamesToFolder(const std::vector<fs::path>& files, const fs::path& folder,
                             bool delete_sources) {
  std::set<std::string> used;
  for (const fs::path& f : files) {
    const fs::path target = ExportTarget(folder, f, used);
    std::error_code ec;
    // Exported onto itself (the active level's slots are the editor folder): it stays.
    const bool itself = fs::equivalent(f, ResolveCase(target), ec);
    if (CopyFileOver(f, target) && delete_sources && !itself) DeleteFileForced(f);
  }
}

bool MakeRoomForImport(Program& p, std::int32_t code, std::size_t count) {
  const fs::path slots = SlotFolder(p, code);
  if (ListWithMask(p, slots, text::ImportSlotMask).size() + count < kImportRoom) return true;
  std::int32_t oldest = kSavegameSlots;
  ArchiveSlotSavegames(p, code, oldest);
  if (ListWithMask(p, slots, text::ImportSlotMaskAgain).size() + count < kImportRoom) return true;
  AskUser(p, p.GetText(text::ImportTooMany) + std::to_string(kImportRoom - 2), msg::kError);
  return false;
}

std::optional<int> ImportSavegamesIntoSlots(Program& p, std::int32_t code,
                                            const std::vector<fs::path>& files) {
  const fs::path slots = SlotFolder(p, code);
  // A level never played has no slot folder yet.
  std::error_code ec;
  fs::create_directories(slots, ec);
  const std::vector<fs::path> savegames = TakeSavegamesOnly(p, files);
  if (!SavegamesOfThisLevel(p, code, savegames)) return 0;
  if (!MakeRoomForImport(p, code, savegames.size())) return std::nullopt;
  int taken = 0;
  const std::vector<fs::path> fresh = WithoutTwins(p, slots, savegames, taken);
  std::int32_t slot = 0;
  for (const fs::path& f : fresh) {
    while (FileExists(SlotName(p, slots, text::ImportSlotName, slot))) ++slot;
    if (CopyIntoPlace(f, SlotName(p, slots, text::ImportSlotName, slot))) ++taken;
  }
  return taken;
}

int ReceiveSavegameFile(Program& p, std::int32_t code, const fs::path& file) {
  std::error_code ec;
  fs::create_directories(SlotFolder(p, code), ec);
  const fs::path work = FreshWorkFolder(p, text::ReceiveWorkFolder);
  if (IsZipPackage(p, file.string())) {
    std::string refused;
    ExtractZip(p, file, work, nullptr, true, false, &refused);
    if (!refused.empty()) AskUser(p, refused, msg::kError);
  } else if (IsArchiveToUnpack(p, file.string())) {
    ExtractWithTool(p, file, work, false);
  } else {
    CopyFileOver(file, work / file.filename());
  }
  // A friend's zip may keep its savegames in a folder of their own.
  FolderTreeWalker walker(&p.ui());
  walker.WalkFolderTree(work);
  std::vector<fs::path> found;
  const std::string mask = Mask(p, text::ReceiveMask);
  for (const fs::path& f : walker.Files())
    if (WildcardMatch(f.filename().string(), mask)) found.push_back(f);
  int taken = 0;
  const std::vector<fs::path> savegames = TakeSavegamesOnly(p, found);
  if (SavegamesOfThisLevel(p, code, savegames))
    for (const fs::path& f : WithoutTwins(p, SlotFolder(p, code), savegames, taken))
      if (RestoreSavegameToSlot(p, code, f)) ++taken;
  fs::remove_all(work, ec);
  return taken;
}

std::string SavegameMailLine(const Program& p, const fs::path& savegame) {
  std::string title;
  const std::string number = SaveNumberField(ReadSavegameHeader(p, savegame, title));
  return number + " - " + title + "  (" +
         FormatFileDate(savegame, p.GetText(text::MailDateFormat)) + ")" + " -> " +
         savegame.filename().string();
}

std::string SavegameMailSubject(const Program& p, const std::vector<fs::path>& savegames,
                                const std::string& level_title) {
  const std::string level = " \"" + Trim(level_title) + "\"";
  if (savegames.size() != 1)
    return std::to_string(savegames.size()) + p.GetText(text::MailSubjectSeveral) + level;
  std::string title;
  const std::int32_t number = ReadSavegameHeader(p, savegames.front(), title);
  return p.GetText(text::MailSubjectOne, {title}) + " - \"" + std::to_string(number) + "\"" + level;
}

bool SendFilesByMail(Program& p, const std::string& subject, const std::string& body,
                     const std::vector<fs::path>& files) {
  MailMessage message;
  message.subject = subject;
  message.body = body;
  message.attachments = files;
  if (p.platform().SendMail(message)) return true;
  AskUser(p, p.GetText(text::MailFailed), msg::kError);
  return false;
}

}  // namespace vardolin
