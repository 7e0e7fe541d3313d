#include "workbench/engine/execution/script.h"

#include <algorithm>
#include <string>

#include "common/convert.h"

namespace kebu::engine {
namespace {

constexpr std::string_view blanks = " \t\r\n";

bool separates(std::string_view line) {
  line = line.substr(0, line.find_last_not_of(blanks) + 1);
  line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
  return equalsIgnoringCase(line, "GO");
}

bool isBlank(std::string_view batch) {
  return batch.find_first_not_of(blanks) == std::string_view::npos;
}

void runBatch(Session& session, const std::string& batch, std::size_t line,
              const std::function<void(const ResultSet&)>& onResult) {
  if (isBlank(batch)) return;
  try {
    for (const auto& result : session.execute(batch)) {
      if (onResult) onResult(result);
    }
  } catch (const SqlError& error) {
    throw SqlError(error.nativeError(),
                   "Batch at line " + std::to_string(line) + ": " + error.description(),
                   error.sqlState());
  }
}

}  // namespace

void runScript(Session& session, std::string_view script,
               const std::function<void(const ResultSet&)>& onResult) {
  std::string batch;
  std::size_t line = 0;
  std::size_t batchLine = 1;
  while (!script.empty()) {
    const std::size_t end = std::min(script.find('\n'), script.size() - 1) + 1;
    const std::string_view current = script.substr(0, end);
    script.remove_prefix(end);
    ++line;
    if (separates(current)) {
      runBatch(session, batch, batchLine, onResult);
      batch.clear();
      batchLine = line + 1;
    } else {
      // A batch begins at its first line that is not blank: errors name that line.
      if (isBlank(batch) && isBlank(current)) {
        batchLine = line + 1;
      } else {
        batch += current;
      }
    }
  }
  runBatch(session, batch, batchLine, onResult);
}

}  // namespace kebu::engine
