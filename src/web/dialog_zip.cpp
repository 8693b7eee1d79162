#include "web/dialog_zip.h"

#include <memory>

#include "foundation/forms/open_forms.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "web/text_ids.h"

namespace vardolin {

Dialog_Zip::Dialog_Zip(Program& program) : Form(program, "Dialog_Zip", " Zipping") {
  ZlibTool1.Progress = [this](std::uint64_t done, std::uint64_t total) {
    ShowProgress(done, total);
  };
}

void Dialog_Zip::Set_Caption_Texts() {
  CaptionFromText(text::ZipDialogCaption);
}

void Dialog_Zip::ShowWith(const std::string& message) {
  Load();
  SetCaption(message + " ");
  Label_Info.SetCaption(message);
  ProgressBar1.SetValue(0);
  program().ui().ShowModeless(*this);
  Refresh();
}

void Dialog_Zip::ShowProgress(std::uint64_t done, std::uint64_t total) {
  int percent = total ? static_cast<int>(done * 100 / total) : 100;
  if (percent != ProgressBar1.Value()) {
    ProgressBar1.SetValue(percent);
    Refresh();
  }
  program().ui().DoEvents();
}

bool Dialog_Zip::CompressFile(const std::filesystem::path& source,
                              const std::filesystem::path& target) {
  ProgressBar1.SetValue(0);
  ZlibTool1.InputFile = source.string();
  ZlibTool1.OutputFile = target.string();
  ZlibTool1.CompressionLevel = 9;
  bool ok = ZlibTool1.Compress();
  ZlibTool1.InputFile.clear();
  return ok;
}

bool Dialog_Zip::ExpandFile(const std::filesystem::path& source,
                            const std::filesystem::path& target) {
  ProgressBar1.SetValue(0);
  ZlibTool1.InputFile = source.string();
  ZlibTool1.OutputFile = target.string();
  bool ok = ZlibTool1.Decompress();
  ZlibTool1.InputFile.clear();
  if (!ok)
    program().ui().AskUser(program().GetText(text::CannotExpandFile, {source.filename().string()}),
                           msg::kError, {});
  return ok;
}

Dialog_Zip& ShowZipDialog(Program& program, const std::string& message) {
  auto& dialog =
      static_cast<Dialog_Zip&>(program.open_forms.Keep(std::make_unique<Dialog_Zip>(program)));
  dialog.ShowWith(message);
  return dialog;
}

void HideZipDialog(Program& program) {
  program.open_forms.Close("Dialog_Zip");
}

Dialog_Zip* ZipDialog(Program& program) {
  return program.open_forms.Find<Dialog_Zip>("Dialog_Zip");
}

}  // namespace vardolin
