// The wads a level leans on, and the documents that tell about them.

#include <array>
#include <filesystem>
#include <string>
#include <system_error>

#include "archive/editor_backup.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/apply_level_info.h"
#include "intake/completeness.h"
#include "intake/dialog_add_wads.h"
#include "intake/text_ids.h"
#include "play/active_level.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

constexpr double kRevisedWadsMinBytes = 3000000;

}  // namespace

std::vector<fs::path> ListDocuments(Program& program, const fs::path& folder) {
  const std::string skip1 = program.GetText(text::NotADocument1);
  const std::string skip2 = program.GetText(text::NotADocument2);
  std::vector<fs::path> documents;
  for (std::int32_t id = text::DocumentPattern1; id <= text::DocumentPattern5; ++id) {
    for (const fs::path& file : ListFiles(folder, WithoutLeadingSeparators(program.GetText(id)))) {
      const std::string name = ToLower(file.filename().string());
      if (name != skip1 && name != skip2) documents.push_back(file);
    }
  }
  return documents;
}

bool RevisedWadsInstalled(Program& program) {
  const fs::path marker =
      JoinFragment(EditorBackupFolder(program), program.GetText(text::RevisedWadsMarkerFile));
  std::error_code ec;
  const auto size = fs::file_size(ResolveCase(marker), ec);
  return !ec && static_cast<double>(size) > kRevisedWadsMinBytes;
}

bool DocumentsMentionRevisedWads(Program& program, const fs::path& folder) {
  if (RevisedWadsInstalled(program)) return false;
  static const std::array<const char*, 4> spellings = {"Revised_wads", "Revised wads",
                                                       "RevisedWads", "Revised-Wads"};
  for (const fs::path& document : ListDocuments(program, folder)) {
    const std::string bytes = ReadWholeFile(document);
    for (const char* spelling : spellings)
      if (ContainsNoCase(bytes, spelling)) return true;
  }
  return false;
}

bool WasFileForTomExists(Program& program, const fs::path& tom, bool message) {
  const std::string was =
      ExtractBaseName(tom.filename().string()) + program.GetText(text::WadExtension);
  if (FileExists(tom.parent_path() / was)) return true;
  const fs::path editor = EditorFolderPath(program);
  if (!editor.empty() &&
      FileExists(JoinFragment(editor, program.GetText(text::EditorWadsFolder)) / was))
    return true;
  if (message)
    AskUser(program, program.GetText(text::WadMissing, {tom.filename().string()}), msg::kError);
  return false;
}

bool RequireNewWad(Program& program, const std::string& tomName) {
  static const std::array<const char*, 5> standard = {"newcity", "angkor", "guard", "library",
                                                      "cleopal"};
  const std::string base = ExtractBaseName(tomName);
  bool known = false;
  for (const char* name : standard) known = known || EqualsNoCase(base, name);
  if (!known) return false;
  const std::string address = kNewWadsPackUrl;
  if (AskUser(program, program.GetText(text::NeedNewWad, {base, ".wad", "\r\n" + address + "\r\n"}),
              msg::kYesNo) == msg::kNo)
    return false;
  const std::string zip =
      AskForZipFile(program, program.GetText(text::WadDownloadNewPrompt), address);
  if (zip.empty()) {
    AskUser(program, program.GetText(text::NewWadsNotGiven), msg::kError);
    return false;
  }
  return ImportWadZip(program, zip);
}

bool RequireRevisedWads(Program& program, const fs::path& folder) {
  if (!DocumentsMentionRevisedWads(program, folder)) return true;
  const std::string address = kRevisedWadsPackUrl;
  if (AskUser(program, program.GetText(text::NeedRevisedWads, {address}), msg::kYesNo) == msg::kNo)
    return false;
  const std::string zip =
      AskForZipFile(program, program.GetText(text::WadDownloadRevisedPrompt), address);
  if (zip.empty()) return false;
  return ImportWadZip(program, zip);
}

void CheckWadsForToms(Program& program, const fs::path& folder, bool ask, bool& result) {
  result = false;
  const std::vector<fs::path> toms =
      ListFiles(folder, WithoutLeadingSeparators(program.GetText(text::TomPattern)));
  if (!toms.empty()) {
    const std::string notice = program.GetText(text::TomWadsCheck);
    if (ask && AskUser(program, notice, msg::kYesNo) == msg::kNo) return;
    if (!ask) AskUser(program, notice, msg::kInformation);
    for (const fs::path& tom : toms) {
      if (WasFileForTomExists(program, tom, false)) continue;
      const std::string name = tom.filename().string();
      if (RequireNewWad(program, name) && WasFileForTomExists(program, tom, false)) continue;
      AskUser(program,
              program.GetText(text::TomCannotCompile, {ExtractBaseName(name)}) +
                  program.GetText(text::TomWadNotFound, {"\"" + name + "\""}) +
                  program.GetText(text::TomWadAdvice),
              msg::kWarning);
      return;
    }
  }
  if (!RequireRevisedWads(program, folder)) {
    AskUser(program, program.GetText(text::RevisedWadsRefused), msg::kInformation);
    return;
  }
  result = true;
}

}  // namespace vardolin
