#include "workspace/workspace.h"

#include <algorithm>

namespace koprax {

Workspace::Workspace() : BlankTitle(TitleWidth, ' ') {
  Words.WordStr.fill(std::string(MaxWords, ' '));
  Words.LineChars.fill(" ");
  EraseBuffer(*this, 0);
  for (int slot = 1; slot <= NumBuffers; ++slot) {
    ProfileBuffer& buffer = Buffer(slot);
    buffer.Title = BlankTitle;
    buffer.BufLetter = std::string(1, static_cast<char>('a' + slot - 1));
    buffer.UdfHeader.fill(" ");
    buffer.UxdHeader.fill(" ");
  }
}

bool AllBuffersEmpty(const Workspace& workspace) {
  return std::all_of(workspace.Buffers.begin() + 1, workspace.Buffers.end(),
                     [](const ProfileBuffer& buffer) { return buffer.Empty(); });
}

void EraseBuffer(Workspace& workspace, int slot) {
  ProfileBuffer& buffer = workspace.Buffer(slot);
  buffer.Title = workspace.BlankTitle;
  buffer.Latin1Text = false;
  buffer.FormatCode = 0;
  buffer.Wavelength = buffer.XStep = buffer.FileXMin = buffer.FileXMax = 0;
  buffer.PermNpts = buffer.WorkNpts = 0;
  for (PointTable* table : {&buffer.PermX, &buffer.PermY, &buffer.WorkX, &buffer.WorkY}) {
    std::ranges::fill(*table, 0.0F);
  }
  buffer.PermXMin = buffer.PermXMax = buffer.PermYMin = buffer.PermYMax = 0;
  buffer.WorkXMin = buffer.WorkXMax = buffer.WorkYMin = buffer.WorkYMax = 0;
  buffer.NPeaks = 0;
  for (auto* list : {&buffer.PeakTheta, &buffer.PeakY, &buffer.PeakD, &buffer.PeakChannel}) {
    list->fill("");
  }
  buffer.PeakListText.clear();
  buffer.CalPar.fill(0);
  buffer.CpsLine2.clear();
  buffer.CpsRecNo = 0;
  buffer.CpsLine4.clear();
  buffer.BufColor = 0;
  buffer.SelList = 0;
  buffer.NegativeY = 0;
  workspace.SelBuf[static_cast<std::size_t>(slot)] = 0;
}

}  // namespace koprax
