// Form36, "Bitmap": the picture of a plot as a .bmp file, shown as the file holds it, and printed.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

/// Asks for a file, saves the plot (Picture1) of the window of that number as a bitmap, and shows it. On
/// cancel, or a No to the overwriting, nothing is saved and no window opens; a file that can't be written or
/// read is told.
void OpenBitmapWindow(const WindowContext& context, int source);

class Form36 final : public Form {
 public:
  /// `image` is what the file holds.
  Form36(const WindowContext& context, std::shared_ptr<const PixelImage> image);

 private:
  void OnLoad() override;

  void AskForScaleAndPrint();
  [[nodiscard]] std::optional<double> AskForScale();

  WindowContext context_;
  std::shared_ptr<const PixelImage> image_;

  PictureBox Picture1;
  Button Command1{*this, "Command1", {.Caption = "Print bitmap file"}};
  Button Command2{*this, "Command2", {.Caption = "Exit"}};
};

}  // namespace koprax
