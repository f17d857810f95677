#include "workspace/help_texts.h"

namespace koprax {
namespace {

constexpr std::string_view Smoothing =
    R"TEXT(Command "Smoothing" eliminates ripples in the observed profile through an averaging 
carried out on groups of N (N = 5, 7, 9) profile points. 

"Smooth" asks for N, until the answer is one of these numbers. Each point then
becomes a weighted mean of N points, itself in their middle:

5 or 7   keeps height and width of the peaks best, 7 smoothing more than 5.
         The points near the ends have weights of their own.
9        smooths most. The first four and the last five points stay as they
         are.

A profile of fewer than N points cannot be smoothed. The result is drawn in
red. Each further "Smooth" smooths it again.

"Save" stores the smoothed profile in the buffer that you choose, with
"SMOOTHED" added to its title. A buffer that holds a profile already is
overwritten without a question; it may be the buffer of the profile itself.
The window then goes on with the buffer saved to.

"Quit" brings the other tools back. The temporary copy stays smoothed, and
"Background" works on it. "DFT" does not: it starts from the saved profile, as
it stands in its buffer, so for a filter on top of the smoothing save the
smoothed profile first. What was not saved is lost with "Main Menu".
)TEXT";

constexpr std::string_view Background =
    R"TEXT(Command "Background" starts a ROBUST smoothing procedure for estimating the background outline.

1) Give the approximate FWHM of the Bragg peaks in units of 2-theta, or the
   number N of points to average over. A number above 5 is taken for N. A
   number of 5 or less is taken for a FWHM, and N is three times as wide; this
   needs a profile of constant step. An odd N is raised by one.
2) The highest points are cut off, and the curve is smoothed. Each point
   becomes the mean of the points that lie 10 to N/2 positions away on either
   side; the nearest ones are left out. With N below 20 the four outermost
   positions count, or as many as there are. This is done three times in a
   cycle.
3) The smooth curve is drawn in red, and you are asked whether to repeat.
   With "y" each point is cut back to the lower one of measurement and curve,
   and the next cycle follows. So the curve sinks below the peaks from cycle
   to cycle. Any other answer ends the procedure; there is no limit to the
   number of cycles.

Beyond its ends the profile is continued by the mean of its first and of its
last five points, so it must have five at least. Where an end lies on a peak
the background is too high there.

N is recommended to lay in the range 30-70, its maximum allowed value being 300.
Larger numbers smooth over wide humps of the background too. Less than 2 or
more than 398 points cannot be taken; you are then asked again.

At the end the background is drawn in dashes, and the commands of the frame
"Background manipulation" work on it. Saved in a buffer, it can serve as the
background of a fit. The procedure takes the temporary copy, smoothed if you
have smoothed it. An empty answer or "Cancel" to the first question changes
nothing; "Quit" leads back.

A background that a fit has taken by "Load bkg" is then in hand here too, for
any profile: the estimate starts from it, without cutting off the highest
points, and an empty answer leaves it in hand. To start from the profile press
"Quit" of the frame, which clears it, and then "Background" again.
)TEXT";

constexpr std::string_view Dft =
    R"TEXT(Command "DFT" calculates the Fourier coefficients of the profile by a Discrete
Fourier Transform. It is the first step of a filter; "Filter" and "DFT inv."
follow.

The procedure takes some time, depending on profile dimensions.
A line shows how far it is.

N points, whatever their number, give N/2 + 1 coefficients. Their real part is
drawn in red, their imaginary part in blue, the low frequencies at the left.

"DFT" starts from the profile as it stands in its buffer. It doesn't see what
a smoothing has left in the temporary copy. Save the smoothed profile first:
to whatever buffer, the window then goes on with that one, and "DFT" takes it.
What an earlier filter has done is forgotten.

"Save" stores the result of "DFT inv." in the buffer that you choose, with
"SMOOTHED by DFT" added to its title. A buffer that holds a profile already is
overwritten without a question; it may be the buffer of the profile itself.
The temporary copy of the profile becomes the filtered one too, whatever
buffer you choose. The window then goes on with the buffer saved to.

"Quit" brings the other tools back. The picture stays, and the coefficients
too until the window is closed.
)TEXT";

constexpr std::string_view DftInverse =
    R"TEXT(Command "DFT inv." calculates the profile back from its Fourier coefficients.

Press "DFT" first, and "Filter" to attenuate the high frequencies. The
calculation takes as long as that of "DFT"; a line shows how far it is.

The result is drawn in black, between its own lowest and highest point. Not
filtered, a smooth profile comes back as it was. If the number of points is
even, or one more than a multiple of four, the highest frequency counts twice,
which may be seen in a noisy profile that was not filtered.

Nothing is changed in the profile until you press "Save". If the result does
not please you, press "Filter" again for a stronger attenuation, or "DFT" to
start anew, and then "DFT inv.".
)TEXT";

constexpr std::string_view Filter =
    R"TEXT(Command "Filter" performs an controlled attenuation of high frequency FT coefficients.

You are asked for the filter parameter, a number from 0 to 9, until it lies in
that range. Only the highest coefficients are touched, some 23 per cent of
them. They are multiplied by a half Gaussian, which falls the faster the
larger the parameter:

0         changes nothing; so does an empty answer
1         leaves some 2 per cent of the last coefficient
2 to 9    leave next to nothing of it

