#pragma once
// CorreggiArchivioCD: the records of a CD archive checked against what the CDs (discs or their
// images) and the hard disk really hold.

#include <functional>

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// Asks how many CDs there are and for each of them; a level found only on a CD takes its
// number, a level found on the hard disk too is asked about, a level found nowhere may be
// removed through `remove_level` (the window's removal of the record at that index).
void CorreggiArchivioCD(Program& program, Label* label, ProgressBar* bar,
                        const std::function<void(int index)>& remove_level);

}  // namespace vardolin
