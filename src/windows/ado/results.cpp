#include "windows/ado/results.h"

#include <utility>

#include "windows/ado/ado_constants.h"

namespace kebu::windows {

namespace {

/// Absent at the end, and where a provider has only one result: some say so
/// with an error.
Dispatch next(const Dispatch& recordset) {
  constexpr std::int32_t notSupported = 3251;
  constexpr std::int32_t closed = 3704;
  try {
    return recordset.get(L"NextRecordset");
  } catch (const RuntimeError& error) {
    if (error.number() == notSupported || error.number() == closed) return {};
    throw;
  }
}

}  // namespace

Dispatch firstWithRows(Dispatch first) {
  while (first && !isStateOpen(first)) {
    Dispatch following = next(first);
    if (!following) break;
    first = std::move(following);
  }
  return first;
}

void drain(Dispatch first) {
  while (first) first = next(first);
}

}  // namespace kebu::windows
