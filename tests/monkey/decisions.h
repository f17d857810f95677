// Where a random walk takes its decisions from: a row of bytes that a fuzzer made up, or a seeded generator
// whose numbers are the same on every machine. What is decided is left to the walk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string_view>

namespace koprax {

class Decisions {
 public:
  Decisions() = default;
  Decisions(const Decisions&) = delete;
  Decisions& operator=(const Decisions&) = delete;
  virtual ~Decisions() = default;

  /// A number from 0 to one less than the count, which is at least 1.
  virtual std::size_t Below(std::size_t count) = 0;
  /// One of a list that isn't empty.
  template <class List>
  auto Of(const List& list) {
    return list[Below(list.size())];
  }
  bool OneIn(std::size_t count) { return Below(count) == 0; }
};

/// A byte each; behind the last one every decision is the first choice.
class ByteDecisions final : public Decisions {
 public:
  explicit ByteDecisions(std::string_view bytes) : rest_(bytes) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  std::size_t Below(std::size_t count) override {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    return byte % count;
  }

 private:
  std::string_view rest_;
};

/// The numbers of the generator are fixed by the language; those of its distributions are not.
class SeededDecisions final : public Decisions {
 public:
  explicit SeededDecisions(std::uint64_t seed) : generator_(seed) {}

  std::size_t Below(std::size_t count) override { return static_cast<std::size_t>(generator_() % count); }

 private:
  std::mt19937_64 generator_;
};

}  // namespace koprax
