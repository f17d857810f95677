#include "display/edit_portion.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "display/plot_transform.h"
#include "files/tokeniser.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr std::string_view LineBreak = "\r\n";
constexpr const char* Heading = "  X          Y \r\n";
constexpr const char* HeadingOfOneY = " X        Y \r\n";
constexpr std::size_t LongestText = 20000;  // the box is quick up to here

struct NumberField {
  std::size_t Width;
  int Decimals;
};
constexpr NumberField XField{.Width = 8, .Decimals = 3};
constexpr NumberField YField{.Width = 10, .Decimals = 2};

std::size_t Index(int i) { return static_cast<std::size_t>(i); }

std::string NumberText(float value, const NumberField& field) {
  return GeneralText(RoundDecimals(value, field.Decimals));
}

std::string Aligned(const std::string& number, const NumberField& field) {
  return AlignDecimal(number, field.Width, static_cast<std::size_t>(field.Decimals));
}

bool IsCut(const std::string& number, const NumberField& field) {
  return CharacterCount(RightTrimmed(Aligned(number, field))) > field.Width;
}

std::string InField(float value, const NumberField& field) {
  return FixedField(Aligned(NumberText(value, field), field), field.Width);
}

std::string LineOf(float x, float y) { return InField(x, XField) + " " + InField(y, YField); }

void CopyPoints(const PointTable& from, const EditRange& range, PointTable& to) {
  std::copy_n(from.begin() + range.EditFirst, range.EditCount, to.begin() + 1);
}

/// Lists lines until the box is full; `line_of` makes the line of one point.
template <class LineOfPoint>
EditList ListPortion(EditedPortion& edit, int count, std::string heading, LineOfPoint line_of) {
  EditList list{.Text = std::move(heading), .CutNumber = ""};
  for (std::size_t k = 1; k <= Index(count) && !list.TooLong; ++k) {
    edit.EditLine[k] = line_of(k);
    list.Text += edit.EditLine[k];
    list.Text += LineBreak;
    list.TooLong = list.Text.size() >= LongestText;
  }
  return list;
}

std::string FirstCutNumber(const EditedPortion& edit, int count) {
  for (std::size_t k = 1; k <= Index(count); ++k) {
    for (const auto& [value, field] : {std::pair(edit.EditX[k], XField), std::pair(edit.EditY[k], YField)}) {
      if (std::string number = NumberText(value, field); IsCut(number, field)) {
        return number;
      }
    }
  }
  return "";
}

std::string TextAsChosen(EditedPortion& edit, int count) {
  std::string text = Heading;
  for (std::size_t k = 1; k <= Index(count); ++k) {
    edit.EditLine[k] = LineOf(edit.EditX[k], edit.EditY[k]);
    text += edit.EditLine[k];
    text += LineBreak;
  }
  return text;
}

/// The lines behind the heading, `count` at most; what stands behind the last line break is no line.
std::vector<std::string_view> LinesOf(std::string_view box, int count) {
  std::vector<std::string_view> lines;
  std::size_t begin = 0;
  for (bool heading = true; lines.size() < Index(count); heading = false) {
    const std::size_t end = box.find(LineBreak, begin);
    if (end == std::string_view::npos) {
      break;
    }
    if (!heading) {
      lines.push_back(box.substr(begin, end - begin));
    }
    begin = end + LineBreak.size();
  }
  return lines;
}

/// The number of the line in the box that can't be taken, if there is one.
std::optional<int> ReadBox(Workspace& data, std::string_view box, int count, const TellUser& tell) {
  const std::vector<std::string_view> lines = LinesOf(box, count);
  std::vector<std::pair<float, float>> points;
  for (const std::string_view line : lines) {
    std::int16_t n_text = 0;
    std::int16_t n_num = 0;
    TokeniseLine(data.Words, FixedField(line, LineWidth), n_text, n_num, tell);
    points.emplace_back(data.Words.WordVal[1], data.Words.WordVal[2]);
    if (!std::isfinite(points.back().first) || !std::isfinite(points.back().second)) {
      return static_cast<int>(points.size()) + 1;
    }
  }
  for (std::size_t k = 1; k <= points.size(); ++k) {
    data.Edit.EditLine[k] = lines[k - 1];
    std::tie(data.Edit.EditNewX[k], data.Edit.EditNewY[k]) = points[k - 1];
  }
  return std::nullopt;
}

