#pragma once

#include <cstdint>
#include <string>

#include "common/error.h"

namespace kebu::workbench {

/// Is told of every statement that is handed to ADO, once and in order. An `edit` is a
/// statement that ADO makes of a recordset's changed row.
class StatementObserver {
 public:
  virtual ~StatementObserver() = default;
  /// False to skip the next statement.
  virtual bool isListening() const { return true; }
  /// A RuntimeError that it throws makes the statement fail without being run.
  virtual void before(const std::string& text, bool edit) = 0;
  /// The seconds that the statement is to be taken to last, asked after `before`. Beyond its
  /// time-out it fails without being run.
  virtual std::int32_t secondsOf(const std::string& /*text*/) { return 0; }
  /// Whether the user interrupts the statement, asked after `before`. It is then taken to last
  /// until it is cancelled, or some seconds where it cannot be.
  virtual bool isInterrupted(const std::string& /*text*/) { return false; }
  /// It was carried out. A RuntimeError that is thrown here reaches the plug-in in the place of
  /// the result, as when the connection breaks before the answer arrives.
  virtual void carriedOut(const std::string& /*text*/) {}
  /// `error`: with which it failed, or null.
  virtual void after(const std::string& text, bool edit, std::int64_t rows,
                     const RuntimeError* error) = 0;
  /// A connection is about to be opened. A RuntimeError that it throws makes that fail.
  virtual void opening() {}
  /// How often the server went away so far. A connection that was open then is lost for good.
  virtual int outages() const { return 0; }
  /// The statement is about to run while rows of another one, forward-only on the server, are
  /// unread: a real provider would open a second connection for it, which does not see what
  /// belongs to the first.
  virtual void secondConnection(const std::string& /*text*/, const std::string& /*unread*/) {}
};

}  // namespace kebu::workbench
