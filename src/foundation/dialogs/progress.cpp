#include "foundation/dialogs/progress.h"

#include <cmath>

#include "foundation/forms/form.h"

namespace vardolin {

void SetProgressPercent(ProgressBar& bar, double max, double value) {
  if (max == 0) max = 1;
  if (value > max) value = max;
  int percent = static_cast<int>(std::floor(value / max * 100.0));
  if (percent == bar.Value()) return;
  bar.SetValue(percent);
  bar.Owner().Refresh();
}

void ShowStatus(Label* label, const std::string& text) {
  if (!label) return;
  label->SetCaption(text);
  label->Owner().Refresh();
}

}  // namespace vardolin
