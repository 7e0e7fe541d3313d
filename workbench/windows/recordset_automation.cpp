#include "workbench/windows/ado_automation.h"

#include <algorithm>
#include <type_traits>
#include <utility>
#include <vector>

#include "common/convert.h"
#include "workbench/ado/ado_error.h"
#include "workbench/windows/ado_state.h"

namespace kebu::workbench {

using namespace windows;

namespace {

using Argument = const Arguments&;

struct FieldState {
  std::shared_ptr<RecordsetState> recordset;
  std::size_t index;

  const ado::Field& field() const {
    const auto& fields = recordset->rows->fields();
    if (index >= fields.size()) throw adoerror::noSuchItem();
    return fields[index];
  }
};

constexpr Member<FieldState> fieldMembers[] = {
    {L"Value",
     [](FieldState& f, Argument) { return toVariant(f.recordset->rows->value(f.field().name)); },
     [](FieldState& f, Argument arguments) {
       f.recordset->rows->setValue(f.field().name, arguments.value(0));
     }},
    {L"Name", [](FieldState& f, Argument) { return Variant(f.field().name); }},
    {L"Type",
     [](FieldState& f, Argument) { return Variant(static_cast<std::int32_t>(f.field().type)); }},
    {L"DefinedSize", [](FieldState& f, Argument) { return Variant(f.field().definedSize); }},
    {L"Precision",
     [](FieldState& f, Argument) { return Variant(std::int32_t{f.field().precision}); }},
    {L"NumericScale",
     [](FieldState& f, Argument) { return Variant(std::int32_t{f.field().numericScale}); }},
    {L"OriginalValue",
     [](FieldState& f, Argument) {
       return toVariant(f.recordset->rows->originalValue(f.field().name));
     }},
};

std::size_t fieldIndex(const RecordsetState& recordset, const Value& key) {
  if (!key.isText()) return static_cast<std::size_t>(toInt32(key));
  return ado::indexOf(recordset.rows->fields(), key.as<std::string>());
}

Variant fieldOf(const std::shared_ptr<RecordsetState>& recordset, const Value& key) {
  const auto field =
      std::make_shared<FieldState>(FieldState{recordset, fieldIndex(*recordset, key)});
  static_cast<void>(field->field());
  return Variant(automated<FieldState>(field, fieldMembers));
}

struct FieldsState {
  std::shared_ptr<RecordsetState> recordset;
};

constexpr Member<FieldsState> fieldsMembers[] = {
    {L"Item", [](FieldsState& fields,
                 Argument arguments) { return fieldOf(fields.recordset, arguments.value(0)); }},
    {L"Count",
     [](FieldsState& fields, Argument) {
       return Variant(static_cast<std::int32_t>(fields.recordset->rows->fields().size()));
     }},
};

/// The fields that GetRows is asked for: all of them, one, or an array of them.
std::vector<std::size_t> wantedFields(const RecordsetState& recordset, Argument arguments,
                                      std::size_t at) {
  std::vector<std::size_t> wanted;
  const std::size_t all = recordset.rows->fields().size();
  if (!arguments.has(at)) {
    for (std::size_t i = 0; i < all; ++i) wanted.push_back(i);
    return wanted;
  }
  const VARIANT& given = followed(arguments.at(at));
  if (given.vt != (VT_ARRAY | VT_VARIANT)) {
    wanted.push_back(fieldIndex(recordset, toValue(given)));
  } else {
    LONG first = 0;
    LONG last = -1;
    SafeArrayGetLBound(given.parray, 1, &first);
    SafeArrayGetUBound(given.parray, 1, &last);
    for (LONG i = first; i <= last; ++i) {
      Variant key;
      if (FAILED(SafeArrayGetElement(given.parray, &i, key.put()))) {
        throw adoerror::badArgument();
      }
      wanted.push_back(fieldIndex(recordset, toValue(key.get())));
    }
  }
  if (std::any_of(wanted.begin(), wanted.end(), [&](std::size_t i) { return i >= all; })) {
    throw adoerror::noSuchItem();
  }
  return wanted;
}

/// An array [field][row], as ADO gives rows in bulk.
Variant toArray(const std::vector<RowValues>& rows, const std::vector<std::size_t>& wanted) {
  SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(wanted.size()), 0},
                             {static_cast<ULONG>(rows.size()), 0}};
  Variant result;
  SAFEARRAY* const array = SafeArrayCreate(VT_VARIANT, 2, bounds);
  if (!array) throw RuntimeError::outOfMemory();
  VARIANT* const out = result.put();
  out->vt = VT_ARRAY | VT_VARIANT;
  out->parray = array;
  VARIANT* cell = nullptr;
  if (FAILED(SafeArrayAccessData(array, reinterpret_cast<void**>(&cell)))) {
    throw RuntimeError::outOfMemory();
  }
  // The first dimension varies fastest.
  for (const auto& row : rows) {
    for (const std::size_t field : wanted) *cell++ = toVariant(row[field]).detach();
  }
  SafeArrayUnaccessData(array);
  return result;
}

