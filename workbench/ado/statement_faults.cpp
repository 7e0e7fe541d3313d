#include "workbench/ado/statement_faults.h"

#include <algorithm>

#include "workbench/engine/values/sql_error.h"

namespace kebu::workbench {

void StatementFaults::raiseFor(const std::string& statement) {
  const auto due = std::find_if(faults_.begin(), faults_.end(), [&](const Fault& fault) {
    return statement.find(fault.text) != std::string::npos;
  });
  if (due == faults_.end()) return;
  const std::string text = due->text;
  if (--due->left == 0) faults_.erase(due);
  constexpr std::int32_t userError = 50000;  // the number of RAISERROR with a text
  throw engine::SqlError(userError,
                         "The statement was made to fail: it contains \"" + text + "\".");
}

}  // namespace kebu::workbench
