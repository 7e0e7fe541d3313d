#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "workbench/ado/statement_observer.h"
#include "workbench/engine/execution/database.h"
#include "workbench/player/model_workplace.h"
#include "workbench/player/scenario.h"

namespace kebu::tests {

using Lines = std::vector<std::string>;

/// Makes one statement of a run fail, once, and keeps the texts of all.
class FaultyStatement : public workbench::StatementObserver {
 public:
  static constexpr const char* description = "This statement was made to fail.";

  /// `position`: which statement of the run, counted from 1; 0 for none.
  explicit FaultyStatement(std::size_t position) : position_(position) {}

  void before(const std::string& text, bool edit) override;
  void after(const std::string&, bool, std::int64_t, const RuntimeError*) override {}

  const Lines& log() const { return log_; }

 private:
  std::size_t position_;
  Lines log_;
};

/// A player who answers the first error box in a given way, and all that follow with Abort.
class FaultPlayer : public workbench::Player {
 public:
  FaultPlayer(std::ostream& out, std::ostream& err, msgbox::Answer answer)
      : Player(out, err), answer_(answer) {}

  std::int32_t answer(const workbench::ShownMessage& box) override;
  const Lines& errors() const { return errors_; }

 private:
  msgbox::Answer answer_;
  Lines errors_;
};

/// A scenario played on a company of its own while one statement fails.
class FaultyRun {
 public:
  /// `position` as above; `answer` is what the user presses when it fails.
  FaultyRun(const engine::Database& company, std::int32_t number, std::size_t position,
            msgbox::Answer answer);

  /// Whether all lines could be played and all expectations held.
  bool play(const workbench::Scenario& scenario);
  /// Forgets the queued answers that no box has asked for.
  void dropAnswers() { player_.answers() = {}; }

  bool isOpen() { return workplace_.host().isOpen(); }
  const Lines& statements() const { return statement_.log(); }
  /// The texts of the error boxes.
  const Lines& errors() const { return player_.errors(); }
  /// The player's messages about lines that could not be played and expectations not met.
  std::string complaints() const { return complaints_.str(); }
  /// The rows that the pages write, dates left out.
  Lines rows();

 private:
  std::ostream nowhere_{nullptr};
  std::ostringstream complaints_;
  FaultPlayer player_;
  FaultyStatement statement_;
  workbench::StatementFaults noFaults_;
  workbench::ModelWorkplace workplace_;
};

}  // namespace kebu::tests
