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

Variant fieldOf(RecordsetState& recordset, const Value& key) {
  const auto field = std::make_shared<FieldState>(
      FieldState{recordset.shared_from_this(), fieldIndex(recordset, key)});
  static_cast<void>(field->field());
  return Variant(automated<FieldState>(field, fieldMembers));
}

/// The collection of a recordset's fields.
constexpr Member<RecordsetState> fieldsMembers[] = {
    {L"Item", [](RecordsetState& r, Argument arguments) { return fieldOf(r, arguments.value(0)); }},
    {L"Count",
     [](RecordsetState& r, Argument) {
       return Variant(static_cast<std::int32_t>(r.rows->fields().size()));
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
void openBeside(RecordsetState& recordset, ConnectionState& on, const std::string& filter = "") {
  runAsynchronously(recordset.shared_from_this(), on,
                    [connection = connectionBehind(recordset.connection), source = recordset.source,
                     location = recordset.location, criteria = recordset.criteria,
                     cursor = recordset.cursorType, lock = recordset.lockType, filter] {
                      Ref<ado::Recordset> rows = makeRef<AdoRecordset>();
                      rows->setCursorLocation(location);
                      if (location == ado::CursorLocation::Client)
                        rows->setUpdateCriteria(criteria);
                      rows->Open(source, connection, cursor, lock);
                      if (!filter.empty()) rows->setFilter(filter);
                      return rows;
                    });
}

Variant openRecordset(RecordsetState& recordset, Argument arguments) {
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
    return nothing();
  }
  if (recordset.rows->isOpen()) throw adoerror::open();
  openBeside(recordset, *on);
  return nothing();
}

Variant requery(RecordsetState& recordset, Argument arguments) {
  const auto on = subjectOf<ConnectionState>(recordset.connection);
  if (!on || !isAsynchronous(arguments, 0)) {
    recordset.rows->Requery();
    return nothing();
  }
  if (!recordset.rows->isOpen()) throw adoerror::closed();
  openBeside(recordset, *on, recordset.rows->filter());
  return nothing();
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

/// How a recordset is to be opened.
template <auto Option>
Variant option(RecordsetState& recordset, Argument /*arguments*/) {
  return Variant(static_cast<std::int32_t>(recordset.*Option));
}

template <auto Option>
void setOption(RecordsetState& recordset, Argument arguments) {
  if (recordset.rows->isOpen()) throw adoerror::open();
  auto& option = recordset.*Option;
  option = static_cast<std::remove_reference_t<decltype(option)>>(arguments.number(0));
}

/// The one dynamic property that there is.
constexpr Member<RecordsetState> updateCriteriaMembers[] = {
    {L"Value", nullptr,
     [](RecordsetState& r, Argument arguments) {
       const auto criteria = static_cast<ado::UpdateCriteria>(arguments.number(0));
       r.rows->setUpdateCriteria(criteria);
       r.criteria = criteria;
     }},
};

Variant propertyOf(RecordsetState& recordset, Argument arguments) {
  const bool isOnClient = recordset.location == ado::CursorLocation::Client;
  if (!isOnClient || !equalsIgnoringCase(arguments.text(0), "Update Criteria")) {
    throw adoerror::noSuchItem();
  }
  return Variant(automated(recordset.shared_from_this(), updateCriteriaMembers));
}

constexpr Member<RecordsetState> recordsetMembers[] = {
    {L"Fields",
     [](RecordsetState& r, Argument arguments) {
       if (arguments.count() > 0) return fieldOf(r, arguments.value(0));
       return Variant(automated(r.shared_from_this(), fieldsMembers));
     }},
    {L"CursorLocation", option<&RecordsetState::location>,
     [](RecordsetState& r, Argument arguments) {
       const auto location = static_cast<ado::CursorLocation>(arguments.number(0));
       r.rows->setCursorLocation(location);
       r.location = location;
     }},
    {L"Properties", propertyOf},
    {L"CursorType", option<&RecordsetState::cursorType>, setOption<&RecordsetState::cursorType>},
    {L"LockType", option<&RecordsetState::lockType>, setOption<&RecordsetState::lockType>},
    {L"Source", [](RecordsetState& r, Argument) { return Variant(r.source); },
     [](RecordsetState& r, Argument arguments) { r.source = arguments.text(0); }},
    {L"ActiveConnection", [](RecordsetState& r, Argument) { return Variant(r.connection); },
     [](RecordsetState& r, Argument arguments) { r.connection = arguments.object(0); }},
    {L"Open", openRecordset},
    {L"Close", doing<&ado::Recordset::Close>},
    {L"Cancel",
     [](RecordsetState& r, Argument) {
       r.cancel();
       return nothing();
     }},
    {L"State", [](RecordsetState& r, Argument) { return Variant(r.state()); }},
    {L"NextRecordset",
     [](RecordsetState& r, Argument) {
       if (r.following.empty()) return Variant(ComPtr<IDispatch>());
       return Variant(
           automateState(recordsetOf(r.batchConnection, r.source, std::move(r.following))));
     }},
    {L"Requery", requery},
    {L"Clone", [](RecordsetState& r, Argument) { return Variant(automateState(cloneOf(r))); }},
    {L"BOF", [](RecordsetState& r, Argument) { return Variant(r.rows->BOF()); }},
    {L"EOF", [](RecordsetState& r, Argument) { return Variant(r.rows->EOF_()); }},
    {L"MoveFirst", doing<&ado::Recordset::MoveFirst>},
    {L"MoveLast", doing<&ado::Recordset::MoveLast>},
    {L"MoveNext", doing<&ado::Recordset::MoveNext>},
    {L"MovePrevious", doing<&ado::Recordset::MovePrevious>},
    {L"RecordCount", [](RecordsetState& r, Argument) { return Variant(r.rows->RecordCount()); }},
    {L"AbsolutePosition",
     [](RecordsetState& r, Argument) { return Variant(r.rows->AbsolutePosition()); },
     [](RecordsetState& r, Argument arguments) {
       r.rows->setAbsolutePosition(arguments.number(0));
     }},
    {L"Filter",
     [](RecordsetState& r, Argument) {
       const std::string filter = r.rows->filter();
       return filter.empty() ? Variant(std::int32_t{0}) : Variant(filter);
     },
     setFilter},
    {L"GetRows", getRows},
    {L"AddNew", doing<&ado::Recordset::AddNew>},
    {L"Update", doing<&ado::Recordset::Update>},
    {L"CancelUpdate", doing<&ado::Recordset::CancelUpdate>},
    {L"Delete", doing<&ado::Recordset::Delete>},
    {L"UpdateBatch", doing<&ado::Recordset::UpdateBatch>},
    {L"CancelBatch", doing<&ado::Recordset::CancelBatch>},
    {L"EditMode", [](RecordsetState& r,
                     Argument) { return Variant(static_cast<std::int32_t>(r.rows->editMode())); }},
    {L"Status", [](RecordsetState& r, Argument) { return Variant(r.own().status()); }},
};

}  // namespace

ComPtr<IDispatch> automateState(const std::shared_ptr<RecordsetState>& state) {
  return automated(state, recordsetMembers);
}

ComPtr<IDispatch> automate(const Ref<ado::Recordset>& recordset) {
  if (!recordset) return nullptr;
  auto state = std::make_shared<RecordsetState>();
  state->rows = recordset;
  return automateState(state);
}

}  // namespace kebu::workbench
