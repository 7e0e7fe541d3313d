#include "workbench/engine/execution/function_registry.h"

#include <exception>
#include <functional>
#include <utility>

#include "workbench/engine/execution/database.h"
#include "workbench/engine/functions/collation.h"
#include "workbench/engine/functions/functions.h"

namespace kebu::engine {
namespace {

template <class Body>
void guarded(sqlite3_context* context, Database& database, Body&& body) {
  try {
    body();
  } catch (const SqlError& error) {
    database.raise(error);
    sqlite3_result_error(context, error.what(), -1);
  } catch (const RuntimeError& error) {
    // Decimal arithmetic raises one of these two.
    const bool zero = error.number() == RuntimeError::divisionByZero().number();
    database.raise(
        zero ? SqlError(8134, "Divide by zero error encountered.", "22012")
             : SqlError(8115,
                        "Arithmetic overflow error converting expression to data type numeric."));
    sqlite3_result_error(context, error.what(), -1);
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  }
}

constexpr SqlType wideWhole{TypeKind::Decimal, 38, 0, 0};

struct Registered {
  Database& database;
  std::function<Cell(CellArguments)> function;
};

void call(sqlite3_context* context, int count, sqlite3_value** values) {
  const auto& registered = *static_cast<Registered*>(sqlite3_user_data(context));
  guarded(context, registered.database, [&] {
    setResult(context, registered.function({values, static_cast<std::size_t>(count)}));
  });
}

void define(Database& database, const char* name, int argumentCount, int flags,
            std::function<Cell(CellArguments)> function) {
  // From here on SQLite owns it, also when the call fails.
  auto* const registered = new Registered{database, std::move(function)};
  sqlite3_create_function_v2(database.handle(), name, argumentCount, SQLITE_UTF8 | flags,
                             registered, call, nullptr, nullptr,
                             [](void* data) { delete static_cast<Registered*>(data); });
}

// kb_sum adds wide decimals. All of a call have the same scale, so that it can add them as
// whole numbers.
void sumStep(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  auto** total = static_cast<Decimal**>(sqlite3_aggregate_context(context, sizeof(Decimal*)));
  if (*total == nullptr) *total = new Decimal();
  guarded(context, *static_cast<Database*>(sqlite3_user_data(context)),
          [&] { **total = **total + valueOf(values[0], wideWhole).as<Decimal>(); });
}

/// The sum so far. A window without rows that are not null has none, or 0 once it had some.
void sumValue(sqlite3_context* context) {
  auto** total = static_cast<Decimal**>(sqlite3_aggregate_context(context, 0));
  if (total == nullptr || *total == nullptr) return sqlite3_result_null(context);
  guarded(context, *static_cast<Database*>(sqlite3_user_data(context)),
          [&] { setResult(context, storedAs(**total, wideWhole)); });
}

/// Takes a row out that has left the window.
void sumInverse(sqlite3_context* context, int, sqlite3_value** values) {
  auto** total = static_cast<Decimal**>(sqlite3_aggregate_context(context, 0));
  if (sqlite3_value_type(values[0]) == SQLITE_NULL || total == nullptr || *total == nullptr) return;
  guarded(context, *static_cast<Database*>(sqlite3_user_data(context)),
          [&] { **total = **total - valueOf(values[0], wideWhole).as<Decimal>(); });
}

void sumFinal(sqlite3_context* context) {
  sumValue(context);
  auto** total = static_cast<Decimal**>(sqlite3_aggregate_context(context, 0));
  if (total != nullptr) delete *total;
}

// kb_single gives the value of the only row, NULL without one, and fails at a second row.
void singleStep(sqlite3_context* context, int, sqlite3_value** values) {
  auto** kept =
      static_cast<sqlite3_value**>(sqlite3_aggregate_context(context, sizeof(sqlite3_value*)));
  guarded(context, *static_cast<Database*>(sqlite3_user_data(context)), [&] {
    if (*kept != nullptr) {
      throw SqlError(512,
                     "Subquery returned more than 1 value. This is not permitted when the subquery "
                     "follows =, !=, <, <= , >, >= or when the subquery is used as an expression.");
    }
    *kept = sqlite3_value_dup(values[0]);
  });
}

void singleFinal(sqlite3_context* context) {
  auto** kept = static_cast<sqlite3_value**>(sqlite3_aggregate_context(context, 0));
  if (kept == nullptr || *kept == nullptr) return sqlite3_result_null(context);
  sqlite3_result_value(context, *kept);
  sqlite3_value_free(*kept);
}

}  // namespace

void registerFunctions(Database& database) {
  for (const auto table : {numberFunctions(), textFunctions(), dateFunctions()}) {
    for (const auto& [name, count, function] : table) {
      define(database, name, count, SQLITE_DETERMINISTIC,
             [function = function](CellArguments args) {
               return anyNull(args) ? Cell() : function(args);
             });
    }
  }
  for (const auto& [name, count, function] : systemFunctions()) {
    define(database, name, count, 0, [&database, function = function](CellArguments args) {
      return function(database, args);
    });
  }
  const auto compare = [](void*, int sizeA, const void* a, int sizeB, const void* b) {
    return compareTexts({static_cast<const char*>(a), static_cast<std::size_t>(sizeA)},
                        {static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
  };
  sqlite3_create_collation_v2(database.handle(), "KB", SQLITE_UTF8, nullptr, compare, nullptr);
  sqlite3_create_window_function(database.handle(), "kb_sum", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                 &database, sumStep, sumFinal, sumValue, sumInverse, nullptr);
  sqlite3_create_function_v2(database.handle(), "kb_single", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                             &database, nullptr, singleStep, singleFinal, nullptr);
}

}  // namespace kebu::engine
