#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "common/error.h"
#include "common/ref.h"
#include "common/value.h"

namespace kebu::ado {

class Recordset;

/// The seconds that a statement may take unless another limit is set.
inline constexpr std::int32_t usualTimeout = 30;

/// One entry of the provider's error collection.
struct Error {
  std::int32_t number = 0;
  std::string description;
  std::string source;
  std::int32_t nativeError = 0;
  std::string sqlState;
};
using Errors = std::vector<Error>;

/// What keeps the provider's error collection.
class ErrorSource {
 public:
  virtual ~ErrorSource() = default;
  /// What the provider said of the last failing call.
  virtual Errors errors() const = 0;
};

/// A session with the database.
class Connection : public ErrorSource {
 public:
  virtual void setConnectionString(const std::string& text) = 0;
  virtual std::string connectionString() const = 0;
  virtual void Open() = 0;
  virtual void Close() = 0;
  virtual bool isOpen() const = 0;
  /// Seconds after which a statement of this connection fails; 0 for no limit, usualTimeout at
  /// first. Commands have a limit of their own.
  virtual void setCommandTimeout(std::int32_t seconds) = 0;
  /// Runs a statement or batch; the first result's rows, forward-only and
  /// read-only, or a closed recordset when it returns none. A failing statement
  /// raises RuntimeError and fills errors().
  virtual Ref<Recordset> Execute(const std::string& text) = 0;
  /// Runs one statement without making a recordset, which is faster for the many
  /// statements of a loop. Does not call the function of whileExecuting.
  virtual void ExecuteNoRecords(const std::string& text) = 0;
  /// From now on `goOn` may be called many times a second while a statement of Execute or of a
  /// recordset's Open or Requery runs, so that a window can be painted. It must not use the
  /// connection or that recordset. When it gives false the statement is cancelled, and fails with
  /// RuntimeError 3712. An empty function, as at first: nothing is called.
  virtual void whileExecuting(std::function<bool()> goOn) = 0;
};

/// Whether the error, with which the last call failed, tells that there is no connection: it was
/// never opened, or the provider has lost it and says so by a state of class 08. `connection` may
/// be null.
inline bool tellsOfNoConnection(const RuntimeError& error, const Connection* connection) {
  constexpr std::int32_t invalidConnection = 3709;
  constexpr std::int32_t objectIsClosed = 3704;
  if (error.number() == invalidConnection) return true;
  if (connection == nullptr) return false;
  if (error.number() == objectIsClosed) return !connection->isOpen();
  const Errors errors = connection->errors();
  return std::ranges::any_of(errors, [&](const Error& entry) {
    return entry.number == error.number() && entry.sqlState.starts_with("08");
  });
}

}  // namespace kebu::ado
