#pragma once
// Compiling a level's sources (.tom) in the editor folder, which is only borrowed: the level's
// wad set, sound samples and sources are lent to it, the converter runs on each source, and the
// compiled levels are taken into the level's folder. Every way out gives the editor folder back
// as it was; a run killed meanwhile leaves a note that the next start acts on.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include "foundation/forms/form.h"

namespace vardolin {

class FolderLoan;

class Dialog_Compila : public Form {
 public:
  explicit Dialog_Compila(Program& program);
  ~Dialog_Compila() override;

  // Lends the level's files to the editor and, unless the settings say otherwise, compiles
  // each source. ReportedDone tells that nothing is left for the user: there was no source, or
  // every one compiled and the results were taken. Otherwise the caller shows the form.
  void ImpostaValori(const std::filesystem::path& folder, std::int32_t level_index);
  bool ReportedDone = false;

  std::filesystem::path LevelFolder;
  std::int32_t LevelIndex = 0;
  std::vector<std::filesystem::path> AllFiles;
  std::vector<std::filesystem::path> TomFiles;
  std::vector<std::filesystem::path> CompiledFiles;
  std::vector<std::filesystem::path> WadSetFiles;
  std::vector<std::filesystem::path> AudioFiles;

  TextBox Text_InfoCompile{*this, "Text_InfoCompile"};
  Button Pul_Compila{*this, "Pul_Compila", "Start Tom2Pc program and create tr4 files",
                     [this] { Pul_Compila_Click(); }};
  Button Pul_Done{*this, "Pul_Done", "Done", [this] { Pul_Done_Click(); }};
  Button Pul_Annulla{*this, "Pul_Annulla", "Cancel", [this] { Pul_Annulla_Click(); }};
  Button Pul_Help{*this, "Pul_Help", "Help", [this] { Pul_Help_Click(); }};

  // Copies the compiled levels into the level's folder and gives the editor folder back; false,
  // after telling the user, when a compiled level is missing or can't be copied.
  bool CollectResults();
  // Gives the editor folder back as it was before the dialog lent it.
  void RestoreEditor();
  // The close box is Cancel.
  bool QueryUnload() override;

 private:
  void Set_Caption_Texts() override;
  void Pul_Compila_Click();
  void Pul_Done_Click();
  void Pul_Annulla_Click();
  void Pul_Help_Click();
  bool LendFiles();

  std::unique_ptr<FolderLoan> loan_;
};

}  // namespace vardolin
