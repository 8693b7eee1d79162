#pragma once
// Moving a progress bar by percentage without repainting it more often than its value changes.

#include <string>

namespace vardolin {

class Label;
class ProgressBar;

// Sets the bar to the whole percentage of value / max. A max of 0 counts as 1 and a value above
// max as max. The bar is written and its window refreshed only when the percentage differs from
// what the bar shows.
void SetProgressPercent(ProgressBar& bar, double max, double value);
// Shows the step of a long operation on its status label, when it has one, and repaints the
// window at once, so the user sees each step while the loop goes on.
void ShowStatus(Label* label, const std::string& text);

}  // namespace vardolin
