#pragma once
// Questions to the user by way of the Ui port, with the program's own title when none is given.

#include <string>

namespace vardolin {

class Program;

// Shows the text with the buttons of the style (msg::kYesNo ...) and gives the number of the
// button pressed. An empty title is replaced by the program's title (text 2478).
int AskUser(Program& program, const std::string& text, int style, const std::string& title = {});
// Gives the typed text when the user confirmed, else an empty text.
std::string AskInput(Program& program, const std::string& prompt, const std::string& title = {},
                     const std::string& initial = {});

// Prints a report through the Ui port; a printer that fails is told (text 9866). True when it
// printed.
bool PrintReport(Program& program, const std::string& title, const std::string& text);

}  // namespace vardolin
