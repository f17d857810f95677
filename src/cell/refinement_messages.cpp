#include "cell/refinement_messages.h"

#include <string>

#include "cell/cell_parameters.h"

namespace koprax {

namespace {

std::string TooFewPeaks(std::size_t peaks, std::size_t parameters) {
  return "The peaks accepted are no more than the parameters: " + std::to_string(peaks) + " for " +
         std::to_string(parameters) +
         ".\r\nStart \"Refine cell\" of the main menu anew and accept at least " +
         std::to_string(parameters + 1) + " peaks.";
}

/// The peak with its indices, as the beginning of a sentence.
std::string NameOf(const AcceptedPeaks& peaks, std::size_t k) {
  return "Peak number " + std::to_string(k) + " (" + std::to_string(peaks.AcceptedH[k]) + " " +
         std::to_string(peaks.AcceptedK[k]) + " " + std::to_string(peaks.AcceptedL[k]) + ") ";
}

std::string TextOf(const CycleObstacle& obstacle, const AcceptedPeaks& peaks, CrystalSystems system) {
  switch (obstacle.What) {
    case CycleObstacles::NoPeaks:
      return "No peak has been accepted.\r\nStart \"Refine cell\" of the main menu anew, "
             "give indices to peaks and accept them.";
    case CycleObstacles::NoSystem:
      return "Wrong definition of crystal system";
    case CycleObstacles::TooFewPeaks:
      return TooFewPeaks(static_cast<std::size_t>(peaks.AcceptedCount), ParameterCountOf(system));
    case CycleObstacles::NoStartingCell:
      return "The cell to start from is none.\r\nStart \"Refine cell\" of the main menu anew, with lengths "
             "above 0 and with angles that enclose a volume.";
    case CycleObstacles::IndexTooHigh:
      return NameOf(peaks, obstacle.Peak) + "has an index beyond " + std::to_string(MaxIndex) +
             ".\r\nStart \"Refine cell\" of the main menu anew with lower indices.";
    case CycleObstacles::NoReflection:
      return NameOf(peaks, obstacle.Peak) +
             "is no reflection.\r\nStart \"Refine cell\" of the main menu anew, and "
             "click OK for the indices of each peak before it is accepted.";
    case CycleObstacles::NoPosition:
      return NameOf(peaks, obstacle.Peak) +
             "has no position between 0 and 180 degrees.\r\nStart \"Refine cell\" of the main menu anew and "
             "accept peaks with their 2-theta in degrees.";
    case CycleObstacles::BeyondReach:
      return NameOf(peaks, obstacle.Peak) +
             "lies beyond the reach of the wavelength.\r\nStart \"Refine cell\" of the main menu anew, and "
             "check the wavelength, the cell and the indices.";
    case CycleObstacles::SingularMatrix:
      return "The accepted peaks don't determine all parameters: their normal matrix is singular.\r\nStart "
             "\"Refine cell\" of the main menu anew and accept peaks of other indices as well.";
    case CycleObstacles::LeadsToNoCell:
      return "The refinement leads to a cell that is none, so the cell was left as it is.\r\nStart anew with "
             "\"Refine cell\" of the main menu and a better cell, and check the indices of the peaks.";
    case CycleObstacles::BeyondNumbers:
      return "The numbers of the refinement have left the range of 32 bits, so the cell was left as it "
             "is.\r\nStart \"Refine cell\" of the main menu anew, and check the cell and the indices of the "
             "peaks.";
  }
  return {};
}

}  // namespace

Message MessageOf(const CycleObstacle& obstacle, const AcceptedPeaks& peaks, CrystalSystems system) {
  return ErrorMessage(TextOf(obstacle, peaks, system));
}

}  // namespace koprax
