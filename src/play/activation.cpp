#include "play/activation.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "archive/editor_backup.h"
#include "archive/level_files.h"
#include "archive/level_store.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/folder_swap.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "foundation/services/unfinished_work.h"
#include "play/active_level.h"
#include "play/active_level_file.h"
#include "play/text_ids.h"
#include "web/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

constexpr const char* kLineEnd = "\r\n";

fs::path Backup(const Program& program) {
  return EditorBackupFolder(program);
}

bool SameName(std::string_view a, std::string_view b) {
  return ToLower(a) == ToLower(b);
}

// The marker's entries are written relative to the editor folder with a leading backslash; what
// follows it is joined as a name that can't be trusted.
SafeJoinResult Inside(const fs::path& folder, std::string_view entry) {
  while (!entry.empty() && (entry.front() == '\\' || entry.front() == '/')) entry.remove_prefix(1);
  return SafeJoin(folder, entry);
}

void ShowActivationError(Program& program, const std::string& message) {
  AskUser(program, message, msg::kError);
}

ActiveLevelTexts MarkerTexts(const Program& program) {
  ActiveLevelTexts t;
  t.notice1 = program.GetText(text::MarkerNotice1);
  t.notice2 = program.GetText(text::MarkerNotice2);
  t.notice3 = program.GetText(text::MarkerNotice3);
  t.code_key = program.GetText(text::MarkerCodeKey);
  t.name_key = program.GetText(text::MarkerNameKey);
  t.replaced_key = program.GetText(text::MarkerReplacedKey);
  t.files_key = program.GetText(text::MarkerFilesKey);
  t.state_key = program.GetText(text::MarkerStateKey);
  return t;
}

std::string LevelName(const Program& program, std::int32_t code) {
  for (const auto& level : program.catalogue.levels)
    if (level.Code == code) return Trim(level.Name);
  return {};
}

void ClearReadOnlyFile(const fs::path& file) {
  std::error_code ec;
  fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, ec);
}

// The play files of a level (or of the base level): the patterns saved into its play folder, and
// those then deleted from the editor folder.
struct PlayPatterns {
  std::int32_t keep[3];
  std::int32_t remove[3];
};
constexpr PlayPatterns kBasePlay{
    {text::BasePlayKeep1, text::BasePlayKeep2, text::BasePlayKeep3},
    {text::BasePlayDelete1, text::BasePlayDelete2, text::BasePlayDelete3}};
constexpr PlayPatterns kLevelPlay{
    {text::LevelPlayKeep1, text::LevelPlayKeep2, text::LevelPlayKeep3},
    {text::LevelPlayDelete1, text::LevelPlayDelete2, text::LevelPlayDelete3}};

fs::path BasePlayFolder(Program& program) {
  return JoinFragment(GetLevelFolder(program, 0, false), program.GetText(text::PlayFolderBaseOut));
}

// The play folder is replaced whole by copies of the editor's play files, so it never stands
// emptied while its savegames aren't safely elsewhere; the editor's own copies go only once the
// marker says they were saved.
bool SavePlayFiles(Program& program, const fs::path& play, const PlayPatterns& patterns) {
  const fs::path editor = EditorFolderPath(program);
  UnfinishedWork note(program, LeftoverKind::kSwap, play);
  const bool saved = ReplaceFolderWhole(play, [&](const fs::path& staging) {
    for (const fs::path& sub : ListSubfolders(play))
      if (!CopyLevelTree(sub, staging / sub.filename())) return false;
    for (std::int32_t id : patterns.keep)
      for (const fs::path& f : ListFiles(editor, WithoutLeadingSeparators(program.GetText(id))))
        if (!CopyFileOver(f, staging / f.filename(), "activation-play")) return false;
    return true;
  });
  if (!saved)
    ShowActivationError(program, program.GetText(text::PlayFilesNotSaved, {play.string()}));
  return saved;
}

void DeletePlayFiles(Program& program, const PlayPatterns& patterns) {
  const fs::path editor = EditorFolderPath(program);
  for (std::int32_t id : patterns.remove)
    for (const fs::path& f : ListFiles(editor, WithoutLeadingSeparators(program.GetText(id)))) {
      FaultPoint("activation-remove");
      DeleteFileForced(f);
    }
}

// Where a file of the backup goes back to: the place the marker names, under the backup's own
// spelling. The marker keeps the level's spelling (SCRIPT.DAT), which isn't the editor's.
fs::path AsInBackup(const fs::path& backup_file, const fs::path& place) {
  return ResolveCase(place.parent_path()) / ResolveCase(backup_file).filename();
}

