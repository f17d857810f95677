// The workspace and the record of a buffer, field by field with their names, so that they can be looked
// up and listed from outside. Each field stands here once; what is done with it is left to the visitor.
#pragma once

#include "workspace/workspace.h"

namespace koprax {

/// Calls visit(name, field) for each field of a buffer, in the order of the record.
template <class Buffer, class Visitor>
void VisitBufferFields(Buffer& buffer, Visitor&& visit) {
  visit("Title", buffer.Title);
  visit("Latin1Text", buffer.Latin1Text);
  visit("BufLetter", buffer.BufLetter);
  visit("FormatCode", buffer.FormatCode);
  visit("Wavelength", buffer.Wavelength);
  visit("XStep", buffer.XStep);
  visit("FileXMin", buffer.FileXMin);
  visit("FileXMax", buffer.FileXMax);
  visit("PermNpts", buffer.PermNpts);
  visit("PermX", buffer.PermX);
  visit("PermY", buffer.PermY);
  visit("PermXMin", buffer.PermXMin);
  visit("PermXMax", buffer.PermXMax);
  visit("PermYMin", buffer.PermYMin);
  visit("PermYMax", buffer.PermYMax);
  visit("WorkNpts", buffer.WorkNpts);
  visit("WorkX", buffer.WorkX);
  visit("WorkY", buffer.WorkY);
  visit("WorkXMin", buffer.WorkXMin);
  visit("WorkXMax", buffer.WorkXMax);
  visit("WorkYMin", buffer.WorkYMin);
  visit("WorkYMax", buffer.WorkYMax);
  visit("NPeaks", buffer.NPeaks);
  visit("PeakTheta", buffer.PeakTheta);
  visit("PeakY", buffer.PeakY);
  visit("PeakD", buffer.PeakD);
  visit("PeakChannel", buffer.PeakChannel);
  visit("PeakListText", buffer.PeakListText);
  visit("CalPar", buffer.CalPar);
  visit("UdfHeader", buffer.UdfHeader);
  visit("UxdHeader", buffer.UxdHeader);
  visit("UxdHeaderLines", buffer.UxdHeaderLines);
  visit("CpsLine2", buffer.CpsLine2);
  visit("CpsRecNo", buffer.CpsRecNo);
  visit("CpsLine4", buffer.CpsLine4);
  visit("CellFormat", buffer.CellFormat);
  visit("CardCell", buffer.CardCell);
  visit("CardSpaceGroup", buffer.CardSpaceGroup);
  visit("CardD", buffer.CardD);
  visit("CardH", buffer.CardH);
  visit("CardK", buffer.CardK);
  visit("CardL", buffer.CardL);
  visit("NegativeY", buffer.NegativeY);
  visit("BufColor", buffer.BufColor);
  visit("SelList", buffer.SelList);
}

/// Calls visit(name, field) for each field of the workspace outside its buffers, those of its parts by
/// their own names, and for its limits.
template <class Data, class Visitor>
void VisitWorkspaceFields(Data& data, Visitor&& visit) {
  visit("NumBuffers", NumBuffers);
  visit("MaxPoints", MaxPoints);
  visit("MaxWords", MaxWords);
  visit("CurBuf", data.CurBuf);
  visit("FileName", data.FileName);
  visit("InputFormat", data.InputFormat);
  visit("NumSelected", data.NumSelected);
  visit("SelBuf", data.SelBuf);
  visit("BlankTitle", data.BlankTitle);
  visit("WordVal", data.Words.WordVal);
  visit("WordStr", data.Words.WordStr);
  visit("LineChars", data.Words.LineChars);
  visit("PlotXMin", data.PlotXMin);
  visit("PlotXMax", data.PlotXMax);
  visit("PlotYMin", data.PlotYMin);
  visit("PlotYMax", data.PlotYMax);
  visit("FrameLeft", data.Plot.FrameLeft);
  visit("FrameBottom", data.Plot.FrameBottom);
  visit("FrameRight", data.Plot.FrameRight);
  visit("FrameTop", data.Plot.FrameTop);
  visit("PlotLeft", data.Plot.PlotLeft);
  visit("PlotBottom", data.Plot.PlotBottom);
  visit("PlotRight", data.Plot.PlotRight);
  visit("PlotTop", data.Plot.PlotTop);
  visit("ScaleX", data.Plot.ScaleX);
  visit("ScaleY", data.Plot.ScaleY);
  visit("ZeroY", data.Plot.ZeroY);
  visit("Upward", data.Plot.Upward);
  visit("ReadingCal", data.ReadingCal);
  visit("CalCancelled", data.CalCancelled);
  visit("NoProfileForCalib", data.NoProfileForCalib);
  visit("ModeDisp", data.ModeDisp);
  visit("ModeAnal", data.ModeAnal);
  visit("ModeFit", data.ModeFit);
  visit("ModeOut", data.ModeOut);
  visit("ModeCalib", data.ModeCalib);
  visit("ModeCell", data.ModeCell);
  visit("HelpTopic", data.HelpTopic);
  visit("ZoomMode", data.ZoomMode);
  visit("ExplorerMode", data.ExplorerMode);
  visit("ExplorerScaleX", data.ExplorerScaleX);
  visit("ExplorerScaleY", data.ExplorerScaleY);
  visit("ZoomXMin", data.ZoomXMin);
  visit("ZoomXMax", data.ZoomXMax);
  visit("ZoomYMin", data.ZoomYMin);
  visit("ZoomYMax", data.ZoomYMax);
  visit("EditX", data.Edit.EditX);
  visit("EditY", data.Edit.EditY);
  visit("EditNewX", data.Edit.EditNewX);
  visit("EditNewY", data.Edit.EditNewY);
  visit("EditLine", data.Edit.EditLine);
  visit("MultiOp", data.MultiOp);
  visit("SumX", data.Sum.SumX);
  visit("SumY", data.Sum.SumY);
  visit("SumNpts", data.Sum.SumNpts);
  visit("SumXMin", data.Sum.SumXMin);
  visit("SumXMax", data.Sum.SumXMax);
  visit("SumYMin", data.Sum.SumYMin);
  visit("SumYMax", data.Sum.SumYMax);
  visit("SumXStep", data.Sum.SumXStep);
  visit("SumWavelength", data.SumWavelength);
  visit("SumSource", data.SumSource);
  visit("BitmapSource", data.BitmapSource);
  visit("ProfileColourName", data.ProfileColourName);
  visit("BackgroundColourName", data.BackgroundColourName);
  visit("BackgroundY", data.BackgroundY);
  visit("BackgroundX", data.BackgroundX);
  visit("NetY", data.NetY);
  visit("BackgroundSubtracted", data.BackgroundSubtracted);
  visit("PaddedY", data.PaddedY);
  visit("SaveDft", data.SaveDft);
  visit("ScratchX", data.ScratchX);
  visit("ScratchY", data.ScratchY);
  visit("FitParam", data.Fit.FitParam);
  visit("FitList", data.Fit.FitList);
  visit("FitListCount", data.Fit.FitListCount);
  visit("FitBestChi", data.Fit.FitBestChi);
  visit("FitX", data.Fit.FitX);
  visit("FitY", data.Fit.FitY);
  visit("FitPointCount", data.Fit.FitPointCount);
  visit("FitBackgroundY", data.Fit.FitBackgroundY);
  visit("FitCalc", data.Fit.FitCalc);
  visit("FitPolyBackground", data.Fit.FitPolyBackground);
  visit("FitPeakCount", data.Fit.FitPeakCount);
  visit("FitLine", data.Fit.FitLine);
  visit("FitOrigin", data.Fit.FitLine[1]);
  visit("FitRunning", data.Fit.FitRunning);
  visit("FitStopping", data.Fit.FitStopping);
  visit("CoupleCount", data.Coupled.CoupleCount);
  visit("CoupledTheta2", data.Coupled.CoupledTheta2);
  visit("CoupledChannel", data.Coupled.CoupledChannel);
}

}  // namespace koprax
