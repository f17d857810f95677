#include "workspace/help_texts.h"

namespace koprax {
namespace {

constexpr std::string_view Load =
    R"TEXT(Command "Load Profile from disk" reads a measured profile from a text file.

1) Choose the file.
2) A preview shows its first 30 lines and, for a longer file, its last 10.
   Press "OK" if this is the file you want, "Cancel" if not.
3) Choose the format of the file. The program doesn't guess it: what counts
   is your choice, not the name of the file. The "?" beside each format tells
   how such a file is laid out.
4) Choose one of the six buffers, a to f. The profile is read into it and
   shown in the window "Display and Work". A Powder Diffraction File card is
   read after you have given a wavelength; it is no curve and is not shown
   there.

A buffer that holds a profile already is overwritten without a question. Its
list of selected peaks stays: erase the buffer first if you don't want it.

Limits: a profile has at most 8000 points; a longer one is refused, and the
buffer is then empty. A line of numbers counts up to its 79th character and
holds at most 24 words. Words are separated by blanks or commas, not by tabs.
The decimal separator is the period.

If the file doesn't tell the wavelength, the program asks for it when the
profile is shown.
)TEXT";

constexpr std::string_view SaveDisk =
    R"TEXT(Command "Save Profile on disk" writes the profile of one buffer to a file.

1) Choose the buffer.
2) Give the name of the file. If there is such a file already, you are asked
   whether to overwrite it.
3) Choose the format.

What is written is the profile as it stands in the buffer. Changes made in a
window by zoom, edit or arithmetic are written only after the command "Save"
of that window. There is one exception: a PHILIPS file gets as many points as
the window shows.

Not every profile can be saved in every format:
- ITAL STRUCTURES: not with a variable step, and not CPS-120 data.
- One column: not two-column data with a variable step, and not CPS-120 data.
- Two columns: every profile. For CPS-120 data you may have the channels
  changed into 2-theta; read a calibration file first.
- CPS-120: only data loaded in this format, with all 4096 channels.
- PHILIPS: only data loaded in this format. Intensities are rounded to counts,
  and the title stays that of the loaded file.
- SIEMENS/BRUKER: only data loaded in this format.
A Powder Diffraction File card cannot be saved.
)TEXT";

constexpr std::string_view Display =
    R"TEXT(Command "Display profile(s) and work" shows the profiles of the buffers that
you tick.

One profile is shown in the window "Display and Work". There you can enlarge
a portion of it, edit single points, do arithmetic on it, select peaks with
the mouse, print it, and save the changed profile to its buffer.

Two or more profiles are shown together in one plot, each in a colour of its
own. Exactly two of them can be added or subtracted.

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
as empty. Files on disk are not touched.
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

The command "Erase buffer" empties a buffer, and "Quit" ends the program at
once: what has not been saved on disk is lost.

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
   its peaks or select them with the Manual Explorer.
2) Choose the buffer with that profile. If it has no list of peaks, you can
   load one from a *.pks file. If all buffers are empty, the calibration
   starts on buffer a.
3) Choose the standard. Its tabulated peaks are shown above those of your
   sample. Move their scale until both look alike.
4) Couple the peaks: one of the sample and one of the standard, with the
   mouse. At least 4 couples are needed; with 4 of them 3 parameters are
   refined, with 5 or more all 4.
5) Start the calibration, and save the parameters in a *.cal file.

The result reaches a profile only through that file: the program asks for it
when it needs 2-theta for data in channels.
)TEXT";

constexpr std::string_view RefineCell =
    R"TEXT(Command "Refine cell" refines the cell parameters and a zero correction from
the positions of indexed peaks, for all crystal systems.

1) Choose the buffer with the list of peaks. If it has none, you can load one
   from a *.pks file.
2) Give the crystal system and an approximate cell.
3) Generate the reflections of that cell in a range of 2-theta.
4) Attribute indices h, k, l to the observed peaks. At most 300 attributions
   are accepted.
5) Refine. Each click does one step; click again until the parameters change
   no more.

The result stands in the window only: write it down, for it is
not saved to a file or into the buffer.
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
