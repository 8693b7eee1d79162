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

bool PrintReport(Program& program, const std::string& title, const std::string& text) {
  PrintRequest request;
  request.title = title;
  request.text = text;
  const PrintResult result = program.ui().PrintText(request);
  if (result == PrintResult::Failed) AskUser(program, program.GetText(text::PrintFailed), 16);
  return result == PrintResult::Printed;
}

}  // namespace vardolin
