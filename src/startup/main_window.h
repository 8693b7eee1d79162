#pragma once
// The main window as the program starts it: its load reads the settings and the texts, shows
// the splash and brings the program up behind it. Principale alone is the window without that,
// as tests and other front ends look at it.

#include "window/principale.h"

namespace vardolin {

class MainWindow : public Principale {
 public:
  using Principale::Principale;

 protected:
  void Form_Load() override;
};

}  // namespace vardolin