Variant getRows(RecordsetState& recordset, Argument arguments) {
  constexpr std::int32_t fromFirst = 1;
  if (arguments.has(1) && toValue(arguments.at(1)).isNumber() && arguments.number(1) == fromFirst) {
    recordset.rows->MoveFirst();
  }
  const auto wanted = wantedFields(recordset, arguments, 2);
  return toArray(recordset.rows->GetRows(arguments.number(0, -1)), wanted);
}

/// Opens the recordset asynchronously, as its state says.
void openBeside(const std::shared_ptr<RecordsetState>& state, ConnectionState& on,
                const std::string& filter = "") {
  runAsynchronously(state, on,
                    [connection = connectionBehind(state->connection), source = state->source,
                     location = state->location, criteria = state->criteria,
                     cursor = state->cursorType, lock = state->lockType, filter] {
                      Ref<ado::Recordset> rows = makeRef<AdoRecordset>();
                      rows->setCursorLocation(location);
                      if (location == ado::CursorLocation::Client)
                        rows->setUpdateCriteria(criteria);
                      rows->Open(source, connection, cursor, lock);
                      if (!filter.empty()) rows->setFilter(filter);
                      return rows;
                    });
}

void openRecordset(const std::shared_ptr<RecordsetState>& state, Argument arguments) {
  RecordsetState& recordset = *state;
  if (arguments.has(0)) recordset.source = arguments.text(0);
  if (arguments.has(1)) recordset.connection = arguments.object(1);
  recordset.cursorType = static_cast<ado::CursorType>(
      arguments.number(2, static_cast<std::int32_t>(recordset.cursorType)));
  if (recordset.location == ado::CursorLocation::Client) {
    recordset.cursorType = ado::CursorType::Static;
  }
  recordset.lockType = static_cast<ado::LockType>(
      arguments.number(3, static_cast<std::int32_t>(recordset.lockType)));
  const auto on = subjectOf<ConnectionState>(recordset.connection);
  if (!on || !isAsynchronous(arguments, 4)) {
    recordset.rows->Open(recordset.source, connectionBehind(recordset.connection),
                         recordset.cursorType, recordset.lockType);
    return;
  }
  if (recordset.rows->isOpen()) throw adoerror::open();
  openBeside(state, *on);
}

void requery(const std::shared_ptr<RecordsetState>& state, Argument arguments) {
  const auto on = subjectOf<ConnectionState>(state->connection);
  if (!on || !isAsynchronous(arguments, 0)) {
    state->rows->Requery();
    return;
  }
  if (!state->rows->isOpen()) throw adoerror::closed();
  openBeside(state, *on, state->rows->filter());
}

