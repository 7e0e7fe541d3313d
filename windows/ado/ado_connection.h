#pragma once

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
  ado::Errors errors() const override;
};

}  // namespace kebu::windows
