// All data of the system: six profile buffers and the small state that more than one window reads. It
// exists from start to end of the run and is passed to whoever works on it. What is done with the data
// is left to the rooms above.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "workspace/help_topics.h"

namespace koprax {

inline constexpr int NumBuffers = 6;
inline constexpr int MaxPoints = 8000;
inline constexpr int MaxPeaks = 100;
inline constexpr int MaxWords = 24;
inline constexpr int TitleWidth = 80;
inline constexpr int LineWidth = 80;
inline constexpr int PaddedYBound = 8400;
inline constexpr int MaxReflections = 500;

/// Tables of points, peaks and parameters are numbered from 1, so that the code reads like the formulas;
/// entry 0 is unused.
using PointTable = std::vector<float>;

/// What a buffer was read from; 0 after an erase. These differ from the numbers of InputFormat.
enum class FormatCodes : std::int16_t {
  None = 0,
  OneColumn = 1,
  TwoColumns = 2,
  ItalDat = 3,
  CpsChannels = 4,
  Philips = 5,
  Siemens = 6,
  Card = 7,
};

/// Everything that belongs to one buffer.
struct ProfileBuffer {
  /// 80 characters, padded with blanks; a buffer is empty exactly when all of them are blank.
  std::string Title;
  bool Latin1Text = false;      ///< the title and header lines come from a file in Latin-1
  std::string BufLetter;        ///< "a" to "f"
  std::int16_t FormatCode = 0;  ///< one of FormatCodes
  float Wavelength = 0;         ///< angstrom; 0 is undefined
  float XStep = 0;              ///< 0 is a variable or undefined step
  float FileXMin = 1;           ///< first X as the file stated it
  float FileXMax = 2;           ///< last X as the file stated it

  // The permanent copy: what is saved to disk. Points 1 to PermNpts are meaningful.
  std::int16_t PermNpts = 0;
  PointTable PermX = PointTable(MaxPoints + 1);
  PointTable PermY = PointTable(MaxPoints + 1);
  float PermXMin = 1;  ///< X of the first point, whether or not the file runs upward
  float PermXMax = 2;  ///< X of the last point
  float PermYMin = 0;
  float PermYMax = 3;

  // The temporary copy: what the windows show and work on.
  std::int16_t WorkNpts = 0;
  PointTable WorkX = PointTable(MaxPoints + 1);
  PointTable WorkY = PointTable(MaxPoints + 1);
  float WorkXMin = 1;
  float WorkXMax = 2;
  float WorkYMin = 0;
  float WorkYMax = 3;

  // The peak list, numbered from 1, each value as its text: 2-theta, intensity, d in angstrom, channel.
  std::int16_t NPeaks = 0;
  std::array<std::string, MaxPeaks + 1> PeakTheta;
  std::array<std::string, MaxPeaks + 1> PeakY;
  std::array<std::string, MaxPeaks + 1> PeakD;
  std::array<std::string, MaxPeaks + 1> PeakChannel;
  std::string PeakListText;

  /// 2-theta = CalPar(1) + CalPar(2)*c + ... + CalPar(7)*c^6 for channel c.
  std::array<double, 8> CalPar{};

  std::array<std::string, 31> UdfHeader;  ///< header lines of a PHILIPS file, from 1
  std::array<std::string, 71> UxdHeader;  ///< header lines of a SIEMENS/BRUKER file, from 1
  std::int16_t UxdHeaderLines = 0;
  std::string CpsLine2;       ///< header records of a channel file
  std::int64_t CpsRecNo = 0;  ///< time of measurement in seconds
  std::string CpsLine4;
  std::int16_t CellFormat = 0;  ///< 4 when the peak list counts as channels for the cell refinement

  // The reference card of a card buffer: cell in angstrom and degrees, space group, reflections from 1.
  std::array<float, 7> CardCell{};
  std::string CardSpaceGroup;
  PointTable CardD = PointTable(MaxReflections + 1);
  PointTable CardH = PointTable(MaxReflections + 1);
  PointTable CardK = PointTable(MaxReflections + 1);
  PointTable CardL = PointTable(MaxReflections + 1);

