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

}  // namespace

void forEachBatch(std::string_view script,
                  const std::function<void(const std::string& batch, int line)>& run) {
  std::string batch;
  int line = 0;
  int batchLine = 1;
  const auto endBatch = [&] {
    if (!isBlank(batch)) run(batch, batchLine);
    batch.clear();
  };
  while (!script.empty()) {
    const std::size_t end = std::min(script.find('\n'), script.size() - 1) + 1;
    const std::string_view current = script.substr(0, end);
    script.remove_prefix(end);
    ++line;
    // A batch begins at its first line that is not blank: errors name that line.
    if (separates(current)) {
      endBatch();
    } else if (!isBlank(current) || !batch.empty()) {
      if (batch.empty()) batchLine = line;
      batch += current;
    }
  }
  endBatch();
}

void runScript(Session& session, std::string_view script) {
  forEachBatch(script, [&](const std::string& batch, int line) {
    try {
      session.execute(batch);
    } catch (const SqlError& error) {
      throw SqlError(error.nativeError(),
                     "Batch at line " + std::to_string(line) + ": " + error.description(),
                     error.sqlState());
    }
  });
}

}  // namespace kebu::engine
