#include "cards/card_window.h"

#include <array>
#include <cstddef>

#include "cards/card_plot.h"
#include "cards/card_printing.h"
#include "cards/card_table.h"
#include "display/mouse_tips.h"
#include "display/plot_axes.h"
#include "forms/desktop.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"
#include "workspace/bragg.h"
#include "workspace/buffer_commands.h"

namespace koprax {

Form34::Form34(const WindowContext& context) : Form(context.Desk, "Form34", "Peaks"), context_(context) {
  for (Label* greek : {&Label6, &Label7, &Label8}) {
    greek->FontName = SymbolFont;
  }
  ArrangeControls();
  cmdPrint.OnClick = [this] { Print(); };
  Command3.OnClick = [this] { Unload(); };
  Picture1.OnMouseMove = [this](float x, float y) { ShowReadOut(x, y); };
}

void Form34::ArrangeControls() {
  SetLayout(Column({
                Text13,
                Stretched(Picture1),
                Row({Stretched(Text1), Stretched(Text2), Stretched(Text3), Stretched(Text4), Stretched(Text5),
                     Stretched(Text12)}),
                Stretched(Row({
                    Column({Framed(Frame1, Column({Grid(4, {Label2, Text6, Label6, Text9,   //
                                                            Label4, Text7, Label7, Text10,  //
                                                            Label5, Text8, Label8, Text11}),
                                                   Row({Label1, Stretched(Label3)})})),
                            Space(), Row({cmdPrint, Command3})}),
                    Stretched(Framed(Frame2, Column({Stretched(Text14)}))),
                })),
            }),
            true);
}

void Form34::OnLoad() {
  slot_ = context_.Data.CurBuf;
  const ProfileBuffer& card = context_.Data.Current();
  ShowCrystalData(card);
  Text13.Text = card.Title;
  DrawPattern(card);
  Text14.Text = CardTable(card);
}

void Form34::ShowCrystalData(const ProfileBuffer& card) {
  const std::array<TextBox*, 6> boxes{&Text6, &Text7, &Text8, &Text9, &Text10, &Text11};
  for (std::size_t k = 0; k < boxes.size(); ++k) {
    if (card.CardCell[k + 1] != 0) {
      boxes[k]->Text = GeneralText(card.CardCell[k + 1]);
    }
  }
  if (!RightTrimmed(card.CardSpaceGroup).empty()) {
    Label3.Caption = card.CardSpaceGroup;
  }
}

void Form34::DrawPattern(const ProfileBuffer& card) {
  const XRange range = CardRange(card);
  Text1.Text = "xmin = " + RoundedText(range.Low, 3);
  Text2.Text = "xmax = " + RoundedText(range.High, 3);
  if (plot_.DrawFrame(range, Picture1)) {
    plot_.DrawSticks(CardSticks(card), Picture1);
    Picture1.ToolTip = mouse_tips::ReadOutWithD;
  } else {
    Desk().Host().MsgBox(NoYSpan());
  }
  if (card.Wavelength != 0) {
    Text3.Text = "  l = " + GeneralText(card.Wavelength);
  }
}

void Form34::ShowReadOut(float x, float y) {
  if (!plot_.Readable()) {
    return;
  }
  const auto [two_theta, intensity] = plot_.NearestPlace(x, y);
  // The limits reach below 0, where there is no d.
  const float spacing = two_theta > 0 ? SpacingOf(two_theta, context_.Data.Buffer(slot_).Wavelength) : 0;
  Text4.Text = "x = " + RoundedText(two_theta, 4);
  Text5.Text = "y = " + RoundedText(intensity, 1);
  Text12.Text = "d = " + RoundedText(spacing, 4);
}

void Form34::Print() {
  const ProfileBuffer& card = context_.Data.Buffer(slot_);
  if (!card.IsCard() || !plot_.Readable()) {
    Desk().Host().MsgBox(ErrorMessage("Buffer " + card.BufLetter +
                                      " holds no card that could be printed.\r\nDisplay the card first."));
    return;
  }
  MakeCurrent(context_, slot_);
  PrintCard(context_, plot_.Limits());
}

}  // namespace koprax
