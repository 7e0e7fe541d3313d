#include "workbench/windows/ado_state.h"

#include <chrono>
#include <utility>

#include "windows/ado/ado_constants.h"

namespace kebu::workbench {

namespace {

/// On the thread of an asynchronous statement, until its end.
struct AsynchronousWork {
  AdoConnection& connection;
  ~AsynchronousWork() { connection.setAsynchronous(false); }
};

}  // namespace

bool RecordsetState::isExecuting() const {
  return coming.valid() && coming.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

void RecordsetState::cancel() const {
  if (isExecuting()) worker->cancel();
}

std::int32_t RecordsetState::state() {
  if (isExecuting()) return windows::stateExecuting;
  try {
    if (coming.valid()) rows = coming.get();
  } catch (const RuntimeError& error) {
    if (!hidesError || error.number() > 0) throw;  // an error of ADO itself is not in Errors
  }
  return rows->isOpen() ? windows::stateOpen : windows::stateClosed;
}

bool ConnectionState::isExecuting() const {
  const auto recordset = last.lock();
  return recordset && recordset->isExecuting();
}

ado::Connection& ConnectionState::idle() const {
  constexpr std::int32_t stillExecuting = 3711;
  if (isExecuting()) {
    throw RuntimeError(stillExecuting,
                       "Operation cannot be performed while executing asynchronously.", "ADODB");
  }
  return *connection;
}

std::shared_ptr<RecordsetState> recordsetOf(const std::shared_ptr<AdoConnection>& connection,
                                            const std::string& batch,
                                            std::vector<engine::ResultSet> results) {
  auto state = std::make_shared<RecordsetState>();
  std::vector<engine::ResultSet> first;
  if (!results.empty()) {
    first.push_back(std::move(results.front()));
    results.erase(results.begin());
  }
  state->rows = AdoRecordset::ofResults(*connection, batch, std::move(first));
  state->source = batch;
  state->batchConnection = connection;
  state->following = std::move(results);
  return state;
}

bool isAsynchronous(const windows::Arguments& arguments, std::size_t at) {
  return (arguments.number(at, 0) & windows::executeAsynchronously) != 0;
}

void runAsynchronously(const std::shared_ptr<RecordsetState>& recordset,
                       ConnectionState& connection, std::function<Ref<ado::Recordset>()> work) {
  recordset->worker = connection.own();
  recordset->hidesError = recordset->worker->manners().silentState;
  recordset->worker->setAsynchronous(true);
  recordset->coming =
      std::async(std::launch::async, [work = std::move(work), worker = recordset->worker] {
        const AsynchronousWork ending{*worker};
        return work();
      });
  connection.last = recordset;
}

}  // namespace kebu::workbench
