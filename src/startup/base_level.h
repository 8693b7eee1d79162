#pragma once
// The base level, code 0: the editor's own configuration as the user received it, kept in the
// program's folder so that every catalogue shares it.

namespace vardolin {

class Program;

// True when the base level's folder stands or was just built from the editor folder; then
// BaseLevelBuilt tells which. False when its folders can't be made.
bool EnsureBaseLevel(Program& program);

}  // namespace vardolin
