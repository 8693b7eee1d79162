#include "foundation/dialogs/ask.h"

#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/text_ids.h"

namespace vardolin {

int AskUser(Program& program, const std::string& text, int style, const std::string& title) {
  return program.ui().AskUser(text, style,
                              title.empty() ? program.GetText(text::ProgramTitle) : title);
}

std::string AskInput(Program& program, const std::string& prompt, const std::string& title,
                     const std::string& initial) {
  return program.ui().AskInput(prompt, title.empty() ? program.GetText(text::ProgramTitle) : title,
                               initial);
}

}  // namespace vardolin
