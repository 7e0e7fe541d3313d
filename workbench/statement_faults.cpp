#include "workbench/statement_faults.h"

#include <algorithm>

#include "common/error.h"

namespace kebu::workbench {

void StatementFaults::raiseFor(const std::string& statement) {
  const auto due = std::find_if(faults_.begin(), faults_.end(), [&](const Fault& fault) {
    return statement.find(fault.text) != std::string::npos;
  });
  if (due == faults_.end()) return;
  const std::string text = due->text;
  if (--due->left == 0) faults_.erase(due);
  constexpr std::int32_t providerFailed = -2147467259;  // 0x80004005
  throw RuntimeError(providerFailed,
                     "The statement was made to fail: it contains \"" + text + "\".",
                     "Microsoft OLE DB Provider for SQL Server");
}

}  // namespace kebu::workbench
