#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "common/error.h"

namespace kebu::engine {

/// An error of the provider, with its own number and the state of the SQL standard. number() is the
/// HRESULT that ADO reports.
class ProviderError : public RuntimeError {
 public:
  static constexpr const char* providerName = "KEBU Engine";

  ProviderError(std::int32_t number, std::int32_t nativeError, std::string text,
                std::string sqlState)
      : RuntimeError(number, std::move(text), providerName),
        nativeError_(nativeError),
        sqlState_(std::move(sqlState)) {}

  std::int32_t nativeError() const { return nativeError_; }
  const std::string& sqlState() const { return sqlState_; }

 private:
  std::int32_t nativeError_;
  std::string sqlState_;
};

/// An error of the database, with SQL Server's number in nativeError(). ADO reports all of them by
/// one HRESULT.
class SqlError : public ProviderError {
 public:
  static constexpr std::int32_t providerNumber = -2147217900;

  SqlError(std::int32_t nativeError, std::string text, std::string sqlState = "42000")
      : ProviderError(providerNumber, nativeError, std::move(text), std::move(sqlState)) {}

  /// SQL Server's severity: 15 for a batch that is wrong by itself, mostly 16 otherwise.
  int severity() const;
  /// Whether it ends its batch although others of its number do not, as THROW does.
  bool endsBatch() const { return endsBatch_; }
  void endBatch() { endsBatch_ = true; }
  /// The statement's line in its batch or procedure, from 1; 0 when it is not known.
  int line() const { return line_; }
  /// The procedure or function; "" for the batch itself.
  const std::string& procedure() const { return procedure_; }
  /// Sets line and procedure, unless they are set.
  void setPlace(int line, const std::string& procedure);

 private:
  bool endsBatch_ = false;
  int line_ = 0;
  std::string procedure_;
};

}  // namespace kebu::engine
