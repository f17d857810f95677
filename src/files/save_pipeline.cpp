#include "files/save_pipeline.h"

#include <cstdint>
#include <string>

#include "files/file_choice.h"
#include "files/format_window.h"
#include "forms/desktop.h"
#include "workspace/workspace.h"

namespace koprax {

namespace {

constexpr const char* SaveFilter =
    "All Files (*.*)|*.*| dat Files (*.dat)|*.dat| adf Files (*.adf)|*.adf| udf Files (*.udf)|*.udf| "
    "uxd Files (*uxd)|*.uxd";

/// The place of a profile's own format in the filter; all files where the name doesn't tell it.
int FilterIndexOf(std::int16_t format_code) {
  switch (static_cast<FormatCodes>(format_code)) {
    case FormatCodes::CpsChannels:
      return 3;
    case FormatCodes::Philips:
      return 4;
    case FormatCodes::Siemens:
      return 5;
    default:
      return 1;
  }
}

}  // namespace

void StartSaveSequence(const WindowContext& context) {
  Workspace& data = context.Data;
  const int filter_index = FilterIndexOf(data.Current().FormatCode);
  const auto path = ChooseFileToWrite(context, {.Filter = SaveFilter, .FilterIndex = filter_index});
  data.ModeOut = path.has_value();
  if (path) {
    context.Desk.Load<Form7>(context)->Show();
  }
}

}  // namespace koprax
