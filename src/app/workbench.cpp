#include "app/workbench.h"

#include <utility>

#include "calibration/calibration_window.h"
#include "cards/card_window.h"
#include "cell/cell_window.h"
#include "display/bitmap_window.h"
#include "display/computed_profile_window.h"
#include "display/display_window.h"
#include "display/several_profiles_window.h"
#include "display/zoom_window.h"
#include "files/file_choice.h"
#include "files/format_window.h"
#include "files/load_pipeline.h"
#include "files/peak_list_window.h"
#include "files/preview_window.h"
#include "files/save_pipeline.h"
#include "files/title_window.h"
#include "fit/peak_fit_window.h"
#include "manipulation/manipulation_window.h"
#include "workspace/buffer_commands.h"
#include "workspace/buffer_picker.h"
#include "workspace/file_dialog_window.h"
#include "workspace/help_window.h"
#include "workspace/main_menu.h"

namespace koprax {

/// Answers what the windows ask of the whole.
class Workbench::Windows final : public MainServices,
                                 public FileServices,
                                 public DisplayServices,
                                 public CardServices,
                                 public ManipulationServices,
                                 public FitServices,
                                 public CalibrationServices,
                                 public CellServices {
 public:
  Windows(Desktop& desk, Workspace& data)
      : context_{desk, data, *this, *this, *this, *this, *this, *this, *this, *this} {}

  void Start() {
    file_dialog_ = context_.Desk.Load<Form9>(context_.Desk, context_.Data);
    main_menu_ = context_.Desk.Load<Form1>(context_);
    main_menu_->Show();
  }

  void ShowMainMenu() override { main_menu_->Show(); }
  void BringMainMenuToFront() override { main_menu_->BringToFront(); }

  void ShowHelp(HelpTopic topic) override {
    auto help = std::dynamic_pointer_cast<Form5>(context_.Desk.Find("Form5"));
    if (!help) {
      help = context_.Desk.Load<Form5>(context_);
    }
    help->ShowTopic(topic);
  }

  void OpenProfilePicker() override {
    Workspace& data = context_.Data;
    PickerActions actions;
    if (data.ModeOut) {
      actions.Chosen = [this](Form&, const std::vector<int>&) {
        // A picker that this one has replaced leaves nothing behind that would turn a later load into
        // something else.
        context_.Data.ModeAnal = context_.Data.ModeFit = false;
        SaveChosenProfile(context_);
      };
    } else {
      actions.Chosen = [this, purpose = PickingPurpose()](Form& picker, const std::vector<int>&) {
        // Its mode may have ended meanwhile; without one the choice would be that of a load.
        if (purpose != nullptr && PickingPurpose() == nullptr) {
          context_.Data.*purpose = true;
        }
        OpenChosenProfile(context_, picker);
      };
    }
    actions.GivenUp = [&data] { data.ModeOut = data.ModeAnal = data.ModeFit = false; };
    context_.Desk.Load<BufferPicker>(context_, pickers::Profile, std::move(actions))->Show();
  }

  std::optional<std::string> AskForFile(const FileDialogRequest& request) override {
    return file_dialog_->Ask(request);
  }

  void StartLoad() override { StartLoadSequence(context_); }

  bool ShowBuffer(int slot, bool for_display) override {
    return koprax::ShowBuffer(context_, slot, for_display);
  }

  void GiveUpEarlierFile() override { koprax::GiveUpEarlierFile(context_); }

  void StartSave() override { StartSaveSequence(context_); }

  void GiveUpTitle() override {
    CloseByBox(title_windows::SavedProfile.Name);
    CloseByBox(title_windows::ComputedProfile.Name);
  }

  void GiveUpAnswers() override {
    GiveUpTitle();
    CloseByBox(peak_list_windows::Calibration.Name);
    CloseByBox(peak_list_windows::Cell.Name);
    const auto preview = std::dynamic_pointer_cast<Form4>(context_.Desk.Find("Form4"));
    if (preview && preview->ForCalibration()) {
      preview->CloseBox();
    }
    const auto format = std::dynamic_pointer_cast<Form7>(context_.Desk.Find("Form7"));
    if (format && format->ForSaving()) {
      format->CloseBox();
    }
  }

  bool OpenDisplayWindow(int slot) override {
    const auto window = context_.Desk.Load<Form6>(context_);
    window->Show();
    return window->ShowProfile(slot);
  }

  void ShowSeveralProfiles() override { koprax::ShowSeveralProfiles(context_); }

  void OpenCardWindow() override { context_.Desk.Load<Form34>(context_)->Show(); }

  bool OpenManipulationWindow(int slot) override {
    const auto window = context_.Desk.Load<Form12>(context_);
    window->Show();
    return window->ShowProfile(slot);
  }

  void PutByBackground() override {
    if (const auto window = std::dynamic_pointer_cast<Form12>(context_.Desk.Find("Form12"))) {
      window->PutByBackground();
    }
  }

  bool OpenFitWindow(int slot) override {
    const auto window = context_.Desk.Load<Form19>(context_);
    window->Show();
    return window->ShowProfile(slot);
  }

  void OpenCalibrationWindow() override { context_.Desk.Load<Form24>(context_); }

  void OpenCellWindow() override { context_.Desk.Load<Form26>(context_); }

  [[nodiscard]] std::vector<std::shared_ptr<const Form>> WithPictures() const {
    return {std::make_shared<Form2>(context_),
            std::make_shared<Form6>(context_),
            std::make_shared<Form12>(context_),
            std::make_shared<Form15>(context_, ZoomOpening{}),
            std::make_shared<Form19>(context_),
            std::make_shared<Form24>(context_),
            std::make_shared<Form26>(context_),
            std::make_shared<Form30>(context_, ComputedProfileOpening{}),
            std::make_shared<Form34>(context_),
            std::make_shared<Form36>(context_, std::make_shared<PixelImage>())};
  }

 private:
  /// The mode that a profile is picked for; none for a load.
  [[nodiscard]] bool Workspace::*PickingPurpose() const {
    const Workspace& data = context_.Data;
    if (data.ModeAnal) return &Workspace::ModeAnal;
    return data.ModeFit ? &Workspace::ModeFit : nullptr;
  }

  void CloseByBox(const char* name) {
    if (const auto window = context_.Desk.Find(name)) {
      window->CloseBox();
    }
  }

  WindowContext context_;
  std::shared_ptr<Form9> file_dialog_;
  std::shared_ptr<Form1> main_menu_;
};

Workbench::Workbench(Runtime& runtime) : desk_(runtime), windows_(std::make_unique<Windows>(desk_, data_)) {}

Workbench::~Workbench() = default;

void Workbench::Start() { windows_->Start(); }

Desktop& Workbench::Desk() { return desk_; }

Workspace& Workbench::Data() { return data_; }

std::vector<std::shared_ptr<const Form>> Workbench::WindowsWithPictures() const {
  return windows_->WithPictures();
}

const std::vector<std::string>& Workbench::FormNames() {
  static const std::vector<std::string> names{
      "Form1",
      "Form2",
      title_windows::SavedProfile.Name,
      "Form4",
      "Form5",
      "Form6",
      "Form7",
      "Form8",
      "Form9",
      pickers::Profile.Name,
      pickers::Display.Name,
      "Form12",
      title_windows::ComputedProfile.Name,
      "Form15",
      pickers::CalibrationOrBackground.Name,
      pickers::Erase.Name,
      pickers::SmoothedResult.Name,
      "Form19",
      "Form20",
      pickers::FitBackground.Name,
      "Form22",
      "Form23",
      "Form24",
      peak_list_windows::Calibration.Name,
      "Form26",
      pickers::Cell.Name,
      peak_list_windows::Cell.Name,
      pickers::ComputedProfile.Name,
      pickers::SeveralSaved.Name,
      "Form30",
      "Form31",
      "Form33",
      "Form34",
      "Form35",
      "Form36",
  };
  return names;
}

}  // namespace koprax
