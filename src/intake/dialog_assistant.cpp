#include "intake/dialog_assistant.h"

#include <algorithm>
#include <cctype>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/apply_level_info.h"
#include "intake/completeness.h"
#include "intake/text_ids.h"
#include "play/active_level.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// How far around a source's name the text may name its wad set.
constexpr std::size_t kBefore = 40;
constexpr std::size_t kWindow = 80;

std::size_t CommonStart(const std::string& a, const std::string& b) {
  std::size_t n = 0;
  while (n < a.size() && n < b.size() &&
         std::tolower(static_cast<unsigned char>(a[n])) ==
             std::tolower(static_cast<unsigned char>(b[n])))
    ++n;
  return n;
}

}  // namespace

// For each source: the name followed by "." is sought without regard to case; the 80 characters
// from 40 before it (or from the start) are its window, and every wad set whose name and "."
// stand in the window is a candidate. No candidate: the search goes on behind. Of several, the
// one with the longest common start with the source's name wins, the earlier on a tie.
std::vector<std::string> MatchWadSetsInText(const std::string& text,
                                            const std::vector<std::string>& sources,
                                            const std::vector<std::string>& wad_sets) {
  const std::string lower = ToLower(text);
  std::vector<std::string> found;
  for (const std::string& source : sources) {
    const std::string needle = ToLower(source) + ".";
    std::string best;
    for (std::size_t at = lower.find(needle); at != std::string::npos && best.empty();
         at = lower.find(needle, at + 1)) {
      const std::size_t from = at > kBefore ? at - kBefore : 0;
      const std::string window = lower.substr(from, kWindow);
      std::size_t best_common = 0;
      for (const std::string& wad : wad_sets) {
        if (window.find(ToLower(wad) + ".") == std::string::npos) continue;
        const std::size_t common = CommonStart(wad, source);
        if (best.empty() || common > best_common) {
          best = wad;
          best_common = common;
        }
      }
    }
    found.push_back(best);
  }
  return found;
}

Dialog_Assistant::Dialog_Assistant(Program& program)
    : Form(program, "Dialog_Assistant", " Tom -> Tr4 conversion Assistant") {
  Check_Essenziali.SetCaption("Show only essential files");
  List_Readme.SetDblClickHandler([this] { Pul_ReadFile_Click(); });
}

void Dialog_Assistant::Set_Caption_Texts() {
  CaptionFromText(text::AssistantCaption);
  CaptionFromText(Pul_ReadFile, text::AssistantReadFile);
  CaptionFromText(Pul_AutoAnalisi, text::AssistantAutoAnalyse);
  CaptionFromText(Label1, text::AssistantSourceLabel);
  CaptionFromText(Label2, text::AssistantWadLabel);
  CaptionFromText(Check_Essenziali, text::AssistantEssential);
  CaptionFromText(Pul_Perform, text::AssistantPerform);
  CaptionFromText(Pul_Fatto, text::AssistantDone);
  CaptionFromText(Pul_Cancel, text::AssistantCancel);
}

void Dialog_Assistant::ImpostaValori(const fs::path& DirFileLivello) {
  folder_ = DirFileLivello;
  documents_ = ListDocuments(program(), folder_);
  List_Readme.Clear();
  for (const fs::path& d : documents_) List_Readme.AddItem(d.filename().string());
  int chosen = -1;
  for (int i = 0; i < List_Readme.ListCount() && chosen < 0; ++i)
    if (ContainsNoCase(List_Readme.List(i), "install")) chosen = i;
  for (int i = 0; i < List_Readme.ListCount() && chosen < 0; ++i)
    for (const char* word : {"instruction", "read", "convert", "note"})
      if (chosen < 0 && ContainsNoCase(List_Readme.List(i), word)) chosen = i;
  if (chosen >= 0) List_Readme.SetListIndex(chosen);
  // Setting the box fills the lists through its click.
  if (Check_Essenziali.Value())
    FillLists();
  else
    Check_Essenziali.SetValue(true);
}

void Dialog_Assistant::FillLists() {
  Program& p = program();
  if (closing_) return;
  const bool essential = Check_Essenziali.Value();
  Combo_Sorgenti.Clear();
  for (const fs::path& tom :
       ListFiles(folder_, WithoutLeadingSeparators(p.GetText(text::AssistantSourcePattern))))
    if (!essential || !WasFileForTomExists(p, tom, false))
      Combo_Sorgenti.AddItem(tom.filename().string());
  if (Combo_Sorgenti.ListCount() == 0) {
    AskUser(p, p.GetText(text::AssistantNoSources), msg::kInformation);
    Closed = true;
    closing_ = true;
    Unload();
    return;
  }
  Combo_Sorgenti.SetListIndex(0);
  Combo_WadsStandard.Clear();
  const fs::path wads = JoinFragment(EditorFolderPath(p), p.GetText(text::AssistantEditorWads));
  for (const fs::path& wad : ListFiles(wads, p.GetText(text::AssistantEditorWadPattern)))
    Combo_WadsStandard.AddItem(ExtractBaseName(wad.filename().string()) + ".*");
  for (const fs::path& wad : ListFiles(folder_, p.GetText(text::AssistantLevelWadPattern))) {
    // The level's own sets under the sources' rule: with "only essential", those whose source
    // already stands with them are no choice to make.
    const fs::path tom = wad.parent_path() / (ExtractBaseName(wad.filename().string()) + ".tom");
    if (essential && FileExists(tom)) continue;
    Combo_WadsStandard.AddItem(ExtractBaseName(wad.filename().string()) + ".*");
  }
}

