#include "files/record_reader.h"

namespace koprax {

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
