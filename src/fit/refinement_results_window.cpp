#include "fit/refinement_results_window.h"

#include <utility>

namespace koprax {

Form22::Form22(const WindowContext& context, RefinementActions actions)
    : Form(context.Desk, "Form22", "Refinement results"), actions_(std::move(actions)) {
  SetLayout(Column({Label7,
                    Grid(2, {Label2, Text2,  //
                             Label1, Text1,  //
                             Label3, Text3,  //
                             Label4, Text4,  //
                             Label5, Text5,  //
                             Label6, Text6}),
                    Row({Space(), Command1, Command2})}));
  Command1.OnClick = [this] { Continue(); };
  Command2.OnClick = [this] { actions_.Stop(); };
  EscapeCloses();
}

void Form22::ShowResults(const std::string& start, const std::array<std::string, 6>& cycles) {
  Text2.Text = start;
  std::size_t cycle = 0;
  for (TextBox* box : {&Text1, &Text3, &Text4, &Text5, &Text6}) {
    box->Text = cycles[++cycle];
  }
  for (Button* button : {&Command1, &Command2}) {
    button->Visible = true;
  }
  MousePointer = Pointer::Arrow;
  Show();
}

void Form22::Continue() {
  MousePointer = Pointer::Hourglass;
  for (Control* control : Controls()) {
    control->Refresh();
  }
  actions_.Continue();
  MousePointer = Pointer::Arrow;  // where it was refused, too
}

}  // namespace koprax
