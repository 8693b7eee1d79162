#include "foundation/dialogs/progress.h"

#include "foundation/forms/form.h"

namespace vardolin {

void SetProgressPercent(ProgressBar& bar, long long max, long long value) {
  if (max == 0) max = 1;
  if (value > max) value = max;
  int percent = static_cast<int>(static_cast<double>(value) / static_cast<double>(max) * 100.0);
  if (percent == bar.Value()) return;
  bar.SetValue(percent);
  bar.Owner().Refresh();
}

}  // namespace vardolin
