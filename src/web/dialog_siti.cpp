#include "web/dialog_siti.h"

#include "foundation/dialogs/ask.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "web/dialog_download.h"
#include "web/text_ids.h"
#include "web/url_notices.h"

namespace vardolin {

namespace {

struct Category {
  std::int32_t name_id;
  std::int32_t type;
};
constexpr Category kCategories[] = {
    {text::UrlKindLevels, url_type::kLevels},
    {text::UrlKindEditor, url_type::kEditor},
    {text::UrlKind3, 3},
    {text::UrlKind4, 4},
    {text::UrlKind5, 5},
    {text::UrlKindPatches, url_type::kPatch},
};

constexpr std::size_t kUrlShown = 75;

}  // namespace

Dialog_Siti::Dialog_Siti(Program& program) : Form(program, "Dialog_Siti", " Web addresses") {
  List_Url.SetDblClickHandler([this] { Pul_Go_Click(); });
  Text_Note.SetLocked(true);
}

void Dialog_Siti::Set_Caption_Texts() {
  CaptionFromText(text::SitiCaption);
  CaptionFromText(Pul_Aggiorna, text::SitiUpdate);
  CaptionFromText(Pul_Copy, text::SitiCopy);
  CaptionFromText(Pul_Ok, text::SitiOk);
  CaptionFromText(Pul_Cancel, text::SitiCancel);
  CaptionFromText(Pul_Remove, text::SitiRemove);
  CaptionFromText(Pul_Change, text::SitiChange);
  CaptionFromText(Pul_Add, text::SitiAdd);
  CaptionFromText(Pul_Go, text::SitiGo);
  CaptionFromText(Label3, text::SitiLabel3);
  CaptionFromText(Label2, text::SitiLabel2);
  CaptionFromText(Label1, text::SitiLabel1);
}

void Dialog_Siti::ImpostaValori(std::int32_t TipoUrl, bool TestAggiorna) {
  Load();
  Changed = false;
  ExitValue = false;
  SetAside.clear();
  const std::filesystem::path path = UrlListPath(program());
  if (!ReadUrlList(path, List)) {
    List = {};
    List.LastUpdate = OleDateNow();
    // The user's own entries may be in there: the file is kept, and told of, not dropped.
    if (FileExists(path)) {
      SetAside = KeepUnreadableCopy(path);
      if (SetAside.empty()) SetAside = path;
      AskUser(program(),
              program().GetText(text::UrlListSetAside, {path.string(), SetAside.string()}),
              msg::kWarning);
    }
  }
  Combo_TipoUrl.Clear();
  for (const Category& c : kCategories) Combo_TipoUrl.AddItem(program().GetText(c.name_id), c.type);
  const int row = Combo_TipoUrl.FindData(TipoUrl);
  Combo_TipoUrl.SetListIndex(row < 0 ? 0 : row);
  ShowList();
  if (TestAggiorna) Pul_Aggiorna_Click();
}

std::int32_t Dialog_Siti::SelectedType() const {
  const int row = Combo_TipoUrl.ListIndex();
  return row < 0 ? 0 : static_cast<std::int32_t>(Combo_TipoUrl.ItemData(row));
}

int Dialog_Siti::SelectedEntry() const {
  const int row = List_Url.ListIndex();
  return row < 0 ? -1 : static_cast<int>(List_Url.ItemData(row));
}

void Dialog_Siti::ShowList() {
  Program& p = program();
  const std::int32_t type = SelectedType();
  Label_Update.SetCaption(FormatOleDate(List.LastUpdate, p.GetText(text::UrlDateFormat)));
  List_Url.Clear();
  for (int i = 0; i < List.Count(); ++i) {
    const UrlEntry& e = List.entries[static_cast<std::size_t>(i)];
    if (e.Type != type || IsHiddenEntry(e)) continue;
    const std::string name = type == url_type::kLevels ? TranslateUrlName(p, e.Name) : e.Name;
    List_Url.AddItem((e.UserAdded ? p.GetText(text::UrlUserMark) : "") + name, i);
  }
  if (List_Url.ListCount() > 0) List_Url.SetListIndex(0);
  Label_TotUrl.SetCaption(std::to_string(List_Url.ListCount()));
}

void Dialog_Siti::SelectEntry(int index) {
  const int row = List_Url.FindData(index);
  if (row >= 0) List_Url.SetListIndex(row);
}

void Dialog_Siti::List_Url_Click() {
  const int i = SelectedEntry();
  if (i < 0) return;
  const std::string& url = List.entries[static_cast<std::size_t>(i)].Url;
  Label_Url.SetCaption(url.size() > kUrlShown ? url.substr(0, kUrlShown) + " ..." : url);
  Text_Note.SetText(List_Url.SelectedText());
}

void Dialog_Siti::Pul_Go_Click() {
  const int i = SelectedEntry();
  if (i < 0) {
    AskUser(program(), program().GetText(text::UrlGoNoRow), msg::kInformation);
    return;
  }
  const std::string& url = List.entries[static_cast<std::size_t>(i)].Url;
  if (!program().platform().ShellOpen(url, "", program().Home()))
    AskUser(program(), program().GetText(text::NoBrowserAnswered, {url}), msg::kWarning);
}

void Dialog_Siti::Pul_Copy_Click() {
  const int i = SelectedEntry();
  if (i < 0) {
    AskUser(program(), program().GetText(text::UrlCopyNoRow), msg::kInformation);
    return;
  }
  program().ui().ClearClipboard();
  program().ui().SetClipboardText(List.entries[static_cast<std::size_t>(i)].Url);
  AskUser(program(), program().GetText(text::UrlCopied), msg::kInformation);
}

bool Dialog_Siti::CheckUrlCollision(const std::string& url, int own_index) {
  Program& p = program();
  const std::int32_t type = SelectedType();
  const std::string host = ExtractUrlHost(url);
  for (int i = 0; i < List.Count(); ++i) {
    const UrlEntry& e = List.entries[static_cast<std::size_t>(i)];
    if (i == own_index || e.Type != type) continue;
    std::int32_t question = 0;
    if (EqualsNoCase(e.Url, url))
      question = text::UrlSameAddress;
    else if (EqualsNoCase(ExtractUrlHost(e.Url), host))
      question = text::UrlSameHost;
    if (question && AskUser(p, p.GetText(question, {e.Name, e.Url}), msg::kYesNo) == msg::kNo)
      return false;
  }
  return true;
}

void Dialog_Siti::Pul_Add_Click() {
  Program& p = program();
  const std::string name =
      AskInput(p, p.GetText(text::UrlAddName), p.GetText(text::UrlAddNameTitle));
  if (name.empty()) return;
  const std::string url =
      AskInput(p, p.GetText(text::UrlAddAddress), p.GetText(text::UrlAddAddressTitle));
  if (url.empty() || !CheckUrlCollision(url, -1)) return;
  List.entries.push_back({url, name, SelectedType(), true});
  Changed = true;
  ShowList();
  SelectEntry(List.Count() - 1);
}

void Dialog_Siti::Pul_Change_Click() {
  Program& p = program();
  const int i = SelectedEntry();
  if (i < 0) {
    AskUser(p, p.GetText(text::UrlChangeNoRow), msg::kInformation);
    return;
  }
  UrlEntry& e = List.entries[static_cast<std::size_t>(i)];
  const std::string name =
      AskInput(p, p.GetText(text::UrlChangeName), p.GetText(text::UrlChangeNameTitle), e.Name);
  if (name.empty()) return;
  const std::string url =
      AskInput(p, p.GetText(text::UrlChangeAddress), p.GetText(text::UrlChangeAddressTitle), e.Url);
  if (url.empty() || !CheckUrlCollision(url, i)) return;
  e.Name = name;
  e.Url = url;
  Changed = true;
  ShowList();
  SelectEntry(i);
}

void Dialog_Siti::Pul_Remove_Click() {
  Program& p = program();
  const int i = SelectedEntry();
  if (i < 0) {
    AskUser(p, p.GetText(text::UrlRemoveNoRow), msg::kInformation);
    return;
  }
  auto& entries = List.entries;
  if (AskUser(p, p.GetText(text::UrlRemoveAsk) + entries[static_cast<std::size_t>(i)].Name,
              msg::kYesNo) != msg::kYes)
    return;
  entries[static_cast<std::size_t>(i)] = entries.back();
  entries.pop_back();
  Changed = true;
  ShowList();
}

void Dialog_Siti::Pul_Aggiorna_Click() {
  Program& p = program();
  Label_Url.SetCaption(p.GetText(text::UrlUpdating));
  Refresh();
  const auto& sources = p.lists.UrlListSources;
  const std::filesystem::path target = JoinFragment(p.Home(), p.GetText(text::UrlDownloadFile));
  for (std::size_t n = 0; n < sources.size(); ++n) {
    if (n > 0 &&
        AskUser(p, p.GetText(text::UrlTryAddress) + std::to_string(n + 1) + " ?\r\n" + sources[n],
                msg::kYesNo) == msg::kNo)
      return;
    if (!DownloadToFile(p, sources[n], target)) continue;
    UrlList fresh;
    if (!ReadUrlList(target, fresh)) {
      AskUser(p, p.GetText(text::UrlListUnreadable), msg::kError);
      ShowList();
      return;
    }
    List = MergeUrlLists(List, fresh, OleDateNow());
    ProcessNotices(p, List);
    Changed = true;
    ShowList();
    return;
  }
  AskUser(p, p.GetText(text::UrlNoSourceReached), msg::kError);
  ShowList();
}

bool Dialog_Siti::SaveList() {
  Program& p = program();
  const std::filesystem::path path = UrlListPath(p);
  if (!SetAside.empty() && FileExists(path) &&
      AskUser(p, p.GetText(text::UrlListReplaceUnreadable, {path.string(), SetAside.string()}),
              msg::kYesNo) == msg::kNo)
    return false;
  if (!WriteUrlList(path, List)) {
    AskUser(p, p.GetText(text::UrlListNotWritten) + path.string(), msg::kError);
    return false;
  }
  SetAside.clear();
  return true;
}

void Dialog_Siti::Pul_Ok_Click() {
  if (Changed) SaveList();
  ExitValue = true;
  closing_ = true;
  Unload();
}

void Dialog_Siti::Pul_Cancel_Click() {
  if (!QueryUnload()) return;
  closing_ = true;
  Unload();
}

bool Dialog_Siti::QueryUnload() {
  if (closing_) return true;
  if (Changed && AskUser(program(), program().GetText(text::UrlLoseChanges, {"\r\n"}),
                         msg::kYesNo) == msg::kNo)
    return false;
  ExitValue = false;
  return true;
}

bool ShowUrlListWindow(Program& program, std::int32_t kind, bool update) {
  Dialog_Siti dialog(program);
  dialog.ImpostaValori(kind, update);
  program.ui().ShowModal(dialog);
  return dialog.ExitValue;
}

}  // namespace vardolin