The coefficients are then drawn in the same scale as before. A second "Filter"
attenuates them further. To start anew press "DFT".

The normal smoothing procedure via DFT transformation uses the sequence "DFT", "Filter", "DFT inverse".
"Save" then stores the result in a buffer.
)TEXT";

constexpr std::string_view QuitBackground =
    R"TEXT(Command "Quit" leaves the background mode. The other tools come back, and the
profile is drawn alone.

A background that was not saved is lost, and so is the profile without it:
press "Save" before. The profile is not changed.

While a portion is enlarged the command is not available; press "Un-zoom"
first.
)TEXT";

constexpr std::string_view ZoomBackground =
    R"TEXT(Command "Zoom" enlarges a portion of the profile together with its background.

1) Press the mouse button at the upper left corner of the portion and keep it
   down. The height of this point becomes the new top of the intensity scale;
   the portion always reaches down to the bottom of the scale.
2) Move the mouse to the right and let the button go. The limits of the
   portion are shown, and the buttons "OK" and "Cancel" appear.
3) Press "OK" to enlarge the portion or "Cancel" to give it up. You may also
   select anew before you press either of them.

The profile is drawn in black, and the smooth curve of the last cycle in red;
what is higher than the new top is left out. The curve is not changed by
"Rescaling bckg". A mouse that was moved to the left selects nothing.

The command is then called "Un-zoom" and shows the whole profile again. Until
then no other command of the frame is available. "Zoom" is not available after
"Subtract".
)TEXT";

constexpr std::string_view Resume =
    R"TEXT(Command "Resume" goes on with the estimate of the background.

After "Subtract" the subtraction is undone first; the profile without
background is lost if it was not saved.

You are asked again for the FWHM or the number of points, and may give another
one than before. The first cycle smooths the background as it stands, without
cutting it back to the profile; the cycles that follow are those of
"Background". If there is no background in hand, the estimate starts from the
profile, as with "Background". So it does where the first 30 points of the
background are all 0, whatever follows. With an empty answer or "Cancel" the
background stays as it is.
)TEXT";

constexpr std::string_view PrintBackground =
    R"TEXT(Command "Print" prints the profile as a solid line and its background in
dashes, on a landscape page. The plot measures 115 x 90 mm.

Choose the colours of both, and then the printer. A colour other than those of
the list leaves the one of before. If you cancel the choice of the printer,
nothing is printed. To give up earlier close the window "Colors".

What is printed is the whole profile of the temporary copy: smoothed, if it was
smoothed. The command is not available in a zoomed view and after "Subtract".
)TEXT";

constexpr std::string_view Subtract =
    R"TEXT(Command "Subtract" subtracts the background from the profile, point by point,
and draws what is left.

Intensities below 0 are allowed; the plot is then extended downward. "Save"
now stores the profile without background in place of the background. The
profile and the background themselves stay as they are: "Resume" shows both
again and goes on with the estimate.

After "Subtract" the commands "Zoom", "Print" and "Rescaling bckg" are not
available until "Resume" or "Quit". If there is no background in hand, the
profile is left as it is. A background loaded in a fit is in hand, even for
another profile: see "Background".
)TEXT";

constexpr std::string_view SaveBackground =
    R"TEXT(Command "Save" stores the background in the buffer that you choose. After
"Subtract" it stores the profile without background.

The title of the profile gets "BACKGROUND" or "WITHOUT BACKGROUND" added; of
more than 80 characters the end is cut off. Wavelength, format, calibration
and the list of selected peaks go along. A buffer that holds a profile already
is overwritten without a question; it may be the buffer of the profile itself.

The window goes on with its own profile, so you may save the background in one
buffer, press "Subtract", and save the rest in another.

Nothing is written to the disk: for that use the command "Save Profile on
disk" of the main menu.
)TEXT";

constexpr std::string_view Rescale =
    R"TEXT(Command "Rescaling bckg" multiplies the background by a number K, and draws it
anew with the profile.

Give K, for example 0.95 for a background that lies a little too high. Without
a number nothing is changed. Repeated, the command multiplies the result of
before. With K = 0 no background is left, and "Resume" starts from the profile.

The profile is not changed. The smooth curve shown by "Zoom" is that of the
last cycle and is not multiplied. After "Subtract" the command is not
available until "Resume".
)TEXT";

}  // namespace

std::string_view ManipulationHelp(HelpTopic topic) {
  switch (topic) {
    case HelpTopic::HelpSmoothing:
      return Smoothing;
    case HelpTopic::HelpBackground:
      return Background;
    case HelpTopic::HelpDft:
      return Dft;
    case HelpTopic::HelpDftInverse:
      return DftInverse;
    case HelpTopic::HelpFilter:
      return Filter;
    case HelpTopic::HelpQuitBackground:
      return QuitBackground;
    case HelpTopic::HelpZoomBackground:
      return ZoomBackground;
    case HelpTopic::HelpResume:
      return Resume;
    case HelpTopic::HelpPrintBackground:
      return PrintBackground;
    case HelpTopic::HelpSubtract:
      return Subtract;
    case HelpTopic::HelpSaveBackground:
      return SaveBackground;
    case HelpTopic::HelpRescale:
      return Rescale;
    default:
      return {};
  }
}

}  // namespace koprax
