#include "workbench/engine/execution/function_registry.h"

#include <exception>
#include <memory>

#include "workbench/engine/execution/database.h"
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
    // The decimals' own errors: 11 is a division by zero, 6 an overflow.
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
  Database* database;
  CellFunction function;
};

void call(sqlite3_context* context, int count, sqlite3_value** values) {
  const auto& registered = *static_cast<Registered*>(sqlite3_user_data(context));
  guarded(context, *registered.database, [&] {
    setResult(context,
              registered.function(*registered.database, {values, static_cast<std::size_t>(count)}));
  });
}

void define(Database& database, const FunctionEntry& entry) {
  auto* registered = new Registered{&database, entry.function};  // SQLite deletes it
  const int flags = SQLITE_UTF8 | (entry.deterministic ? SQLITE_DETERMINISTIC : 0);
  sqlite3_create_function_v2(database.handle(), entry.name, entry.argumentCount, flags, registered,
                             call, nullptr, nullptr,
                             [](void* data) { delete static_cast<Registered*>(data); });
}

// kb_sum adds decimals kept as blobs. All have the same scale, which it need not know.
void sumStep(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  auto** total = static_cast<Decimal**>(sqlite3_aggregate_context(context, sizeof(Decimal*)));
  if (*total == nullptr) *total = new Decimal();
  guarded(context, *static_cast<Database*>(sqlite3_user_data(context)),
          [&] { **total = **total + valueOf(cellOf(values[0]), wideWhole).as<Decimal>(); });
}

void sumFinal(sqlite3_context* context) {
  auto** total = static_cast<Decimal**>(sqlite3_aggregate_context(context, 0));
  if (total == nullptr || *total == nullptr) return sqlite3_result_null(context);
  const std::unique_ptr<Decimal> sum(*total);
  guarded(context, *static_cast<Database*>(sqlite3_user_data(context)),
          [&] { setResult(context, storedAs(*sum, wideWhole)); });
}

}  // namespace

void registerFunctions(Database& database) {
  for (const auto table :
       {numberFunctions(), textFunctions(), dateFunctions(), systemFunctions()}) {
    for (const auto& entry : table) define(database, entry);
  }
  const auto compare = [](void*, int sizeA, const void* a, int sizeB, const void* b) {
    return compareTexts({static_cast<const char*>(a), static_cast<std::size_t>(sizeA)},
                        {static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
  };
  sqlite3_create_collation_v2(database.handle(), "KB", SQLITE_UTF8, nullptr, compare, nullptr);
  sqlite3_create_function_v2(database.handle(), "kb_sum", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                             &database, nullptr, sumStep, sumFinal, nullptr);
}

}  // namespace kebu::engine
