#pragma once

#include <string>

#include "ado/connection.h"
#include "workbench/windows/late_bound.h"

namespace kebu::workbench {

/// A connection object of the system's own ADO, for the plug-in to work with;
/// the workbench only opens it. RuntimeError says why it cannot be made.
class RealConnection : public ado::Connection {
 public:
  explicit RealConnection(const std::string& connectionString);

  const ComRef<IDispatch>& object() const { return object_.object(); }

  void setConnectionString(const std::string& text) override;
  std::string connectionString() const override;
  void Open() override;
  void Close() override;
  bool isOpen() const override;
  /// The plug-in runs its statements on the object itself.
  Ref<ado::Recordset> Execute(const std::string& text) override;
  ado::Errors errors() const override;

 private:
  LateBound object_;
};

}  // namespace kebu::workbench
