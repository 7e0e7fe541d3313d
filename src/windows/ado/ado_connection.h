#pragma once

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
  Ref<ado::Recordset> Execute(const std::string& text) override;
  void ExecuteNoRecords(const std::string& text) override;
  void whileExecuting(std::function<void()> meanwhile) override;
  ado::Errors errors() const override;

  /// What to do while a statement runs; empty to do nothing but wait.
  const std::function<void()>& meanwhile() const { return meanwhile_; }

 private:
  std::function<void()> meanwhile_;
};

}  // namespace kebu::windows
