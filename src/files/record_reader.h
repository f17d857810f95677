// Reads the records of a file one by one, each split into its words. The workspace's word tables are
// written once, at the end, as the last record leaves them.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "files/read_outcome.h"
#include "files/tokeniser.h"
#include "forms/text_file.h"
#include "workspace/workspace.h"

namespace koprax {

/// Reads a file that must hold at least one record. It fails when it can't be read or is empty.
[[nodiscard]] std::variant<TextFile, ReadOutcome> OpenRecords(const std::string& file_name);

/// The text, the tables and what `tell` refers to must outlive the reader.
class RecordReader {
 public:
  RecordReader(std::string_view text, TokenisedWords& tables, const TellUser& tell)
      : lines_(text), tables_(tables), tell_(tell) {}
  RecordReader(const RecordReader&) = delete;
  RecordReader& operator=(const RecordReader&) = delete;
  ~RecordReader();

  [[nodiscard]] bool AtEnd() const { return lines_.AtEnd(); }
  /// The lines behind the records, for what is read without splitting.
  [[nodiscard]] LineReader& Lines() { return lines_; }
  /// The number of the line that was read last, from 1.
  [[nodiscard]] int LineNumber() const { return lines_.LineNumber(); }

  /// Reads a line and splits it; too many words are told, and the first ones kept. The words stand until
  /// the next record.
  const LineWords& NextRecord();
  /// The record that was read last, whole.
  [[nodiscard]] std::string_view Record() const { return record_; }

 private:
  LineReader lines_;
  TokenisedWords& tables_;
  const TellUser& tell_;
  LineWords words_;
  std::string_view record_;
  bool any_record_ = false;
};

}  // namespace koprax
