#include "workspace/help_texts.h"

namespace koprax {
namespace {

constexpr std::string_view SelectRange =
    R"TEXT(Command "Select range" chooses the part of the profile that is fitted.

1) Press the button. A vertical line follows the mouse.
2) Click with the left button at one limit of the range, then at the other. It
   doesn't matter which of them comes first.
3) The limits are shown. Press "OK" to accept them, or "Cancel" to select
   anew.

The range is then drawn alone, in the scale of intensity of before. All points
within it count, those at both limits too. A peak is calculated up to 10 FWHM
from its position, so leave room beside the outermost peaks, and select at
most as many peaks as can be refined together, which is 12.

Another range can be chosen only by "Main Menu" and a new "Fit".
)TEXT";

constexpr std::string_view QuitFit =
    R"TEXT(Command "Main Menu" closes the window "Peak fit" and returns to the main menu.

What the fit has found is lost: the range, the background, the peaks and their
refined parameters. To keep the peaks press "Save" in the frame "Fit" before.
The profile is not changed, and its list of peaks stays with its buffer. A
background that came by "Load bkg" stays in hand for the window of "Profile
manipulation".

"Quit" in the frame "Fit" ends the fit in the same way, but leaves the window
open with the last picture in it. Then only "Main Menu" leads on.
)TEXT";

constexpr std::string_view ShowParam =
    R"TEXT(Command "Parameters" shows the parameters of the fit. They can be changed here,
and those to be refined are chosen. "Start fit" and "Save" become available
when you have accepted them.

Each peak has a row: position, intensity (its height above the background),
FWHM and eta of its left and of its right side. Either side is the sum

PV = eta G + (1 - eta) L

of a Gaussian G and a Lorentzian L of the same FWHM: eta is the share of the
Gaussian. Area and mean FWHM are those with which the window was opened; they
do not follow what you type.

The background is the polynomial Y = A + BX + CX^2 + DX^3, with X counted from
the lower limit of the range, or a measured one times a scale factor. The
scale factor is always refined; its box only shows it and can't be typed in.

- Ticked parameters are refined, the others are held. All come ticked each time
  the window opens: take off again the ticks of those to be held.
- "delete peak nr." removes a peak; those below it move up. Press "OK"
  afterwards: until then the fit has one peak less, but the parameters of
  before, and is not started.
- "Print parameters" prints the parameters as the fit has them, not what has
  been typed since.
- "OK" takes the numbers of the boxes; an empty box is 0. If you answer "No"
  to the question that follows, you may go on changing them.

What is taken is what you see: rounded to 5 decimals, intensities to 3.

Nothing holds eta in the range 0-1. If an eta comes out outside this range,
set it to 0 or 1 here, take off its tick, and start the fit again.

Other parameters or ticks accepted between two runs begin a new refinement;
"CHI square start" is then theirs. Each run closes this window. Open it again
to see what has been refined.
)TEXT";

constexpr std::string_view BackgroundBuffer =
    R"TEXT(Command "Load bkg" takes the background from another buffer, as it is saved
there. It is drawn in magenta.

Best is a background estimated from the same profile: open the profile with
"Profile manipulation", use "Background", and save the result in a buffer of
its own.

Profile and background should have the same first point and the same step.
Within the range their points are put together in their order, the first with
the first and so on, whatever their 2-theta. Points for which there is no
background get 0.

The background is multiplied by a scale factor, which starts from 1 and is
refined. Its shape stays as it is.

If you close the picker without a choice, the background is what it was
before. An empty buffer cannot be chosen.

The loaded background stays in hand when the fit is over: "Background" in the
window of "Profile manipulation" starts from it, for any profile, until "Quit"
of its frame clears it.
)TEXT";

constexpr std::string_view DrawBackground =
    R"TEXT(Command "Draw bkg" starts from a straight line that is refined as a polynomial.

1) Click with the left button at one point of the background. A line follows
   the mouse.
2) Click at a second point, best near the other end of the range. It doesn't
   matter which of them is the left one, but they must not lie one above the
   other.
3) Press "OK" to accept the line, or "Cancel" to draw another one.

The line gives the first two terms of Y = A + BX + CX^2 + DX^3, where X is
counted from the lower limit of the range. C and D start from 0. In a short
range it is often better to refine A and B alone: take off the ticks of the
others in "Parameters".
)TEXT";

constexpr std::string_view DefineBackground =
    R"TEXT(The frame "Define Background" gives the fit its background. There are two ways:

"Draw bkg"  a straight line drawn with the mouse. It is refined as a polynomial
            of the third degree.
"Load bkg"  a background from another buffer. It is refined by a scale factor.

Each may be repeated; the last one used counts. The heights of the peaks are
counted from this background, so it should be near the true one.

"Quit" leaves the frame and goes on to the selection of the peaks. There is no
way back. If no background was defined, it is 0 throughout, and the fit has a
scale factor to refine that has no effect: each cycle tells "Singular matrix".
Without a background draw a line along the axis instead.
)TEXT";

constexpr std::string_view DefinePeaks =
    R"TEXT(The frame "Define Peaks to fit" gives the fit its peaks, 12 at most.

"Select peaks"  takes them with the mouse.
"Load peaks"    takes those of the peak list of the buffer.

Both may be used one after the other, and the number of peaks is shown. Each
peak starts with position, height and FWHM as you give them, the same on
either side, half Gaussian and half Lorentzian (eta 0.5).

Peaks that overlap should all be selected: what is left out spoils its
neighbours. A peak taken by mistake can be deleted in "Parameters".

"Quit" leaves the frame and goes on to the fit. There is no way back.
)TEXT";

