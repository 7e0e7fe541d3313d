#pragma once

#include <cstdint>

#include "windows/support/dispatch.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

// ADO's numbers, as far as the roles in ado/ do not have them.

// Its classes differ in the first number of their identifiers only.
constexpr CLSID adoClass(unsigned long number) {
  return {number, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};
}
inline constexpr CLSID commandClass = adoClass(0x507);
inline constexpr CLSID connectionClass = adoClass(0x514);
inline constexpr CLSID recordsetClass = adoClass(0x535);

inline constexpr std::int32_t commandIsText = 1;
inline constexpr std::int32_t commandIsStoredProcedure = 4;
inline constexpr std::int32_t executeAsynchronously = 0x10;
inline constexpr std::int32_t fetchAsynchronously = 0x20;
inline constexpr std::int32_t executeNoRecords = 0x80;
inline constexpr std::int32_t bookmarkCurrent = 0;
inline constexpr std::int32_t filterNone = 0;
inline constexpr std::int32_t filterPendingRecords = 1;
/// All rows, also those that a filter hides.
inline constexpr std::int32_t affectAllChapters = 4;

// Pieces of an object's state.
inline constexpr std::int32_t stateClosed = 0;
inline constexpr std::int32_t stateOpen = 1;
inline constexpr std::int32_t stateExecuting = 4;
inline constexpr std::int32_t stateFetching = 8;

/// Whether an object of ADO's is open, whatever else it is doing.
inline bool isStateOpen(const Dispatch& object) {
  return (object.number(L"State") & stateOpen) != 0;
}

}  // namespace kebu::windows
