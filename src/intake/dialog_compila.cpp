#include "intake/dialog_compila.h"

#include <optional>
#include <string>

#include "audio/wave_header.h"
#include "editor/tom_converter.h"
#include "foundation/dialogs/ask.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/folder_loan.h"
#include "foundation/services/native_programs.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/text_ids.h"
#include "play/active_level.h"
#include "play/game_launch.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// Whether the file's name ends in the text `id`; a blank text names no file.
bool NameEndsWith(const Program& p, const fs::path& file, std::int32_t id) {
  const std::string end = p.GetText(id);
  return !end.empty() && EndsWithNoCase(file.filename().string(), end);
}

fs::path InEditor(const Program& p, std::int32_t fragment, const fs::path& name) {
  return JoinFragment(EditorFolderPath(p), p.GetText(fragment)) / name.filename();
}

}  // namespace

Dialog_Compila::Dialog_Compila(Program& program)
    : Form(program, "Dialog_Compila", " Compile the level sources") {
  Text_InfoCompile.SetMultiLine(true);
  Text_InfoCompile.SetLocked(true);
}

Dialog_Compila::~Dialog_Compila() = default;

void Dialog_Compila::Set_Caption_Texts() {
  CaptionFromText(text::CompilaCaption);
  CaptionFromText(Pul_Compila, text::CompilaButtonStart);
  CaptionFromText(Pul_Done, text::CompilaButtonDone);
  CaptionFromText(Pul_Annulla, text::CompilaButtonCancel);
  CaptionFromText(Pul_Help, text::CompilaButtonHelp);
}

void Dialog_Compila::ImpostaValori(const fs::path& folder, std::int32_t level_index) {
  Program& p = program();
  LevelFolder = folder;
  LevelIndex = level_index;
  ReportedDone = false;
  AllFiles = ListFiles(folder, "*");
  TomFiles.clear();
  for (const fs::path& file : AllFiles)
    if (NameEndsWith(p, file, text::CompilaSourceExtension)) TomFiles.push_back(file);
  if (TomFiles.empty()) {
    AskUser(p, p.GetText(text::CompilaNoSources) + "\r\n", msg::kInformation);
    ReportedDone = true;
    return;
  }
  CompiledFiles.clear();
  WadSetFiles.clear();
  AudioFiles.clear();
  for (const fs::path& tom : TomFiles)
    CompiledFiles.push_back(InEditor(p, text::CompilaLevelsFolder, tom)
                                .replace_extension(p.GetText(text::CompilaLevelExtension)));
  std::vector<fs::path> usable;
  for (const fs::path& file : AllFiles) {
    if (IsWadSetFile(p, file)) WadSetFiles.push_back(InEditor(p, text::CompilaWadsFolder, file));
    bool refused = false;
    if (NameEndsWith(p, file, text::CompilaSoundExtension) &&
        NeedsWaveConversion(p, file, refused) && !refused)
      AudioFiles.push_back(InEditor(p, text::CompilaSoundsFolder, file));
    if (!refused) usable.push_back(file);
  }
  AllFiles = usable;

  // Two paragraphs of three texts each, the editor folder, then the sources one a line.
  std::string info;
  for (std::int32_t id = text::CompilaInfo1; id < text::CompilaInfo8 - 1; ++id)
    info += p.GetText(id) + ((id - text::CompilaInfo1) % 3 == 2 ? "\r\n\r\n" : " ");
  info += p.GetText(text::CompilaInfo8 - 1) + " \"" + EditorFolderPath(p).string() + "\"\r\n";
  info += p.GetText(text::CompilaInfo8) + "\r\n";
  for (const fs::path& tom : TomFiles) info += " * " + tom.filename().string() + "\r\n";
  Text_InfoCompile.SetText(info);

  if (!LendFiles()) return;
  if (p.prefs.NoAutoCompile) return;
  for (const fs::path& tom : TomFiles) {
    if (!RunTomConverterAsking(p, InEditor(p, text::CompilaSourcesFolder, tom))) {
      AskUser(p, p.GetText(text::CompilaConverterFailed), msg::kWarning);
      return;
    }
  }
  if (CollectResults()) {
    ReportedDone = true;
    return;
  }
  AskUser(p, p.GetText(text::CompilaCollectFailed), msg::kWarning);
}

