#pragma once
// The small status window shown while level files are packed or expanded: a label for the
// file in hand, a bar for the bytes of that file, and the packing tool itself.

#include <filesystem>
#include <string>

#include "foundation/forms/form.h"
#include "web/zlib_tool.h"

namespace vardolin {
class Program;
}

namespace vardolin {

class Dialog_Zip : public Form {
 public:
  explicit Dialog_Zip(Program& program);

  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  ZlibTool ZlibTool1;

  // Shows the window without modality: the message and one blank as its caption, the message
  // in the label, the bar at 0. Hide unloads it.
  void ShowWith(const std::string& message);
  void Hide() { Unload(); }

  // Packs `source` into `target` at level 9; true when the target stands.
  bool CompressFile(const std::filesystem::path& source, const std::filesystem::path& target);
  // Expands a `.zl` file. A file that can't be expanded (damaged, cut short, unreadable, no
  // room) shows text 1229 with its name as an error, leaves no target and gives false.
  bool ExpandFile(const std::filesystem::path& source, const std::filesystem::path& target);

 protected:
  void Set_Caption_Texts() override;

 private:
  void ShowProgress(std::uint64_t done, std::uint64_t total);
};

// The window as a shared service, found again by whoever packs the next file: shows it with the
// message (one standing is replaced) and gives it; hides it; gives the one standing, or null.
Dialog_Zip& ShowZipDialog(Program& program, const std::string& message);
void HideZipDialog(Program& program);
Dialog_Zip* ZipDialog(Program& program);

}  // namespace vardolin
