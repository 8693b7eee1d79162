#pragma once
// The ways back for an editor folder that a level left in a state activation can't mend: the
// full restore from the backup of the editor's files, the package of basic files, and the undoing
// of exactly what a level's setup program wrote. Nothing of the user's is deleted: what isn't the
// editor's own is set aside (set_aside.h) and the closing message names where.

#include <filesystem>
#include <string>
#include <vector>

#include "play/editor_snapshot.h"

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// The folders whose files a full restore (with a full backup) puts back as the backup holds them.
const std::vector<std::string>& FullRestoreFolders();

// The level in the folder leaves, what levels brought is taken out of the root and the data
// folder, and the backup's files come back; with a full backup every folder ends as the backup
// holds it. `dialog` shows the progress window for the time of the run. A run broken off (the
// program killed) is finished at the next start by FinishBrokenRestore.
void RestoreEditorConfiguration(Program& program, Label* label, ProgressBar* bar, bool dialog);
// Asks (text 1454) and restores unless the answer is No. With `since`, the editor folder as it
// stood before an outside program ran: only what that program created, changed or deleted is
// undone, from the backup where it holds the file.
void AskRestoreConfiguration(Program& program, Label* label, ProgressBar* bar,
                             const EditorSnapshot* since = nullptr);
// Undoes what changed in the editor folder since `since` (see AskRestoreConfiguration). The
// names of the files undone.
std::vector<std::string> UndoEditorChanges(Program& program, const EditorSnapshot& since);
// Undoes one file an outside program wrote (`name` below the editor folder): it goes, and the
// backup's file of that name comes back under the backup's own spelling. False when it couldn't
// be deleted.
bool UndoEditorFile(Program& program, const std::string& name);
// Puts the editor's basic files back from the package in the program's home, into the editor
// folder and its backup. A missing package is told and changes nothing.
void RestoreBasicFiles(Program& program, Label* label, ProgressBar* bar);
// The language file of the editor as its backup holds it; empty when it holds none.
std::string InstalledLanguageFile(Program& program);
// Runs again a restore that a killed run left unfinished; false when none was.
bool FinishBrokenRestore(Program& program);

}  // namespace vardolin
