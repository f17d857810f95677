#include "files/peak_list_window.h"

#include <utility>

#include "forms/desktop.h"

namespace koprax {

PeakListWindow::PeakListWindow(const WindowContext& context, const PeakListWindowKind& kind,
                               std::string_view contents, PeakListActions actions)
    : Form(context.Desk, kind.Name, kind.Caption),
      context_(context),
      kind_(kind),
      file_name_(context.Data.FileName),
      lines_(FirstLines(contents, kind.MaxLines)),
      actions_(std::move(actions)) {
  SetLayout(Column({Stretched(Text1), Row({Space(), cmdOK, cmdCancel})}), true);
  cmdOK.OnClick = [this] { Accept(); };
  cmdCancel.OnClick = [this] { GiveUp(); };
  EnterClicks(cmdOK);
  EscapeClicks(cmdCancel);
}

void PeakListWindow::OnLoad() {
  std::string shown;
  for (const std::string& line : lines_) shown += line + "\r\n";
  Text1.Text = shown;
}

void PeakListWindow::Accept() {
  PeakLinesRead read;
  if (lines_.size() < kind_.MaxLines) {
    read = ReadPeakLines(lines_, kind_.End, context_.Data.Words,
                         [this](const Message& message) { Tell(message); });
  }
  if (read.BadLine != 0) {
    Tell(*UnreadableLine(file_name_, read.BadLine, OutOfRange("a number")).Problem);
    return;
  }
  kind_.Take(context_.Data.Current(), read.Peaks);
  TellLimits(read.Peaks.size());
  Unload();
  actions_.Taken();
}

void PeakListWindow::TellLimits(std::size_t peaks) {
  std::string text;
  if (lines_.size() >= kind_.MaxLines) {
    const std::string limit = std::to_string(kind_.MaxLines);
    text = "has " + limit + " lines or more. No peak was taken.\r\nA list to be read has fewer than " +
           limit + " lines.";
  } else if (peaks > MaxPeaks) {
    const std::string limit = std::to_string(MaxPeaks);
    text = "holds more than " + limit + " peaks.\r\nThe first " + limit + " were taken.";
  } else if (peaks == 0) {
    text = "holds no peak.\r\nA line of a list begins with the position of its peak.";
  } else {
    return;
  }
  Tell({.Text = "The file " + file_name_ + " " + text, .Title = "Warning", .Icon = MessageIcon::Exclamation});
}

void PeakListWindow::GiveUp() {
  Unload();
  actions_.GivenUp();
}

void PeakListWindow::Tell(const Message& message) { Desk().Host().MsgBox(message); }

}  // namespace koprax
