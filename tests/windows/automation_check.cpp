// The workbench's objects as a plug-in meets them: created by class, called by
// late binding. Prints what does not hold; the exit code is the number of such.
#include <windows.h>

#include <objbase.h>

#include <iostream>
#include <string>

#include "common/convert.h"
#include "workbench/engine/ado_objects.h"
#include "workbench/engine/session.h"
#include "workbench/host/lookups.h"
#include "workbench/host/object_models.h"
#include "workbench/windows/ado_automation.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/class_objects.h"
#include "workbench/windows/host_automation.h"
#include "workbench/windows/late_bound.h"
#include "workbench/windows/navigator_events.h"

namespace {

using namespace kebu;
using namespace kebu::workbench;

int failures = 0;

void expectThat(bool holds, const char* what) {
  if (holds) return;
  ++failures;
  std::cout << "does not hold: " << what << '\n';
}

LateBound create(const wchar_t* id) {
  CLSID classId{};
  CLSIDFromString(id, &classId);
  ComRef<IDispatch> object;
  CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                   reinterpret_cast<void**>(object.out()));
  return LateBound(object);
}

constexpr const wchar_t* recordsetClass = L"{00000535-0000-0010-8000-00AA006D2EA4}";
constexpr const wchar_t* commandClass = L"{00000507-0000-0010-8000-00AA006D2EA4}";
constexpr const wchar_t* connectionClass = L"{00000514-0000-0010-8000-00AA006D2EA4}";

LateBound part(const LateBound& object, const char* member, const Variant& argument) {
  return LateBound(toDispatch(object.get(member, {argument}).get()));
}

LateBound field(const LateBound& recordset, const char* name) {
  return part(recordset.part("Fields"), "Item", Variant(name));
}

LateBound open(const LateBound& connection, const char* statement, int cursor, int lock) {
  LateBound rows = create(recordsetClass);
  rows.put("CursorLocation", Variant(3));
  rows.call("Open",
            {Variant(statement), Variant(connection.object()), Variant(cursor), Variant(lock)});
  return rows;
}

Value bulkCell(const Variant& rows, LONG fieldIndex, LONG row) {
  LONG at[] = {fieldIndex, row};
  Variant cell;
  SafeArrayGetElement(rows.get().parray, at, cell.out());
  return toValue(cell.get());
}

void readsInBulk(const LateBound& connection) {
  const LateBound rows = open(connection, "SELECT A, B, C, D FROM T ORDER BY A", 3, 1);
  const Variant all = rows.call("GetRows", {Variant(-1)});
  LONG lastField = 0;
  LONG lastRow = 0;
  SafeArrayGetUBound(all.get().parray, 1, &lastField);
  SafeArrayGetUBound(all.get().parray, 2, &lastRow);
  expectThat(lastField == 3 && lastRow == 1, "GetRows gives fields first, then rows");
  expectThat(bulkCell(all, 0, 1) == Value(std::int32_t{2}), "a whole number stays one");
  expectThat(bulkCell(all, 1, 0) == Value("perché"), "texts come through with their accents");
  expectThat(bulkCell(all, 2, 0) == Value(Decimal::scaled(-1990, 2)), "decimals stay exact");
  expectThat(bulkCell(all, 3, 0) == Value(*Date::make(2024, 3, 5, 13, 30, 15, 250)),
             "dates keep their milliseconds");
  expectThat(bulkCell(all, 1, 1).isNull(), "a database null is a null");
  expectThat(toBoolean(rows.value("EOF")), "GetRows moves past what it gave");
}

void editsInBatches(const LateBound& connection) {
  const LateBound rows = open(connection, "SELECT A, B FROM T ORDER BY A", 1, 4);
  field(rows, "b").put("Value", Variant("altro"));
  rows.call("Update");
  expectThat(toInt32(rows.value("Status")) == 2, "a changed row waits as modified");
  expectThat(toText(field(rows, "B").value("OriginalValue")) == "perché", "the old value is kept");
  const LateBound pending = rows.part("Clone");
  pending.put("Filter", Variant(1));
  expectThat(toInt32(pending.value("RecordCount")) == 1, "one row waits for UpdateBatch");
  rows.call("UpdateBatch");
  pending.put("Filter", Variant(1));
  expectThat(toInt32(pending.value("RecordCount")) == 0, "none waits afterwards");
  const LateBound again(
      toDispatch(connection.call("Execute", {Variant("SELECT B FROM T WHERE A = 1")}).get()));
  expectThat(toText(field(again, "B").value("Value")) == "altro", "the batch was written");
}

