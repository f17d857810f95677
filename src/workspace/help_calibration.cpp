// The help texts of the calibration.
#include "workspace/help_texts.h"

namespace koprax {
namespace {

// Both commands do the same.
constexpr std::string_view ChoosingTheStandard =
    R"TEXT(Commands "Al2O3 (Corundum)" and "Silicon" choose the standard. Take the one
that was measured.

The first line of the corundum table, 25.676 degrees, disagrees with the cell
of corundum, which puts this peak (0 1 2) at 25.576 degrees: it is better not
coupled. The other lines of both tables agree with the cells to 0.03 degrees.

Corundum has 19 tabulated peaks, between 25.676 and 136.094 degrees for
1.54056 angstrom, silicon 11, between 28.443 and 136.897 degrees for 1.5405982
angstrom. They are carried to the wavelength of your sample by Bragg's law and
drawn in the upper picture, on a scale of 120 degrees. Peaks that cannot be
observed at that wavelength are left out; once the scale is shifted they stand
at 0, or where the other standard had one, and mean nothing. If the wavelength
is asked for, give it first.

Under the mouse you read 2-theta, intensity and d of the standard.

"Shift standard profile by" moves the standard over your peaks: type some
degrees and press "OK" beside them. A positive number moves it to the right.
Shifts add up. Only the view is moved, the 2-theta of the peaks stay. Lines
above 120 degrees come into view by a negative shift only.

Until the coupling starts you may choose the other standard: it is drawn over
the first, and the next shift clears the picture. Each choice of a standard,
of the same one too, puts the scale back to 0-120: shift it anew.
)TEXT";

constexpr std::string_view Coupling =
    R"TEXT( Command "Start Coupling" Allows for selecting, with the mouse, couples of peaks, one from the calibration sample and one from the standard sample.

1) Click near a peak in the one picture, then near its partner in the other.
   Either may come first. The nearest peak is taken and becomes blue; a peak
   outside the picture can be the nearest, too.
2) Press "accept" to keep the couple, or "refuse" to give it up. Before that,
   once both are picked, a further click replaces the peak of its picture.
3) Go on with the next couple, and press "Quit" after the last one.

Select at least 5 couples of peaks in order to refine all 4 parameters, if one selects only 4 couples then only 3 parameters will be refined.

The couples are listed with the 2-theta of the standard and the channel of the
sample; 100 of them at most. A peak may enter several couples: nothing marks
it as used, and a couple that is entered twice counts twice. An accepted couple
cannot be taken back, but before "Quit" the command "Start coupling" begins a
new list. After "Quit" it stays off, also where a calibration couldn't be
computed and you go on coupling: for a new list start "Calibration" of the main
menu again.

Once the coupling has started, the standard can neither be changed nor shifted.
)TEXT";

constexpr std::string_view StartCalibration =
    R"TEXT(Command "Start calibration" fits the polynomial that turns channels into
2-theta to the couples of peaks. It appears when you quit the coupling.

2-theta = A0 + A1 c + A2 c^2 + A3 c^3     for the channel c

With 4 couples A3 is left out. The fit is one step of linear least squares, in
which all couples have the same weight. You see each parameter with its
standard deviation (sigma), and

res = sum of squared differences / sum of squared 2-theta

which is near 0 where the polynomial fits. A wrong couple shows by a large res
and large sigmas.

Fewer than 4 couples, or fewer different channels than parameters, cannot be
fitted: the frame "Coupling peaks" comes back, and you go on with the couples
that you have. So it does if the channels lie too close together.

The result is not given to any profile: press "Save". For another fit return to
the main menu and start "Calibration" again.
)TEXT";

constexpr std::string_view SaveCalibration =
    R"TEXT(Command "Save" writes the parameters of the calibration to a file *.cal.

Choose the file; if there is one of that name you are asked before it is
overwritten. Then type a title of up to 80 characters.

The file holds the title and a line for each parameter, A0 first: 4 of them, or
3 if there were only 4 couples. It can be saved as often as you like.

The program asks for this file together with the wavelength of a profile in
channels, in "Display and Work" and for the refinement of a cell, so only while
its buffer has no wavelength. The buffer of the standard has one by now: to see
its 2-theta load it into an empty buffer, or use "Erase buffer" first. The
parameters hold for the detector where it stood during the measurement of the
standard.
)TEXT";

}  // namespace

std::string_view CalibrationHelp(HelpTopic topic) {
  switch (topic) {
    case HelpTopic::HelpCorundum:
    case HelpTopic::HelpSilicon:
      return ChoosingTheStandard;
    case HelpTopic::HelpCoupling:
      return Coupling;
    case HelpTopic::HelpStartCalibration:
      return StartCalibration;
    case HelpTopic::HelpSaveCalibration:
      return SaveCalibration;
    default:
      return {};
  }
}

}  // namespace koprax
