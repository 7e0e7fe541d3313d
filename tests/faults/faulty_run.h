#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "workbench/ado/statement_observer.h"
#include "workbench/engine/execution/database.h"
#include "workbench/player/model_workplace.h"
#include "workbench/player/scenario.h"

namespace kebu::tests {

using Lines = std::vector<std::string>;

/// One statement of a run that fails, once.
struct Fault {
  std::size_t position;       ///< which statement, counted from 1
  msgbox::Answer answer;      ///< what the user presses in its error box
  bool isCarriedOut = false;  ///< it is carried out, and only its answer is lost
};
using Faults = std::vector<Fault>;

/// Makes statements of a run fail and keeps the texts of all.
class FaultyStatements : public workbench::StatementObserver {
 public:
  static constexpr const char* description = "This statement was made to fail.";

  explicit FaultyStatements(Faults faults) : faults_(std::move(faults)) {}

  void before(const std::string& text, bool edit) override;
  void carriedOut(const std::string& text) override;
  void after(const std::string&, bool, std::int64_t, const RuntimeError*) override {}

  const Lines& log() const { return log_; }
  /// Nothing fails any more.
  void endFaults() { faults_.clear(); }

 private:
  void raise(bool isCarriedOut) const;

  Faults faults_;
  Lines log_;
};

/// A player who answers the first error boxes as the faults say, and all that follow with Abort or
/// as `otherErrors` says.
class FaultPlayer : public workbench::Player {
 public:
  FaultPlayer(std::ostream& out, std::ostream& err, Faults faults)
      : Player(out, err), faults_(std::move(faults)) {}

  std::int32_t answer(const workbench::ShownMessage& box) override;
  const Lines& errors() const { return errors_; }

  std::function<msgbox::Answer(const std::string& error)> otherErrors = nullptr;

 private:
  Faults faults_;
  Lines errors_;
};

/// The rows of the tables that the plug-in writes, dates left out.
Lines writtenRows(engine::Session& session);

/// A scenario played on a company while statements fail.
class FaultyRun {
 public:
  FaultyRun(const std::shared_ptr<engine::Database>& company, std::int32_t number,
            const Faults& faults);

  /// Whether all lines could be played and all expectations held.
  bool play(const workbench::Scenario& scenario);
  /// Forgets the queued answers that no box has asked for.
  void dropAnswers() { player_.answers() = {}; }

  /// Nothing is made to fail any more.
  void endFaults() { statements_.endFaults(); }

  bool isOpen() { return workplace_.host().isOpen(); }
  const Lines& statements() const { return statements_.log(); }
  /// The texts of the error boxes.
  const Lines& errors() const { return player_.errors(); }
  /// The player's messages about lines that could not be played and expectations not met.
  std::string complaints() const { return complaints_.str(); }
  void answerErrors(std::function<msgbox::Answer(const std::string& error)> answer) {
    player_.otherErrors = std::move(answer);
  }
  engine::Session& session() { return workplace_.session(); }

 private:
  std::ostream nowhere_{nullptr};
  std::ostringstream complaints_;
  FaultPlayer player_;
  FaultyStatements statements_;
  workbench::StatementFaults noFaults_;
  workbench::ModelWorkplace workplace_;
};

}  // namespace kebu::tests
