#pragma once
// Adding a level to the open archive, and editing one that is there, through the level
// properties form.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace vardolin {

class Program;
class Dialog_NewLevel;

// Opens the level properties on a new level, with `packagePath` (may be empty) added at once;
// `act`, when given, runs on the form instead of showing it (the command line fills and
// presses it). Gives the new level's code when the user pressed Done, else nothing: then the
// level's folders are gone again and the catalogue is as it was.
std::optional<std::int32_t> AddLevel(Program& program, const std::string& packagePath,
                                     const std::function<void(Dialog_NewLevel&)>& act = {});

// The level properties of the level at `index`; the catalogue is marked changed afterwards,
// whatever the user did. `act`, when given, runs on the form instead of showing it. False when
// the form couldn't be shown.
bool EditLevelProperties(Program& program, std::int32_t index,
                         const std::function<void(Dialog_NewLevel&)>& act = {});

}  // namespace vardolin
