// Form23, "Refined peak list": the peaks of the last fit beside the peak list of the buffer, and what moves
// from the one to the other.
#pragma once

#include <functional>

#include "fit/refined_peaks.h"
#include "forms/form.h"
#include "workspace/buffer_commands.h"
#include "workspace/kept_profile.h"
#include "workspace/services.h"

namespace koprax {

class Form23 final : public Form {
 public:
  /// Works on the list of CurBuf as it stands at the opening.
  explicit Form23(const WindowContext& context);

 private:
  void OnLoad() override;

  void ArrangeControls();
  void ConnectHandlers();
  /// What screen readers and the keyboard know of the buttons, most of which are called "OK".
  void SetKeys();
  /// A command on the lists; nothing but a message where the buffer holds another profile by now.
  [[nodiscard]] std::function<void()> OnItsProfile(std::function<void()> command);
  /// Shows what has become of the lists, or says why nothing has.
  void Finish(ListChange change);
  void ShowLists();
  /// The buffer of its opening; with none at work that of slot 0.
  [[nodiscard]] ProfileBuffer& Buffer() const { return ShownBuffer(context_, slot_); }

  WindowContext context_;
  int slot_ = 0;  // of the profile that was fitted
  KeptProfile kept_;
  TemporaryPeaks peaks_;

  Label Label2{*this, "Label2", {.Caption = "           Refined peaks"}};
  Label Label7{*this, "Label7", {.Caption = "           Permanent List"}};
  TextBox Text1{*this,
                "Text1",
                {.Meaning = "Permanent list of peaks",
                 .Font = "Courier",
                 .Locked = true,
                 .MultiLine = true,
                 .Columns = 31,
                 .Rows = 14}};
  Label Label6{*this, "Label6", {.Caption = "          Temporary List"}};
  TextBox Text2{*this,
                "Text2",
                {.Meaning = "Temporary list of refined peaks",
                 .Font = "Courier",
                 .Locked = true,
                 .MultiLine = true,
                 .Columns = 31,
                 .Rows = 14}};

  Label Label3{*this, "Label3", {.Caption = "Substitute peak nr."}};
  TextBox Text3{*this, "Text3", {.Meaning = "Peak of the permanent list to be substituted", .Columns = 4}};
  Label Label5{*this, "Label5", {.Caption = " in permanent list with peak nr."}};
  TextBox Text4{*this, "Text4", {.Meaning = "Peak of the temporary list that takes its place", .Columns = 4}};
  Label Label4{*this, "Label4", {.Caption = "in temporary list"}};
  Button cmdSubs{*this, "cmdSubs", {.Caption = "OK"}};

  Label Label1{*this, "Label1", {.Caption = "         Add peak nr."}};
  TextBox Text5{*this, "Text5", {.Meaning = "Peak of the temporary list to be added", .Columns = 4}};
  Label Label8{*this, "Label8", {.Caption = " in temporary list to peaks in permanent list"}};
  Button cmdInsert{*this, "cmdInsert", {.Caption = "OK"}};

  Label Label11{*this, "Label11", {.Caption = "      Delete peak nr."}};
  TextBox Text6{*this, "Text6", {.Meaning = "Peak of the permanent list to be deleted", .Columns = 4}};
  Label Label12{*this, "Label12", {.Caption = " in permanent list"}};
  Button cmdDelete{*this, "cmdDelete", {.Caption = "OK"}};

  Label Label9{*this, "Label9", {.Caption = "Order permanent list"}};
  Button cmdOrder{*this, "cmdOrder", {.Caption = "OK"}};
  Label Label10{*this, "Label10", {.Caption = "Save permanent list on disk"}};
  Button cmdSave{*this, "cmdSave", {.Caption = "OK"}};
  Button cmdBack{*this, "cmdBack", {.Caption = " Quit"}};
};

}  // namespace koprax
