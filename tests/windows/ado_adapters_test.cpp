// The behaviour of the real ADO that the workbench's objects do not show.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/windows/transcript.h"
#include "windows/ado/ado_objects.h"
#include "windows/support/automation.h"
#include "workbench/windows/trace_listener.h"

namespace kebu::tests {

namespace {

using windows::Arguments;
using windows::ComPtr;
using windows::Member;
using windows::Variant;

/// A result of a batch: rows, a count of rows without rows, or the error of its statement.
enum class Result { Rows, Count, Error };

/// A recordset that behaves as the real one: closed results in a chain, negative positions, an edit
/// mode that fails without a record, empty fields of a new row, and the provider's values for
/// "no size" and "no digits".
struct Recordset {
  std::vector<Result> chain;
  std::vector<std::string> calls;
  std::int32_t editMode = 0;
  std::int32_t editModeError = 0;
  /// Whether the dynamic properties of a client cursor are there only once it is open.
  bool propertiesWhenOpen = false;

  bool isOpen() const { return !chain.empty() && chain.front() == Result::Rows; }
};

ComPtr<IDispatch> newObject(const std::shared_ptr<Recordset>& recordset);

RuntimeError adoError(std::int32_t number, const char* text) {
  return {number, text, "ADODB"};
}

constexpr Member<Recordset> fieldMembers[] = {
    {L"Value", [](Recordset&, const Arguments&) { return Variant(); }},
    {L"OriginalValue", [](Recordset&, const Arguments&) { return Variant(); }},
    {L"Name", [](Recordset&, const Arguments&) { return Variant("NOTE"); }},
    {L"Type", [](Recordset&, const Arguments&) { return Variant(std::int32_t{203}); }},
    {L"DefinedSize",
     [](Recordset&, const Arguments&) { return Variant(std::int32_t{1073741823}); }},
    {L"Precision", [](Recordset&, const Arguments&) { return Variant(std::int32_t{255}); }},
    {L"NumericScale", [](Recordset&, const Arguments&) { return Variant(std::int32_t{255}); }},
};

Variant field(Recordset& /*fields*/, const Arguments& /*arguments*/) {
  return Variant(windows::automated<Recordset>(std::make_shared<Recordset>(), fieldMembers));
}

constexpr Member<Recordset> fieldsMembers[] = {
    {L"Item", field},
    {L"Count", [](Recordset&, const Arguments&) { return Variant(std::int32_t{1}); }},
};

Variant nextRecordset(Recordset& recordset, const Arguments& /*arguments*/) {
  std::vector<Result> rest(recordset.chain.begin() + 1, recordset.chain.end());
  if (rest.empty()) return ComPtr<IDispatch>();
  if (rest.front() == Result::Error) throw adoError(-2147217900, "second statement");
  auto next = std::make_shared<Recordset>();
  next->chain = std::move(rest);
  return newObject(next);
}

Variant cancelUpdate(Recordset& recordset, const Arguments& /*arguments*/) {
  if (recordset.editMode == 0) throw adoError(-2147467259, "nothing to cancel");
  recordset.calls.emplace_back("CancelUpdate");
  return {};
}

constexpr Member<Recordset> propertyMembers[] = {
    {L"Value", nullptr,
     [](Recordset& r, const Arguments& arguments) {
       r.calls.push_back("criteria " + std::to_string(arguments.number(0)));
     }},
};

constexpr Member<Recordset> recordsetMembers[] = {
    {L"Open",
     [](Recordset& r, const Arguments&) {
       r.calls.emplace_back("Open");
       r.chain = {Result::Rows};
       return Variant();
     }},
    {L"Properties",
     [](Recordset& r, const Arguments&) {
       if (r.propertiesWhenOpen && !r.isOpen()) throw adoError(3265, "no such item");
       // The reference does not own the recordset, which the test holds.
       const std::shared_ptr<Recordset> same(&r, [](Recordset*) {});
       return Variant(windows::automated<Recordset>(same, propertyMembers));
     }},
    {L"State",
     [](Recordset& r, const Arguments&) { return Variant(std::int32_t{r.isOpen() ? 1 : 0}); }},
    {L"NextRecordset", nextRecordset},
    {L"Fields",
     [](Recordset&, const Arguments&) {
       return Variant(windows::automated<Recordset>(std::make_shared<Recordset>(), fieldsMembers));
     }},
    {L"AbsolutePosition", [](Recordset&, const Arguments&) { return Variant(std::int32_t{-3}); }},
    {L"EditMode",
     [](Recordset& r, const Arguments&) {
       if (r.editModeError != 0) throw adoError(r.editModeError, "no row");
       return Variant(r.editMode);
     }},
    {L"CancelUpdate", cancelUpdate},
    {L"UpdateBatch",
     [](Recordset& r, const Arguments& arguments) {
       r.calls.push_back("UpdateBatch " + std::to_string(arguments.number(0)));
       return Variant();
     }},
    {L"Filter", [](Recordset&, const Arguments&) { return Variant(std::int32_t{0}); }},
};

ComPtr<IDispatch> newObject(const std::shared_ptr<Recordset>& recordset) {
  return windows::automated<Recordset>(recordset, recordsetMembers);
}

struct Connection {
  std::vector<Result> chain;
  std::int32_t options = 0;
};

constexpr Member<Connection> connectionMembers[] = {
    {L"Execute",
     [](Connection& c, const Arguments& arguments) {
       c.options = arguments.has(1) ? -1 : arguments.number(2);
       auto first = std::make_shared<Recordset>();
       first->chain = c.chain;
       return Variant(newObject(first));
     }},
};

Transcript execute(std::vector<Result> chain) {
  const auto connection = std::make_shared<Connection>(Connection{std::move(chain)});
  const auto wrapped =
      windows::wrapConnection(windows::automated<Connection>(connection, connectionMembers).get());
  Transcript transcript;
  transcript.record("open", [&] { return wrapped->Execute("BATCH")->isOpen(); });
  transcript.record("as text", [&] { return connection->options; });
  return transcript;
}

TEST(AdoAdapters, FollowABatchToItsRowsOrItsError) {
  EXPECT_TRUE(execute({Result::Count, Result::Count, Result::Rows}).contains("open: 1"));
  EXPECT_TRUE(execute({Result::Count, Result::Count}).contains("open: 0")) << "no rows";
  EXPECT_TRUE(execute({Result::Count, Result::Error}).contains("error -2147217900"));
  EXPECT_TRUE(execute({Result::Rows}).contains("as text: 1"));
}

TEST(AdoAdapters, TraceAStatementThatFails) {
  std::ostringstream trace;
  {
    const workbench::TraceListener listener(trace);
    execute({Result::Rows});
    EXPECT_EQ(trace.str(), "");
    execute({Result::Count, Result::Error});
  }
  EXPECT_EQ(trace.str(), "KVSE:|-2147217900|ADODB|second statement|BATCH\n");
}

TEST(AdoAdapters, TranslateAProvidersAnswers) {
  const auto real = std::make_shared<Recordset>();
  real->chain = {Result::Rows};
  const Ref<ado::Recordset> rows = windows::wrapRecordset(newObject(real).get());
  EXPECT_EQ(rows->AbsolutePosition(), -1) << "no row is the current one";
  EXPECT_TRUE(rows->value("NOTE").isNull()) << "a new row";
  EXPECT_TRUE(rows->originalValue("NOTE").isNull()) << "a new row";
  const ado::Field& field = rows->fields().at(0);
  EXPECT_EQ(field.type, ado::DataType::VarWChar);
  EXPECT_EQ(field.definedSize, -1) << "a text without limit";
  EXPECT_EQ(field.precision, 0);
  EXPECT_EQ(field.numericScale, 0);
  EXPECT_TRUE(rows->filter().empty());
}

TEST(AdoAdapters, SetTheUpdateCriteriaAsSoonAsTheyAreThere) {
  for (const bool whenOpen : {false, true}) {
    const auto real = std::make_shared<Recordset>();
    real->propertiesWhenOpen = whenOpen;
    const Ref<ado::Recordset> rows = windows::wrapRecordset(newObject(real).get());
    rows->setUpdateCriteria(ado::UpdateCriteria::AllColumns);
    rows->Open("ROWS", nullptr, ado::CursorType::Static, ado::LockType::Optimistic);
    const std::vector<std::string> expected = whenOpen
                                                  ? std::vector<std::string>{"Open", "criteria 1"}
                                                  : std::vector<std::string>{"criteria 1", "Open"};
    EXPECT_EQ(real->calls, expected);
  }
}

/// A connection whose asynchronous statement fails silently: its error is in Errors only.
struct SilentConnection {
  std::vector<std::int32_t> errors{-2147217900};  // left from a statement before
  std::vector<std::int32_t> coming;
};

constexpr Member<std::int32_t> errorMembers[] = {
    {L"Number", [](std::int32_t& number, const Arguments&) { return Variant(number); }},
    {L"Description", [](std::int32_t&, const Arguments&) { return Variant("text"); }},
    {L"Source", [](std::int32_t&, const Arguments&) { return Variant("provider"); }},
    {L"NativeError", [](std::int32_t&, const Arguments&) { return Variant(std::int32_t{208}); }},
    {L"SQLState", [](std::int32_t&, const Arguments&) { return Variant("42S02"); }},
};

constexpr Member<SilentConnection> silentErrorsMembers[] = {
    {L"Item",
     [](SilentConnection& c, const Arguments& arguments) {
       const auto at = static_cast<std::size_t>(arguments.number(0));
       return Variant(windows::automated<std::int32_t>(
           std::make_shared<std::int32_t>(c.errors.at(at)), errorMembers));
     }},
    {L"Count",
     [](SilentConnection& c, const Arguments&) {
       return Variant(static_cast<std::int32_t>(c.errors.size()));
     }},
    {L"Clear",
     [](SilentConnection& c, const Arguments&) {
       c.errors.clear();
       return Variant();
     }},
};

constexpr Member<SilentConnection> silentMembers[] = {
    {L"State", [](SilentConnection&, const Arguments&) { return Variant(std::int32_t{1}); }},
    {L"Execute",
     [](SilentConnection& c, const Arguments&) {
       c.errors = c.coming;
       auto rows = std::make_shared<Recordset>();
       rows->chain = {Result::Rows};
       return Variant(newObject(rows));
     }},
    {L"Errors",
     [](SilentConnection& c, const Arguments&) {
       const std::shared_ptr<SilentConnection> same(&c, [](SilentConnection*) {});
       return Variant(windows::automated<SilentConnection>(same, silentErrorsMembers));
     }},
};

TEST(AdoAdapters, RaiseAnErrorOfAsynchronousWorkThatIsInErrorsOnly) {
  const auto real = std::make_shared<SilentConnection>();
  const Ref<ado::Connection> connection =
      windows::wrapConnection(windows::automated<SilentConnection>(real, silentMembers).get());
  connection->whileExecuting([] { return true; });
  const auto numberOf = [&] {
    try {
      connection->Execute("STATEMENT");
    } catch (const RuntimeError& error) {
      return error.number();
    }
    return 0;
  };
  EXPECT_EQ(numberOf(), 0) << "the error of a statement before is not raised again";
  real->coming = {0, 5701};
  EXPECT_EQ(numberOf(), 0) << "messages are no errors";
  real->coming = {0, -2147217865};
  EXPECT_EQ(numberOf(), -2147217865);
}

TEST(AdoAdapters, EndOnlyEditsThatWereBegun) {
  const auto real = std::make_shared<Recordset>();
  real->chain = {Result::Rows};
  const Ref<ado::Recordset> rows = windows::wrapRecordset(newObject(real).get());
  rows->CancelUpdate();
  EXPECT_TRUE(real->calls.empty());
  real->editMode = 1;
  rows->CancelUpdate();
  rows->UpdateBatch();
  // 4: with the rows that a filter hides.
  EXPECT_EQ(real->calls, (std::vector<std::string>{"CancelUpdate", "UpdateBatch 4"}));
  real->editModeError = 3021;
  EXPECT_EQ(rows->editMode(), ado::EditMode::None) << "there is no row";
  real->editModeError = -2147217885;
  EXPECT_EQ(rows->editMode(), ado::EditMode::Delete) << "the row was deleted";
}

}  // namespace

}  // namespace kebu::tests
