#include "workbench/engine/execution/prepared.h"

#include <utility>

#include "workbench/engine/execution/session.h"

namespace kebu::engine {

PreparedStatement::PreparedStatement(Database& database, const std::string& sql,
                                     std::vector<Slot> slots)
    : database_(database), slots_(std::move(slots)) {
  sqlite3_stmt* raw = nullptr;
  const int code =
      sqlite3_prepare_v3(database.handle(), sql.c_str(), static_cast<int>(sql.size()) + 1,
                         SQLITE_PREPARE_PERSISTENT, &raw, nullptr);
  statement_.reset(raw);
  if (code != SQLITE_OK) throw database.lastError();
}

void PreparedStatement::start(const Frame& frame) {
  int place = 0;
  for (const auto& slot : slots_) {
    const Value value =
        slot.literal >= 0 ? frame.literals->at(static_cast<std::size_t>(slot.literal)).value
        : slot.variable.starts_with("@@") ? database_.current()->globalVariable(slot.variable)
                                          : frame.variables.at(slot.variable).value;
    bind(statement_.get(), ++place, storedAs(value, slot.type));
  }
}

bool PreparedStatement::step() {
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  throw database_.lastError();
}

std::int64_t PreparedStatement::run(const Frame& frame) {
  const Running running(*this, frame);
  while (step()) {
  }
  return sqlite3_changes64(database_.handle());
}

}  // namespace kebu::engine