  std::int16_t NegativeY = 0;  ///< 1 when the last frame drawn for the buffer reaches below 0
  float BufColor = 0;          ///< colour in a plot of several profiles
  std::int16_t SelList = 0;    ///< the buffer shown at this place of a plot of several profiles

  /// Whether X counts channels of a detector. Only the code tells, not the step.
  [[nodiscard]] bool InChannels() const {
    return FormatCode == static_cast<std::int16_t>(FormatCodes::CpsChannels);
  }
  [[nodiscard]] bool IsCard() const { return FormatCode == static_cast<std::int16_t>(FormatCodes::Card); }
  [[nodiscard]] bool Empty() const { return Title.find_first_not_of(' ') == std::string::npos; }
};

/// The words of the last tokenised line, numbers and text apart, each numbered from 1.
struct TokenisedWords {
  std::array<float, MaxWords + 1> WordVal{};
  std::array<std::string, MaxWords + 1> WordStr;     ///< 24 characters each
  std::array<std::string, LineWidth + 1> LineChars;  ///< the line, one character a cell, from 1
};

/// Place and scale of the frame drawn last, in the units of the surface. Whoever draws last owns it.
struct PlotTransform {
  float FrameLeft = 0;
  float FrameBottom = 0;
  float FrameRight = 0;
  float FrameTop = 0;
  float PlotLeft = 0;    ///< x of the Y axis
  float PlotBottom = 0;  ///< y of the X axis
  float PlotRight = 0;
  float PlotTop = 0;
  float ScaleX = 0;  ///< units of the surface for one unit of X
  float ScaleY = 0;
  float ZeroY = 0;   ///< y of Y = 0; set only for a frame that reaches below 0
  float Upward = 1;  ///< 1 where y grows upward, -1 on paper, where it grows downward
};

/// A profile computed from two others, kept until its window is left.
struct ComputedProfile {
  PointTable SumX = PointTable(MaxPoints + 1);
  PointTable SumY = PointTable(MaxPoints + 1);
  float SumNpts = 0;
  float SumXMin = 0;  ///< the overlap of the two ranges of X
  float SumXMax = 1;
  float SumYMin = 0;  ///< the limits of its plot, which are stored with it
  float SumYMax = 1;
  float SumXStep = 0;
};

/// The part of a profile that is edited as text, point by point from 1.
struct EditedPortion {
  PointTable EditX = PointTable(MaxPoints + 1);  ///< as it was when chosen
  PointTable EditY = PointTable(MaxPoints + 1);
  PointTable EditNewX = PointTable(MaxPoints + 1);  ///< as last read from the text, or as set for all
  PointTable EditNewY = PointTable(MaxPoints + 1);
  std::vector<std::string> EditLine = std::vector<std::string>(MaxPoints + 1);
};

inline constexpr std::size_t ParameterTableSize = 101;
/// One value for each parameter of the peak fit, numbered from 1.
using ParameterTable = std::array<float, ParameterTableSize>;

/// The peak fit: its range, its background and its parameters.
struct PeakFit {
  ParameterTable FitParam{};                               ///< the parameters, 1 to 77
  std::array<std::int16_t, ParameterTableSize> FitList{};  ///< the numbers of those to refine, in this order
  std::int16_t FitListCount = 0;
  float FitBestChi = 0;  ///< the least sum of squared differences so far

  PointTable FitX = PointTable(MaxPoints + 1);  ///< the points of the range, from 1
  PointTable FitY = PointTable(MaxPoints + 1);
  std::int16_t FitPointCount = 0;
  PointTable FitBackgroundY = PointTable(MaxPoints + 1);  ///< the measured background, point by point
  PointTable FitCalc = PointTable(MaxPoints + 1);         ///< the calculated profile of a finished fit

  bool FitPolyBackground = false;  ///< the background is a polynomial, else the measured one
  std::int16_t FitPeakCount = 0;   ///< 0 to 12
  /// The line that was drawn for the background, from 1: its origin, its height there, its slope.
  std::array<float, 6> FitLine{};
  [[nodiscard]] float FitOrigin() const { return FitLine[1]; }  ///< the X that the polynomial counts from

