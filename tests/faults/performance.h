#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "common/platform.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/ado/statement_observer.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/session.h"
#include "workbench/host/local_platform.h"
#include "workbench/host/stand_in_host.h"
#include "workbench/player/model_desktop.h"
#include "workbench/player/model_hands.h"
#include "workbench/player/player.h"
#include "workbench/player/scenario.h"

namespace kebu::workbench {

using Lines = std::vector<std::string>;

/// Lets one statement of a run fail, once, and keeps the texts of all.
class FaultyStatement : public StatementObserver {
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

/// A player who answers the first error box in a given way and leaves by all that follow.
class FaultPlayer : public Player {
 public:
  FaultPlayer(std::ostream& out, std::ostream& err, msgbox::Answer answer)
      : Player(out, err), answer_(answer) {}

  std::int32_t answer(const ShownMessage& box) override;
  const Lines& errors() const { return errors_; }

 private:
  msgbox::Answer answer_;
  Lines errors_;
};

/// A scenario played on a company of its own while one statement fails.
class Performance {
 public:
  /// `position` as above; `answer` is what the user presses when it fails.
  Performance(const engine::Database& company, std::int32_t number, std::size_t position,
              msgbox::Answer answer);

  /// Whether all lines could be played and all expectations held.
  bool play(const Scenario& scenario);
  /// Forgets the answers that no box has asked for.
  void dropAnswers() { player_.answers() = {}; }

  bool isOpen() const { return host_.isOpen(); }
  const Lines& statements() const { return statement_.log(); }
  /// The texts of the error boxes.
  const Lines& errors() const { return player_.errors(); }
  /// What the player complained of.
  std::string complaints() const { return complaints_.str(); }
  /// The rows that the pages write, dates left out.
  Lines rows();

 private:
  std::shared_ptr<engine::Database> database_;
  std::ostream nowhere_{nullptr};
  std::ostringstream complaints_;
  FaultPlayer player_;
  FaultyStatement statement_;
  StatementFaults noFaults_;
  LocalPlatform platform_;
  ModelDesktop desktop_;
  ModelHands hands_;
  AdoLibrary library_;
  engine::Session session_;
  StandInHost host_;
};

}  // namespace kebu::workbench