void Dialog_Assistant::Pul_ReadFile_Click() {
  const int i = List_Readme.ListIndex();
  if (i < 0 || i >= static_cast<int>(documents_.size())) return;
  program().platform().ShellOpen(documents_[i].string(), {}, folder_);
}

void Dialog_Assistant::Pul_Perform_Click() {
  Program& p = program();
  const std::string tom = Combo_Sorgenti.SelectedText();
  if (Combo_WadsStandard.ListIndex() < 0) {
    AskUser(p, p.GetText(text::AssistantNoWadChosen) + tom, msg::kError);
    return;
  }
  LinkWadForTom(p, folder_, Combo_WadsStandard.SelectedText(), ExtractBaseName(tom));
  AskUser(p, p.GetText(text::AssistantLinked) + tom, msg::kInformation);
  changed_ = true;
  FillLists();
}

void Dialog_Assistant::Pul_Fatto_Click() {
  Program& p = program();
  if (!changed_) {
    AskUser(p, p.GetText(text::AssistantNothingDone), msg::kError);
    return;
  }
  for (const fs::path& tom :
       ListFiles(folder_, WithoutLeadingSeparators(p.GetText(text::AssistantCheckPattern))))
    if (!WasFileForTomExists(p, tom, true)) return;
  ReportedDone = true;
  closing_ = true;
  Unload();
}

bool Dialog_Assistant::MayClose() {
  Program& p = program();
  if (changed_ && AskUser(p, p.GetText(text::AssistantCancelChanged), msg::kYesNo) == msg::kNo)
    return false;
  if (!analysed_ && !changed_ &&
      AskUser(p, p.GetText(text::AssistantCancelOffer), msg::kYesNo) == msg::kYes) {
    Pul_AutoAnalisi_Click();
    return false;
  }
  return true;
}

void Dialog_Assistant::Pul_Cancel_Click() {
  if (!MayClose()) return;
  closing_ = true;
  Unload();
}

bool Dialog_Assistant::QueryUnload() {
  return closing_ || MayClose();
}

void Dialog_Assistant::Pul_AutoAnalisi_Click() {
  Program& p = program();
  const int i = List_Readme.ListIndex();
  if (i < 0 || i >= static_cast<int>(documents_.size())) {
    AskUser(p, p.GetText(text::AssistantNoDocument), msg::kError);
    return;
  }
  if (AskUser(p, p.GetText(text::AssistantAnalyse, {"\"" + List_Readme.List(i) + "\""}),
              msg::kOkCancel) == msg::kCancel)
    return;
  std::vector<std::string> missing;
  for (const fs::path& tom :
       ListFiles(folder_, WithoutLeadingSeparators(p.GetText(text::AssistantSourcePattern))))
    if (!WasFileForTomExists(p, tom, false))
      missing.push_back(ExtractBaseName(tom.filename().string()));
  analysed_ = true;
  if (missing.empty()) {
    AskUser(p, p.GetText(text::AssistantNothingMissing), msg::kInformation);
    return;
  }
  std::vector<std::string> wad_sets;
  for (int w = 0; w < Combo_WadsStandard.ListCount(); ++w)
    wad_sets.push_back(ExtractBaseName(Combo_WadsStandard.List(w)));
  const std::vector<std::string> found =
      MatchWadSetsInText(ReadWholeFile(documents_[i]), missing, wad_sets);
  if (std::find(found.begin(), found.end(), std::string()) != found.end()) {
    AskUser(p, p.GetText(text::AssistantNotAllFound), msg::kError);
    AskUser(p, p.GetText(text::AssistantByHand), msg::kInformation);
    return;
  }
  std::string list = p.GetText(text::AssistantFound) + "\r\n";
  for (std::size_t m = 0; m < missing.size(); ++m)
    list += p.GetText(text::AssistantFoundPair, {missing[m], found[m]}) + "\r\n";
  if (AskUser(p, list + p.GetText(text::AssistantFoundApply), msg::kYesNo) == msg::kNo) return;
  for (std::size_t m = 0; m < missing.size(); ++m)
    LinkWadForTom(p, folder_, found[m] + ".*", missing[m]);
  changed_ = true;
  Pul_Fatto_Click();
}

void Dialog_Assistant::Pul_Help_Click() {
  ShowHelp(program(), help::Assistant);
}

}  // namespace vardolin
