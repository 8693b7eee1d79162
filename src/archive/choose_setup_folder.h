#pragma once
// The folder for a new archive: a fresh folder is proposed on the roomiest fixed drive, and a
// chosen folder that already holds something gets a new sub-folder instead.

#include <filesystem>
#include <string>

namespace vardolin {

class Program;

// The root of the ready fixed drive with the most free bytes (the first on a tie); empty when
// the platform knows no such drive.
std::filesystem::path BestFixedDriveRoot(Program& program);
// Empty when the user chose nothing.
std::string ChooseSetupFolder(Program& program);

}  // namespace vardolin