// Deletes the level's files named by the marker. False (and the user told) at the first file
// that won't go. Names that would lead out of the editor folder are never acted on.
bool RemoveLevelFiles(Program& program, const std::string& marker) {
  const fs::path editor = EditorFolderPath(program);
  const std::vector<std::string> files =
      SplitMarkerList(ReadMarkerField(marker, program.GetText(text::MarkerFilesReadKey)));
  const std::string audio = ToLower(program.GetText(text::AudioFolderPrefix));
  if (!files.empty()) ShowProgressDialog(program, program.GetText(text::RemovingLevelCaption));
  int done = 0;
  for (const std::string& entry : files) {
    StepProgressDialog(program, done++, static_cast<int>(files.size()));
    // Without a full backup the audio files the level replaced can't be given back, so the
    // level's ones are the best the folder can keep.
    if (!program.prefs.FullBackupDone && ToLower(entry.substr(0, 7)) == audio) continue;
    const SafeJoinResult target = Inside(editor, entry);
    if (!target) continue;
    FaultPoint("activation-remove");
    if (!DeleteFileForced(target.path)) {
      HideProgressDialog(program);
      ShowActivationError(program,
                          program.GetText(text::LevelFileNotDeleted) + target.path.string());
      return false;
    }
  }
  if (!files.empty()) HideProgressDialog(program);

  const std::vector<std::string> replaced =
      SplitMarkerList(ReadMarkerField(marker, program.GetText(text::MarkerReplacedReadKey)));
  if (!replaced.empty()) ShowProgressDialog(program, program.GetText(text::RestoringEditorCaption));
  const fs::path backup = Backup(program);
  done = 0;
  for (const std::string& entry : replaced) {
    StepProgressDialog(program, done++, static_cast<int>(replaced.size()));
    const SafeJoinResult from = Inside(backup, entry);
    const SafeJoinResult to = Inside(editor, entry);
    if (!from || !to || !FileExists(from.path)) continue;
    const fs::path target = AsInBackup(from.path, to.path);
    if (CopyFileOver(from.path, target, "activation-copy")) ClearReadOnlyFile(target);
  }
  if (!replaced.empty()) HideProgressDialog(program);
  return true;
}

// A marker cut short after its head (a crash during the copy) has no lists. What the level can
// have put into the folder is read from its own store instead: each such file is taken out and
// the backup's copy, when there is one, goes back in its place.
void RemoveUnlistedLevelFiles(Program& program, std::int32_t code) {
  const fs::path editor = EditorFolderPath(program);
  const fs::path backup = Backup(program);
  const std::string packed = ToLower(program.GetText(text::PackedSuffix));
  for (const fs::path& file : ListFiles(GetLevelFilesFolder(program, code, false), "*.*")) {
    std::string name = file.filename().string();
    if (!packed.empty() && name.size() > packed.size() && ToLower(name).ends_with(packed))
      name.resize(name.size() - packed.size());
    const std::string entry = LevelFileTarget(name) + name;
    if (!program.prefs.FullBackupDone &&
        ToLower(entry.substr(0, 7)) == ToLower(program.GetText(text::AudioFolderPrefix)))
      continue;
    const SafeJoinResult target = Inside(editor, entry);
    if (!target) continue;
    FaultPoint("activation-remove");
    DeleteFileForced(target.path);
    const SafeJoinResult from = Inside(backup, entry);
    if (from && FileExists(from.path)) {
      const fs::path back = AsInBackup(from.path, target.path);
      if (CopyFileOver(from.path, back, "activation-copy")) ClearReadOnlyFile(back);
    }
  }
}

// The head goes to disk before any file is copied: after a crash it names the level whose files
// may stand in the folder. The lists aren't flushed: the files they name weren't either, and
// waiting for the disk to take a whole level's files would cost more than the copy itself.
bool WriteMarker(const fs::path& path, const std::string& bytes, bool flush) {
  return AtomicWriteFile(path, bytes, flush);
}

// Between two levels the marker names the base level as leaving: every level's play files are
// in their play folders, and what play files stand in the editor folder are copies.
// With `flush` the marker is on disk before the play files it says were saved are deleted.
bool MarkNoLevelIn(Program& program, const ActiveLevelTexts& texts, bool flush) {
  const std::string head = FormatActiveLevelHead(texts, 0, LevelName(program, 0));
  return WriteMarker(ActiveLevelFilePath(program),
                     WithMarkerState(texts, head, program.GetText(text::MarkerStateLeaving)),
                     flush);
}

