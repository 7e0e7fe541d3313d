#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "workbench/ado/statement_faults.h"
#include "workbench/engine/execution/result_set.h"
#include "workbench/host/stand_in_host.h"
#include "workbench/host/user.h"
#include "workbench/player/answers.h"
#include "workbench/player/hands.h"
#include "workbench/player/scenario.h"
#include "workbench/player/shown_messages.h"

namespace kebu::workbench {

/// Runs a batch and gives the results of its queries. RuntimeError when it fails.
using SqlRunner = std::function<std::vector<engine::ResultSet>(const std::string& batch)>;

/// What a scenario acts on.
struct Stage {
  StandInHost& host;
  Hands& hands;
  /// For statements that are not the plug-in's.
  SqlRunner sql;
  StatementFaults& faults;
  /// Runs something on the host's thread, which may be another one. Returns when it
  /// is done or waits for the user.
  std::function<void(std::function<void()>)> atHost = [](const std::function<void()>& work) {
    work();
  };
};

/// Plays a scenario line by line. It is also the user that message boxes, lists and
/// modal windows turn to: while a modal window is open, it plays the following lines
/// in it.
class Player : public User {
 public:
  Player(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}

  /// Returns whether every line could be played and every expectation held.
  bool play(const Scenario& scenario, const Stage& stage);

  std::int32_t answer(const ShownMessage& box) override;
  void chooseFrom(ShownList& list) override;
  void workIn(controls::Form& form) override;

  // What the steps work with.
  const Stage& stage() const { return *stage_; }
  void atHost(std::function<void(StandInHost&)> work) const {
    stage_->atHost([work = std::move(work), &host = stage_->host] { work(host); });
  }
  std::ostream& out() { return out_; }
  Answers& answers() { return answers_; }
  ShownMessages& messages() { return messages_; }
  /// What was copied last.
  const std::string& copied() const { return copied_; }
  void keepCopied(std::string text) { copied_ = std::move(text); }
  /// Makes the gesture that opens a look-up, and chooses `row` in the list; without a row the
  /// list is only printed. StepError when a row is given and no list opens.
  void playLookup(const std::function<void()>& gesture, std::optional<std::int32_t> row);
  /// Counts an expectation and reports one that does not hold.
  void check(bool holds, const std::string& what, const std::string& expected,
             const std::string& found);

 protected:
  /// The line to play next, which must stay where it is until it was played; null at the end.
  virtual const ScenarioLine* nextLine();
  /// A line could not be played to its end: by an error of the plug-in's, a StepError, or a
  /// gesture that was refused. By default it ends the scenario.
  virtual void lineFailed(const std::exception& error);

 private:
  struct Lookup {
    std::optional<std::int32_t> row;
    bool opened = false;
  };

  /// Plays the next line; false when there is none.
  bool playNext();
  void complain(const std::string& message);
  void stop(const std::string& message);
  bool report();

  std::ostream& out_;
  std::ostream& err_;
  const Scenario* scenario_ = nullptr;
  const Stage* stage_ = nullptr;
  std::size_t next_ = 0;
  int line_ = 0;
  bool stopped_ = false;
  int expectations_ = 0;
  int unmet_ = 0;
  Answers answers_;
  ShownMessages messages_;
  std::string copied_;
  std::optional<Lookup> lookup_;
};

}  // namespace kebu::workbench
