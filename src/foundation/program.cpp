#include "foundation/program.h"

namespace vardolin {

Program::Program(std::filesystem::path home, Ui& ui, Platform& platform)
    : home_(std::move(home)), ui_(ui), platform_(platform) {}

}  // namespace vardolin
