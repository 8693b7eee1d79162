#pragma once
// Moving a progress bar by the share of work done.

namespace vardolin {

class ProgressBar;

// Sets the bar to the whole part of value / max x 100. A max of 0 counts as 1 and a value above
// the max as the max; the bar is written only when the number changes, so that tight loops
// don't repaint it for nothing.
void SetProgressPercent(ProgressBar& bar, long long max, long long value);

}  // namespace vardolin
