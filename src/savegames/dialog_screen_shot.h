#pragma once
// The zoom window: one screenshot filling a resizable window. The program keeps one of it and
// shows each zoomed picture there.

#include <string>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_ScreenShot : public Form {
 public:
  explicit Dialog_ScreenShot(Program& program);
  // Shows the picture; the caption names it only when it could be loaded.
  bool ImpostaValori(const std::string& NomeShot);

  Image Image1{*this, "Image1"};
};

}  // namespace vardolin
