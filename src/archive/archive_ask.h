#pragma once
// Message boxes of the archive: by text, under the program's title unless one is given.

#include <string>

#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/text_ids.h"

namespace vardolin {

inline int ArchiveAsk(Program& program, const std::string& text, int style,
                      const std::string& title = {}) {
  return program.ui().AskUser(text, style,
                              title.empty() ? program.GetText(text::ProgramTitle) : title);
}

}  // namespace vardolin