void setFilter(RecordsetState& recordset, Argument arguments) {
  constexpr std::int32_t pendingRecords = 1;
  const Value filter = arguments.value(0);
  if (filter.isText()) {
    recordset.rows->setFilter(filter.as<std::string>());
  } else if (toInt32(filter) == pendingRecords) {
    recordset.own().filterPending();
  } else if (toInt32(filter) == 0) {
    recordset.rows->setFilter("");
  } else {
    throw adoerror::badArgument();
  }
}

/// A member without a result.
template <auto Method>
Variant doing(RecordsetState& recordset, Argument /*arguments*/) {
  ((*recordset.rows).*Method)();
  return nothing();
}

std::shared_ptr<RecordsetState> cloneOf(const RecordsetState& recordset) {
  auto clone = std::make_shared<RecordsetState>();
  clone->rows = recordset.rows->Clone();
  clone->connection = recordset.connection;
  clone->source = recordset.source;
  clone->location = recordset.location;
  clone->cursorType = recordset.cursorType;
  clone->lockType = recordset.lockType;
  clone->criteria = recordset.criteria;
  return clone;
}

// As ADO has them, a recordset's fields and clone need the recordset itself.
struct RecordsetObject {
  std::shared_ptr<RecordsetState> state = std::make_shared<RecordsetState>();
};

template <Variant (*Call)(RecordsetState&, Argument)>
Variant on(RecordsetObject& recordset, Argument arguments) {
  return Call(*recordset.state, arguments);
}

/// How a recordset is to be opened.
template <auto Option>
Variant option(RecordsetObject& recordset, Argument /*arguments*/) {
  return Variant(static_cast<std::int32_t>((*recordset.state).*Option));
}

template <auto Option>
void setOption(RecordsetObject& recordset, Argument arguments) {
  if (recordset.state->rows->isOpen()) throw adoerror::open();
  auto& option = (*recordset.state).*Option;
  option = static_cast<std::remove_reference_t<decltype(option)>>(arguments.number(0));
}

/// A dynamic property by its name. There is one.
struct PropertyState {
  std::shared_ptr<RecordsetState> recordset;
};

constexpr Member<PropertyState> propertyMembers[] = {
    {L"Value", nullptr,
     [](PropertyState& p, Argument arguments) {
       p.recordset->rows->setUpdateCriteria(static_cast<ado::UpdateCriteria>(arguments.number(0)));
       p.recordset->criteria = static_cast<ado::UpdateCriteria>(arguments.number(0));
     }},
};

Variant propertyOf(RecordsetObject& recordset, Argument arguments) {
  const bool isOnClient = recordset.state->location == ado::CursorLocation::Client;
  if (!isOnClient || !equalsIgnoringCase(arguments.text(0), "Update Criteria")) {
    throw adoerror::noSuchItem();
  }
  return Variant(automated<PropertyState>(
      std::make_shared<PropertyState>(PropertyState{recordset.state}), propertyMembers));
}