void tellsErrors(const LateBound& connection) {
  try {
    connection.call("Execute", {Variant("SELECT * FROM NOWHERE")});
    expectThat(false, "a wrong statement raises an error");
  } catch (const RuntimeError& error) {
    const ado::Errors errors = readErrors(connection.part("Errors").object());
    expectThat(errors.size() == 1 && errors[0].description == error.description() &&
                   errors[0].nativeError == 208 && error.number() == errors[0].number,
               "the error and the collection tell the same");
  }
  try {
    field(open(connection, "SELECT A FROM T WHERE 1 = 0", 3, 1), "A").get("Value");
    expectThat(false, "without a record there is no value");
  } catch (const RuntimeError& error) {
    expectThat(error.number() == 3021 && error.source() == "ADODB", "ADO's own numbers come back");
  }
}

void callsProcedures(const LateBound& connection) {
  connection.call("Execute",
                  {Variant("CREATE PROCEDURE P @n int AS INSERT INTO T (A) VALUES (@n)")});
  const LateBound command = create(commandClass);
  command.set("ActiveConnection", connection.object());
  command.put("CommandText", Variant("P"));
  command.put("CommandType", Variant(4));
  command.part("Parameters").call("Refresh");
  part(command.part("Parameters"), "Item", Variant("@n")).put("Value", Variant(7));
  command.call("Execute");
  const LateBound rows = open(connection, "SELECT A FROM T WHERE A = 7", 3, 1);
  expectThat(toInt32(rows.value("RecordCount")) == 1, "a command passes its parameter");
}

/// Registers itself in the model that it is told of.
class Sink : public AutomationObject {
 public:
  int events = 0;
  bool cameBack = false;

 private:
  std::size_t memberCount() const override { return 3; }
  const wchar_t* memberName(std::size_t) const override { return L"event"; }
  bool invoke(std::size_t, bool, const Arguments& arguments, Variant&) override {
    ++events;
    const ComRef<IDispatch> self(this);
    const Variant entry =
        LateBound(arguments.object(0))
            .call("Register", {Variant("FRM"), Variant(self), Variant(0), Variant("window")});
    cameBack = toDispatch(entry.get()).get() == this;
    return true;
  }
};

void passesNavigatorEventsOn() {
  constexpr IID events = {0x11111111, 0x2222, 0x3333, {4, 4, 4, 4, 4, 4, 4, 4}};
  const Ref<host::Navigator> navigator = makeRef<host::Navigator>();
  const ComRef<IDispatch> object = automate(navigator, events);
  ComRef<IConnectionPointContainer> container;
  ComRef<IConnectionPoint> point;
  object->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container.out()));
  container->FindConnectionPoint(events, point.out());
  const auto sink = ComRef<Sink>::adopt(new Sink);
  DWORD cookie = 0;
  point->Advise(sink.get(), &cookie);
  std::string entry;
  const Ref<host::LayoutModel> model =
      makeRef<workbench::LayoutModel>([&](const std::string& told) { entry = told; });
  navigator->InitializeLayoutObjectModel.raise(model);
  expectThat(sink->events == 1 && sink->cameBack,
             "what is registered comes back as the same object");
  expectThat(entry == "layout: FRM, kind 0, \"window\"", "the model is told in full");
  point->Unadvise(cookie);
  navigator->InitializeLayoutObjectModel.raise(model);
  expectThat(sink->events == 1, "a sink that has left hears no more");
}

void run() {
  const auto database = engine::Database::createInMemory();
  engine::Library library;
  const ClassObjects classes(library, [&] { return engine::newConnection(database, nullptr); });
  const LateBound connection = create(connectionClass);
  connection.put("ConnectionString", Variant("Provider=X"));
  connection.call("Open");
  expectThat(toInt32(connection.value("State")) == 1, "an opened connection is open");
  connection.call("Execute", {Variant("CREATE TABLE T (A int, B varchar(20), C decimal(9, 2), "
                                      "D datetime)")});
  connection.call("Execute", {Variant("INSERT INTO T VALUES (1, 'perché', -19.90, "
                                      "'2024-03-05T13:30:15.250'), (2, NULL, 0, NULL)")});
  readsInBulk(connection);
  editsInBatches(connection);
  tellsErrors(connection);
  callsProcedures(connection);
  passesNavigatorEventsOn();
}

}  // namespace

int main() {
  const Apartment apartment;
  try {
    run();
  } catch (const RuntimeError& error) {
    std::cout << "error " << error.number() << ": " << error.description() << '\n';
    ++failures;
  }
  std::cout << (failures == 0 ? "every check holds\n" : "");
  return failures;
}
