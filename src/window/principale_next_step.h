#pragma once
// What a new user does next. Until the editor is found, an archive is open and it holds a level,
// the window's level line says which of these comes next, and finishing one (installing the
// editor, making an archive) offers the one after it.

#include <cstdint>
#include <string>

namespace vardolin {

class Principale;
class Program;

enum class NextStep { None, Editor, Archive, Level };

NextStep FindNextStep(Program& program);
// What the step asks of the user; empty for None.
std::string NextStepText(Program& program, NextStep step);
// Puts the next step into Label_InfoLevel while there is one and the archive has no level of
// the user's to show instead.
void ShowNextStep(Principale& main);
// After a step is done: asks whether to go on with the next one and, on yes, runs it.
void OfferNextStep(Principale& main);

}  // namespace vardolin
