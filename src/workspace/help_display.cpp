#include "workspace/help_texts.h"

namespace koprax {
namespace {

constexpr std::string_view Zoom = R"TEXT(Command "Zoom" allows for an enlargment of a portion of the profile.

1) Press the left button of the mouse at the upper left corner of the portion
   and keep it down. The height of this point becomes the new top of the
   intensity scale; the bottom of the scale stays as it is.
2) Move the mouse to the right and let the button go. The limits of the
   portion are shown, and the buttons "OK" and "Cancel" appear.
3) Press "OK" to enlarge the portion or "Cancel" to give it up. You may also
   select anew, as often as you like, before you press either of them.

A press left of, right of or below the plot selects nothing; one above it
counts at its top. A mouse that was moved to the left selects nothing either.
Peaks higher than the new top of the scale are cut off in the drawing; they
are not changed.

A zoom stays in the temporary buffer: the command "Display" of the main menu
shows the profile as it was. But if you press "Save" in a zoomed view, only
the enlarged portion is kept. "Man. Expl." and "Print profile" are off in a
zoomed view, until "Undo-Zoom".

With several profiles in one plot, and when the Manual Explorer is paused,
the portion is shown in a window of its own.
)TEXT";

constexpr std::string_view Arithmetic =
    R"TEXT(Command "Arithmetic" changes the intensities or the 2-theta values of a profile
by a formula, or calculates a new profile from two of them.

Single profile operations:
Y=Y+K       adds a number to each intensity
Y=Y*K       multiplies each intensity by a number
X=X+K       shifts the profile; points that get a negative X are lost
Y=EXP(Y)    exponential of each intensity
Y = ln Y    natural logarithm; all intensities must be above 0

The first three ask for K; with "Cancel" nothing is changed. You are warned if
negative Y or X come out, before Y=EXP(Y) if some Y lie outside -10 to 10, and
before Y = ln Y at each Y below 0.001. If you then say "No", nothing is
changed.

Two profiles operations, with two profiles in one plot:
Y=Y1+Y2     sum of the two
Y=Y1-Y2     difference of the two
"Y=Y1" and "Y=Y2" choose the profile on which a single profile operation
works. Sum and difference cover the range that both profiles have. If their
points differ, the second profile is interpolated at the points of the first.
The result is shown in a window of its own, where you can save it to a
buffer. Reference cards cannot be added or subtracted. With three or more
profiles in the plot the command is off.

Single profile operations change the temporary buffer only: "Save" keeps the
result, and the command "Display" of the main menu throws it away. So does
"Undo-Zoom" of "Display and Work", which is on only in a zoomed view.
)TEXT";

constexpr std::string_view MainMenu =
    R"TEXT(Command "Main Menu" closes this window and returns to the main menu.

What was changed here and not saved with "Save" is lost. The list of selected
peaks stays with its buffer.
)TEXT";

constexpr std::string_view Bitmap =
    R"TEXT(Command "Bitmap" saves the picture of the profile in a bitmap file *.bmp.

Give the name of the file. If there is such a file already, you are asked
whether to overwrite it; with "No" nothing is saved.

The picture is then shown in a window from which it can be printed. You are
asked for a scale factor between 0 and 1: with 1 the picture is as large as
fits on the page in its proportions and lies at the upper left, with 0.5 it
has half that width and height and stands in the middle of that place. An
empty answer counts as 0, and the page stays empty.
)TEXT";

constexpr std::string_view Edit =
    R"TEXT(Command "Edit" allows for changing single points of the profile by hand.

Select a portion of the profile with the mouse, as for "Zoom" (its height
doesn't matter here), and press "OK". The points of the portion are shown as a
list of X and Y, one point in a line. Change the numbers in the list, then
press "Show changes", and then "Accept" or "Cancel". "Quit Edit" leaves the
list.

Lines can be changed, but not added or deleted: each line belongs to one
point. The list holds about 950 points. Of a longer portion only the front is
listed, so it is better to choose one short portion at a time.

The list shows X to 3 decimals and Y to 2. "Accept" takes all listed points as
they stand there, so those that you didn't touch are rounded too.

The changes stay in the temporary buffer until you press "Save", which is off
until "Quit Edit".
)TEXT";

constexpr std::string_view UndoZoom =
    R"TEXT(Command "Undo-Zoom" shows the whole profile again, as it stands in its buffer.

However often you zoomed, you are back at the whole profile with one click.
Changes by "Edit" or "Arithmetic" that were not saved are lost too. The
command is on only while a portion is shown. To give up such changes in a view
of the whole profile, use the command "Display" of the main menu.
)TEXT";

constexpr std::string_view Save =
    R"TEXT(Command "Save" stores the profile as it is shown, with all changes, in its
buffer. The former contents of the buffer are lost.

After a zoom only the enlarged portion is stored.

The words "Modified by KOPRAX" are added to the title, and a small window
lets you give a new title of at most 80 characters. If the profile has been
changed in another window since it was drawn here, nothing is saved, and you
are told.

Nothing is written to the disk: for that use the command "Save Profile on
disk" of the main menu.
)TEXT";

constexpr std::string_view Explorer =
    R"TEXT(Command "Man. Expl." starts the Manual Explorer, for reading positions and
selecting peaks with the mouse. It works on the whole profile: use
"Undo-Zoom" first if a portion is shown. If the wavelength is not known, you
are asked for it.

A vertical line follows the mouse, and X, 2-theta and d at its position are
shown. For data in channels 2-theta and d need a calibration file, which is
asked for with the wavelength, and only then; without it the channel stands in
place of 2-theta, and d is 0.

If you have no calibration file yet, choose any file and press "Cancel" in its
preview: the explorer then reads channels. To give up the choice of the file
itself takes the wavelength and the list of peaks away, and only "Main Menu"
and the question for the wavelength are left.

