#pragma once
// The package of the editor's basic files (standardfiles.zip in the program's home), which the
// restore of the editor configuration puts back. No editor file ships with the program: the
// package is made from the backup of the editor folder the first time that backup stands.

namespace vardolin {

class Program;

// Makes the package when it is missing and the backup is complete; true when it stands.
bool EnsureStandardFilesPackage(Program& program);

}  // namespace vardolin
