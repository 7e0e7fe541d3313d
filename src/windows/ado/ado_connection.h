#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ado/connection.h"
#include "windows/support/identity.h"

namespace kebu::windows {

/// A connection object of ADO.
class AdoConnection : public ado::Connection, public Foreign {
 public:
  using Role = ado::Connection;
  using Foreign::Foreign;

  void setConnectionString(const std::string& text) override;
  std::string connectionString() const override;
  void Open() override;
  void Close() override;
  bool isOpen() const override;
  void setCommandTimeout(std::int32_t seconds) override;
  Ref<ado::Recordset> Execute(const std::string& text) override;
  void ExecuteNoRecords(const std::string& text) override;
  void whileExecuting(std::function<bool()> goOn) override;
  ado::Errors errors() const override;

  /// Whether statements are to be run asynchronously, so that something can be done meanwhile.
  bool isAsynchronous() const { return static_cast<bool>(goOn_); }
  /// Before asynchronous work on this connection: what it fails with will be all that is in Errors.
  void clearErrors() const;
  /// Comes back when the object is done with its asynchronous work on this connection. Raises the
  /// error of the work as RuntimeError, whether ADO raises it or only puts it in Errors; 3712 when
  /// it was cancelled.
  void await(const Dispatch& worker) const;

 private:
  std::function<bool()> goOn_;
};

}  // namespace kebu::windows
