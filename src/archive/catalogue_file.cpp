#include "archive/catalogue_file.h"
#include "archive/level_store.h"

#include <fstream>
#include <string>
#include <utility>

#include "archive/catalogue_folders.h"
#include "archive/catalogue_ops.h"
#include "archive/catalogue_sizes.h"
#include "archive/choose_setup_folder.h"
#include "archive/level_folder_name.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

bool ReadWhole(const fs::path& path, std::string& bytes) {
  std::error_code ec;
  if (!fs::is_regular_file(path, ec)) return false;
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  // Sized once from the file, then read in one go: a large catalogue isn't grown byte by byte.
  std::uintmax_t size = fs::file_size(path, ec);
  if (ec) return false;
  bytes.resize(static_cast<std::size_t>(size));
  in.read(bytes.data(), static_cast<std::streamsize>(size));
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  return !in.bad();
}

std::string FileNameOf(const std::string& path) {
  return fs::path(path).filename().string();
}

// Step 6 of a load: records written by a program that left their user size to be counted.
void RefreshPendingUserSizes(Program& program) {
  bool changed = false;
  for (std::size_t i = 0; i < program.catalogue.levels.size(); ++i) {
    LevelRecord& r = program.catalogue.levels[i];
    if (!r.SizeRefreshPending) continue;
    double now = UserBytesOfLevel(program, r.Code, text::UserFolderPlay);
    AddSizeToCatalogue(program.catalogue, now - r.UserSize, static_cast<int>(i), SizeKind::User);
    r.SizeRefreshPending = false;
    changed = true;
  }
  if (changed) CatalogueChanged(program);
}

std::string BaseLevelInfoFile(const Program& program) {
  fs::path folder = HardDiskLevelFolder(program, 0);
  for (std::int32_t id : {text::BaseLevelInfoFile0, text::BaseLevelInfoFile1,
                          text::BaseLevelInfoFile2, text::BaseLevelInfoFile3}) {
    fs::path candidate = JoinFragment(folder, program.GetText(id));
    std::error_code ec;
    if (fs::is_regular_file(candidate, ec)) return candidate.filename().string();
  }
  return {};
}

}  // namespace

fs::path FreeCatalogueName(const Program& program) {
  for (int n = 1; n <= 100; ++n) {
    std::string number = n == 1 ? std::string() : std::to_string(n);
    fs::path candidate =
        JoinFragment(program.Home(), program.GetText(text::NewCatalogueFileName, {number}));
    std::error_code ec;
    if (!fs::exists(candidate, ec)) return candidate;
  }
  return {};
}

LevelRecord BaseLevelRecord(Program& program) {
  LevelRecord base;
  base.Code = 0;
  base.Name = program.GetText(text::BaseLevelName);
  base.Note = program.GetText(text::BaseLevelNote);
  base.AuthorName = program.GetText(text::BaseLevelAuthor);
  base.AuthorSites = program.GetText(text::BaseLevelSite);
  base.MoreInfoFile = BaseLevelInfoFile(program);
  return base;
}

bool LoadCatalogueFile(Program& program, const fs::path& path) {
  SaveIfChanged(program);
  std::string bytes;
  const bool image = program.catalogue_in_image && program.catalogue_in_image(program, path, bytes);
  if (!image && !ReadWhole(path, bytes)) return false;
  Catalogue loaded;
  if (!ParseCatalogue(bytes, loaded, program.texts.CodePage).ok()) return false;
  Catalogue before = std::exchange(program.catalogue, std::move(loaded));
  const std::string last_before = std::exchange(program.prefs.LastArchive, path.string());
  program.CatalogueDirty = false;
  bool go_on = true;
  if (program.cd_catalogue && !program.cd_catalogue(program, path, go_on) && go_on) {
    // A catalogue on CD that wasn't set up on the disk: the one open before stays open.
    program.catalogue = std::move(before);
    program.prefs.LastArchive = last_before;
    program.CatalogueDirty = false;
    return false;
  }
  if (!CheckCatalogueFolders(program)) {
    program.ClosingDown = true;
    return false;
  }
  RefreshPendingUserSizes(program);
  UpdateMainTitle(program);
  program.notify.CatalogueLoaded();
  return true;
}

bool SaveCatalogueFile(Program& program, const fs::path& path) {
  if (path.empty()) return false;
  program.catalogue.header.LevelCount = static_cast<std::int32_t>(program.catalogue.levels.size());
  if (!AtomicWriteFile(path, SerializeCatalogue(program.catalogue, program.texts.CodePage)))
    return false;
  program.prefs.LastArchive = path.string();
  program.CatalogueDirty = false;
  return true;
}

