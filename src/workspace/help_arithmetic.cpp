#include "workspace/help_texts.h"

namespace koprax {
namespace {

constexpr std::string_view DefineY =
    R"TEXT(The options "Y=Y1" and "Y=Y2" choose one of the two profiles in the plot for a
single profile operation. Y1 is the one in the first of the two buffers, Y2
the other one; the legend of the plot shows which is which.

Until one of them is chosen the single profile operations are not available.

The operation changes the temporary buffer only, and the plot of both
profiles is drawn anew, in the limits of the profiles as they stand in their
buffers. To keep the result press "Save" in the window with the plot and
choose the buffer of the profile.
)TEXT";

constexpr std::string_view AddProfiles =
    R"TEXT(Command "Y=Y1+Y2" adds the two profiles in the plot, point by point.

The sum covers the range of X that both profiles have.

1) If limits and step of the profiles are the same, their points are added in
   their order.
2) If only the step is the same and the points of one fall on points of the
   other, the points with the same X are added.
3) In all other cases the second profile is interpolated linearly at the
   points of the first one. A point of Y1 that falls exactly on a point of Y2
   then stands twice in the sum.

The temporary buffers are added, with the changes that were not saved. The
sum may have at most 8000 points. Reference cards cannot be added.

The sum is shown in a window of its own. There "Save" stores it in a buffer
of your choice, under a title that you give. It takes its wavelength from
the mean of the two profiles, and step and format from the first one.
"Return" leads back to the plot of both; what was not saved is then lost.
)TEXT";

constexpr std::string_view SubtractProfiles =
    R"TEXT(Command "Y=Y1-Y2" subtracts the second of the two profiles in the plot from the
first, point by point.

Which points meet is found as for "Y=Y1+Y2": point by point in their order,
by the same X, or with the second profile interpolated linearly at the points
of the first one. The difference covers the range of X that both have.

Intensities below 0 are allowed. If the difference is small, the plot keeps
the height of the first profile, so that the two can be compared.

The difference is shown in a window of its own. There "Save" stores it in a
buffer of your choice, and "Return" leads back to the plot of both profiles.
Reference cards cannot be subtracted.
)TEXT";

}  // namespace

std::string_view ArithmeticHelp(HelpTopic topic) {
  switch (topic) {
    case HelpTopic::HelpDefineY:
      return DefineY;
    case HelpTopic::HelpAddProfiles:
      return AddProfiles;
    case HelpTopic::HelpSubtractProfiles:
      return SubtractProfiles;
    default:
      return {};
  }
}

}  // namespace koprax
