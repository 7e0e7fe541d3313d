#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "common/error.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::workbench::adoerror {

constexpr std::int32_t unspecified = -2147467259;  // E_FAIL

/// An error of ADO itself, by its number. Called, it is the error to throw.
struct AdoError {
  std::int32_t number;
  const char* text;

  RuntimeError operator()() const { return {number, text, "ADODB"}; }
};

inline constexpr AdoError noCurrentRecord{
    3021, "Either BOF or EOF is True, or the current record has been deleted."};
inline constexpr AdoError notInContext{3219, "Operation is not allowed in this context."};
inline constexpr AdoError notUpdatable{3251, "Current Recordset does not support updating."};
inline constexpr AdoError noSuchItem{
    3265, "Item cannot be found in the collection corresponding to the requested name or ordinal."};
inline constexpr AdoError closed{3704, "Operation is not allowed when the object is closed."};
inline constexpr AdoError open{3705, "Operation is not allowed when the object is open."};
inline constexpr AdoError badConnection{
    3709,
    "The connection cannot be used to perform this operation. It is either closed or "
    "invalid in this context."};
inline constexpr AdoError badArgument{
    3001,
    "Arguments are of the wrong type, are out of acceptable range, or are in conflict "
    "with one another."};
inline constexpr AdoError deletedRow{
    -2147217885, "Row handle referred to a deleted row or a row marked for deletion."};
inline constexpr AdoError rowNotFound{
    -2147217864,
    "Row cannot be located for updating. Some values may have been changed since it was "
    "last read."};
inline constexpr AdoError tooManyRows{
    unspecified,
    "Key column information is insufficient or incorrect. Too many rows were affected by "
    "update."};
inline constexpr AdoError insufficientKey{
    unspecified, "Insufficient key column information for updating or refreshing."};
inline constexpr AdoError timeout{-2147217871, "Query timeout expired"};
inline constexpr AdoError badValue{
    -2147217887, "Multiple-step operation generated errors. Check each status value."};
inline constexpr AdoError backward{-2147217884, "Rowset does not support fetching backward."};

// Errors of the provider that the server knows nothing of, with a state of class 08.

inline engine::ProviderError noServer() {
  return {unspecified, 17,
          "[DBNETLIB][ConnectionOpen (Connect()).]SQL Server does not exist or access denied.",
          "08001"};
}
inline engine::ProviderError connectionLost() {
  return {unspecified, 11,
          "[DBNETLIB][ConnectionWrite (send()).]General network error. Check your network "
          "documentation.",
          "08S01"};
}

}  // namespace kebu::workbench::adoerror
