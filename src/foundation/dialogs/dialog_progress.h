#pragma once
// The small window that long operations show their progress in, without blocking.

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_Progress : public Form {
 public:
  explicit Dialog_Progress(Program& program);

  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};

 private:
  void Set_Caption_Texts() override;
};

}  // namespace vardolin
