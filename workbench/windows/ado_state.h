#pragma once

#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <string>

#include "ado/connection.h"
#include "ado/recordset.h"
#include "windows/support/automation.h"
#include "windows/support/com_ptr.h"
#include "workbench/ado/ado_recordset.h"

namespace kebu::workbench {

// What stands behind the workbench's database objects for COM.

/// What ADO's recordset keeps besides its rows.
struct RecordsetState {
  Ref<ado::Recordset> rows;
  /// The rows of a statement that runs on a thread of its own; until they are
  /// there the recordset is what it was.
  std::future<Ref<ado::Recordset>> coming;
  windows::ComPtr<IDispatch> connection;
  std::string source;
  ado::CursorLocation location = ado::CursorLocation::Server;
  ado::CursorType cursorType = ado::CursorType::ForwardOnly;
  ado::LockType lockType = ado::LockType::ReadOnly;

  AdoRecordset& own() const { return dynamic_cast<AdoRecordset&>(*rows); }
  bool isExecuting() const;
  /// ADO's State. As ADO has it, the error of what ran beside the caller is raised
  /// the first time that this is asked.
  std::int32_t state();
};

/// A connection, and the last that was begun on it.
struct ConnectionState {
  Ref<ado::Connection> connection;
  std::weak_ptr<const RecordsetState> last;

  bool isExecuting() const;
  /// The connection for another use; RuntimeError 3711 while it executes.
  ado::Connection& idle() const;
};

/// Whether ADO's options, an argument that may be left out, say that a statement
/// is to run beside the caller.
bool isAsynchronous(const windows::Arguments& arguments, std::size_t at);
/// Has `work` done beside the caller; its rows become those of the recordset.
void runBeside(const std::shared_ptr<RecordsetState>& recordset, ConnectionState& connection,
               std::function<Ref<ado::Recordset>()> work);

windows::ComPtr<IDispatch> automateState(const std::shared_ptr<RecordsetState>& state);

}  // namespace kebu::workbench
