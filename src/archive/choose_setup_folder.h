#pragma once
// The folder for a new archive: a fresh folder is proposed in the user's home, and a chosen
// folder that already holds something gets a new sub-folder instead.

#include <filesystem>
#include <string>

namespace vardolin {

class Program;

// Empty when the user chose nothing.
std::string ChooseSetupFolder(Program& program);

}  // namespace vardolin
