#include "workbench/engine/execution/data_interpreter.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/execution/session.h"
#include "workbench/engine/values/cast.h"

namespace kebu::engine {
namespace {

/// A GUID as a result gives it.
void putInBraces(Value& guid) {
  if (!guid.isNull()) guid = "{" + guid.as<std::string>() + "}";
}

bool isOfKey(const SqlError& error) {
  return error.nativeError() == 2601 || error.nativeError() == 2627;
}

/// Whether the row itself was refused, after its identity had been made.
bool isOfConstraint(const SqlError& error) {
  return error.nativeError() == 515 || isOfKey(error);
}

}  // namespace

void DataInterpreter::run(const ast::QueryPtr& query) {
  const auto* const node = std::get_if<ast::Select>(&query->body);
  if (node != nullptr && node->into) {
    countRows(execution_.compiler().selectInto(*query, execution_.frame()));
  } else if (node != nullptr && !node->items.empty() && !node->items[0].variable.empty()) {
    assign(*query, *node);
  } else {
    select(*query);
  }
}

void DataInterpreter::run(const ast::Insert& insert) {
  Session& session = execution_.session();
  const bool identity = session.state().identityInsert == toUpperAscii(insert.table.last());
  const auto ready =
      execution_.compiled(&insert, [&](Compiler c) { return c.insert(insert, identity); });
  try {
    change(ready);
  } catch (const SqlError& error) {
    if (ready->base->identity >= 0 && isOfConstraint(error)) {
      execution_.database().skipIdentity(*ready->base);
    }
    throw;
  }
  session.state().lastIdentity.reset();
  if (ready->base->identity >= 0) {
    session.state().lastIdentity = session.lastRowId();
    session.state().scopeIdentity = session.state().lastIdentity;
  }
}

void DataInterpreter::run(const ast::Update& update) {
  changeRows(execution_.compiled(&update, [&](Compiler c) { return c.update(update); }));
}

void DataInterpreter::run(const ast::Delete& remove) {
  change(execution_.compiled(&remove, [&](Compiler c) { return c.remove(remove); }));
}

void DataInterpreter::run(const ast::Merge& merge) {
  changeRows(execution_.compiled(&merge, [&](Compiler c) { return c.merge(merge); }));
}

void DataInterpreter::run(const ast::Truncate& truncate) {
  const ast::Delete all{truncate.table, nullptr, nullptr};
  change(execution_.compiled(&truncate, [&](Compiler c) { return c.remove(all); }));
}

void DataInterpreter::countRows(std::int64_t rows) {
  Session& session = execution_.session();
  session.state().rowCount = rows;
  session.state().rowsAffected = std::max<std::int64_t>(session.state().rowsAffected, 0) + rows;
}

void DataInterpreter::change(const std::shared_ptr<Compiled>& ready) {
  Frame& frame = execution_.frame();
  if (ready->steps.size() == 1) return countRows(ready->steps[0].run(frame));
  Transaction transaction(execution_.database());
  std::int64_t rows = 0;
  for (std::size_t i = 0; i < ready->steps.size(); ++i) {
    const std::int64_t changed = ready->steps[i].run(frame);
    if (i > 0 && i <= ready->counted) rows += changed;
  }
  transaction.commit();
  countRows(rows);
}

void DataInterpreter::changeRows(const std::shared_ptr<Compiled>& ready) {
  try {
    change(ready);
  } catch (const SqlError& error) {
    if (!isOfKey(error)) throw;
    // SQLite checks keys at every row, SQL Server at the statement's end: K = K + 1 is right.
    try {
      execution_.database().withKeysAtTheEnd(*ready->base, [&] { change(ready); });
    } catch (const SqlError& atTheEnd) {
      if (isOfKey(atTheEnd)) throw SqlError(error);
      throw;
    }
  }
}

void DataInterpreter::select(const ast::Query& node) {
  const auto ready = execution_.compiled(&node, [&](Compiler c) { return c.query(node); });
  ResultSet result;
  result.columns.reserve(ready->columns.size());
  for (const auto& column : ready->columns)
    result.columns.push_back({column.name, column.type, ready->base ? column.baseColumn : ""});
  if (ready->base) result.table = ready->base->name;
  PreparedStatement& statement = ready->steps[0];
  const Running running(statement, execution_.frame());
  const auto width = static_cast<int>(ready->columns.size());
  while (statement.step()) {
    auto& row = result.rows.emplace_back();
    row.reserve(ready->columns.size());
    for (int i = 0; i < width; ++i) {
      const SqlType& type = result.columns[static_cast<std::size_t>(i)].type;
      row.push_back(statement.value(i, type));
      if (type.kind == TypeKind::Guid) putInBraces(row.back());
    }
  }
  result.rowsAffected = static_cast<std::int64_t>(result.rows.size());
  execution_.session().state().rowCount = result.rowsAffected;
  if (execution_.events() == nullptr)
    throw SqlError(444,
                   "Select statements included within a function cannot return data to a client.");
  execution_.events()->push_back(std::move(result));
}

void DataInterpreter::assign(const ast::Query& node, const ast::Select& select) {
  const auto ready = execution_.compiled(&node, [&](Compiler c) { return c.query(node); });
  PreparedStatement& statement = ready->steps[0];
  const Running running(statement, execution_.frame());
  std::int64_t rows = 0;
  for (; statement.step(); ++rows) {
    for (std::size_t i = 0; i < select.items.size(); ++i) {
      Variable& target = execution_.variable(select.items[i].variable);
      const auto column = static_cast<int>(i);
      target.value = castTo(statement.value(column, ready->columns[i].type), target.type);
    }
  }
  execution_.session().state().rowCount = rows;
}

}  // namespace kebu::engine
