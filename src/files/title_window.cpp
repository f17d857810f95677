#include "files/title_window.h"

#include <utility>

#include "forms/fixed_text.h"
#include "workspace/workspace.h"

namespace koprax {

TitleWindow::TitleWindow(const WindowContext& context, const TitleWindowKind& kind,
                         std::function<void()> titled)
    : Form(context.Desk, kind.Name, kind.Caption), context_(context), titled_(std::move(titled)) {
  SetLayout(Column({Label1, Stretched(Text1), Row({Space(), Command1})}));
  Command1.OnClick = [this] { TakeTitle(); };
  EnterClicks(Command1);
  EscapeCloses();
}

void TitleWindow::OnLoad() { Text1.Text = RightTrimmed(context_.Data.Current().Title); }

void TitleWindow::OnCloseBox() {
  Unload();
  titled_();
}

void TitleWindow::TakeTitle() {
  context_.Data.Current().Title = FixedField(Text1.Text.Get(), TitleWidth);
  Unload();
  titled_();
}

}  // namespace koprax
