#include "app/answer_tree.h"

#include <algorithm>
#include <cstddef>
#include <nlohmann/json.hpp>

namespace koprax {

namespace {

using Kinds = AnswerTree::Kinds;

constexpr std::size_t deepest = 50;

/// Builds the tree from what the parser comes across. The names of its functions are those that it calls.
class TreeBuilder : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit TreeBuilder(AnswerTree& root) : root_(root) {}

  bool null() override { return Add({}); }
  bool boolean(bool value) override { return Add({Kinds::Flag, value ? "true" : "false"}); }
  /// Whole numbers below 0 come here, and -0.
  bool number_integer(number_integer_t value) override {
    return Add({Kinds::Number, value == 0 ? "-0" : std::to_string(value)});
  }
  bool number_unsigned(number_unsigned_t value) override {
    return Add({Kinds::Number, std::to_string(value)});
  }
  bool number_float(number_float_t /*value*/, const string_t& text) override {
    return Add({Kinds::Number, text});
  }
  bool string(string_t& text) override { return Add({Kinds::Text, text}); }
  bool binary(binary_t& /*bytes*/) override { return false; }
  bool start_object(std::size_t /*size*/) override { return Open(Kinds::Object); }
  bool start_array(std::size_t /*size*/) override { return Open(Kinds::Array); }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }
  bool key(string_t& name) override {
    name_ = name;
    return true;
  }
  bool parse_error(std::size_t /*place*/, const std::string& /*token*/,
                   const nlohmann::detail::exception& /*error*/) override {
    return false;
  }

 private:
  AnswerTree& Place(AnswerTree tree) {
    if (open_.empty()) return root_ = std::move(tree);
    AnswerTree& parent = *open_.back();
    if (parent.Kind == Kinds::Array) name_ = std::to_string(parent.Entries.size());
    return parent.Entries.emplace_back(name_, std::move(tree)).second;
  }
  bool Add(AnswerTree tree) {
    Place(std::move(tree));
    return true;
  }
  bool Open(Kinds kind) {
    if (open_.size() == deepest) return false;
    // Only the last entry of each parent grows, so that the places of the open ones stay.
    open_.push_back(&Place({.Kind = kind}));
    return true;
  }
  bool Close() {
    open_.pop_back();
    return true;
  }

  AnswerTree& root_;
  std::vector<AnswerTree*> open_;
  std::string name_;
};

}  // namespace

const AnswerTree* AnswerTree::Find(std::string_view name) const {
  const auto found =
      std::ranges::find(Entries, name, [](const auto& entry) -> std::string_view { return entry.first; });
  return Kind == Kinds::Object && found != Entries.end() ? &found->second : nullptr;
}

std::optional<AnswerTree> ReadAnswerTree(std::string_view text) {
  AnswerTree root;
  TreeBuilder builder(root);
  if (!nlohmann::json::sax_parse(text, &builder)) return std::nullopt;
  return root;
}

}  // namespace koprax
