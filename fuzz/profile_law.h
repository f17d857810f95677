// The law of all readers of profiles: a file is read, or a message says why not and the buffer is empty; what
// was read keeps the limits of a buffer, can be saved in its own format and comes back from there.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "files/column_formats.h"
#include "files/profile_writers.h"
#include "files/read_outcome.h"
#include "files/save_rules.h"
#include "files/tokeniser.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"
#include "fuzz/law.h"
#include "fuzz/work_file.h"
#include "workspace/temporary_copy.h"
#include "workspace/workspace.h"

namespace koprax {

/// What is the format's own in that law.
struct ProfileFormat {
  std::int16_t InputFormat;
  ReadOutcome (*Read)(Workspace&, int, const TellUser&);
  /// What else holds for a profile that was read; may be none.
  void (*CheckRead)(const ProfileBuffer&) = nullptr;
  /// Whether a saved profile is sure to come back; the formats say why it may not. None without a writer.
  bool (*ComesBack)(const ProfileBuffer&) = nullptr;
  /// How far X of point i, and an intensity, may be from the saved ones through the rounding of the format.
  double (*XRounding)(const ProfileBuffer&, std::size_t i) = nullptr;
  double (*YRounding)(double y) = nullptr;
  /// Whether already the first saved file holds what a second one will hold, letter for letter.
  bool (*SavesExactly)(const ProfileBuffer&) = nullptr;
  bool SavesTitle = true;
  bool MayEndEarly = false;  ///< points that the file lacks hold what lay there
};

/// Whether a number is written so that the same 32 bits are read again.
inline bool IsShortNumber(float value) {
  return static_cast<float>(LeadingNumber(GeneralText(value))) == value;
}
class ProfileLaw {
 public:
  explicit ProfileLaw(const ProfileFormat& format) : format_(format) {
    data_.InputFormat = format.InputFormat;
  }

  void Check(std::string_view bytes) {
    input_.Write(bytes);
    if (!Load(1, input_) || LacksPoints(1) || format_.ComesBack == nullptr) return;
    // Without points nothing can get lost, so nothing is told: a title of numbers may come back as a point.
    if (data_.Buffer(1).PermNpts == 0) return;
    ShowAsLoaded(1);
    CheckSavedAsColumns(HasLoneReturn(bytes));
    if (WhyNotSaved(data_.Buffer(1), format_.InputFormat)) return;
    // A file that told what it can't hold was told to the user; it need not come back.
    if (!Save(1, first_) || !format_.ComesBack(data_.Buffer(1))) return;
    if (HasLoneReturn(bytes)) return;
    CheckSavedFile();
  }

 private:
  static constexpr float UnsetPoint = std::numeric_limits<float>::quiet_NaN();

  /// What every reading finds in its slot: a profile whose points can't be mistaken for read ones. Copying it
  /// as a whole is quicker than filling tables, and leaves nothing of the reading before.
  static ProfileBuffer OldProfile() {
    ProfileBuffer buffer = Workspace().Buffer(1);
    buffer.Title = FixedField("old profile", TitleWidth);
    buffer.PermNpts = 3;
    buffer.Wavelength = 0.7F;
    std::fill(buffer.PermX.begin() + 1, buffer.PermX.end(), UnsetPoint);
    std::fill(buffer.PermY.begin() + 1, buffer.PermY.end(), UnsetPoint);
    return buffer;
  }

  /// Reads a file into a slot; false when a message told why not.
  bool Load(int slot, const WorkFile& file) {
    data_.Buffer(slot) = old_profile_;
    data_.FileName = file.Path();
    const ReadOutcome outcome = format_.Read(data_, slot, [](const Message& told) {
      Require(told.Text == TooManyWords().Text, "only too many words are told on the way");
    });
    if (outcome.Failed) {
      CheckFailure(data_.Buffer(slot), outcome);
    } else {
      Require(!outcome.Problem, "a reading that went well needs no message");
      CheckPoints(data_.Buffer(slot));
      if (format_.CheckRead != nullptr) format_.CheckRead(data_.Buffer(slot));
    }
    return !outcome.Failed;
  }

  static void CheckFailure(const ProfileBuffer& buffer, const ReadOutcome& outcome) {
    Require(outcome.Problem && !outcome.Problem->Text.empty(), "a failure has a message");
    Require(outcome.FrontMainMenu, "a failure leads back to the main menu");
    if (outcome.Problem->Text.ends_with(" is empty.")) {
      Require(buffer.Title.starts_with("old") && buffer.PermNpts == 3, "an empty file touches nothing");
      return;
    }
    Require(buffer.Empty() && CharacterCount(buffer.Title) == TitleWidth, "a failure blanks the title");
    Require(buffer.PermNpts == 0 && buffer.FileXMin == 0 && buffer.FileXMax == 0 && buffer.XStep == 0,
            "a failure leaves the buffer empty");
  }