Press the right button to select a peak. Its position is that of the line,
its intensity the higher one of the two points beside it. The peak is added
to the list and marked in red. The list holds at most 100 peaks.

Press the left button to pause; the command is then called "Resume": press it
to go on. While the explorer is paused, "Zoom" shows a portion in a window of
its own, in which peaks can be selected too.

The list stays with the buffer. Peak fitting, calibration and the refinement
of the cell can start from it.
)TEXT";

constexpr std::string_view Accept =
    R"TEXT(Command "Accept" takes the changed points into the profile and draws it anew.

Press "Show changes" first. The numbers taken are those that were shown last;
after a "Change all" its value is taken, shown or not. All listed points are
taken as the list shows them, X to 3 decimals and Y to 2.

The profile is changed in the temporary buffer only; to keep the changes
leave the list with "Quit Edit" and press "Save", which is off before.
)TEXT";

constexpr std::string_view ShowChanges =
    R"TEXT(Command "Show changes" reads the list and draws its points over the profile, in
magenta.

You may change the list and press "Show changes" again. Nothing is changed in
the profile until you press "Accept". Each line needs two numbers, X and Y,
separated by blanks or a comma; a number that is missing counts as 0, and so
do both if a tab stands between them. A number beyond the range of 32 bits is
refused, with its line.
)TEXT";

constexpr std::string_view Cancel = R"TEXT(Command "Cancel" gives up the changes made in the list.

The magenta line is wiped out, the profile is drawn in its place, and the
list shows the points as they were selected. Lines that were shown before the
last one stay until the profile is drawn anew.

Changes that were accepted already are not taken back: curve and list show
the numbers of before, but the profile keeps the accepted ones.
)TEXT";

constexpr std::string_view SaveList =
    R"TEXT(Command "Save list" writes the list of selected peaks to a file *.pks.

The peaks are sorted by their position. Each line of the file holds 2-theta,
intensity and d; for data in channels it holds channel, intensity, d and
2-theta. If there is such a file already, you are asked whether to overwrite
it. The list on the screen keeps its order. Positions are rounded to 3
decimals, intensities to 1 and d to 4. With an empty list the command is off.

The file can be loaded at the start of a calibration or of a cell refinement.
)TEXT";

constexpr std::string_view QuitExplorer = R"TEXT(Command "Quit Man. Expl." leaves the Manual Explorer.

The marks of the peaks are wiped out. The list stays with the buffer and is
shown again, with its marks, when the explorer is next started.
)TEXT";

constexpr std::string_view Print =
    R"TEXT(Command "Print profile" prints the plot on a landscape page. With several
profiles the command is called "Print". The plot measures 115 x 90 mm. Choose
the printer first.

What is printed is the profile as it stands in its buffer: changes that were
not saved are not printed. Several profiles are printed each in its colour,
with the intensities as changed by "Arithmetic". Their X is that of the
buffers: a shift by X=X+K is not printed until it is saved.

In a zoomed view the command is not available; use "Bitmap" to print what you
see.
)TEXT";

constexpr std::string_view EraseLast =
    R"TEXT(Command "Erase" takes the last peak off the list and wipes out its mark.

The mark is wiped out in white, and with it the piece of the profile that it
crosses, until the profile is drawn anew.
)TEXT";

constexpr std::string_view ClearList =
    R"TEXT(Command "Clear list" takes all peaks off the list and wipes out their marks.

You are not asked first. If you may need the list again, press "Save list"
before. Curves and axes that a mark crossed have a gap until the profile is
drawn anew.
)TEXT";

constexpr std::string_view ChangeAll =
    R"TEXT(Command "Change all" gives the same Y to all points of the selected portion.

You are asked for the value. X is not changed. As for changes by hand,
nothing is drawn until you press "Show changes", and the profile isn't
changed until you press "Accept". But if "Accept" is on, from changes shown
before, it takes the new value at once, without another "Show changes".
)TEXT";

constexpr std::string_view SaveSelected =
    R"TEXT(Command "Save" stores one of the profiles in the plot in its buffer, with the
changes made by "Arithmetic".

Choose one of the buffers shown in the window that appears. The former
contents of the buffer are lost; its title stays. The other profiles are not
touched. A profile that lost points by X=X+K is not saved here.

Nothing is written to the disk: for that use the command "Save Profile on
disk" of the main menu.
)TEXT";

}  // namespace

std::string_view DisplayHelp(HelpTopic topic) {
  switch (topic) {
    case HelpTopic::HelpZoom:
      return Zoom;
    case HelpTopic::HelpArithmetic:
      return Arithmetic;
    case HelpTopic::HelpMainMenu:
      return MainMenu;
    case HelpTopic::HelpBitmap:
      return Bitmap;
    case HelpTopic::HelpEdit:
      return Edit;
    case HelpTopic::HelpUndoZoom:
      return UndoZoom;
    case HelpTopic::HelpSave:
      return Save;
    case HelpTopic::HelpExplorer:
      return Explorer;
    case HelpTopic::HelpAccept:
      return Accept;
    case HelpTopic::HelpShowChanges:
      return ShowChanges;
    case HelpTopic::HelpCancel:
      return Cancel;
    case HelpTopic::HelpSaveList:
      return SaveList;
    case HelpTopic::HelpQuitExplorer:
      return QuitExplorer;
    case HelpTopic::HelpPrint:
      return Print;
    case HelpTopic::HelpEraseLast:
      return EraseLast;
    case HelpTopic::HelpClearList:
      return ClearList;
    case HelpTopic::HelpChangeAll:
      return ChangeAll;
    case HelpTopic::HelpSaveSelected:
      return SaveSelected;
    default:
      return {};
  }
}

}  // namespace koprax
