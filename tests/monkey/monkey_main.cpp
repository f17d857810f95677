// koprax-monkey: plays random actions over all windows of the workbench, the same ones again for the same
// seed, and stops with an account of what led there when a law is broken.
#include <unistd.h>

#include <array>
#include <charconv>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/workbench.h"
#include "forms/text_file.h"
#include "tests/monkey/decisions.h"
#include "tests/monkey/journeys.h"
#include "tests/monkey/sample_files.h"
#include "tests/monkey/walk.h"
#include "tests/monkey/walk_record.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

using koprax::Decisions;
using koprax::Journey;
using koprax::SampleFiles;
using koprax::SeededDecisions;
using koprax::Walk;
using koprax::WalkRecord;

struct Options {
  std::uint64_t Seed = 1;
  long Actions = 2000;
  bool Tell = false;
};

/// What a dying program can still tell; none once it has. Handlers of signals can be handed nothing else.
const WalkRecord*& DyingRecord() {
  static const WalkRecord* record = nullptr;
  return record;
}

void Write(std::string_view text) {
  static_cast<void>(::write(STDERR_FILENO, text.data(), text.size()) >= 0);
}

void WriteNumber(std::uint64_t number) {
  std::array<char, 24> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  Write({digits.data(), end});
}

void TellFinding() {
  if (DyingRecord() == nullptr) return;
  const WalkRecord& record = *std::exchange(DyingRecord(), nullptr);
  Write("\nkoprax-monkey: a finding in action ");
  WriteNumber(static_cast<std::uint64_t>(record.SessionActions()));
  Write(" of a session; play it with --seed ");
  WriteNumber(record.Session());
  Write(" --actions 1. Its files are left where its actions name them.\n");
  Write("The last actions, the last of which led to it:\n");
  record.WriteLastActions(STDERR_FILENO);
}

extern "C" void TellAbort(int /*signal*/) {
  TellFinding();
  std::signal(SIGABRT, SIG_DFL);
}

extern "C" void TellStandstill(int /*signal*/) {
  Write("\nkoprax-monkey: an action takes more than a minute\n");
  std::abort();
}

void WatchFor(const WalkRecord& record) {
  DyingRecord() = &record;
  std::signal(SIGABRT, TellAbort);
  std::signal(SIGALRM, TellStandstill);
#if defined(__SANITIZE_ADDRESS__)
  __sanitizer_set_death_callback(TellFinding);
#endif
}

/// Plays one to three journeys side by side, as windows stand side by side. Some are left in the middle,
/// lines are missed, and steps come in between.
void PlayJourneys(const std::vector<Journey>& journeys, Walk& walk, Decisions& decisions) {
  struct Place {
    const Journey* Lines;
    std::size_t End;
    std::size_t Next = 0;
  };
  std::vector<Place> places;
  do {
    const Journey& journey = journeys[decisions.Below(journeys.size())];
    places.push_back({&journey, decisions.OneIn(2) ? journey.size() : decisions.Below(journey.size() + 1)});
  } while (places.size() < 3 && decisions.OneIn(4));
  std::string buffers = "ABCDEF";
  for (char& letter : buffers) {
    if (decisions.OneIn(4)) letter = static_cast<char>('A' + decisions.Below(buffers.size()));
  }
  const std::size_t calm = 4 + decisions.Below(40);
  while (!places.empty() && !walk.Ended()) {
    const std::size_t turn = decisions.Below(places.size());
    Place& place = places[turn];
    if (place.Next == place.End) {
      places.erase(places.begin() + static_cast<std::ptrdiff_t>(turn));
      continue;
    }
    const std::string& line = (*place.Lines)[place.Next++];
    if (decisions.OneIn(calm)) walk.Step();
    if (!decisions.OneIn(32)) walk.Play(koprax::WithBuffers(line, buffers));
  }
  walk.ForgetPlans();
}

/// A workbench from its start to its end.
void PlaySession(std::uint64_t seed, SampleFiles& files, const std::vector<Journey>& journeys,
                 WalkRecord& record) {
  SeededDecisions decisions(seed);
  files.Restore();
  record.BeginSession(seed);
  Walk walk(decisions, files, record);
  walk.Start();
  const long length = 50 + static_cast<long>(decisions.Below(500));
  PlayJourneys(journeys, walk, decisions);
  while (record.SessionActions() < length && !walk.Ended()) {
    if (decisions.OneIn(64)) {
      PlayJourneys(journeys, walk, decisions);
    } else {
      walk.Step();
    }
  }
  walk.Leave();
}

void TellSum(const WalkRecord& record, std::FILE* file) {
  static_cast<void>(std::fprintf(file, "# %ld actions without a finding\n", record.Actions()));
  for (const std::string& name : koprax::Workbench::FormNames()) {
    const auto found = record.ByForm().find(name);
    static_cast<void>(std::fprintf(file, "# %-7s %8ld\n", name.c_str(),
                                   found == record.ByForm().end() ? 0L : found->second));
  }
}

template <class Number>
bool ReadNumber(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

std::optional<Options> ReadOptions(const std::vector<std::string_view>& words) {
  Options options;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const bool more = i + 1 < words.size();
    if (words[i] == "--tell") {
      options.Tell = true;
    } else if (!((words[i] == "--seed" && more && ReadNumber(words[++i], options.Seed)) ||
                 (words[i] == "--actions" && more && ReadNumber(words[++i], options.Actions)))) {
      return std::nullopt;
    }
  }
  return options;
}

}  // namespace

int main(int argument_count, char** arguments) {
  const auto options = ReadOptions({arguments + 1, arguments + argument_count});
  if (!options) {
    static_cast<void>(std::fputs("usage: koprax-monkey [--seed N] [--actions N] [--tell]\n", stderr));
    return 2;
  }
  koprax::LetRefusedWritesReturn();
  SampleFiles files;
  files.AddFrom(KOPRAX_SOURCE_DIR "/examples");
  const auto journeys = koprax::ReadJourneys(KOPRAX_SOURCE_DIR, files);
  WalkRecord record(options->Tell);
  WatchFor(record);
  // Each session has a seed of its own, so that a finding can be played again without what came before it.
  for (std::uint64_t seed = options->Seed; record.Actions() < options->Actions; ++seed) {
    PlaySession(seed, files, journeys, record);
  }
  ::alarm(0);
  TellSum(record, options->Tell ? stderr : stdout);
  return 0;
}
