// koprax-figure: a picture as koprax-script answers it, as a file of SVG, PDF or PNG.

#include <QApplication>
#include <algorithm>
#include <cctype>
#include <clocale>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "app/command_line.h"
#include "app/figure_layout.h"
#include "app/figure_reading.h"
#include "app/workbench.h"
#include "forms/scripted_runtime.h"
#include "forms/text_file.h"
#include "forms/whole_file.h"
#include "forms_qt/figure_file.h"
#include "forms_qt/qt_platform.h"
#include "forms_qt/toolkit_messages.h"

namespace {

const koprax::ProgramHelp Program{
    .Name = "koprax-figure",
    .Usage = "koprax-figure [OPTION]... ANSWERS OUTPUT",
    .Text =
        "Makes a figure of a picture that koprax-script has answered. ANSWERS holds its\n"
        "answers, one a line, or the array of operations alone; \"-\" is standard input.\n"
        "The last picture is taken. OUTPUT is an SVG, a PDF or a PNG, as its name ends;\n"
        "\"-\" is standard output, where --format is wanted.\n"
        "\n"
        "  --picture NAME  the last answer to \"picture NAME\", such as Form6.Picture1 or\n"
        "                  Printer; it names the picture of an array alone, too\n"
        "  --line N        the answer to line N of the script\n"
        "  --format WHAT   svg, pdf or png, whatever the name of OUTPUT\n"
        "  --size WxH      width and height in millimetres, 1 to 5000; else the picture has\n"
        "                  the size that it is made for\n"
        "  --dpi N         dots an inch of a PNG, 10 to 4800; else 300\n"
        "  --scale LEFT,TOP,WIDTH,HEIGHT\n"
        "                  the part to be shown, in the picture's own coordinates; HEIGHT\n"
        "                  is negative where y grows upward\n"
        "\n"
        "A page of the Printer has the size that the nearest answer to \"get Printer\"\n"
        "tells; without one it is that of plots, A4 landscape in millimetres.\n"
        "\n",
    .Values = {"--picture", "--line", "--format", "--size", "--dpi", "--scale"}};

constexpr int CannotMake = 1;
constexpr int UsualDotsPerInch = 300;

enum class FigureFormat { Svg, Pdf, Png };

struct FigureOrder {
  std::string Answers;
  std::string Output;
  koprax::PictureChoice Choice{};
  koprax::FigureWishes Wishes{};
  FigureFormat Format = FigureFormat::Svg;
  std::optional<int> DotsPerInch{};
};

void Tell(const std::string& what) { std::cerr << Program.Name << ": " << what << '\n'; }

int Fail(const std::string& reason) {
  Tell(reason);
  return CannotMake;
}

std::optional<FigureFormat> FormatNamed(std::string name) {
  std::ranges::transform(name, name.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  if (name == "svg") return FigureFormat::Svg;
  if (name == "pdf") return FigureFormat::Pdf;
  return name == "png" ? std::optional(FigureFormat::Png) : std::nullopt;
}

std::string EndingOf(const std::string& path) {
  const std::size_t period = path.find_last_of("./");
  return period == std::string::npos || path[period] == '/' ? "" : path.substr(period + 1);
}

/// What the call orders, or what is wrong with it.
std::variant<FigureOrder, std::string> OrderOf(const koprax::CommandLine& line) {
  if (line.Files.size() != 2) return "ANSWERS and OUTPUT are wanted";
  FigureOrder order{.Answers = line.Files[0], .Output = line.Files[1]};
  if (koprax::WouldReplace(order.Output, order.Answers)) return "the figure would replace " + order.Answers;
  const auto option = [&](const char* name) -> std::optional<std::string> {
    const auto found = line.Options.find(name);
    return found == line.Options.end() ? std::nullopt : std::optional(found->second);
  };
  order.Choice.Name = option("--picture");
  if (const auto text = option("--line")) {
    order.Choice.Line = koprax::WholeNumberOf(*text, 1, 1'000'000'000);
    if (!order.Choice.Line) return "--line wants the number of a line";
  }
  if (const auto text = option("--size")) {
    order.Wishes.Size = koprax::FigureSizeOf(*text);
    if (!order.Wishes.Size) return "--size wants millimetres from 1 to 5000, such as 160x120";
  }
  if (const auto text = option("--scale")) {
    order.Wishes.Scale = koprax::FigureScaleOf(*text);
    if (!order.Wishes.Scale) return "--scale wants LEFT,TOP,WIDTH,HEIGHT, such as 0,98,123.03,-95.51";
  }
  if (const auto text = option("--dpi")) {
    order.DotsPerInch = koprax::WholeNumberOf(*text, 10, 4800);
    if (!order.DotsPerInch) return "--dpi wants a whole number from 10 to 4800";
  }
  const auto format = FormatNamed(option("--format").value_or(EndingOf(order.Output)));
  if (!format && order.Output == "-") return "--format has to tell svg, pdf or png for standard output";
  if (!format) return "OUTPUT has to end in .svg, .pdf or .png, or --format has to tell one of these";
  order.Format = *format;
  return order;
}

std::variant<std::string, koprax::FileError> ReadAnswers(const std::string& path) {
  if (path != "-") return koprax::ReadWholeFile(path);
  return std::string(std::istreambuf_iterator<char>(std::cin), {});
}

std::string SourceOf(const FigureOrder& order) {
  return order.Answers == "-" ? "standard input" : order.Answers;
}

int DotsPerInchOf(const FigureOrder& order) { return order.DotsPerInch.value_or(UsualDotsPerInch); }

QByteArray BytesOf(const koprax::Figure& figure, const FigureOrder& order) {
  switch (order.Format) {
    case FigureFormat::Svg:
      return koprax::FigureAsSvg(figure);
    case FigureFormat::Pdf:
      return koprax::FigureAsPdf(figure);
    case FigureFormat::Png:
      break;
  }
  return koprax::FigureAsPng(figure, DotsPerInchOf(order));
}

/// What the user may not expect of the figure.
void TellOfNotes(const FigureOrder& order, const koprax::ReadPicture& picture) {
  if (picture.Drawn.Operations.empty()) Tell("the picture is blank");
  if (picture.Drawn.Images > 0) Tell("the answer holds no pixels; an empty frame stands for each image");
  if (order.DotsPerInch && order.Format != FigureFormat::Png) {
    Tell("--dpi changes nothing, since an SVG and a PDF have no dots");
  }
}

int Write(const std::string& output, std::string_view bytes) {
  if (output == "-") {
    std::cout << bytes;
    return koprax::EndOutput(Program.Name, 0);
  }
  const auto failure = koprax::WriteWholeFile(output, bytes);
  return failure ? Fail("can't write " + output + ": " + failure->Reason) : 0;
}

int WriteFigure(const FigureOrder& order, const koprax::ReadPicture& picture,
                const koprax::FigureLayout& layout) {
  const auto too_many = order.Format == FigureFormat::Png
                            ? koprax::WhyTooManyDots(layout.Size, DotsPerInchOf(order))
                            : std::nullopt;
  if (too_many) return Fail(*too_many);
  const QByteArray bytes = BytesOf({.Scale = layout.Scale,
                                    .Operations = picture.Drawn.Operations,
                                    .Width = layout.Size.Width,
                                    .Height = layout.Size.Height},
                                   order);
  if (bytes.isEmpty())
    return Fail("there is not enough memory for the figure; tell a smaller --size or --dpi");
  TellOfNotes(order, picture);
  return Write(order.Output, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

int MakeFigure(const FigureOrder& order) {
  const auto answers = ReadAnswers(order.Answers);
  if (const auto* error = std::get_if<koprax::FileError>(&answers)) {
    return Fail("can't read " + SourceOf(order) + ": " + error->Reason);
  }
  const auto read = koprax::ReadPictureAnswer(std::get<std::string>(answers), order.Choice);
  if (const auto* reason = std::get_if<std::string>(&read)) return Fail(SourceOf(order) + ": " + *reason);
  const auto& picture = std::get<koprax::ReadPicture>(read);

  koprax::QtPlatform platform;
  koprax::ScriptedRuntime runtime(platform);
  const koprax::Workbench workbench(runtime);
  const auto layout = koprax::LayOutFigure(picture, order.Wishes, workbench.WindowsWithPictures());
  if (const auto* reason = std::get_if<std::string>(&layout)) return Fail(SourceOf(order) + ": " + *reason);
  return WriteFigure(order, picture, std::get<koprax::FigureLayout>(layout));
}

}  // namespace

int main(int argument_count, char** arguments) {
  koprax::LetRefusedWritesReturn();
  const auto call = koprax::ReadCommandLine(argument_count, arguments, Program);
  if (const int* status = std::get_if<int>(&call)) return *status;
  const auto order = OrderOf(std::get<koprax::CommandLine>(call));
  if (const auto* wrong = std::get_if<std::string>(&order)) return koprax::TellWrongCall(Program, *wrong);

  qputenv("QT_QPA_PLATFORM", "offscreen");  // nothing is shown, wherever the program runs
  koprax::TellToolkitFaultsOnly("koprax-figure");
  int toolkit_arguments = 1;
  const QApplication application(toolkit_arguments, arguments);
  std::setlocale(LC_ALL, "C.UTF-8");
  return MakeFigure(std::get<FigureOrder>(order));
}