constexpr Member<RecordsetObject> recordsetMembers[] = {
    {L"Fields",
     [](RecordsetObject& r, Argument arguments) {
       if (arguments.count() > 0) return fieldOf(r.state, arguments.value(0));
       return Variant(automated<FieldsState>(std::make_shared<FieldsState>(FieldsState{r.state}),
                                             fieldsMembers));
     }},
    {L"CursorLocation", option<&RecordsetState::location>,
     [](RecordsetObject& r, Argument arguments) {
       const auto location = static_cast<ado::CursorLocation>(arguments.number(0));
       r.state->rows->setCursorLocation(location);
       r.state->location = location;
     }},
    {L"Properties", propertyOf},
    {L"CursorType", option<&RecordsetState::cursorType>, setOption<&RecordsetState::cursorType>},
    {L"LockType", option<&RecordsetState::lockType>, setOption<&RecordsetState::lockType>},
    {L"Source", [](RecordsetObject& r, Argument) { return Variant(r.state->source); },
     [](RecordsetObject& r, Argument arguments) { r.state->source = arguments.text(0); }},
    {L"ActiveConnection", [](RecordsetObject& r, Argument) { return Variant(r.state->connection); },
     [](RecordsetObject& r, Argument arguments) { r.state->connection = arguments.object(0); }},
    {L"Open",
     [](RecordsetObject& r, Argument arguments) {
       openRecordset(r.state, arguments);
       return nothing();
     }},
    {L"Close", on<doing<&ado::Recordset::Close>>},
    {L"Cancel",
     [](RecordsetObject& r, Argument) {
       r.state->cancel();
       return nothing();
     }},
    {L"State", [](RecordsetObject& r, Argument) { return Variant(r.state->state()); }},
    {L"NextRecordset",
     [](RecordsetObject& r, Argument) {
       if (r.state->following.empty()) return Variant(ComPtr<IDispatch>());
       RecordsetState& state = *r.state;
       return Variant(automateState(
           recordsetOf(state.batchConnection, state.source, std::move(state.following))));
     }},
    {L"Requery",
     [](RecordsetObject& r, Argument arguments) {
       requery(r.state, arguments);
       return nothing();
     }},
    {L"Clone",
     [](RecordsetObject& r, Argument) { return Variant(automateState(cloneOf(*r.state))); }},
    {L"BOF", [](RecordsetObject& r, Argument) { return Variant(r.state->rows->BOF()); }},
    {L"EOF", [](RecordsetObject& r, Argument) { return Variant(r.state->rows->EOF_()); }},
    {L"MoveFirst", on<doing<&ado::Recordset::MoveFirst>>},
    {L"MoveLast", on<doing<&ado::Recordset::MoveLast>>},
    {L"MoveNext", on<doing<&ado::Recordset::MoveNext>>},
    {L"MovePrevious", on<doing<&ado::Recordset::MovePrevious>>},
    {L"RecordCount",
     [](RecordsetObject& r, Argument) { return Variant(r.state->rows->RecordCount()); }},
    {L"AbsolutePosition",
     [](RecordsetObject& r, Argument) { return Variant(r.state->rows->AbsolutePosition()); },
     [](RecordsetObject& r, Argument arguments) {
       r.state->rows->setAbsolutePosition(arguments.number(0));
     }},
    {L"Filter",
     [](RecordsetObject& r, Argument) {
       const std::string filter = r.state->rows->filter();
       return filter.empty() ? Variant(std::int32_t{0}) : Variant(filter);
     },
     [](RecordsetObject& r, Argument arguments) { setFilter(*r.state, arguments); }},
    {L"GetRows", on<getRows>},
    {L"AddNew", on<doing<&ado::Recordset::AddNew>>},
    {L"Update", on<doing<&ado::Recordset::Update>>},
    {L"CancelUpdate", on<doing<&ado::Recordset::CancelUpdate>>},
    {L"Delete", on<doing<&ado::Recordset::Delete>>},
    {L"UpdateBatch", on<doing<&ado::Recordset::UpdateBatch>>},
    {L"CancelBatch", on<doing<&ado::Recordset::CancelBatch>>},
    {L"EditMode",
     [](RecordsetObject& r, Argument) {
       return Variant(static_cast<std::int32_t>(r.state->rows->editMode()));
     }},
    {L"Status", [](RecordsetObject& r, Argument) { return Variant(r.state->own().status()); }},
};

}  // namespace

ComPtr<IDispatch> automateState(const std::shared_ptr<RecordsetState>& state) {
  auto recordset = std::make_shared<RecordsetObject>();
  recordset->state = state;
  return automated<RecordsetObject>(recordset, recordsetMembers);
}

ComPtr<IDispatch> automate(const Ref<ado::Recordset>& recordset) {
  if (!recordset) return nullptr;
  auto state = std::make_shared<RecordsetState>();
  state->rows = recordset;
  return automateState(state);
}

}  // namespace kebu::workbench
