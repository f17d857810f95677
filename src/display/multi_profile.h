// The plot of several profiles at once: which of them may share a plot, in what limits and colours they
// stand in it, and its legend. The window around it is left to whoever shows it.
#pragma once

#include <array>
#include <cstdint>
#include <variant>
#include <vector>

#include "display/plot_transform.h"
#include "files/read_outcome.h"
#include "forms/runtime.h"
#include "forms/surface.h"
#include "workspace/workspace.h"

namespace koprax {

/// 1 for each buffer that is to be shown, by its slot, like SelBuf.
using BufferSelection = std::array<std::int16_t, NumBuffers + 1>;

/// What a plot of several profiles shows.
struct MultiProfile {
  std::vector<int> Slots;    ///< from 1 to 6, in their order
  PlotLimits Limits;         ///< those of the permanent copies; of the cards only if there is nothing else
  float MeanWavelength = 0;  ///< angstrom
};

/// Works out the plot of the selected buffers, or says why they can't share one: a wavelength is undefined or
/// differs by 2 per cent or more from the mean, channels would meet 2-theta, or the limits leave no range of
/// X. Changes nothing. The limits are found by comparing with 10000 and -10000, so profiles that lie wholly
/// above 10000 get that as their minimum, and likewise below.
[[nodiscard]] std::variant<MultiProfile, Message> PlanMultiProfile(const Workspace& data,
                                                                   const BufferSelection& selection);

/// Makes it the plot at work: SelList, the limits and the colours. Each buffer takes a fresh temporary copy,
/// unless MultiOp tells that one of them has just been changed. SumWavelength becomes the mean of two.
void TakeMultiProfile(Workspace& data, const MultiProfile& plot);

/// The slots in SelList, as TakeMultiProfile has set it. An erasing may clear one of them, shown or not, so a
/// window that goes on showing them keeps them.
[[nodiscard]] std::vector<int> SlotsInPlot(const Workspace& data);

/// Draws the temporary copies of the buffers in SelList in one frame with its labels, profiles as curves and
/// cards as sticks. NegativeY of all of them, and of CurBuf, becomes that of the frame. Limits that span no Y
/// are told; the curves are then drawn in the scale of the last drawing. The picture is not cleared before.
void DrawMultiProfile(Workspace& data, Surface& picture, const TellUser& tell);

/// Writes a line for each of the buffers: its colour, letter and title, and as one of two its name in
/// formulas.
void DrawLegend(const Workspace& data, const std::vector<int>& slots, Surface& legend);

/// All buffers of one plot stand on the base of its frame.
void ShareFrame(Workspace& data, const std::vector<int>& slots, const PlotLimits& limits);

/// Takes points 1 to WorkNpts and the limits of X of the temporary copy into the permanent copy, whose number
/// of points stays. The limits of Y of both copies are found by comparing with 100000 and -10000.
void SaveShownProfile(ProfileBuffer& buffer);

}  // namespace koprax
