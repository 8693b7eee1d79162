#pragma once
// The program's message box: the text, a style (msg::kYesNo, msg::kError ...) and a title; an
// empty title becomes the program's own. Gives the number of the button pressed.

#include <string>

namespace vardolin {

class Program;

int AskUser(Program& program, const std::string& text, int style, const std::string& title = {});

}  // namespace vardolin
