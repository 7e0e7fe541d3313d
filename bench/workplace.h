#pragma once

#include <benchmark/benchmark.h>

#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "plugin/clskb_anagkelmoria.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/ado/statement_observer.h"
#include "workbench/cli/company_file.h"
#include "workbench/engine/execution/session.h"
#include "workbench/host/local_platform.h"
#include "workbench/host/stand_in_host.h"
#include "workbench/player/model_desktop.h"
#include "workbench/player/model_hands.h"

namespace kebu::workbench {

using Statements = std::vector<std::string>;

class StatementRecorder : public StatementObserver {
 public:
  bool isListening() const override { return recording_; }
  void before(const std::string&, bool) override {}
  void after(const std::string& text, bool, std::int64_t, const RuntimeError* error) override {
    if (error) throw std::logic_error("a statement failed: " + text);
    statements_.push_back(text);
  }
  void start() { recording_ = true; }
  Statements stop() {
    recording_ = false;
    return std::exchange(statements_, {});
  }

 private:
  bool recording_ = false;
  Statements statements_;
};

/// A company before someone who works in the window.
class Workplace {
 public:
  explicit Workplace(std::shared_ptr<engine::Database> database = demoCompany())
      : database_(std::move(database)),
        person_(*this),
        platform_(person_, nowhere_),
        desktop_(person_),
        hands_(desktop_),
        host_(
            [this] {
              return plugin::CLSKB_ANAGKELMORIA::create({platform_, library_, desktop_});
            },
            {person_, embeddedCompany(database_, &recorder_), company, {}, [](const std::string&) {
             }}) {}

  void open() { host_.open(); }
  void close() {
    if (!host_.close()) throw std::logic_error("the window stays open");
  }
  /// A change of the profile's note, and "Conferma"; every other time the note is the same.
  void save() {
    second_ = !second_;
    hands_.type("TXT_GM03_NOTE", second_ ? "di mattina" : "di sera");
    hands_.press("INAV_PAR", "Conferma");
    if (hands_.isButtonEnabled("INAV_PAR", "Conferma")) throw std::logic_error("nothing was saved");
  }
  void showPage(std::int32_t view) { hands_.openPage(view); }
  /// What the user sees first of a grid: some rows from the first on, all columns.
  ControlView look(const std::string& grid) { return hands_.look(grid, {1, 30}); }
  ModelHands& hands() { return hands_; }
  template <class Action>
  Statements statementsOf(Action&& action) {
    recorder_.start();
    action();
    return recorder_.stop();
  }
  const std::shared_ptr<engine::Database>& database() const { return database_; }

 private:
  /// Wants to see everything that a dialog offers, and no message box at all.
  class Person : public User {
   public:
    explicit Person(Workplace& workplace) : workplace_(workplace) {}
    std::int32_t answer(const ShownMessage& box) override { throw std::logic_error(box.text); }
    void chooseFrom(ShownList& list) override { throw std::logic_error(list.title()); }
    void workIn(controls::Form&) override { workplace_.hands_.clickButton("CMD_OK"); }

   private:
    Workplace& workplace_;
  };

  static constexpr std::int32_t company = 1;

  std::shared_ptr<engine::Database> database_;
  std::ostream nowhere_{nullptr};
  Person person_;
  LocalPlatform platform_;
  ModelDesktop desktop_;
  ModelHands hands_;
  AdoLibrary library_;
  StatementRecorder recorder_;
  StandInHost host_;
  bool second_ = false;
};

/// Runs the same statements straight on the engine.
inline void replay(engine::Session& session, const Statements& statements) {
  for (const std::string& statement : statements) {
    benchmark::DoNotOptimize(session.execute(statement));
  }
}

}  // namespace kebu::workbench