// The base level back in the folder after a level left: its play files, saved when it left,
// come back before the marker that says where they are goes. A marker that still names a level
// (its store folder was gone) goes only with `drop_marker`.
void BringBaseBack(Program& program, bool drop_marker) {
  const fs::path marker_path = ActiveLevelFilePath(program);
  const bool stood = FileExists(marker_path);
  const bool base = !stood || GetActiveLevelCode(program) == 0;
  if (base) {
    const fs::path play =
        JoinFragment(GetLevelFolder(program, 0, false), program.GetText(text::PlayFolderBaseCopy));
    RecoverFolderSwap(play);
    CopyMatchingFiles(program, play, EditorFolderPath(program), true, "*");
  }
  if (stood && (base || drop_marker)) DeleteFileForced(marker_path);
}

// The editor's language file: the first of its .dat files that isn't the script file.
std::string EditorLanguageFile(Program& program) {
  const std::string script = program.GetText(text::ScriptNameLanguageStep);
  for (const fs::path& file :
       ListFiles(EditorFolderPath(program),
                 WithoutLeadingSeparators(program.GetText(text::LanguagePattern)))) {
    const std::string name = file.filename().string();
    if (!SameName(name, script)) return name;
  }
  return {};
}

}  // namespace

std::string LevelFileTarget(std::string_view file_name) {
  const std::string ext = ToLower(ExtractExtension(file_name));
  if (ext == ".tr4" || ext == ".pak") return "\\data\\";
  if (ext == ".wav") return "\\audio\\";
  return "\\";
}

bool RefusedWhileGameRuns(Program& program) {
  if (!program.GameRunning) return false;
  ShowActivationError(program, program.GetText(text::EditorFolderInUse));
  return true;
}

