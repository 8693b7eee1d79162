// Looking texts up by number and filling their placeholders.

#include "foundation/forms/form.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "foundation/texts/text_catalogue.h"

namespace vardolin {

std::string FindTextInTable(std::int32_t id, const TextTable& table) {
  // Linear on purpose: the first entry of an id wins, and no caller is in a hot path.
  for (const TextEntry& e : table.entries)
    if (e.id == id) return e.text;
  return {};
}

std::string FillPlaceholders(std::string text, const std::vector<std::string>& values) {
  for (size_t i = 0; i < values.size(); ++i) {
    std::string mark = "~" + std::to_string(i + 1);
    size_t at = text.find(mark);
    if (at != std::string::npos) text.replace(at, mark.size(), values[i]);
  }
  return text;
}

std::string TextCatalogue::GetText(std::int32_t id, const std::vector<std::string>& values) const {
  std::string text = FindTextInTable(id, CurrentTexts);
  if (Trim(text).empty()) text = FindTextInTable(id, EnglishTexts);
  return FillPlaceholders(std::move(text), values);
}

std::int32_t CharsetOfLanguage(std::string_view language) {
  std::string name = Trim(language);
  if (EqualsNoCase(name, "Greek")) return 161;
  if (EqualsNoCase(name, "TURKISH")) return 162;
  if (EqualsNoCase(name, "JAPAN")) return 128;
  if (EqualsNoCase(name, "RUSSIAN")) return 204;
  if (EqualsNoCase(name, "CHINESE")) return 128;
  return 0;
}

void ApplyFormCharset(Program& program, Form& form) {
  form.SetCharset(program.texts.TextCharset);
  for (Control* c : form.Controls())
    if (c->HasFont()) c->SetCharset(program.texts.TextCharset);
}

}  // namespace vardolin
