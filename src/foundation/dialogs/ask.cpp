#include "foundation/dialogs/ask.h"

#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/text_ids.h"

namespace vardolin {

int AskUser(Program& program, const std::string& text, int style, const std::string& title) {
  return program.ui().AskUser(text, style,
                              title.empty() ? program.GetText(text::ProgramTitle) : title);
}

}  // namespace vardolin