  void CheckPoints(const ProfileBuffer& buffer) const {
    Require(CharacterCount(buffer.Title) == TitleWidth, "a title has 80 characters");
    Require(buffer.PermNpts >= 0 && buffer.PermNpts <= MaxPoints, "a profile has 0 to 8000 points");
    Require(buffer.UxdHeaderLines >= 0 && buffer.UxdHeaderLines <= 70, "a header has up to 70 lines");
    Require(std::isfinite(buffer.Wavelength) && std::isfinite(buffer.XStep), "header values are numbers");
    bool file_ended = false;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.PermNpts); ++i) {
      const float y = buffer.PermY[i];
      file_ended = file_ended || (format_.MayEndEarly && std::isnan(y));
      if (file_ended) {
        Require(std::isnan(y) && std::isnan(buffer.PermX[i]), "no point behind the end of the file is set");
        continue;
      }
      Require(std::isfinite(buffer.PermX[i]) && std::isfinite(y), "every point is set to numbers");
      Require(y >= buffer.PermYMin && y <= buffer.PermYMax, "every point lies within the limits of Y");
    }
  }

  [[nodiscard]] bool LacksPoints(int slot) const {
    const ProfileBuffer& buffer = data_.Buffer(slot);
    return buffer.PermNpts > 0 && std::isnan(buffer.PermX[static_cast<std::size_t>(buffer.PermNpts)]);
  }

  /// What showing a buffer does after its loading.
  void ShowAsLoaded(int slot) {
    ProfileBuffer& buffer = data_.Buffer(slot);
    buffer.PermXMin = buffer.PermX[1];
    buffer.PermXMax = buffer.PermX[static_cast<std::size_t>(buffer.PermNpts)];
    TakeTemporaryCopy(buffer);
  }

  /// Saves a slot; false when the user is told that the file doesn't hold all of it.
  bool Save(int slot, const WorkFile& file) {
    data_.CurBuf = static_cast<std::int16_t>(slot);
    data_.FileName = file.Path();
    const auto problem = SaveByFormat(data_, [](const InputRequest&) { return std::string(); });
    Require(!problem || problem->Icon == MessageIcon::Exclamation, "what was read can be written");
    return !problem;
  }

  /// In each column format that the profile may have, it can be read again with as many points.
  void CheckSavedAsColumns(bool lone_return) {
    // Where no profile lies X may leave 32 bits on its way along the step.
    const ProfileBuffer& buffer = data_.Buffer(1);
    const bool far = std::abs(buffer.PermXMax) > 1e30F || std::abs(buffer.XStep) > 1e30F;
    if (lone_return || far || !std::isfinite(buffer.PermXMin)) return;
    using Reader = ReadOutcome (*)(Workspace&, int, const TellUser&);
    constexpr std::array<Reader, 4> readers{nullptr, ReadItalDat, ReadOneColumn, ReadTwoColumns};
    for (std::int16_t format = 1; format <= 3; ++format) {
      if (format == format_.InputFormat || WhyNotSaved(buffer, format)) continue;
      data_.InputFormat = format;
      const bool whole = Save(1, first_);
      data_.InputFormat = format_.InputFormat;
      if (!whole) continue;
      data_.Buffer(2) = old_profile_;
      const ReadOutcome outcome =
          readers.at(static_cast<std::size_t>(format))(data_, 2, [](const Message&) {});
      Require(!outcome.Failed, "a file in format " + std::to_string(format) + " can be read");
      Require(data_.Buffer(2).PermNpts == buffer.PermNpts, "all points come back from another format");
    }
  }

  /// The saved file is read and saved again, twice.
  void CheckSavedFile() {
    Require(Load(2, first_), "the saved file can be read");
    CheckSameProfile();
    ShowAsLoaded(2);
    Require(Save(2, second_), "the profile of the saved file can be saved");
    if (format_.SavesExactly(data_.Buffer(1))) {
      Require(first_.Bytes() == second_.Bytes(), "a saved file is saved again with the same bytes");
      return;
    }
    Require(Load(3, second_), "the file saved again can be read");
    ShowAsLoaded(3);
    Require(Save(3, third_), "the profile of the file saved again can be saved");
    Require(second_.Bytes() == third_.Bytes(), "rounded once, a file is saved again with the same bytes");
  }

  void CheckSameProfile() {
    const ProfileBuffer& saved = data_.Buffer(1);
    const ProfileBuffer& read = data_.Buffer(2);
    Require(read.PermNpts == saved.PermNpts, "the number of points comes back");
    for (std::size_t i = 1; i <= static_cast<std::size_t>(saved.PermNpts); ++i) {
      const double x_error = std::abs(static_cast<double>(read.PermX[i]) - saved.PermX[i]);
      const double y_error = std::abs(static_cast<double>(read.PermY[i]) - saved.PermY[i]);
      Require(x_error <= format_.XRounding(saved, i), "X of each point comes back");
      Require(y_error <= format_.YRounding(saved.PermY[i]), "Y of each point comes back");
    }
    Require(!format_.SavesTitle || read.Title == saved.Title, "the title comes back");
  }

  /// Where a line is cut, a CR inside it may come to stand at its end, and there it belongs to the line end.
  static bool HasLoneReturn(std::string_view bytes) {
    for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
      if (bytes[i] == '\r' && bytes[i + 1] != '\r' && bytes[i + 1] != '\n') return true;
    }
    return false;
  }

  const ProfileFormat& format_;
  const ProfileBuffer old_profile_ = OldProfile();
  Workspace data_;
  WorkFile input_{"input"};
  WorkFile first_{"first"};
  WorkFile second_{"second"};
  WorkFile third_{"third"};
};

}  // namespace koprax

/// The one function of a target for a reader of profiles.
#define KOPRAX_FUZZ_PROFILE_FORMAT(format)                                            \
  extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) { \
    static koprax::ProfileLaw law(format);                                            \
    law.Check(koprax::InputBytes(data, size));                                        \
    return 0;                                                                         \
  }
