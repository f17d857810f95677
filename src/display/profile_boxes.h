// The boxes in which a window tells which profile it shows. Where they stand is left to its layout.
#pragma once

#include "display/curve.h"
#include "display/profile_plot.h"
#include "forms/form.h"

namespace koprax {

struct ProfileBoxes {
  explicit ProfileBoxes(Form& form)
      : Text1(form, "Text1", {.Meaning = "File of the profile", .Locked = true, .Columns = 30}),
        Text2(form, "Text2", {.Meaning = "Buffer of the profile", .Locked = true, .Columns = 9}),
        Text5(form, "Text5", {.Meaning = "Title of the profile", .Locked = true, .Columns = 40}),
        Text6(form, "Text6", {.Meaning = "Lowest X", .Locked = true, .Columns = 12}),
        Text7(form, "Text7", {.Meaning = "Highest X", .Locked = true, .Columns = 12}),
        Text9(form, "Text9", {.Meaning = "Step of X", .Locked = true, .Columns = 12}) {}

  void Show(const ProfileTexts& texts);
  /// The limits of X alone.
  void ShowRange(const XRange& range);

  TextBox Text1;  ///< file
  TextBox Text2;  ///< buffer
  TextBox Text5;  ///< title
  TextBox Text6;  ///< first X
  TextBox Text7;  ///< last X
  TextBox Text9;  ///< step
};

}  // namespace koprax
