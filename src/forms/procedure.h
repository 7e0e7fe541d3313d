#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "ado/recordset.h"
#include "common/trap.h"
#include "controls/query_grid.h"
#include "controls/record_frame.h"
#include "controls/row_editing.h"
#include "forms/page_context.h"
#include "host/services.h"
#include "sql/keys.h"

namespace kebu::forms {

/// A running procedure. Each member is one statement: when it fails the user is asked, and Abort,
/// Retry and Ignore mean what Steps says. A statement that is ignored gives a default: an empty
/// text or value, no recordset, false.
class Procedure {
 public:
  Procedure(PageContext& context, Steps& steps) : context_(context), steps_(steps) {}

  /// Any other statement that may fail.
  template <class Statement>
  auto step(Statement&& statement) -> std::invoke_result_t<Statement&> {
    return steps_(std::forward<Statement>(statement));
  }

  /// The keys for statements.
  sql::Company company() {
    return step([&] { return context_.companyKey(); });
  }
  sql::ProfileId profile() {
    return step([&] { return context_.profileKey(); });
  }

  /// Runs a statement that has no rows; false when it failed and the user went on.
  bool run(const std::string& statement) {
    return step([&] {
      context_.connection->Execute(statement);
      return true;
    });
  }
  /// Runs a statement and gives its rows, forward-only.
  Ref<ado::Recordset> read(const std::string& statement) {
    return step([&] { return context_.connection->Execute(statement); });
  }
  /// Opens a client recordset: on a table whose rows can be edited one by one, on a working table
  /// likewise, or a read-only one.
  Ref<ado::Recordset> openEditable(const std::string& statement) {
    return step([&] { return context_.openEditable(statement); });
  }
  Ref<ado::Recordset> openWorkingTable(const std::string& statement,
                                       ado::CursorType cursor = ado::CursorType::Static) {
    return step([&] { return context_.openWorkingTable(statement, cursor); });
  }
  Ref<ado::Recordset> openReadable(const std::string& statement) {
    return step([&] { return context_.openReadable(statement); });
  }
  /// The first row's value of `column` as text without trailing blanks; "" without a row.
  std::string lookUpText(const std::string& statement, std::string_view column) {
    return step([&] { return context_.lookUpText(statement, column); });
  }

  /// Whether the recordset stands on a row.
  bool more(const Ref<ado::Recordset>& rows) {
    return step([&] { return !rows->EOF_(); });
  }
  void next(const Ref<ado::Recordset>& rows) {
    step([&] { rows->MoveNext(); });
  }
  /// A column of the current row. A value that is set is converted to the column's type.
  Value value(const Ref<ado::Recordset>& rows, std::string_view column) {
    return step([&] { return rows->value(column); });
  }
  void set(const Ref<ado::Recordset>& rows, std::string_view column, const Value& value) {
    step([&] { controls::setField(*rows, column, value); });
  }
  Value value(const controls::RecordFrame& frame, std::string_view column) {
    return step([&] { return frame.field(column); });
  }
  void set(controls::RecordFrame& frame, std::string_view column, const Value& value) {
    step([&] { frame.setField(column, value); });
  }
  void show(controls::QueryGrid& grid, const Ref<ado::Recordset>& rows) {
    step([&] { grid.setDataSource(rows); });
  }

  /// Lets the user choose from a list that opens on the current code; the code chosen, or nothing.
  std::optional<Value> choose(const host::LookupDefinition& list, const std::string& current) {
    return step([&] { return context_.choose(list, current); });
  }
  /// Shows a message of the host's store, by number.
  void tell(std::int32_t message, std::int32_t style) {
    step([&] { context_.services.showMessage(message, style); });
  }
  /// Translates and shows a text; the button pressed.
  std::int32_t ask(const std::string& text, std::int32_t style) {
    return step([&] { return context_.services.message(text, style); });
  }

 private:
  PageContext& context_;
  Steps& steps_;
};

/// The given name of a procedure, and the title of the boxes that report its errors.
struct ProcedureName {
  template <class Text>
  ProcedureName(const Text& given, const char* title = applicationTitle)
      : name(given), errorTitle(title) {}

  std::string_view name;
  const char* errorTitle;
};

/// Reports errors under a title.
class TitledReporter : public ErrorReporter {
 public:
  TitledReporter(Services& services, const char* title) : services_(services), title_(title) {}
  std::int16_t VisualizzaErrore(const std::string& procedure, const RuntimeError& error) override {
    return services_.VisualizzaErrore(procedure, error, title_);
  }

 private:
  Services& services_;
  const char* title_;
};

/// Runs the body of a procedure under its given name, under which errors in it are reported. Gives
/// the body's result, or a default when the procedure is left early.
template <class Body>
auto procedure(PageContext& context, const ProcedureName& called, Body&& body)
    -> std::invoke_result_t<Body&, Procedure&> {
  const controls::Gesture gesture(&context.services);
  TitledReporter reporter(context.services, called.errorTitle);
  return trap(reporter, called.name, [&](Steps& steps) {
    Procedure p(context, steps);
    return body(p);
  });
}

}  // namespace kebu::forms
