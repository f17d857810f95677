#include "display/profile_boxes.h"

#include "forms/number_text.h"

namespace koprax {

void ProfileBoxes::Show(const ProfileTexts& texts) {
  Text6.Text = texts.XMin;
  Text7.Text = texts.XMax;
  Text9.Text = texts.Step;
  Text1.Text = texts.File;
  Text2.Text = texts.Buffer;
  Text5.Text = texts.Title;
}

void ProfileBoxes::ShowRange(const XRange& range) {
  Text6.Text = "xmin " + GeneralText(range.Low);
  Text7.Text = "xmax " + GeneralText(range.High);
}

}  // namespace koprax
