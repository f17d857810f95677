#include "workspace/help_texts.h"

namespace koprax {
namespace {

constexpr std::string_view Load =
    R"TEXT(Command "Load Profile from disk" reads a measured profile from a text file.

1) Choose the file.
2) A preview shows its first 30 lines and, for a file of 30 lines or more, its
   last 10. Press "OK" if this is the file you want, "Cancel" if not.
3) Choose the format of the file. The program doesn't guess it: what counts
   is your choice, not the name of the file. The "?" beside each format tells
   how such a file is laid out.
4) Choose one of the six buffers, a to f. The profile is read into it and
   shown in the window "Display and Work". For a Powder Diffraction File card
   you are asked for a wavelength first; it is shown in the window "Peaks".

A buffer that holds a profile already is overwritten without a question. Its
list of selected peaks and its calibration stay, and with most formats its
wavelength too if the file doesn't tell one: use "Erase buffer" first if you
don't want them.

Limits: a profile has at most 8000 points; a longer one is refused. A line of
numbers counts up to its 79th character and holds at most 24 words. Words are
separated by blanks or commas. A tab separates nothing: two numbers with a tab
between them are one word, and no number. The decimal separator is the period.

A file that is refused leaves the buffer empty, whatever it held before, and
you are told what is wrong. A file that can't be opened changes nothing. The
two formats of columns take nearly any file without a word: look at the plot
whether it is what you expected.

Empty lines at the end of a file may count as points. The "?" of the format
tells what becomes of them.

If the wavelength isn't known, the program asks for it when the profile is
shown, and for data in channels with it for a calibration file. So it does
for each file in columns without a wavelength. With the other formats nothing
is asked in a buffer that has a wavelength from before: it is taken for the
new profile, too, and data in channels without a calibration show the channel
as 2-theta, and d is 0. Load into an empty buffer to be asked.
)TEXT";

constexpr std::string_view SaveDisk =
    R"TEXT(Command "Save Profile on disk" writes the profile of one buffer to a file.

1) Choose the buffer.
2) Give the name of the file. If there is such a file already, you are asked
   whether to overwrite it.
3) Choose the format.

What is written is the profile as it stands in the buffer. Changes made in a
window by zoom, edit or arithmetic are written only after the command "Save"
of that window. There is one exception: a PHILIPS file gets only as many
points as the window last showed, the first ones of the buffer.

Not every profile can be saved in every format:
- ITAL STRUCTURES: not with a variable step, and not CPS-120 data.
- One column: not two-column data with a variable step, and not CPS-120 data.
  The first 2-theta is rounded to 4 decimals, the step to 5, the wavelength
  to 6.
- Two columns: every profile. Intensities are rounded to 2 decimals. For
  CPS-120 data you may have the channels changed into 2-theta, by the
  calibration that the buffer got when its wavelength was asked for. Without
  one all 2-theta would be 0.
- CPS-120: only data loaded in this format, with all 4096 channels.
  Intensities are rounded to 1 decimal.
- PHILIPS: only data loaded in this format. Intensities are rounded to counts,
  the range and the step to 4 decimals. Title and wavelength stay those of the
  loaded file.
- SIEMENS/BRUKER: only data loaded in this format. 2-theta is rounded to 4
  decimals, intensities to 2.
A Powder Diffraction File card cannot be saved.

You are told if the file would read back with fewer points, if the step leads
elsewhere than to the last point, or if the title would be lost or taken for
data. You are not told of the roundings above, of single points whose 2-theta
was changed by "Edit", which only two columns and SIEMENS/BRUKER keep, of the
title of a PHILIPS file, nor of quotes in a title, which read as blanks from a
file of columns.
)TEXT";

constexpr std::string_view Display =
    R"TEXT(Command "Display profile(s) and work" shows the profiles of the buffers that
you tick.

One profile is shown in the window "Display and Work". There you can enlarge
a portion of it, edit single points, do arithmetic on it, select peaks with
the mouse, print it, and save the changed profile to its buffer.

Two or more profiles are shown together in one plot, each in a colour of its
own. The wavelength of each must be known and lie within 2 per cent of their
mean. Data in channels and data in 2-theta cannot be shown together. Exactly
two profiles that share a range of X can be added or subtracted.

A Powder Diffraction File card alone is shown in the window "Peaks", with its
crystal data and its list of reflections. Two or more cards are drawn as
sticks in the plot of several; together with profiles, over the range of the
profiles.

