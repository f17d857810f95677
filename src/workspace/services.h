// What any window may ask of the whole, one small abstract class a wing, which the composition
// implements. So no window includes another wing's window.
#pragma once

#include <optional>
#include <string>

#include "forms/runtime.h"
#include "workspace/help_topics.h"

namespace koprax {

class Desktop;
struct Workspace;

/// The main menu, its pickers, the help, the shared file dialog.
class MainServices {
 public:
  MainServices() = default;
  MainServices(const MainServices&) = delete;
  MainServices& operator=(const MainServices&) = delete;
  virtual ~MainServices() = default;

  virtual void ShowMainMenu() = 0;
  virtual void BringMainMenuToFront() = 0;
  virtual void ShowHelp(HelpTopic topic) = 0;
  /// Opens the picker of the buffer that the load, or the pending mode flag, is for.
  virtual void OpenProfilePicker() = 0;
  /// Asks for a file; the path goes to FileName. Nothing on cancel, and FileName stays.
  virtual std::optional<std::string> AskForFile(const FileDialogRequest& request) = 0;
};

/// Files in and out.
class FileServices {
 public:
  FileServices() = default;
  FileServices(const FileServices&) = delete;
  FileServices& operator=(const FileServices&) = delete;
  virtual ~FileServices() = default;

  /// Asks for a file and shows its preview.
  virtual void StartLoad() = 0;
  /// Reads a file into the buffer if one is due, takes a fresh temporary copy and opens the window of the
  /// pending mode on it. False when no profile came of it; the user has been told of a failed reading.
  virtual bool ShowBuffer(int slot, bool for_display) = 0;
  /// Gives up what still waits for an answer about an earlier file: a load, a save, the preview of a
  /// calibration. Its windows go, and its flags end.
  virtual void GiveUpEarlierFile() = 0;
  /// Asks under which name CurBuf is to be saved, and then for the format. The mode of saving, which was
  /// set before, ends with the save or when it is given up.
  virtual void StartSave() = 0;
  /// Closes a window in which a title is being typed; the title stays as it was.
  virtual void GiveUpTitle() = 0;
  /// Closes all windows that wait for an answer about CurBuf, as by their close boxes: a title that is being
  /// typed, the preview of a calibration file or of a peak list, the format of a save.
  virtual void GiveUpAnswers() = 0;
};

/// The windows that show profiles.
class DisplayServices {
 public:
  DisplayServices() = default;
  DisplayServices(const DisplayServices&) = delete;
  DisplayServices& operator=(const DisplayServices&) = delete;
  virtual ~DisplayServices() = default;

  /// Opens the Display and Work window anew and draws the temporary copy of the buffer; false when
  /// there is nothing to draw.
  virtual bool OpenDisplayWindow(int slot) = 0;
  /// Shows the buffers selected in SelBuf in one plot, in a window opened anew; the user is told when they
  /// can't share one, and the windows stay as they are.
  virtual void ShowSeveralProfiles() = 0;
};

/// The view of a reference card.
class CardServices {
 public:
  CardServices() = default;
  CardServices(const CardServices&) = delete;
  CardServices& operator=(const CardServices&) = delete;
  virtual ~CardServices() = default;

  /// Shows the card in CurBuf.
  virtual void OpenCardWindow() = 0;
};

/// The tools that smooth a profile and estimate its background.
class ManipulationServices {
 public:
  ManipulationServices() = default;
  ManipulationServices(const ManipulationServices&) = delete;
  ManipulationServices& operator=(const ManipulationServices&) = delete;
  virtual ~ManipulationServices() = default;

  /// Opens the Profile manipulation window anew and draws the temporary copy of the buffer; false when there
  /// is nothing to draw. The window stays open.
  virtual bool OpenManipulationWindow(int slot) = 0;
  /// A window that has a background in hand puts it by until its next command: its table is about to be used
  /// by another one.
  virtual void PutByBackground() = 0;
};

/// The fit of peaks.
class FitServices {
 public:
  FitServices() = default;
  FitServices(const FitServices&) = delete;
  FitServices& operator=(const FitServices&) = delete;
  virtual ~FitServices() = default;

  /// Opens the Peak fit window anew and draws the temporary copy of the buffer; false when there is nothing
  /// to draw.
  virtual bool OpenFitWindow(int slot) = 0;
};

/// The calibration of a channel detector.
class CalibrationServices {
 public:
  CalibrationServices() = default;
  CalibrationServices(const CalibrationServices&) = delete;
  CalibrationServices& operator=(const CalibrationServices&) = delete;
  virtual ~CalibrationServices() = default;

  /// Opens the Calibration window anew on the peak list of CurBuf. A buffer without a list is asked for one
  /// first; the window shows itself once there is one, or goes again.
  virtual void OpenCalibrationWindow() = 0;
};

/// The refinement of a cell.
class CellServices {
 public:
  CellServices() = default;
  CellServices(const CellServices&) = delete;
  CellServices& operator=(const CellServices&) = delete;
  virtual ~CellServices() = default;

  /// Opens the Cell refinement window anew on the peak list of CurBuf, as the Calibration window is opened.
  /// Where the list is refused, CalCancelled is set and no buffer is at work.
  virtual void OpenCellWindow() = 0;
};

/// What each window is handed at its making.
struct WindowContext {
  Desktop& Desk;
  Workspace& Data;
  MainServices& Main;
  FileServices& Files;
  DisplayServices& Display;
  CardServices& Cards;
  ManipulationServices& Manipulation;
  FitServices& Fit;
  CalibrationServices& Calibration;
  CellServices& Cell;
};

}  // namespace koprax