namespace {

// What TakeOutCurrentLevel gives when the level's play files couldn't be saved: nothing moved.
constexpr std::int32_t kLevelNotTakenOut = -3;

// RemoveCurrentLevel without telling the window, so that an activation tells it once. Unless the
// level stays (`stayed`: it is the next one and stands whole), the marker names the base level as
// leaving afterwards (MarkNoLevelIn).
std::int32_t TakeOutCurrentLevel(Program& program, std::int32_t next_code, bool& stayed) {
  stayed = false;
  // The game reads and writes the editor folder while it runs: nothing may move there then.
  if (RefusedWhileGameRuns(program)) return kEditorFolderInUse;
  const ActiveLevelTexts texts = MarkerTexts(program);
  const fs::path marker_path = ActiveLevelFilePath(program);
  if (!FileExists(marker_path)) {
    if (!SavePlayFiles(program, BasePlayFolder(program), kBasePlay)) return kLevelNotTakenOut;
    if (next_code == 0) return 0;
    if (!MarkNoLevelIn(program, texts, true)) {
      ShowActivationError(program, program.GetText(text::MarkerNotCreated) + marker_path.string());
      return kLevelNotTakenOut;
    }
    DeletePlayFiles(program, kBasePlay);
    return 0;
  }
  const std::string marker = ReadWholeFile(marker_path);
  const std::string state = ReadMarkerField(marker, texts.state_key);
  const bool leaving = EqualsNoCase(state, program.GetText(text::MarkerStateLeaving));
  std::int32_t previous = -1;
  fs::path folder;
  if (!marker.empty()) {
    const std::optional<std::int32_t> code =
        ParseMarkerCode(ReadMarkerField(marker, program.GetText(text::ActiveLevelCodeKey)));
    if (code) {
      previous = *code;
      folder = GetLevelFolder(program, previous, false);
      if (!folder.empty() && !FolderExists(folder)) {
        ShowActivationError(program,
                            program.GetText(text::ActiveFolderGone, {folder.string(), kLineEnd}));
        return previous;
      }
    }
  }
  // A level that got only part of its files in (a kill, a full disk) is taken out and put in anew.
  stayed = previous == next_code && EqualsNoCase(state, program.GetText(text::MarkerStateComplete));
  if (stayed) return previous;

  if (previous < 0 || folder.empty()) {
    // A marker that names no level can't say what to take out; the root is swept below.
    if (!marker.empty())
      ShowActivationError(program, program.GetText(text::MarkerWithoutLevel,
                                                   {"\"" + marker_path.string() + "\"", kLineEnd}));
  } else {
    if (!leaving) {
      SaveMediaFiles(program, JoinFragment(folder, program.GetText(text::MediaFilesFolder)));
      const fs::path play = JoinFragment(folder, program.GetText(text::PlayFolderOut));
      if (!SavePlayFiles(program, play, previous == 0 ? kBasePlay : kLevelPlay))
        return kLevelNotTakenOut;
      // From here the play files in the editor folder are copies: a kill must not save them again.
      if (!WriteMarker(marker_path,
                       WithMarkerState(texts, marker, program.GetText(text::MarkerStateLeaving)),
                       true)) {
        ShowActivationError(program,
                            program.GetText(text::MarkerNotCreated) + marker_path.string());
        return kLevelNotTakenOut;
      }
    }
    DeletePlayFiles(program, previous == 0 ? kBasePlay : kLevelPlay);
    const std::string files_key = ToLower(program.GetText(text::MarkerFilesReadKey));
    if (previous != 0 && ToLower(marker).find(files_key) == std::string::npos)
      RemoveUnlistedLevelFiles(program, previous);
    else if (previous != 0 && !RemoveLevelFiles(program, marker))
      return 0;
  }
  CleanEditorFolder(program);
  FaultPoint("activation-remove");
  // Lost to a crash of the machine, this leaves the level's own marker, which takes it out again.
  MarkNoLevelIn(program, texts, false);
  return previous;
}

bool PutLevelInTrle(Program& program, std::int32_t code) {
  const fs::path editor = EditorFolderPath(program);
  bool stayed = false;
  const std::int32_t previous = TakeOutCurrentLevel(program, code, stayed);
  if (previous == kEditorFolderInUse || previous == kLevelNotTakenOut) return false;
  if (previous == code && (code == 0 || stayed)) {
    if (code == 0) BringBaseBack(program, false);
    return true;
  }
  const fs::path marker_path = ActiveLevelFilePath(program);
  const fs::path level_folder = GetLevelFolder(program, code, false);

  fs::path source;
  fs::path temporary;
  if (code != 0) {
    const fs::path files = GetLevelFilesFolder(program, code, true);
    const bool fetched_copy = program.CdFetchedCopy;
    if (program.CdRefused) {
      ShowActivationError(program, program.GetText(text::LevelCdRefused));
      BringBaseBack(program, false);
      return false;
    }
    // A level without its files folder (or without any folder) is incomplete, as one that lacks
    // a file is: the question that offers the repair says what is missing.
    fs::path missing;
    if (files.empty())
      missing = level_folder;
    else if (!FolderExists(files))
      missing = FolderExists(files.parent_path()) ? files : files.parent_path();
    if (missing.empty() && !PrepareLevelFiles(program, files, temporary)) {
      ShowActivationError(program, program.GetText(text::LevelFilesNotReady, {files.string()}));
      BringBaseBack(program, true);
      return false;
    }
    // Files fetched out of a CD image are the program's own copy: they move in like expanded ones.
    if (temporary.empty() && fetched_copy) temporary = files;
    source = temporary.empty() ? ResolveCase(files) : temporary;
    const std::string complete = program.GetText(text::CompleteLevelFile);
    if (missing.empty() && !FileExists(JoinFragment(source, complete)))
      missing = JoinFragment(ResolveCase(files), complete);
    if (!missing.empty()) {
      if (!temporary.empty()) DeleteLevelTree(program, temporary, nullptr, nullptr);
      BringBaseBack(program, true);
      if (AskUser(program,
                  program.GetText(text::LevelIncompleteAsk,
                                  {kLineEnd, kLineEnd, "\"" + missing.string() + "\""}),
                  msg::kYesNo) == msg::kYes)
        ShowActivationError(program, program.GetText(text::RepairNotAvailable));
      return false;
    }
  }

  // A play folder that a kill left half replaced is put right before its files come in: the
  // level's next leaving would otherwise save the editor's few over them.
  const fs::path play_in = JoinFragment(level_folder, program.GetText(text::PlayFolderIn));
  RecoverFolderSwap(play_in);
  CopyMatchingFiles(program, play_in, editor, true, "*");
  if (code == 0) {
    BringBaseBack(program, true);
    return true;
  }

  // The head goes down before any file moves: a crash from here on leaves a marker that names
  // the level, and the next activation sweeps what it finds.
  const ActiveLevelTexts marker_texts = MarkerTexts(program);
  const std::string head = FormatActiveLevelHead(marker_texts, code, LevelName(program, code));
  if (!WriteMarker(marker_path, head, true)) {
    if (!temporary.empty()) DeleteLevelTree(program, temporary, nullptr, nullptr);
    ShowActivationError(program, program.GetText(text::MarkerNotCreated) + marker_path.string());
    BringBaseBack(program, false);
    return false;
  }

  std::vector<fs::path> sources;
  std::vector<std::string> targets;
  for (const fs::path& file : ListFiles(source, "*.*")) {
    const std::string name = file.filename().string();
    sources.push_back(file);
    targets.push_back(LevelFileTarget(name) + name);
  }

  const fs::path store_source = JoinFragment(source, program.GetText(text::CleanedFolder1));
  if (FolderExists(store_source)) {
    const fs::path store = JoinFragment(editor, program.GetText(text::CleanedFolder1));
    DeleteLevelTree(program, store, nullptr, nullptr);
    CopyLevelTree(store_source, store);
  }

  // Known before the copy, so that the level's own language file isn't taken for the editor's.
  const std::string language = EditorLanguageFile(program);

  std::vector<std::string> replaced;
  std::vector<std::string> copied;
  bool copy_failed = false;
  fs::path failed_source, failed_target;
  if (!sources.empty()) ShowProgressDialog(program, program.GetText(text::CopyingLevelCaption));
  for (std::size_t i = 0; i < sources.size(); ++i) {
    StepProgressDialog(program, static_cast<int>(i), static_cast<int>(sources.size()));
    const SafeJoinResult target = Inside(editor, targets[i]);
    if (!target) continue;
    std::error_code ec;
    fs::create_directories(target.path.parent_path(), ec);
    const bool stood = FileExists(target.path);
    // Files expanded into the temporary folder aren't wanted there afterwards: moving them in
    // costs a rename each instead of a second pass over the level's bytes.
    const bool placed = temporary.empty()
                            ? CopyFileOver(sources[i], target.path, "activation-copy")
                            : MoveFileOver(sources[i], target.path, "activation-copy");
    if (!placed) {
      copy_failed = true;
      failed_source = sources[i];
      failed_target = target.path;
      // What stood there may be half overwritten: the backup's copy comes back when the level
      // leaves.
      if (stood) replaced.push_back(targets[i]);
      copied.push_back(targets[i]);
      break;
    }
    if (stood) replaced.push_back(targets[i]);
    copied.push_back(targets[i]);
  }
  if (!sources.empty()) HideProgressDialog(program);

  if (!copy_failed && !language.empty()) {
    const std::string script = program.GetText(text::ScriptNameLanguageStep2);
    const std::string extension = ToLower(program.GetText(text::LanguageExtension));
    bool brings_same = false;
    bool brings_other = false;
    for (const fs::path& file : sources) {
      const std::string name = file.filename().string();
      if (SameName(name, language)) brings_same = true;
      const std::string lower = ToLower(name);
      if (lower.size() >= 4 && lower.substr(lower.size() - 4) == extension &&
          !SameName(name, script))
        brings_other = true;
    }
    if (!brings_same && brings_other) {
      FaultPoint("activation-remove");
      if (DeleteFileForced(editor / language)) replaced.push_back("\\" + language);
    }
  }

  // Only a level whose every file came in is complete: any other is put in anew when asked for.
  std::string lists = head + FormatActiveLevelLists(marker_texts, replaced, copied);
  if (!copy_failed)
    lists = WithMarkerState(marker_texts, lists, program.GetText(text::MarkerStateComplete));
  WriteMarker(marker_path, lists, false);
  if (!temporary.empty()) DeleteLevelTree(program, temporary, nullptr, nullptr);
  if (copy_failed) {
    ShowActivationError(program, program.GetText(text::LevelFileNotCopied,
                                                 {failed_source.string(), failed_target.string()}));
    return false;
  }
  FixScriptFiles(program);
  return true;
}

}  // namespace

std::int32_t RemoveCurrentLevel(Program& program, std::int32_t next_code) {
  bool stayed = false;
  std::int32_t previous = TakeOutCurrentLevel(program, next_code, stayed);
  if (previous == kEditorFolderInUse) return previous;
  if (previous == kLevelNotTakenOut) previous = 0;
  // No level is coming: the base level's play files come back, or the next activation would
  // save an editor folder without them over them.
  BringBaseBack(program, false);
  program.notify.LevelListChanged();
  return previous;
}

bool SetLevelInTrle(Program& program, std::int32_t code) {
  // Whatever way it ends, the list shows what stands in the editor folder now, and only once.
  const bool done = PutLevelInTrle(program, code);
  program.notify.LevelListChanged();
  return done;
}

bool ResetToBaseLevel(Program& program) {
  return SetLevelInTrle(program, 0);
}

}  // namespace vardolin