void DrawPortion(const Workspace& data, int slot, const CurvePoints& points, Colour colour,
                 Surface& picture) {
  const PlotTransform& plot = data.Plot;
  const CurveOrigin origin{.XMin = data.Buffer(slot).WorkXMin,
                           .Base = PlotBase(plot, data.Buffer(slot).NegativeY == 1)};
  // Numbers that a person types may lie anywhere; a place beyond 32 bits is none that can be drawn.
  const auto drawable = [&](float x, float picture_y) {
    return !IsAboveTop(plot, picture_y) && std::isfinite(picture_y) &&
           std::isfinite(PictureX(plot, x, origin.XMin));
  };
  DrawSegments(plot, points, origin, colour, picture, [&](const CurveSegment& segment) {
    return drawable(segment.X1, segment.PictureY1) && drawable(segment.X2, segment.PictureY2);
  });
}

}  // namespace

PortionPoints PointsOf(const ProfileBuffer& buffer, const EditRange& range) {
  PortionPoints points;
  for (const PointTable* table : {&buffer.WorkX, &buffer.WorkY}) {
    const auto first = table->begin() + range.EditFirst;
    points.insert(points.end(), first, first + range.EditCount);
  }
  return points;
}

std::optional<EditRange> RangeToEdit(const ProfileBuffer& buffer, const XRange& selected) {
  const auto begin = buffer.WorkX.begin() + 1;
  const auto end = begin + buffer.WorkNpts;
  const auto first = std::find_if(begin, end, [&](float x) { return selected.Holds(x); });
  if (first == end) {
    return std::nullopt;
  }
  const auto behind = std::find_if(first, end, [&](float x) { return x > selected.High; });
  return EditRange{.EditFirst = static_cast<std::int16_t>(first - begin + 1),
                   .EditLast = static_cast<std::int16_t>(behind - begin),
                   .EditCount = static_cast<std::int16_t>(behind - first)};
}

EditList FillEditList(Workspace& data, int slot, const EditRange& range) {
  const ProfileBuffer& buffer = data.Buffer(slot);
  EditedPortion& edit = data.Edit;
  CopyPoints(buffer.WorkX, range, edit.EditX);
  CopyPoints(buffer.WorkY, range, edit.EditY);
  // The new numbers of an earlier portion must never get into this one.
  CopyPoints(buffer.WorkX, range, edit.EditNewX);
  CopyPoints(buffer.WorkY, range, edit.EditNewY);
  EditList list = ListPortion(edit, range.EditCount, Heading,
                              [&](std::size_t k) { return LineOf(edit.EditX[k], edit.EditY[k]); });
  list.CutNumber = FirstCutNumber(edit, range.EditCount);
  return list;
}

EditList ChangeAllY(Workspace& data, int slot, const EditRange& range, float k) {
  EditedPortion& edit = data.Edit;
  CopyPoints(data.Buffer(slot).WorkX, range, edit.EditNewX);
  std::fill_n(edit.EditNewY.begin() + 1, range.EditCount, k);
  const std::string y = NumberText(k, YField);
  return ListPortion(edit, range.EditCount, HeadingOfOneY,
                     [&](std::size_t point) { return InField(edit.EditNewX[point], XField) + " " + y; });
}

std::optional<int> ApplyEdit(Workspace& data, int slot, const EditRange& range, EditDrawing drawing,
                             std::string& box, Surface& picture, const TellUser& tell) {
  EditedPortion& edit = data.Edit;
  const int last = std::min(range.EditLast, data.Buffer(slot).WorkNpts);
  const int count = std::max(0, last - range.EditFirst + 1);
  if (drawing == EditDrawing::AsChosen) {
    DrawPortion(data, slot, {edit.EditX, edit.EditY, count}, colours::Black, picture);
    box = TextAsChosen(edit, range.EditCount);
    return std::nullopt;
  }
  const std::optional<int> bad_line = ReadBox(data, box, range.EditCount, tell);
  if (bad_line && drawing == EditDrawing::Changes) {
    return bad_line;
  }
  const Colour colour = drawing == EditDrawing::Changes ? colours::Magenta : colours::White;
  DrawPortion(data, slot, {edit.EditNewX, edit.EditNewY, count}, colour, picture);
  return bad_line;
}

void AcceptEdit(Workspace& data, int slot, const EditRange& range) {
  ProfileBuffer& buffer = data.Buffer(slot);
  const int last = std::min(range.EditLast, buffer.WorkNpts);
  for (int i = range.EditFirst, k = 1; i <= last; ++i, ++k) {
    buffer.WorkX[Index(i)] = data.Edit.EditNewX[Index(k)];
    buffer.WorkY[Index(i)] = data.Edit.EditNewY[Index(k)];
  }
}

}  // namespace koprax
