#include "files/trial_reading.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>

#include "files/profile_readers.h"
#include "forms/fixed_text.h"

namespace koprax {

namespace {

constexpr int slot = 1;
/// Stands where a reader has to write, so that what it leaves alone is seen.
constexpr float unwritten = std::numeric_limits<float>::quiet_NaN();

void Unwrite(ProfileBuffer& buffer) {
  std::ranges::fill(buffer.PermX, unwritten);
  std::ranges::fill(buffer.PermY, unwritten);
  buffer.Wavelength = unwritten;
}

std::string OnOneLine(std::string text) {
  for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at)) {
    text.replace(at, 2, " ");
  }
  return text;
}

void SumUp(const ProfileBuffer& buffer, int format, TrialReading& trial) {
  ReadSummary& summary = trial.Summary;
  summary.Points = buffer.PermNpts;
  trial.X.assign(buffer.PermX.begin(), buffer.PermX.begin() + summary.Points + 1);
  trial.Y.assign(buffer.PermY.begin(), buffer.PermY.begin() + summary.Points + 1);
  if (summary.Points > 0) summary.First = trial.Point(1);
  int last = summary.Points;
  while (last > 0 && std::isnan(trial.X[static_cast<std::size_t>(last)])) --last;
  if (last > 0) summary.Last = trial.Point(last);
  summary.Step = buffer.XStep;
  if (!std::isnan(buffer.Wavelength)) summary.Wavelength = buffer.Wavelength;
  summary.Title = RightTrimmed(buffer.Title);
  trial.StatedEnd = format == input_format::Udf ? buffer.PermXMax : buffer.FileXMax;
}

/// Messages of fixed words don't tell where the reading stopped; the others name the file, and the line.
void TakeRefusal(const ReadOutcome& outcome, const std::string& file_name, TrialReading& trial) {
  if (!outcome.Problem) return;
  trial.Summary.Refusal = OnOneLine(outcome.Problem->Text);
  if (trial.Summary.Refusal.find(file_name) == std::string::npos) trial.Summary.RefusalLine = trial.LastLine;
}

}  // namespace

CheckedPoint TrialReading::Point(int number) const {
  const auto i = static_cast<std::size_t>(number);
  return {.Number = number, .X = X[i], .Y = Y[i]};
}

TrialReading ReadOnTrial(const std::string& file_name, const TextFile& file, int format) {
  TrialReading trial;
  const auto workspace = std::make_unique<Workspace>();
  workspace->FileName = file_name;
  ProfileBuffer& buffer = workspace->Buffer(slot);
  Unwrite(buffer);
  const ProfileReading* at_work = nullptr;
  const TellUser tell = [&](const Message& message) {
    trial.Told.push_back({at_work->Records.LineNumber(), OnOneLine(message.Text)});
  };
  ProfileReading reading(*workspace, buffer, file, tell);
  at_work = &reading;
  reading.PointLines = &trial.PointLines;
  const ReadOutcome outcome = file.Contents().empty()
                                  ? EmptyFile(file_name)
                                  : ReadRecordsByFormat(format, reading, [] { return CardWavelength; });
  trial.LastLine = reading.Records.LineNumber();
  trial.Summary.Read = !outcome.Failed;
  if (outcome.Failed) {
    TakeRefusal(outcome, file_name, trial);
  } else {
    SumUp(buffer, format, trial);
  }
  return trial;
}

}  // namespace koprax
