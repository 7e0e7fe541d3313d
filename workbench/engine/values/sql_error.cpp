#include "workbench/engine/values/sql_error.h"

#include <algorithm>
#include <span>

namespace kebu::engine {
namespace {

struct Severity {
  int severity;
  std::span<const std::int32_t> numbers;
};

constexpr std::int32_t wrongBatch[] = {102, 104, 105, 108, 109, 110, 113,  120,  121,
                                       125, 130, 134, 137, 144, 145, 147,  156,  157,
                                       164, 174, 178, 191, 195, 264, 1007, 1033, 4145};
constexpr std::int32_t duplicateKey[] = {2601, 2627};
constexpr std::int32_t outOfSpace[] = {701, 1101};
constexpr std::int32_t damagedFile[] = {823, 824};

constexpr int usual = 16;
constexpr Severity others[] = {
    {14, duplicateKey}, {15, wrongBatch}, {17, outOfSpace}, {24, damagedFile}};

}  // namespace

int SqlError::severity() const {
  for (const auto& [severity, numbers] : others) {
    if (std::ranges::find(numbers, nativeError()) != numbers.end()) return severity;
  }
  return usual;
}

void SqlError::setPlace(int line, const std::string& procedure) {
  if (line_ != 0) return;
  line_ = line;
  procedure_ = procedure;
}

}  // namespace kebu::engine
