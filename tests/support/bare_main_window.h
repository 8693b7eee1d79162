#pragma once
// The main window without the program's start-up behind it, for tests that look at the
// window itself: its menu, its controls, how a front end binds it.

#include "window/principale.h"

namespace vardolin::testing {

class BareMainWindow : public Principale {
 public:
  using Principale::Principale;

 protected:
  void Form_Load() override {}
};

}  // namespace vardolin::testing
