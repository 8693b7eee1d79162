#pragma once
// Dialog_Resize: a screenshot painted stretched into one of eight sizes and saved as a bitmap
// or as a JPEG of one of five qualities; the saved file's path goes to the clipboard.

#include <string>

#include "foundation/forms/form.h"
#include "foundation/pictures/bitmap.h"

namespace vardolin {

struct ResizeRow {
  int width;
  int height;
};
// The sizes of Combo_Resize and the qualities of Combo_JpgQuality, row by row.
inline constexpr ResizeRow kResizeRows[] = {{480, 360}, {440, 330}, {400, 300}, {360, 270},
                                            {320, 240}, {240, 180}, {200, 150}, {160, 120}};
inline constexpr int kJpegQualities[] = {90, 70, 60, 40, 20};
inline constexpr int kDefaultResizeRow = 4;
inline constexpr int kDefaultQualityRow = 2;

class Dialog_Resize : public Form {
 public:
  explicit Dialog_Resize(Program& program);
  // Loads the shot and paints it at the default size.
  void ImpostaValori(const std::string& shot);
  // What the box holds now.
  const Bitmap& Painted() const { return painted_; }

  Label Label_Size{*this, "Label_Size", "Size in pixels"};
  ComboBox Combo_Resize{*this, "Combo_Resize", false, [this] { Combo_Resize_Click(); }};
  Label Label_Quality{*this, "Label_Quality", "JPEG quality"};
  ComboBox Combo_JpgQuality{*this, "Combo_JpgQuality"};
  Image Picture1{*this, "Picture1"};
  Button Pul_Save{*this, "Pul_Save", "Save ...", [this] { Pul_Save_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Unload(); }};

 private:
  void Set_Caption_Texts() override;
  void Combo_Resize_Click();
  void Pul_Save_Click();
  std::string TemporaryBitmap() const;

  std::string shot_;
  Bitmap source_;
  Bitmap painted_;
};

}  // namespace vardolin