constexpr std::string_view LoadPeaks =
    R"TEXT(Command "Load peaks" takes the peaks of the peak list of the buffer that lie
within the range: those selected with the Manual Explorer, or kept from an
earlier fit. No file is read here. A peak at the lower limit of the range is
taken, one at the upper limit is not.

The peaks come in the order of the list, rounded to 3 decimals of 2-theta, or
to 1 decimal in channels. The height is that of the list, less the background.

For each of them give its approximate FWHM, in the units of X: degrees of
2-theta, or channels. The peak is drawn in red dots. Answer "Yes" if it looks
right; with "No" the dots are erased and you are asked again. Only a number
above 0 leads on.

With the twelfth peak the command ends, and the rest of the list is left out.
)TEXT";

constexpr std::string_view SelectPeaks =
    R"TEXT(Command "Select peaks" takes peaks with the mouse.

1) Press the button. A vertical line follows the mouse.
2) Click with the left button at the top of a peak. The height is taken from
   the profile, less the background, and a blue mark shows the place.
3) Give the approximate FWHM of the peak, in the units of X: degrees of
   2-theta, or channels. Only a number above 0 leads on; it is rounded to 3
   decimals.
4) The peak is drawn in red dots. Answer "Yes" if it looks right; with "No"
   the dots are erased and you are asked again.
5) Go on with the next peak, or end with the right button.

Where the background lies above the profile a peak has a negative height.
After the twelfth peak the command ends by itself.
)TEXT";

constexpr std::string_view StartFit =
    R"TEXT(Command "Start fit" refines the ticked parameters by least squares, with the
method of Levenberg and Marquardt. Accept the parameters in "Parameters"
before.

Five cycles are made. Then the window "Refinement results" shows CHI square at
the start and after each of the five:

"Continue"  five more cycles
"Stop"      ends the fit

If you close that window instead, "Start fit" makes five more cycles.

CHI square is the sum of the squared differences between measured and
calculated intensity. Points are not weighted, so high peaks count most. It
never rises; a cycle that finds nothing better leaves it as it was. When it
falls no more, press "Stop".

The result is then drawn: measured profile in black, calculated profile in
red, their difference in blue and the background in magenta. To go on from
there open "Parameters", accept them and press "Start fit" again.

"Singular matrix" tells that some parameter has no effect on the profile, such
as a FWHM or an eta of a peak of no height: take off its tick. It comes, too,
where no background was defined. A cycle that leads to numbers too large to
compute with is given up, and the parameters of before it are kept. A range of
fewer than two points cannot be fitted.
)TEXT";

constexpr std::string_view FitFrame =
    R"TEXT(The frame "Fit" refines the peaks and the background that you have defined.

1) "Parameters" shows the parameters. Tick those to be refined and accept them
   with "OK".
2) "Start fit" makes five cycles. The window "Refinement results" shows CHI
   square after each of them: "Continue" makes five more, "Stop" ends the fit
   and draws the result.
3) Look at the difference curve and at the refined parameters. You may change
   some, accept them, and start again.
4) "Save" opens the list of refined peaks.

"Quit" ends the fit. Peaks that were not saved are lost, and only "Main Menu"
leads on.

If a fit goes astray, refine few parameters first: positions and intensities,
then the FWHM, the etas last.
)TEXT";

constexpr std::string_view SaveFit =
    R"TEXT(Command "Save" opens the window "Refined peak list". There the peaks of the
fit, the temporary list, stand beside the peak list of the buffer, the
permanent one. Calibration and cell refinement start from the permanent list.

Give the numbers of the peaks, and press the "OK" beside them:

"Add peak nr."         the peak goes to the end of the permanent list, which
                       has room for 100 peaks
"Substitute peak nr."  it takes the place of a peak of the permanent list
"Delete peak nr."      a peak is removed from the permanent list
"Order permanent list" sorts it by position

A peak that has been moved leaves the temporary list. The height is that of
the top of the peak, with the background.

Give only numbers that stand in the lists. Most others are not refused:
"Delete peak nr." beyond the end removes the last peak; "Substitute peak nr."
beyond the end of the permanent list writes an entry that the list doesn't
show; with a number beyond the temporary list an empty peak is written. In the
last two cases a peak leaves the temporary list all the same; "Quit" and
"Save" bring it back.

"Save permanent list on disk" writes a file *.pks. "Quit" closes the window;
the permanent list stays with the buffer, the temporary list is made anew by
the next "Save".

The peaks are those of the parameters as they stand, refined or not.
)TEXT";

}  // namespace

std::string_view FitHelp(HelpTopic topic) {
  switch (topic) {
    case HelpTopic::HelpSelectRange:
      return SelectRange;
    case HelpTopic::HelpQuitFit:
      return QuitFit;
    case HelpTopic::HelpShowParam:
      return ShowParam;
    case HelpTopic::HelpBackgroundBuffer:
      return BackgroundBuffer;
    case HelpTopic::HelpDrawBackground:
      return DrawBackground;
    case HelpTopic::HelpDefineBackground:
      return DefineBackground;
    case HelpTopic::HelpDefinePeaks:
      return DefinePeaks;
    case HelpTopic::HelpLoadPeaks:
      return LoadPeaks;
    case HelpTopic::HelpSelectPeaks:
      return SelectPeaks;
    case HelpTopic::HelpStartFit:
      return StartFit;
    case HelpTopic::HelpFitFrame:
      return FitFrame;
    case HelpTopic::HelpSaveFit:
      return SaveFit;
    default:
      return {};
  }
}

}  // namespace koprax
