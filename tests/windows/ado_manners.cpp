#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/windows/checks.h"
#include "tests/windows/story.h"
#include "tests/windows/unusual_objects.h"
#include "windows/ado/ado_objects.h"
#include "windows/support/automation.h"

namespace kebu::tests {

namespace {

using windows::Arguments;
using windows::ComPtr;
using windows::Member;
using windows::Variant;

/// A result of a batch as the provider tells it: rows, a bare count, or the
/// error of its statement.
enum class Result { Rows, Count, Error };

/// A recordset with the real one's manners: closed results in a chain, negative
/// positions, an edit mode that wants a record, fields of a new row without a
/// value, and sizes and digits of the provider's.
struct Recordset {
  std::vector<Result> chain;
  std::vector<std::string> calls;
  std::int32_t editMode = 0;
  std::int32_t editModeError = 0;

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

constexpr Member<Recordset> recordsetMembers[] = {
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

Story execute(std::vector<Result> chain) {
  const auto connection = std::make_shared<Connection>(Connection{std::move(chain)});
  const auto wrapped =
      windows::wrapConnection(windows::automated<Connection>(connection, connectionMembers).get());
  Story story;
  story.tell("open", [&] { return wrapped->Execute("BATCH")->isOpen(); });
  story.tell("as text", [&] { return connection->options; });
  return story;
}

void batches() {
  expectThat(execute({Result::Count, Result::Count, Result::Rows}).mentions("open: 1"),
             "the first rows of a batch are found behind its counts");
  expectThat(execute({Result::Count, Result::Count}).mentions("open: 0"),
             "a batch without rows leaves a closed recordset");
  expectThat(execute({Result::Count, Result::Error}).mentions("error -2147217900"),
             "a later statement's error is told");
  expectThat(execute({Result::Rows}).mentions("as text: 1"), "a statement goes as a text");
}

void recordsets() {
  const auto real = std::make_shared<Recordset>();
  real->chain = {Result::Rows};
  const Ref<ado::Recordset> rows = windows::wrapRecordset(newObject(real).get());
  expectThat(rows->AbsolutePosition() == -1, "neither row has the position -1");
  expectThat(rows->value("NOTE").isNull() && rows->originalValue("NOTE").isNull(),
             "a new row's fields are null");
  const ado::Field& field = rows->fields().at(0);
  expectThat(field.type == ado::DataType::VarWChar && field.definedSize == -1 &&
                 field.precision == 0 && field.numericScale == 0,
             "a text without limit is one");
  expectThat(rows->filter().empty(), "no filter is an empty one");
  rows->CancelUpdate();
  expectThat(real->calls.empty(), "an edit that was not begun is not cancelled");
  real->editMode = 1;
  rows->CancelUpdate();
  rows->UpdateBatch();
  expectThat(real->calls == std::vector<std::string>{"CancelUpdate", "UpdateBatch 4"},
             "a batch is sent with the rows that a filter hides");
  real->editModeError = 3021;
  expectThat(rows->editMode() == ado::EditMode::None, "where there is no row none is edited");
  real->editModeError = -2147217885;
  expectThat(rows->editMode() == ado::EditMode::Delete, "a deleted row is one");
}

}  // namespace

void checkAdoManners() {
  batches();
  recordsets();
}

}  // namespace kebu::tests
