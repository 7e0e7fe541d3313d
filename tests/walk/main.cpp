// kebu_walk [--seed N] [--gestures N] [--seconds N] [--write FOLDER]: random walks, each of a
// hundred gestures on a company of its own. The seed names the first walk; each further one has the
// next seed. Each is written as a scenario walk_SEED into the folder, for the real window.
// kebu_walk --again FILE: the walk that a scenario describes, held to the same rules.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "tests/walk/random_user.h"
#include "tests/walk/walk.h"
#include "workbench/company/company.h"

namespace {

using namespace kebu;
using namespace kebu::tests;

constexpr std::size_t gesturesOfWalk = 100;

struct Options {
  std::uint64_t seed = 1;
  std::size_t gestures = 2000;
  long seconds = 0;  ///< 0 without limit
  std::string again;
  std::string folder;  ///< "" to write no scenarios
};

/// Every kind of walk in turn: without faults, where pages are compared with the tables, with
/// faults, and with a second window.
WalkKind kindOf(std::uint64_t seed) {
  return {.gestures = gesturesOfWalk, .faults = seed % 4 != 0, .windows = seed % 4 == 3 ? 2 : 1};
}

void report(const WalkGround& ground, WalkOutcome outcome) {
  std::cout << "broken: " << *outcome.broken << "\nafter " << outcome.steps.size()
            << " steps; shortening...\n"
            << std::flush;
  outcome = shortened(ground, std::move(outcome));
  std::cout << "broken: " << *outcome.broken << "\n\n" << scenarioOf(outcome.steps) << '\n';
}

/// Whether a person can make the step in the real window, and alone: control characters are keys
/// there, and a file is named in a dialog.
bool isForWindow(const WalkStep& step) {
  const bool namesFile = step.words.front() == "copy" && step.words.back() == "file";
  const bool asksForFile = step.words == workbench::Words{"click", "CMD_SALVA"};
  return !namesFile && !asksForFile &&
         std::ranges::none_of(step.words, [](const std::string& word) {
           return std::ranges::any_of(word, [](char c) { return c >= 0 && c < ' '; });
         });
}

void write(const WalkOutcome& outcome, const std::string& path) {
  std::deque<WalkStep> steps = outcome.steps;
  std::erase_if(steps, [](const WalkStep& step) { return !isForWindow(step); });
  std::ofstream file(path);
  if (!(file << scenarioOf(steps) << scenarioOf(outcome.closing)).flush()) {
    throw std::runtime_error(path + " cannot be written");
  }
}

int run(const Options& options) {
  const StatementShapes shapes(STATEMENT_TEXTS);
  const auto company = workbench::demoCompany();
  const WalkGround ground{*company, shapes};
  if (!options.again.empty()) {
    std::ifstream file(options.again);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    WalkOutcome outcome = walkAgain(ground, stepsOf(text));
    if (outcome.broken) {
      report(ground, std::move(outcome));
      return 1;
    }
    std::cout << outcome.steps.size() << " gestures, " << outcome.comparisons
              << " pages compared\n";
    return 0;
  }
  const auto start = std::chrono::steady_clock::now();
  const auto passed = [&] {
    return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() -
                                                            start)
        .count();
  };
  std::size_t gestures = 0;
  std::size_t refused = 0;
  std::size_t statements = 0;
  std::size_t comparisons = 0;
  std::uint64_t seed = options.seed;
  for (; gestures < options.gestures; ++seed) {
    if (options.seconds > 0 && passed() >= options.seconds) break;
    RandomUser user(seed, kindOf(seed));
    WalkOutcome outcome = walk(ground, user);
    if (outcome.broken) {
      std::cout << "seed " << seed << ": ";
      report(ground, std::move(outcome));
      return 1;
    }
    if (!options.folder.empty()) {
      write(outcome, options.folder + "/walk_" + std::to_string(seed) + ".scenario");
    }
    gestures += outcome.steps.size();
    refused +=
        static_cast<std::size_t>(std::count_if(outcome.steps.begin(), outcome.steps.end(),
                                               [](const WalkStep& step) { return step.refused; }));
    statements += outcome.statements;
    comparisons += outcome.comparisons;
  }
  std::cout << "seeds " << options.seed << " to " << seed - 1 << ": " << gestures << " gestures ("
            << refused << " refused), " << statements << " statements, " << comparisons
            << " pages compared, " << passed() << " s\n";
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  try {
    for (int i = 1; i < argc; i += 2) {
      const std::string name = argv[i];
      const std::string value = i + 1 < argc ? argv[i + 1] : throw std::invalid_argument(name);
      if (name == "--seed") {
        options.seed = std::stoull(value);
      } else if (name == "--gestures") {
        options.gestures = std::stoull(value);
      } else if (name == "--seconds") {
        options.seconds = std::stol(value);
      } else if (name == "--write") {
        options.folder = value;
      } else if (name == "--again") {
        options.again = value;
      } else {
        throw std::invalid_argument(name);
      }
    }
    return run(options);
  } catch (const std::exception& error) {
    std::cerr << "kebu_walk: " << error.what()
              << "\nuse: kebu_walk [--seed N] [--gestures N] [--seconds N] [--write FOLDER] | "
                 "--again FILE\n";
    return 1;
  }
}
