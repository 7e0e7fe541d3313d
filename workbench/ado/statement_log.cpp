#include "workbench/ado/statement_log.h"

#include "workbench/ado/ado_error.h"
#include "workbench/ado/json_text.h"

namespace kebu::workbench {

void StatementLog::before(const std::string& text, bool /*edit*/) {
  faults_.raiseFor(text);
}

void StatementLog::opening() {
  if (faults_.isServerAway()) throw adoerror::noServer();
}

void StatementLog::after(const std::string& text, bool edit, std::int64_t rows,
                         const RuntimeError* error) {
  out_ << "{\"text\": " << jsonString(text) << ", \"rows\": " << rows
       << ", \"error\": " << (error ? jsonString(error->description()) : "null")
       << (edit ? ", \"edit\": true" : "") << "}\n"
       << std::flush;  // so that the log is complete after a crash
}

}  // namespace kebu::workbench