The windows work on a temporary copy. Each "Display" takes the profile from
its buffer again, so whatever was changed and not saved is gone. Buffers that
are empty cannot be ticked.
)TEXT";

constexpr std::string_view Manipulation =
    R"TEXT(Command "Profile manipulation" opens one buffer in a window with three tools:

- "Smoothing" replaces each point by a weighted mean of 5, 7 or 9 points.
- "Background" estimates the background outline by a ROBUST smoothing
  procedure. The background can be saved, or subtracted from the profile.
- "DFT Filtering" calculates the Fourier coefficients of the profile, lowers
  those of high frequency and calculates the profile back.

The tools work on a temporary copy. A result is kept only if you save it to a
buffer, which may be the buffer of the profile itself or another one. A
buffer that holds a profile already is overwritten.
)TEXT";

constexpr std::string_view Fit = R"TEXT(Command "Fit" starts the procedure for peak fitting.

1) Choose the buffer with the profile.
2) Select with the mouse the range that holds the peaks.
3) Define the background of that range: a straight line, which is refined as
   a polynomial, or a background measured or estimated before and loaded from
   another buffer, which is refined by a scale factor.
4) Select the peaks with the mouse, or take those of the peak list of the
   buffer.
5) Look at the parameters, tick those to be refined, and start the fit. It
   runs in groups of five cycles; after each group you see how CHI square has
   fallen and decide whether to go on. At the end the result is drawn.

Each peak is an asymmetric pseudo-Voigt function: position, intensity, and on
either side a width (FWHM) and an eta, the share of the Gaussian. With eta 1
that side is a Gaussian, with eta 0 a Lorentzian.

A maximum of 12 peaks can be optimized in a single run. 
Nothing holds eta in the range 0-1. If an eta comes out outside this range,
set it to 0 or 1 by hand, take it off the set of refinable parameters, and
start again.

The refined peaks can be added to the peak list of the buffer, from which the
calibration and the refinement of the cell start.
)TEXT";

constexpr std::string_view Erase = R"TEXT(Command "Erase buffer" empties the buffer that you choose.

You are asked first. With "Yes" the profile, its title, its wavelength, its
list of peaks and its calibration parameters are gone, and the buffer counts
as empty. That cannot be undone. Files on disk are not touched.
)TEXT";

constexpr std::string_view About =
    R"TEXT(KOPRAX is a tool for analysing powder X-ray diffraction patterns. Profiles are
read from text files into six buffers, a to f. These are the main commands:

1) Load profile data from disk. 
2) Save profile data on disk.
3) Display profile and work.
4) Profile manipulation.
5) Fit.
6) Calibration (allows for translating "Channels" scale into 2-theta scale)
7) Cell parameters refinement.

"Erase buffer" empties a buffer. "System cfg." tells about this computer and
checks its decimal separator. "Quit" ends the program at once, without a
question: what has not been saved on disk is lost.

Each buffer holds a profile of at most 8000 points and a list of at most 100
peaks. Windows work on a temporary copy of the profile; their command "Save"
brings it back to the buffer.

The program needs a minimum of 16MB RAM and a screen of 800 x 600 pixels.
)TEXT";

constexpr std::string_view Disclaimer = R"TEXT(DISCLAIMER

This software comes without warranties of any kind, expressed or implied. It
is not guaranteed to be free of errors or fit for a particular purpose.
Check its results before you rely on them. The authors are not liable for any
damage or loss that comes from its use.
)TEXT";

constexpr std::string_view Calibration =
    R"TEXT(Command "Calibration" finds the relation between the channels of a
position-sensitive detector and 2-theta.

1) Measure a standard sample, silicon or corundum, with the detector, and fit
   its peaks. While you have no *.cal file that is the better way: the Manual
   Explorer, which can select them too, asks for one.
2) Choose the buffer with that profile. If it has no list of peaks, you can
   load one from a *.pks file of fewer than 100 lines; a longer one gives no
   peak, and a blank line one at channel 0. If all buffers are empty, the
   calibration starts on buffer a. If the wavelength is not known, you are
   asked for it.
3) Choose the standard. Its tabulated peaks are shown above those of your
   sample. Move their scale until both look alike.
4) Couple the peaks: one of the sample and one of the standard, with the
   mouse. At least 4 couples are needed; with 4 of them 3 parameters are
   refined, with 5 or more all 4.
