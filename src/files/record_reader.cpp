#include "files/record_reader.h"

#include <utility>

namespace koprax {

std::variant<TextFile, ReadOutcome> OpenRecords(const std::string& file_name) {
  auto read = ReadTextFile(file_name);
  if (const auto* error = std::get_if<FileError>(&read)) return UnreadableFile(file_name, error->Reason);
  auto& file = std::get<TextFile>(read);
  if (file.Contents().empty()) return EmptyFile(file_name);
  return std::move(file);
}

RecordReader::~RecordReader() {
  if (any_record_) StoreWords(tables_, record_, words_);
}

const LineWords& RecordReader::NextRecord() {
  record_ = lines_.NextLine();
  any_record_ = true;
  SplitLine(record_, words_);
  if (words_.Truncated) tell_(TooManyWords());
  return words_;
}

}  // namespace koprax
