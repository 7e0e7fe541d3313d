#pragma once

#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "ado/connection.h"
#include "ado/recordset.h"
#include "windows/support/automation.h"
#include "windows/support/com_ptr.h"
#include "workbench/ado/ado_connection.h"
#include "workbench/ado/ado_recordset.h"

namespace kebu::workbench {

// The state of the workbench's database objects for COM.

/// What a recordset of ADO has besides its rows.
struct RecordsetState : std::enable_shared_from_this<RecordsetState> {
  Ref<ado::Recordset> rows;
  /// The batch's further results, for NextRecordset.
  std::vector<engine::ResultSet> following;
  std::shared_ptr<AdoConnection> batchConnection;  ///< on which that batch ran
  /// The rows of a statement that executes asynchronously, on a thread of its own; until they are
  /// there the recordset stays as it was.
  std::future<Ref<ado::Recordset>> coming;
  std::shared_ptr<AdoConnection> worker;  ///< on which that statement runs
  windows::ComPtr<IDispatch> connection;
  std::string source;
  ado::CursorLocation location = ado::CursorLocation::Server;
  ado::CursorType cursorType = ado::CursorType::ForwardOnly;
  ado::LockType lockType = ado::LockType::ReadOnly;
  ado::UpdateCriteria criteria = ado::UpdateCriteria::UpdatedColumns;
  bool hidesError = false;  ///< of what is coming

  AdoRecordset& own() const { return dynamic_cast<AdoRecordset&>(*rows); }
  bool isExecuting() const;
  /// Ends the statement that executes, if one does.
  void cancel() const;
  /// ADO's State. The first call after an asynchronous statement raises its error, if its
  /// connection's manners do not hide it.
  std::int32_t state();
};

/// A connection, and the recordset of its last asynchronous statement.
struct ConnectionState {
  Ref<ado::Connection> connection;
  std::weak_ptr<const RecordsetState> last;

  bool isExecuting() const;
  std::shared_ptr<AdoConnection> own() const {
    return std::dynamic_pointer_cast<AdoConnection>(connection.shared());
  }
  /// The connection for another use; RuntimeError 3711 while it executes.
  ado::Connection& idle() const;
};

/// Whether ADO's options, an argument that may be omitted, ask for asynchronous execution.
bool isAsynchronous(const windows::Arguments& arguments, std::size_t at);
/// Runs `work` asynchronously; its rows become those of the recordset.
void runAsynchronously(const std::shared_ptr<RecordsetState>& recordset,
                       ConnectionState& connection, std::function<Ref<ado::Recordset>()> work);

/// A recordset of the results of a batch; with none of them a closed one.
std::shared_ptr<RecordsetState> recordsetOf(const std::shared_ptr<AdoConnection>& connection,
                                            const std::string& batch,
                                            std::vector<engine::ResultSet> results);

windows::ComPtr<IDispatch> automateState(const std::shared_ptr<RecordsetState>& state);

}  // namespace kebu::workbench
