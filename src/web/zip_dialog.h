#pragma once
// The packing window as a shared service: shown without modality while level files are packed or
// expanded, and found again by whoever packs the next file.

#include <string>

namespace vardolin {
class Program;
}

namespace vardolin::web {

class Dialog_Zip;

// Shows Dialog_Zip with the message (one standing is replaced) and gives it.
Dialog_Zip& ShowZipDialog(Program& program, const std::string& message);
void HideZipDialog(Program& program);
// The window standing now, or null.
Dialog_Zip* ZipDialog(Program& program);

}  // namespace vardolin::web
