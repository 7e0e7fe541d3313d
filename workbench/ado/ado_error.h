#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "common/error.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::workbench::adoerror {

// The errors of ADO itself, by its numbers.

inline RuntimeError make(std::int32_t number, const char* text) {
  return {number, text, "ADODB"};
}
inline RuntimeError noCurrentRecord() {
  return make(3021, "Either BOF or EOF is True, or the current record has been deleted.");
}
inline RuntimeError notInContext() {
  return make(3219, "Operation is not allowed in this context.");
}
inline RuntimeError notUpdatable() {
  return make(3251, "Current Recordset does not support updating.");
}
inline RuntimeError noSuchItem() {
  return make(
      3265,
      "Item cannot be found in the collection corresponding to the requested name or ordinal.");
}
inline RuntimeError closed() {
  return make(3704, "Operation is not allowed when the object is closed.");
}
inline RuntimeError open() {
  return make(3705, "Operation is not allowed when the object is open.");
}
inline RuntimeError badConnection() {
  return make(3709,
              "The connection cannot be used to perform this operation. It is either closed or "
              "invalid in this context.");
}
inline RuntimeError badArgument() {
  return make(3001,
              "Arguments are of the wrong type, are out of acceptable range, or are in conflict "
              "with one another.");
}
inline RuntimeError deletedRow() {
  return make(-2147217885, "Row handle referred to a deleted row or a row marked for deletion.");
}
inline RuntimeError rowNotFound() {
  return make(-2147217864,
              "Row cannot be located for updating. Some values may have been changed since it was "
              "last read.");
}
inline RuntimeError tooManyRows() {
  return make(-2147467259,
              "Key column information is insufficient or incorrect. Too many rows were affected by "
              "update.");
}
inline RuntimeError insufficientKey() {
  return make(-2147467259, "Insufficient key column information for updating or refreshing.");
}
inline RuntimeError timeout() {
  return make(-2147217871, "Query timeout expired");
}
inline RuntimeError badValue() {
  return make(-2147217887, "Multiple-step operation generated errors. Check each status value.");
}
inline RuntimeError backward() {
  return make(-2147217884, "Rowset does not support fetching backward.");
}

/// An error of the provider that the server knows nothing of, with a state of class 08.
class ConnectionError : public RuntimeError {
 public:
  ConnectionError(std::int32_t nativeError, std::string text, std::string sqlState)
      : RuntimeError(-2147467259, std::move(text), engine::SqlError::providerName),
        nativeError_(nativeError),
        sqlState_(std::move(sqlState)) {}

  std::int32_t nativeError() const { return nativeError_; }
  const std::string& sqlState() const { return sqlState_; }

 private:
  std::int32_t nativeError_;
  std::string sqlState_;
};
inline ConnectionError noServer() {
  return {17, "[DBNETLIB][ConnectionOpen (Connect()).]SQL Server does not exist or access denied.",
          "08001"};
}
inline ConnectionError connectionLost() {
  return {11,
          "[DBNETLIB][ConnectionWrite (send()).]General network error. Check your network "
          "documentation.",
          "08S01"};
}

}  // namespace kebu::workbench::adoerror
