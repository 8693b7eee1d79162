#include "window/principale_remove_level.h"

#include "intake/remove_level.h"
#include "window/principale.h"

namespace vardolin {

void RemoveChosenLevel(Principale& main) {
  RemoveLevel(main.program(), main.ChosenLevelCode(), &main.Label_Info, &main.ProgressBar1);
}

}  // namespace vardolin
