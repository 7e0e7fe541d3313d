#pragma once

#include <ostream>
#include <string>

#include "workbench/ado/statement_faults.h"
#include "workbench/ado/statement_observer.h"

namespace kebu::workbench {

/// Writes every statement that the plug-in runs as one JSON object a line, and lets the planned
/// faults happen.
class StatementLog : public StatementObserver {
 public:
  StatementLog(std::ostream& out, StatementFaults& faults) : out_(out), faults_(faults) {}

  void before(const std::string& text, bool edit) override;
  std::int32_t secondsOf(const std::string& text) override { return faults_.secondsOf(text); }
  void opening() override;
  int outages() const override { return faults_.outages(); }
  bool isInterrupted(const std::string& text) override { return faults_.isInterrupted(text); }
  void carriedOut(const std::string& text) override { faults_.raiseAfter(text); }
  void after(const std::string& text, bool edit, std::int64_t rows,
             const RuntimeError* error) override;
  void secondConnection(const std::string& text, const std::string& unread) override {
    faults_.noteSecondConnection(text, unread);
  }

 private:
  std::ostream& out_;
  StatementFaults& faults_;
};

}  // namespace kebu::workbench
