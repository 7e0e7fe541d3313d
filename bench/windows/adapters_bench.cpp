// What reading a recordset through the adapters costs compared with the bare late-bound calls:
// 100,000 rows of 10 fields, every value read. The rows are the engine's, exposed as COM objects.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "windows/ado/ado_objects.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/windows/ado_automation.h"
#include "workbench/windows/apartment.h"

namespace {

using namespace kebu;

constexpr int rowCount = 100'000;
constexpr int blockRows = 256;
constexpr const char* fieldNames[] = {"K", "A", "B", "C", "P", "Q", "D", "F", "G", "H"};
constexpr const char* query = "SELECT * FROM RIGHE";

void fill(const Ref<ado::Connection>& connection) {
  connection->Execute(
      "CREATE TABLE RIGHE (K int, A varchar(20), B varchar(40), C char(5), P decimal(18, 6), Q "
      "decimal(9, 2), D datetime, F smallint, G bit, H varchar(10))");
  constexpr int atOnce = 500;
  for (int from = 0; from < rowCount; from += atOnce) {
    std::string text = "INSERT INTO RIGHE VALUES ";
    for (int key = from; key < from + atOnce; ++key) {
      const std::string n = std::to_string(key);
      text += (key > from ? ", (" : "(") + n + ", 'ART" + n + "', 'Articolo numero " + n +
              " perché', 'PZ', " + n + ".25, 19.90, '2024-03-05T13:30:15', " +
              std::to_string(key % 1000) + ", 1, NULL)";
    }
    connection->Execute(text);
  }
}

/// The shortest of three runs, in milliseconds. Only `read` is measured.
double measure(const std::function<Ref<ado::Recordset>()>& open,
               const std::function<std::size_t(const Ref<ado::Recordset>&)>& read) {
  double best = 1e9;
  for (int run = 0; run < 3; ++run) {
    const Ref<ado::Recordset> rows = open();
    const auto start = std::chrono::steady_clock::now();
    if (read(rows) != static_cast<std::size_t>(rowCount) * std::size(fieldNames)) {
      std::puts("values were lost");
    }
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    best = std::min(best, taken.count());
  }
  return best;
}

/// The bare calls: the values are read in place, in the returned array.
std::size_t readBare(const Ref<ado::Recordset>& recordset) {
  const windows::Dispatch rows(windows::unwrap(recordset));
  std::size_t seen = 0;
  while (!rows.flag(L"EOF")) {
    const windows::Variant block = rows.call(L"GetRows", {std::int32_t{blockRows}});
    SAFEARRAY* const array = block.get().parray;
    VARIANT* cells = nullptr;
    SafeArrayAccessData(array, reinterpret_cast<void**>(&cells));
    const std::size_t count = array->rgsabound[0].cElements * array->rgsabound[1].cElements;
    for (std::size_t i = 0; i < count; ++i) seen += cells[i].vt != VT_EMPTY ? 1 : 0;
    SafeArrayUnaccessData(array);
  }
  return seen;
}

std::size_t readBlocks(const Ref<ado::Recordset>& rows) {
  std::size_t seen = 0;
  while (!rows->EOF_()) {
    for (const auto& row : rows->GetRows(blockRows)) {
      for (const Value& value : row) seen += value.isEmpty() ? 0 : 1;
    }
  }
  return seen;
}

std::size_t readByName(const Ref<ado::Recordset>& rows) {
  std::size_t seen = 0;
  for (; !rows->EOF_(); rows->MoveNext()) {
    for (const char* field : fieldNames) seen += rows->value(field).isEmpty() ? 0 : 1;
  }
  return seen;
}

}  // namespace

int main() {
  const workbench::Apartment apartment;
  const auto database = engine::Database::createInMemory();
  const Ref<ado::Connection> direct = workbench::newConnection(database, nullptr);
  direct->Open();
  fill(direct);
  const Ref<ado::Connection> wrapped = windows::wrapConnection(workbench::automate(direct).get());
  workbench::AdoLibrary engineLibrary;

  const auto openDirect = [&] { return direct->Execute(query); };
  const auto openForward = [&] { return wrapped->Execute(query); };
  const auto openStatic = [&] {
    const Ref<ado::Recordset> rows =
        windows::wrapRecordset(workbench::automate(engineLibrary.newRecordset()).get());
    rows->setCursorLocation(ado::CursorLocation::Client);
    rows->Open(query, wrapped, ado::CursorType::Static, ado::LockType::ReadOnly);
    return rows;
  };

  struct Case {
    const char* name;
    double milliseconds;
  };
  const double floor = measure(openForward, readBare);
  const Case cases[] = {
      {"the engine's own recordset, in blocks", measure(openDirect, readBlocks)},
      {"bare late-bound GetRows, in blocks", floor},
      {"the adapter's GetRows, in blocks", measure(openForward, readBlocks)},
      {"the adapter by field names, read ahead", measure(openForward, readByName)},
      {"the adapter by field names, row by row", measure(openStatic, readByName)},
  };
  std::printf("%d rows of %d fields\n", rowCount, static_cast<int>(std::size(fieldNames)));
  for (const Case& each : cases) {
    std::printf("  %-42s %8.1f ms %6.2f times the bare calls\n", each.name, each.milliseconds,
                each.milliseconds / floor);
  }
  return 0;
}