5) Start the calibration, and save the parameters in a *.cal file.

The result reaches a profile only through that file. The program asks for it
together with the wavelength, so only while the wavelength of the buffer is
not known. The calibration gives the buffer of the standard its wavelength:
displayed afterwards, nothing is asked, the channel stands in place of
2-theta, and d is 0. To load the profile into that buffer again doesn't help.
Load it into an empty buffer, or use "Erase buffer" first.
)TEXT";

constexpr std::string_view RefineCell =
    R"TEXT(Command "Refine cell" refines the cell parameters and a zero correction from
the positions of indexed peaks, for all crystal systems.

1) Choose the buffer with the list of peaks. If it has none, you can load one
   from a *.pks file of fewer than 200 lines; a longer one gives no peak, and
   of more than 100 peaks the first 100 are taken. A blank line or a 0 in the
   first column ends the list. A number above 180 there tells that the peaks
   are in channels. If the wavelength is not known, you are asked for it, and
   with it for a calibration file if the peaks are in channels. If the buffer
   has a wavelength but no calibration, save the list, erase the buffer and
   read the list again: then you are asked.
2) In "Cell Parameters" choose the crystal system, press "OK", type an
   approximate cell in angstrom and degrees, and press "Quit" to take it. "OK"
   fixes the crystal system and "Quit" the cell for good: for others start
   "Refine cell" of the main menu again.
3) In "Peak generation" give a range of 2-theta and press "OK". Listed are h,
   k, l from 0 up; an index below 0 is listed only as h of a monoclinic cell
   and as h and k of a triclinic one. Reflections that are extinct by symmetry
   are among them, and equivalent ones stand each by itself. In a monoclinic
   or triclinic cell some may be missing: each index goes only one beyond the
   reach of its reciprocal axis alone. A reflection that is not listed can be
   indexed all the same. The list holds 300. Where there are more you are
   told; what is listed need not be those of lowest angle, so choose a smaller
   range.
4) In "Peak indexation" click near a peak in the picture; the nearest one
   becomes blue. Type its H, K and L. "OK" shows where the cell puts it;
   beyond the reach of the wavelength the 2-theta of before is left standing.
   If it fits, press "Accept"; "Refuse" makes the peak red again. What is
   accepted is the triplet of the last "OK", rounded to whole numbers, with
   the 2-theta in the box. An accepted peak cannot be taken back; 300 can be
   accepted. "Quit" goes on, and there is no way back.
5) In "Refinement of cell parameters" each click on "Refine" makes one cycle
   of least squares from the cell of the cycle before. It doesn't stop by
   itself: click until cell and disagreement factor change no more.

More peaks are needed than there are parameters: 3 for a cubic cell, 4 for a
tetragonal or trigonal-hexagonal, 5 for an orthorhombic, 6 for a monoclinic
and 8 for a triclinic one, at the least. An index may be 181 at most, and -181
at the lowest.

"Zero correction (2-theta)" is a shift, in degrees, of the whole 2-theta scale:
a peak of the cell is expected at its calculated 2-theta plus this correction.
If it is above 0, the observed positions lie too high by it. It is a shift of
2-theta, twice that of theta. The observed positions are not changed, and
"2th(Calc)" contains the correction. It starts from 0 again in each cycle, so
the factor "before refinement" is that of the cell without it. The factors are
sums over all peaks, in per cent.

The result stands in the window only. It is not saved to a file or into the
buffer: write it down before you press "Main menu".
)TEXT";

}  // namespace

std::string_view MainMenuHelp(HelpTopic topic) {
  switch (topic) {
    case HelpTopic::HelpLoad:
      return Load;
    case HelpTopic::HelpSaveDisk:
      return SaveDisk;
    case HelpTopic::HelpDisplay:
      return Display;
    case HelpTopic::HelpManipulation:
      return Manipulation;
    case HelpTopic::HelpFit:
      return Fit;
    case HelpTopic::HelpErase:
      return Erase;
    case HelpTopic::HelpAbout:
      return About;
    case HelpTopic::HelpDisclaimer:
      return Disclaimer;
    case HelpTopic::HelpCalibration:
      return Calibration;
    case HelpTopic::HelpRefineCell:
      return RefineCell;
    default:
      return {};
  }
}

}  // namespace koprax
