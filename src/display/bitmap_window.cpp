#include "display/bitmap_window.h"

#include <cstdint>
#include <utility>
#include <variant>

#include "display/bitmap_printing.h"
#include "display/plot_printing.h"
#include "display/plot_transform.h"
#include "files/file_choice.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "workspace/workspace.h"

namespace koprax {

namespace {

constexpr const char* BitmapFilter = "All Files (*.*)|*.*| bmp Files (*.bmp)|*.bmp| ";
constexpr float TwipsPerPixel = 15;
constexpr double TwipsPerPoint = 20;

/// In twips, and as large as the largest plot.
PictureSetup BitmapPicture() {
  return {.Scale = {.Left = 0, .Top = 0, .Width = 6975, .Height = 5535, .UnitsPerPoint = TwipsPerPoint},
          .DesignWidth = 6975 / TwipsPerMillimetre,
          .DesignHeight = 5535 / TwipsPerMillimetre,
          .Meaning = "Picture in the bitmap file"};
}

void TellError(const WindowContext& context, const std::string& text) {
  context.Desk.Host().MsgBox(ErrorMessage(text));
}

bool SaveSource(const WindowContext& context, const std::string& path) {
  const auto window = context.Desk.Find("Form" + std::to_string(context.Data.BitmapSource));
  const auto* const picture = window ? dynamic_cast<const PictureBox*>(window->Find("Picture1")) : nullptr;
  if (picture == nullptr) {
    TellError(context, "The window whose picture was to be saved is no longer open.");
    return false;
  }
  if (const auto failure = context.Desk.Host().SavePicture(*picture, path)) {
    TellError(context, "The picture can't be saved as " + path + ":\r\n" + *failure + ".");
    return false;
  }
  context.Data.BitmapSource = 0;
  return true;
}

std::shared_ptr<const PixelImage> ReadBack(const WindowContext& context, const std::string& path) {
  LoadedImage loaded = context.Desk.Host().LoadPicture(path);
  if (const auto* const failure = std::get_if<std::string>(&loaded)) {
    TellError(context,
              "The picture was saved, but can't be read back from " + path + ":\r\n" + *failure + ".");
    return nullptr;
  }
  return std::make_shared<const PixelImage>(std::get<PixelImage>(std::move(loaded)));
}

}  // namespace

void OpenBitmapWindow(const WindowContext& context, int source) {
  context.Data.BitmapSource = static_cast<std::int16_t>(source);
  const auto path = ChooseFileToWrite(context, {.Filter = BitmapFilter, .FilterIndex = 2});
  if (!path || !SaveSource(context, *path)) {
    return;
  }
  if (auto image = ReadBack(context, *path)) {
    context.Desk.Load<Form36>(context, std::move(image))->Show();
  }
}

Form36::Form36(const WindowContext& context, std::shared_ptr<const PixelImage> image)
    : Form(context.Desk, "Form36", "Bitmap"),
      context_(context),
      image_(std::move(image)),
      Picture1(*this, "Picture1", BitmapPicture()) {
  SetLayout(Column({Picture1, Row({Command1, Space(), Command2})}));
  Command1.OnClick = [this] { AskForScaleAndPrint(); };
  Command2.OnClick = [this] { Unload(); };
  EscapeCloses();
}

void Form36::OnLoad() {
  Picture1.PaintPicture(image_, 0, 0, TwipsPerPixel * static_cast<float>(image_->Width),
                        TwipsPerPixel * static_cast<float>(image_->Height));
}

void Form36::AskForScaleAndPrint() {
  Picture1.Refresh();
  if (const auto scale = AskForScale()) {
    PrintPage(context_, [&](Printer& printer) { PrintBitmap(printer, image_, *scale); });
  }
}

/// Nothing when the answer is out of range, which the user has been told. An empty one is a 0.
std::optional<double> Form36::AskForScale() {
  const std::string answer = Desk().Host().InputBox(
      {.Prompt = "give a scale factor, 0 < scale factor < 1", .Title = "Scale factor", .Default = "0.5"});
  const double scale = LeadingNumber(answer);
  if (!(answer.empty() || StartsWithNumber(answer)) || scale < 0 || scale > 1) {
    TellError(context_,
              "\"" + answer + "\" is no scale factor. Give a number above 0 and not above 1, such as 0.5.");
    return std::nullopt;
  }
  return scale;
}

}  // namespace koprax
