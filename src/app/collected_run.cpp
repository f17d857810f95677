#include "app/collected_run.h"

#include <cstddef>
#include <map>
#include <optional>
#include <sstream>
#include <utility>
#include <variant>

#include "app/answer_tree.h"
#include "forms/text_file.h"

namespace koprax {

namespace {

using Kinds = AnswerTree::Kinds;

/// What a command asks for: its words behind `get` or `state`, with one blank between them.
std::optional<std::string> QueryOf(const std::string& command) {
  std::istringstream words(command);
  std::string word;
  words >> word;
  if (word == "modal") words >> word;
  if (word != "get" && word != "state") return std::nullopt;
  std::string query;
  while (words >> word) query += (query.empty() ? "" : " ") + word;
  return query;
}

class RunCollector {
 public:
  explicit RunCollector(const std::string& file_name) { run_.FileName = file_name; }

  CollectedRun Collect(std::string_view answers) {
    LineReader lines(answers);
    while (!lines.AtEnd()) {
      const auto answer = ReadAnswerTree(lines.NextLine());
      if (!answer || !TakeAnswer(*answer)) {
        Break("line " + std::to_string(lines.LineNumber()) + " is no answer of koprax-script");
      }
    }
    if (lines.LineNumber() == 0) Break("there are no answers");
    return std::move(run_);
  }

 private:
  void Break(const std::string& why) {
    if (run_.Broken.empty()) run_.Broken = why;
  }

  /// False where it is no answer to a command.
  bool TakeAnswer(const AnswerTree& answer) {
    const AnswerTree* command = answer.Find("command");
    const AnswerTree* ok = answer.Find("ok");
    if (command == nullptr || command->Kind != Kinds::Text || ok == nullptr || ok->Kind != Kinds::Flag) {
      return false;
    }
    if (ok->Text != "true") TakeFailure(answer);
    const auto query = QueryOf(command->Text);
    if (query) TakeValue(*query, answer.Find("value"));
    return true;
  }

  void TakeFailure(const AnswerTree& answer) {
    ++run_.Failed;
    const AnswerTree* error = answer.Find("error");
    if (error != nullptr && run_.FirstError.empty()) run_.FirstError = error->Text;
  }

  /// A query that failed counts, so that the values of all runs stand in the columns of the same questions.
  void TakeValue(const std::string& query, const AnswerTree* value) {
    const int times = ++asked_[query];
    if (value != nullptr) Flatten(times == 1 ? query : query + " #" + std::to_string(times), *value);
  }

  void Flatten(const std::string& column, const AnswerTree& value) {
    if (value.Kind != Kinds::Array && value.Kind != Kinds::Object) {
      run_.Cells.push_back({column, value.Text});
    } else if (value.Kind == Kinds::Array && value.Entries.size() > LongestArray) {
      run_.LeftOut.push_back(column);
    } else {
      for (const auto& [name, entry] : value.Entries) {
        std::string place = column;
        place.append(" (").append(name).append(")");
        Flatten(place, entry);
      }
    }
  }

  CollectedRun run_;
  std::map<std::string, int> asked_;
};

}  // namespace

CollectedRun CollectRun(const std::string& file_name, std::string_view answers) {
  return RunCollector(file_name).Collect(answers);
}

CollectedRun CollectFile(const std::string& file_name) {
  const auto read = ReadTextFile(file_name);
  if (const auto* error = std::get_if<FileError>(&read)) {
    return {.FileName = file_name, .Broken = "it can't be read: " + error->Reason};
  }
  return CollectRun(file_name, std::get<TextFile>(read).Contents());
}

}  // namespace koprax
