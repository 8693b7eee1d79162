#pragma once
// A stand-in compressed setup of the level editor, as the install reads it: the stand-in editor
// folder below "trle", a runnable level converter, the language files, manuals, splash pictures,
// audio sets, a demo project, web links and the list of the setup's files, spread over zip files
// named as the setup's parts. Nothing of the real editor is in it.

#include <filesystem>
#include <string>
#include <vector>

namespace vardolin {
class Program;
}

namespace vardolin::testing {

struct EditorPackageOptions {
  int parts = 2;
  // A file (below the Core Design folder, '\' separated) that the list names but no zip holds.
  std::string left_out = {};
};

// Writes the zips into `dir` and gives their paths, part 1 first.
std::vector<std::filesystem::path> BuildEditorPackage(Program& program,
                                                      const std::filesystem::path& dir,
                                                      const EditorPackageOptions& options = {});
// The unpacked package at `core` (a Core Design folder); the relative paths of its files.
std::vector<std::string> StageEditorPackage(const std::filesystem::path& core,
                                            const EditorPackageOptions& options = {});
// The list of an installed editor's files (resources/trle_install.txt) in the program's home.
void CopyInstalledList(const std::filesystem::path& home);

}  // namespace vardolin::testing
