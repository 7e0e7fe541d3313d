#pragma once

#include <ostream>
#include <string>

#include "workbench/ado/statement_faults.h"
#include "workbench/ado/statement_observer.h"

namespace kebu::workbench {

/// Writes every statement that the plug-in runs as one JSON object a line, and raises the
/// planned faults.
class StatementLog : public StatementObserver {
 public:
  StatementLog(std::ostream& out, StatementFaults& faults) : out_(out), faults_(faults) {}

  void before(const std::string& text, bool edit) override;
  void after(const std::string& text, bool edit, std::int64_t rows,
             const RuntimeError* error) override;

 private:
  std::ostream& out_;
  StatementFaults& faults_;
};

}  // namespace kebu::workbench
