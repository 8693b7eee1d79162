// Loading the language files of the program's home: the English table that every lookup falls
// back on, and the table of the language the user chose.

#include <fstream>
#include <iterator>
#include <system_error>

#include "foundation/dialogs/progress.h"
#include "foundation/forms/form.h"
#include "foundation/forms/open_forms.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/codepage.h"
#include "foundation/services/strings.h"
#include "foundation/texts/text_catalogue.h"

namespace vardolin {
namespace fs = std::filesystem;
namespace {

constexpr const char* kProductSite = "https://vardolin.example.org";
constexpr const char* kEnglish = "english";

// These messages can't come from a language file: they say that the language files failed.
std::string VisitSiteAdvice() {
  return std::string("You should visit website ") + kProductSite +
         " and download last patch for Vardolin or zip file with all languages";
}

// The *.trc files of the folder in the file system's order, the extension compared without
// regard to case.
std::vector<fs::path> ListLanguageFiles(const fs::path& folder) {
  std::vector<fs::path> out;
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    if (!it->is_regular_file(ec)) continue;
    if (EqualsNoCase(it->path().extension().string(), ".trc")) out.push_back(it->path());
  }
  return out;
}

}  // namespace

std::vector<std::string> ListLanguages(const fs::path& folder) {
  std::vector<std::string> names;
  for (const fs::path& p : ListLanguageFiles(folder)) names.push_back(p.stem().string());
  return names;
}

bool ReadTextFile(Program& program, const fs::path& path, TextTable& table, Label* label,
                  ProgressBar* bar) {
  table.count = 0;
  table.entries.clear();
  table.name = path.stem().string();
  std::error_code ec;
  if (!fs::is_regular_file(path, ec)) return false;

  if (!label) label = program.main.info;
  if (!bar) bar = program.main.bar;
  if (label) {
    label->SetCaption("Loading " + table.name + " texts ...");
    label->Owner().Refresh();
  }

  std::ifstream in(path, std::ios::binary);
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  TrcParse parsed = in.bad() ? TrcParse{{}, 0, false, "Read error on " + path.string()}
                             : ParseTrc(bytes, CodePageOfLanguage(table.name));
  table.entries = std::move(parsed.entries);
  table.count = static_cast<std::int32_t>(table.entries.size());
  if (bar)
    for (std::int32_t i = 1; i <= table.count; ++i)
      SetProgressPercent(*bar, parsed.declared_count, i);

  if (!parsed.ok) {
    // The texts themselves may be what failed to load, so the box says it in plain English; the
    // title is left to the box, which names the program.
    program.ui().AskUser("Error loading " + table.name + " texts:\r\n" + parsed.error, msg::kError,
                         "");
    return false;
  }
  if (label) label->SetCaption("");
  if (bar) bar->SetValue(0);
  return true;
}

bool LoadLanguage(Program& program) {
  TextCatalogue& texts = program.texts;
  std::string setting = Trim(program.prefs.Language);
  std::vector<fs::path> files = ListLanguageFiles(program.Home());
  if (files.empty()) {
    program.open_forms.Close("Dialog_Splash");
    program.ui().AskUser(
        "UNRECOVERABLE ERROR: missing files .trc with texts of Vardolin in installation folder: " +
            program.Home().string() + "\r\n" + VisitSiteAdvice(),
        msg::kError, "");
    return false;
  }

  fs::path english = program.Home() / "english.trc";
  for (const fs::path& f : files)
    if (EqualsNoCase(f.stem().string(), kEnglish)) english = f;
  if (!ReadTextFile(program, english, texts.EnglishTexts)) {
    program.open_forms.Close("Dialog_Splash");
    program.ui().AskUser(
        "WARNING: missing 'english.trc' file in application folder. It's better let english "
        "language file in application folder also if you use another language for Vardolin. "
        "English language will be used when text in your language are missing",
        msg::kOkOnly, "");
  }

  // Any other language beats English; the one the settings name beats all. With no match the
  // last other language of the folder is taken.
  fs::path chosen = english;
  for (const fs::path& f : files) {
    std::string base = f.stem().string();
    if (!EqualsNoCase(base, kEnglish)) chosen = f;
    if (EqualsNoCase(base, setting)) {
      chosen = f;
      break;
    }
  }
  program.prefs.Language = chosen.stem().string();

  if (EqualsNoCase(program.prefs.Language, kEnglish)) {
    texts.CurrentTexts = texts.EnglishTexts;
  } else if (!ReadTextFile(program, chosen, texts.CurrentTexts)) {
    program.open_forms.Close("Dialog_Splash");
    program.ui().AskUser("ERROR loading texts of Vardolin for language " + program.prefs.Language +
                             "\r\n" + VisitSiteAdvice(),
                         msg::kError, "");
  }
  texts.CodePage = CodePageOfLanguage(program.prefs.Language);
  texts.TextCharset = CharsetOfLanguage(program.prefs.Language);
  return true;
}

void ReloadLanguage(Program& program) {
  SavePreferences(program);
  LoadPreferences(program);
  LoadLanguage(program);
  if (Form* main = program.main.form) {
    ApplyFormCharset(program, *main);
    main->ReapplyCaptions();
  }
}

}  // namespace vardolin