void CatalogueChanged(Program& program) {
  if (!program.prefs.AutoSave) {
    program.CatalogueDirty = true;
    return;
  }
  if (SaveCatalogueFile(program, program.prefs.LastArchive)) return;
  AskUser(program, program.GetText(text::CatalogueAutoSaveFailed) + program.prefs.LastArchive,
          msg::kError);
  program.CatalogueDirty = true;
}

void SaveIfChanged(Program& program) {
  if (!program.CatalogueDirty) return;
  if (!program.prefs.AutoSave) {
    int answer = AskUser(program,
                         program.GetText(text::AskSaveChangedCatalogue,
                                         {FileNameOf(program.prefs.LastArchive), "\r\n"}),
                         msg::kYesNo);
    if (answer != msg::kYes) {
      program.CatalogueDirty = false;
      return;
    }
  }
  bool auto_save = program.prefs.AutoSave;
  program.prefs.AutoSave = true;
  CatalogueChanged(program);
  program.prefs.AutoSave = auto_save;
}

bool BrowseForCatalogue(Program& program) {
  SaveIfChanged(program);
  FileRequest request;
  request.title = program.GetText(text::OpenCatalogueTitle);
  request.filter = program.GetText(text::OpenCatalogueFilter);
  request.start_folder = program.Home().string();
  std::string chosen = program.ui().AskOpenFile(request);
  if (chosen.empty()) return false;
  if (LoadCatalogueFile(program, chosen)) return true;
  if (!program.ClosingDown)
    AskUser(program, program.GetText(text::CatalogueUnreadable) + chosen, msg::kError);
  return false;
}

bool NewCatalogue(Program& program) {
  SaveIfChanged(program);
  // Built apart and put in place only once it has a folder, so that giving up leaves the open
  // catalogue and its file as they were.
  Catalogue fresh;
  fresh.header.LevelCount = 1;
  fresh.levels.push_back(BaseLevelRecord(program));

  std::string folder = ChooseSetupFolder(program);
  if (folder.empty()) return false;
  fresh.header.MainDir = folder;
  fresh.header.SecondaryDir = folder;
  std::error_code ec;
  fs::create_directories(folder, ec);
  if (!fs::is_directory(folder, ec)) {
    AskUser(program, program.GetText(text::ArchiveFolderNotMade) + folder, msg::kError);
    return false;
  }
  fs::path file = FreeCatalogueName(program);
  if (file.empty()) {
    AskUser(program, program.GetText(text::CatalogueAutoSaveFailed) + program.Home().string(),
            msg::kError);
    return false;
  }
  program.catalogue = std::move(fresh);
  program.prefs.LastArchive = file.string();
  program.CatalogueDirty = false;
  RecomputeAllSizes(program, true);
  // A new archive stands on disk at once, whatever AutoSave says.
  if (program.CatalogueDirty) {
    if (program.prefs.AutoSave) return false;  // the failed save was told already
    if (!SaveCatalogueFile(program, file)) {
      AskUser(program, program.GetText(text::CatalogueSaveFailed) + file.string(), msg::kError);
      return false;
    }
  }
  UpdateMainTitle(program);
  // The list must lose the old archive's levels: one of them chosen and played would be looked
  // for in a catalogue that no longer holds it.
  program.notify.LevelListChanged();
  return true;
}

bool SaveCatalogueMenu(Program& program) {
  if (SaveCatalogueFile(program, program.prefs.LastArchive)) return true;
  AskUser(program, program.GetText(text::CatalogueSaveFailed) + program.prefs.LastArchive,
          msg::kError);
  return false;
}

bool SaveCatalogueAs(Program& program) {
  FileRequest request;
  request.title = program.GetText(text::SaveCatalogueAsTitle);
  request.filter = program.GetText(text::SaveCatalogueAsFilter);
  request.start_folder = program.Home().string();
  request.file_name = FileNameOf(program.prefs.LastArchive);
  std::string chosen = program.ui().AskSaveFile(request);
  if (chosen.empty()) return true;
  if (!SaveCatalogueFile(program, chosen)) {
    AskUser(program, program.GetText(text::CatalogueSaveFailed) + chosen, msg::kError);
    return false;
  }
  UpdateMainTitle(program);
  return true;
}

void InstallCatalogueHooks(Program& program) {
  program.before_save_preferences = [](Program& p) { SaveIfChanged(p); };
}

}  // namespace vardolin
