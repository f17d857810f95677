#include "files/preview_window.h"

#include "files/format_window.h"
#include "forms/desktop.h"
#include "workspace/workspace.h"

namespace koprax {

Form4::Form4(const WindowContext& context) : Form(context.Desk, "Form4", "Form4"), context_(context) {
  SetLayout(Column({Stretched(Text1), Row({Space(), cmdOK, cmdCancel})}), true);
  cmdOK.OnClick = [this] { Accept(); };
  cmdCancel.OnClick = [this] { Cancel(); };
}

void Form4::OnLoad() {
  preview_ = PreviewOfFile(context_.Data.FileName);
  Text1.Text = preview_.Text;
}

void Form4::Accept() {
  Unload();
  Desk().Load<Form7>(context_)->Show();
}

void Form4::Cancel() {
  Unload();
  context_.Main.BringMainMenuToFront();
}

}  // namespace koprax
