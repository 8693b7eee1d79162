#pragma once
// Installing the level editor as its own setup would: from the zip files of its compressed setup
// (everything: files, menu entries, language, audio, demo levels, registration) or by copying a
// TRLE folder as it stands (files, menu entries and registration only).

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vardolin {

class Program;
class Label;
class ProgressBar;
class Timer;

// Asked when a step fails that the install can go past: true when the user gives up.
using InstallErrorQuestion = std::function<bool(const std::string& message)>;

// The whole install. `source` is the TRLE folder (not compressed) and `zips` the setup's zip
// files (compressed); `timer`, when given, moves the bar by the time estimate. True on success,
// with EditorFolder set to the installed editor.
bool InstallEditor(Program& program, bool compressed, int language, const std::string& source,
                   Label& label, ProgressBar& bar, const std::vector<std::string>& zips,
                   Timer* timer);
// The folder of the editor's files in a TRLE folder: the folder itself when it holds them, else
// its one sub-folder that does (a setup zip unpacked into it brings them below "trle"). Empty
// when neither does.
std::filesystem::path EditorInSetupFolder(Program& program, const std::filesystem::path& folder);
// The language row whose language file the editor's folder in it holds (the first in row order),
// row 0 when none; then InstallEditor from that folder.
bool InstallEditorFromFolder(Program& program, const std::string& folder, Label& label,
                             ProgressBar& bar);
// Checks the room, then Dialog_InstallaTrle; true when it installed the editor.
bool InstallCompressedEditor(Program& program);
// Tests that every file the list names (one a line, below `base`) stands. Missing files are
// counted into `errors` and reported through `ask`, at most ten of them. False when the user
// gave up there.
bool VerifyFileList(Program& program, const std::filesystem::path& list,
                    const std::filesystem::path& base, int& errors,
                    const InstallErrorQuestion& ask);
// When a valid editor is installed, asks whether to remove it; on Yes puts the base level back
// and deletes the editor folder. False when the user keeps it (the install stops then).
bool RemoveInstalledEditor(Program& program);

}  // namespace vardolin
