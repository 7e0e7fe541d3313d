#pragma once

#include <memory>
#include <sstream>
#include <string>

#include "controls/query_editor.h"
#include "tests/support/statement_recorder.h"
#include "tests/support/test_company.h"
#include "tests/support/test_user.h"
#include "workbench/player/model_workplace.h"

namespace kebu::tests {

/// The plug-in's window on company 1, on models, with a user who acts as the test
/// decides. By default the user answers no, so that a pending change does not keep
/// the window open.
class TestWorkplace {
 public:
  explicit TestWorkplace(
      const std::shared_ptr<engine::Database>& database = workbench::demoCompany());

  void open() { models_.host().open(); }
  /// std::logic_error when the window stays open.
  void close();

  TestUser& user() { return user_; }
  TestCompany& company() { return company_; }
  workbench::ModelHands& hands() { return models_.hands(); }
  controls::QueryEditor& editor(const std::string& name);
  /// The statements that the plug-in runs during `action`.
  template <class Action>
  Statements statementsOf(Action&& action) {
    recorder_.clear();
    recorder_.setListening(true);
    action();
    recorder_.setListening(false);
    return recorder_.statements();
  }
  std::string trace() const { return trace_.str(); }

  forms::Runtime runtime() { return models_.runtime(); }
  const Ref<host::Cinterface>& plugin() { return models_.host().plugin(); }
  const workbench::ModelDesktop& desktop() const { return models_.desktop(); }
  /// A connection that is not open yet, as the plug-in gets one from the host.
  Ref<ado::Connection> newConnection() {
    return workbench::newConnection(company_.database(), nullptr);
  }

 private:
  TestUser user_;
  TestCompany company_;
  StatementRecorder recorder_;
  std::ostringstream trace_;
  workbench::ModelWorkplace models_;
};

}  // namespace kebu::tests