  bool FitRunning = false;   ///< a refinement is open, to be continued or stopped
  bool FitStopping = false;  ///< the next step closes it
};

inline constexpr int MaxCouples = 100;

/// The couples of peaks of a calibration, numbered from 1. They stay until the next coupling begins.
struct Couples {
  std::int16_t CoupleCount = 0;
  std::array<float, MaxCouples + 1> CoupledTheta2{};   ///< of the standard, degrees
  std::array<float, MaxCouples + 1> CoupledChannel{};  ///< of the sample
};

struct Workspace {
  Workspace();

  /// Slots 1 to 6 are the buffers a to f. Slot 0 never holds a profile.
  std::array<ProfileBuffer, NumBuffers + 1> Buffers;
  [[nodiscard]] ProfileBuffer& Current() { return Buffers[static_cast<std::size_t>(CurBuf)]; }
  [[nodiscard]] ProfileBuffer& Buffer(int slot) { return Buffers[static_cast<std::size_t>(slot)]; }
  [[nodiscard]] const ProfileBuffer& Buffer(int slot) const {
    return Buffers[static_cast<std::size_t>(slot)];
  }

  std::int16_t CurBuf = 0;       ///< the buffer that the current command works on; 0 is none
  std::string FileName;          ///< full path last returned by a file dialog
  std::int16_t InputFormat = 1;  ///< format of the next load or save, 1 to 7
  std::int16_t NumSelected = 1;  ///< number of profiles selected for display
  std::array<std::int16_t, NumBuffers + 1> SelBuf{};  ///< 1 for each buffer selected for display
  std::string BlankTitle;                             ///< 80 blanks
  TokenisedWords Words;

  float PlotXMin = 0;  ///< limits of the current drawing
  float PlotXMax = 0;
  float PlotYMin = 0;
  float PlotYMax = 0;
  PlotTransform Plot;

  bool ReadingCal = false;        ///< the preview shows a calibration file
  std::int16_t CalCancelled = 0;  ///< nonzero when a requested file was not read
  bool NoProfileForCalib = false;

  bool ModeDisp = false;
  bool ModeAnal = false;
  bool ModeFit = false;
  bool ModeOut = false;
  bool ModeCalib = false;
  bool ModeCell = false;

  HelpTextTable HelpTopic{};  ///< the texts of the on-line help, set once when the main menu is loaded

  bool ZoomMode = false;      ///< a zoom selection is under way
  bool ExplorerMode = false;  ///< Manual Explorer follows the mouse
  float ExplorerScaleX = 0;   ///< ScaleX at the start of the explorer
  float ExplorerScaleY = 0;

  float ZoomXMin = 0;  ///< limits of what the zoom window shows
  float ZoomXMax = 0;
  float ZoomYMin = 0;
  float ZoomYMax = 0;

  EditedPortion Edit;

  bool MultiOp = false;  ///< an operation on one profile of a plot of several: that plot is drawn anew
  ComputedProfile Sum;
  float SumWavelength = 0;     ///< mean of the two profiles of a plot, angstrom
  std::int16_t SumSource = 0;  ///< the buffer whose format a computed profile takes

  std::int16_t BitmapSource = 0;  ///< number of the window whose picture is to be saved; 0 is none
  std::string ProfileColourName;
  std::string BackgroundColourName;

  /// The background in hand, one value for each point of the profile; all 0 when there is none.
  PointTable BackgroundY = PointTable(MaxPoints + 1);
  PointTable BackgroundX = PointTable(MaxPoints + 1);  ///< X of a background that was chosen for a fit
  PointTable NetY = PointTable(MaxPoints + 1);         ///< the profile less the background
  std::int16_t BackgroundSubtracted = 0;               ///< 1: NetY is what is saved, not BackgroundY
  PointTable PaddedY = PointTable(PaddedYBound + 1);   ///< the background between its two paddings
  bool SaveDft = false;                                ///< the smoothed profile comes from the Fourier filter
  PointTable ScratchX = PointTable(MaxPoints + 1);
  PointTable ScratchY = PointTable(MaxPoints + 1);

  PeakFit Fit;
  Couples Coupled;
};

/// Whether none of the six buffers holds a profile.
[[nodiscard]] bool AllBuffersEmpty(const Workspace& workspace);

/// Clears everything of a slot, the format header lines excepted. The limits become 0.
void EraseBuffer(Workspace& workspace, int slot);

}  // namespace koprax