// What the level brings goes into the editor through the loan, which sets aside what stood in
// its place; the converter's results are expected too, so that giving back takes them away.
bool Dialog_Compila::LendFiles() {
  Program& p = program();
  loan_ = std::make_unique<FolderLoan>(p);
  for (const fs::path& compiled : CompiledFiles) {
    loan_->Expect(compiled);
    loan_->Expect(TomConverterWorkFile(p, compiled));
  }
  auto source_of = [&](const fs::path& lent) { return LevelFolder / lent.filename(); };
  for (const fs::path& wad : WadSetFiles)
    if (!loan_->Put(ResolveCase(source_of(wad)), wad)) {
      AskUser(p, p.GetText(text::CompilaWadCopyFailed, {source_of(wad).string(), wad.string()}),
              msg::kError);
      return false;
    }
  // The sources stand where the editor keeps its maps, for the converter and for the user who
  // runs it by hand.
  for (const fs::path& tom : TomFiles)
    if (!loan_->Put(tom, InEditor(p, text::CompilaSourcesFolder, tom))) return false;
  for (const fs::path& audio : AudioFiles)
    if (!loan_->Put(ResolveCase(source_of(audio)), audio)) {
      AskUser(p,
              p.GetText(text::CompilaSoundCopyFailed, {source_of(audio).string(), audio.string()}),
              msg::kError);
      return false;
    }
  return true;
}

void Dialog_Compila::RestoreEditor() {
  if (loan_) loan_->Return();
  loan_.reset();
}

bool Dialog_Compila::CollectResults() {
  Program& p = program();
  for (const fs::path& compiled : CompiledFiles)
    if (!FileExists(ResolveCase(compiled))) {
      AskUser(p, p.GetText(text::CompilaLevelMissing) + "\"" + compiled.filename().string() + "\"",
              msg::kError);
      return false;
    }
  for (const fs::path& compiled : CompiledFiles)
    if (!CopyFileOver(ResolveCase(compiled), LevelFolder / compiled.filename())) {
      AskUser(
          p, p.GetText(text::CompilaLevelCopyFailed) + (LevelFolder / compiled.filename()).string(),
          msg::kError);
      return false;
    }
  RestoreEditor();
  for (const fs::path& wad : WadSetFiles)
    DeleteFileForced(ResolveCase(LevelFolder / wad.filename()));
  fs::path folder = LevelFolder;
  if (IsMediaLevel(p, folder)) return true;
  for (const fs::path& audio : AudioFiles)
    DeleteFileForced(ResolveCase(LevelFolder / audio.filename()));
  return true;
}

void Dialog_Compila::Pul_Compila_Click() {
  Program& p = program();
  const fs::path editor = EditorFolderPath(p);
  fs::path converter = JoinFragment(editor, p.GetText(text::CompilaProgramFirst));
  if (p.GetText(text::CompilaProgramFirst).empty()) {
    converter = JoinFragment(editor, p.GetText(text::CompilaProgram));
    p.prefs.CompilerName = p.GetText(text::CompilaProgramName);
  }
  converter = ResolveCase(converter);
  if (!FileExists(converter)) {
    AskUser(p, p.GetText(text::CompilaProgramMissing) + "\"" + converter.string() + "\"",
            msg::kError);
    FileRequest request;
    request.title = p.GetText(text::CompilaProgramTitle);
    request.filter = p.GetText(text::CompilaProgramFilter);
    request.start_folder = editor.string();
    const std::string chosen = p.ui().AskOpenFile(request);
    if (chosen.empty()) return;
    converter = chosen;
    p.prefs.CompilerName = ExtractFileName(chosen);
  }
  // The converter is a Windows program that starts through Wine, without a source it shows its
  // own window; a native one only when the home allows its very bytes.
  StartRequest request;
  request.program = converter;
  request.working_folder = editor;
  std::optional<Process> started;
  if (IsWindowsProgram(converter) || IsAllowedNativeProgram(p.Home(), converter))
    started = p.platform().Start(request);
  if (!started || !started->Valid())
    AskUser(p, p.GetText(text::CompilaProgramNotStarted) + converter.string(), msg::kError);
}

void Dialog_Compila::Pul_Done_Click() {
  if (!CollectResults()) return;
  ReportedDone = true;
  Unload();
}

void Dialog_Compila::Pul_Annulla_Click() {
  RestoreEditor();
  Unload();
}

bool Dialog_Compila::QueryUnload() {
  RestoreEditor();
  return true;
}

void Dialog_Compila::Pul_Help_Click() {
  ShowHelp(program(), help::Compila);
}

}  // namespace vardolin
