#include "controls/query_editor.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "common/error.h"
#include "common/platform.h"
#include "controls/saved_filter.h"

namespace kebu::controls {

namespace {

QueryColumn columnOf(const QueryField& field) {
  return {field.dataField, field.isNumeric};
}

/// Whether each box holds one whole code, which can be decoded.
bool takesCodes(QueryOperator op) {
  return op == QueryOperator::Any || op == QueryOperator::Equal || op == QueryOperator::Different ||
         op == QueryOperator::Range;
}

/// "ENHQUERY_CLI(2).VALORE1"
std::string partName(const std::string& editor, std::size_t row, const std::string& part) {
  return editor + "(" + std::to_string(row) + ")." + part;
}

QueryCondition conditionOf(const QueryEditor::Row& row) {
  switch (row.shown) {
    case QueryOperator::Any:
    case QueryOperator::Empty:
    case QueryOperator::NotEmpty:
      return {row.shown, {}};
    case QueryOperator::OneOf:
      return {row.shown, splitList(row.first.text())};
    case QueryOperator::Range:
      return {row.shown, {row.first.text(), row.second.text()}};
    default:
      return {row.shown, {row.first.text()}};
  }
}

std::string commaSeparated(const std::vector<std::string>& items) {
  std::string text;
  for (const std::string& item : items) text += (text.empty() ? "" : ", ") + item;
  return text;
}

}  // namespace

QueryEditor::Row::Row(const std::string& editor, std::size_t number, const QueryField& declared)
    : field(declared),
      op(operatorName(editor, number)),
      first(valueName(editor, number, RangeEnd::First)),
      second(valueName(editor, number, RangeEnd::Second)),
      firstDescription(partName(editor, number, "DESCRIZIONE1")),
      secondDescription(partName(editor, number, "DESCRIZIONE2")) {}

std::string QueryEditor::operatorName(const std::string& editor, std::size_t row) {
  return partName(editor, row, "OPERATORE");
}

std::string QueryEditor::valueName(const std::string& editor, std::size_t row, RangeEnd end) {
  return partName(editor, row, end == RangeEnd::First ? "VALORE1" : "VALORE2");
}

std::string QueryEditor::composedTextName(const std::string& editor) {
  return editor + ".CONDIZIONE";
}

bool QueryEditor::isPartName(std::string_view editor, std::string_view name) {
  if (editor.empty() || !equalsIgnoringCase(name.substr(0, editor.size()), editor)) return false;
  name.remove_prefix(editor.size());
  return name.starts_with('(') || name.starts_with('.');
}

QueryOperator QueryEditor::Row::chosen() const {
  return operatorByCode(op.text()).value_or(QueryOperator::Any);
}

QueryEditor::QueryEditor(std::string name, ControlHost& host, const QueryComposer& composer)
    : OfKind(std::move(name)),
      host_(host),
      composer_(composer),
      text_(composedTextName(Name()), "Condizione"),
      count_(Name() + ".CONTA", "Conta"),
      answer_(Name() + ".ESITO"),
      warning_(Name() + ".AVVISO"),
      condition_(Name() + ".PAROLE") {
  setGestureHost(host);
  text_.setEditable(false);
  text_.setLines(3);
  warning_.setWarning(true);
  warning_.setVisible(false);
  count_.ButtonClick.on([this] { count(); });
}

std::string QueryEditor::translated(std::string_view text) const {
  return translator_ ? translator_(std::string(text)) : std::string(text);
}

// ---- declaration

void QueryEditor::nameOperators() {
  for (const OperatorTraits& traits : queryOperators()) {
    const ComboBox::Row row{std::string(traits.code), translated(traits.caption)};
    textOperators_.push_back(row);
    if (!traits.ofTextOnly) numberOperators_.push_back(row);
  }
}

void QueryEditor::addField(const QueryField& field) {
  if (textOperators_.empty()) nameOperators();
  Row& row = *rows_.emplace_back(std::make_unique<Row>(Name(), rows_.size() + 1, field));
  row.op.setCaption(translated(field.caption));
  row.op.setShowsCodes(false);
  row.first.setSpokenName(row.op.caption());
  row.second.setSpokenName(row.op.caption() + " (" + translated("fino a") + ")");
  row.op.setRows(field.isNumeric ? numberOperators_ : textOperators_);
  row.op.select(std::string(traitsOf(QueryOperator::Any).code));
  if (field.hasLookup) {
    row.first.setDescription(row.firstDescription);
    row.second.setDescription(row.secondDescription);
  }
  listen(row);
  show(row);
  addAll(row.op, row.first, row.firstDescription, row.second, row.secondDescription);
}

void QueryEditor::listen(Row& row) {
  row.op.AfterItem.on([this, &row] { operatorChosen(row); });
  listen(row, RangeEnd::First);
  listen(row, RangeEnd::Second);
}

void QueryEditor::listen(Row& row, RangeEnd end) {
  EditBox& box = row.box(end);
  box.BeforeItem.on(
      [this, &row](const std::string& text, bool& cancel) { checkValue(row, text, cancel); });
  box.AfterItem.on([this, &row] { valueEntered(row); });
  if (!row.field.hasLookup) return;
  box.StartLookup.on([this, &row, end](EditBox&) { lookUp(row, end); });
  box.StartDecode.on([this, &row, end](const std::string& value, std::string& description) {
    decode(row, end, value, description);
  });
}

void QueryEditor::completeDeclaration() {
  text_.setCaption(translated(text_.caption()));
  count_.setCaption(translated(count_.caption()));
  addAll(warning_, condition_, text_, count_, answer_);
  condition_.setCaption(unrestrictedText_);
  changed.raise();
}

void QueryEditor::removeLastField() {
  Row& row = *removed_.emplace_back(std::move(rows_.back()));
  rows_.pop_back();
  for (Control* part : std::initializer_list<Control*>{&row.op, &row.first, &row.firstDescription,
                                                       &row.second, &row.secondDescription}) {
    part->setVisible(false);
  }
}

// ---- conditions

QueryEditor::Row* QueryEditor::rowOf(std::string_view dataField) const {
  for (const auto& row : rows_) {
    if (row->field.dataField == dataField) return row.get();
  }
  return nullptr;
}

std::string QueryEditor::predicateOf(const Row& row, const QueryCondition& condition) const {
  return composer_.predicate(columnOf(row.field), condition);
}

QueryCondition QueryEditor::condition(std::string_view dataField) const {
  const Row* const row = rowOf(dataField);
  if (!row) throw RuntimeError(5, Name() + " has no field " + std::string(dataField));
  return conditionOf(*row);
}

void QueryEditor::state(Row& row, const QueryCondition& condition) {
  row.op.select(std::string(traitsOf(condition.op).code));
  show(row);
  const auto value = [&](std::size_t i) {
    return i < condition.values.size() ? condition.values[i] : std::string();
  };
  const bool isList = condition.op == QueryOperator::OneOf;
  row.first.setText(isList ? joinList(condition.values) : value(0));
  row.second.setText(isList ? "" : value(1));
}

std::vector<QueryEditor::Item> QueryEditor::items() const {
  std::vector<Item> all;
  for (const auto& row : rows_) {
    all.push_back({row->field.dataField, predicateOf(*row, conditionOf(*row))});
  }
  return all;
}

std::string QueryEditor::ComponiCondizione() const {
  std::vector<std::string> predicates;
  for (Item& item : items()) predicates.push_back(std::move(item.Condizione));
  return composer_.conjunction(predicates);
}

std::string QueryEditor::value(std::string_view dataField, RangeEnd end) const {
  const Row* const row = rowOf(dataField);
  if (!row) return "";
  // What is equal to a value is a range that begins and ends with it. No other operator states
  // a value that codes of the levels below could be looked up with.
  if (row->shown == QueryOperator::Equal) return row->first.text();
  return row->shown == QueryOperator::Range ? row->box(end).text() : "";
}

std::string QueryEditor::sentence(std::size_t field) const {
  const Row& shown = row(field);
  const ComboBox::Row* const op = shown.op.selected();
  std::string text = op ? op->caption : "";
  const auto add = [&](const char* before, const EditBox& box, const Label& description) {
    if (!box.isVisible() || box.text().empty()) return;
    text += before + (shown.shown == QueryOperator::OneOf ? commaSeparated(splitList(box.text()))
                                                          : box.text());
    if (!description.caption().empty()) text += " (" + description.caption() + ")";
  };
  add(" ", shown.first, shown.firstDescription);
  if (shown.second.isVisible() && shown.first.text().empty()) text += " ...";
  add(" e ", shown.second, shown.secondDescription);
  return text;
}

std::string QueryEditor::words() const {
  std::string text;
  for (std::size_t field = 0; field < rows_.size(); ++field) {
    if (rows_[field]->shown == QueryOperator::Any) continue;
    text += (text.empty() ? "" : "; ") + rows_[field]->op.caption() + " " + sentence(field);
  }
  return text;
}

void QueryEditor::copyFrom(const QueryEditor& other) {
  for (const auto& row : rows_) {
    const Row* const stated = other.rowOf(row->field.dataField);
    state(*row, stated ? conditionOf(*stated) : QueryCondition{});
  }
  recompose();
}

// ---- the user at work

void QueryEditor::show(Row& row) {
  const QueryOperator op = row.chosen();
  row.shown = op;
  const int values = traitsOf(op).values;
  row.first.setVisible(values >= 1);
  row.second.setVisible(values == 2);
  row.firstDescription.setVisible(values >= 1 && op != QueryOperator::OneOf);
  row.secondDescription.setVisible(values == 2);
  row.first.setMaxLength(op == QueryOperator::OneOf ? 0 : row.field.length);
  row.second.setMaxLength(row.field.length);
  row.first.setHint(op == QueryOperator::OneOf ? translated("valori separati da ;") : "");
}

void QueryEditor::operatorChosen(Row& row) {
  const QueryOperator op = row.chosen();
  const bool wasList = row.shown == QueryOperator::OneOf;
  std::string first = row.first.text();
  if (wasList && op != QueryOperator::OneOf) {
    const auto values = splitList(first);
    first = values.empty() ? "" : values.front();
  } else if (!wasList && op == QueryOperator::OneOf && !first.empty()) {
    first = joinList(std::vector<std::string>{first});
  }
  // A text that is not visible any more is cleared.
  if (op == QueryOperator::Any || traitsOf(op).values == 0) first.clear();
  show(row);
  row.first.setText(first);
  if (traitsOf(op).values < 2) row.second.setText("");
  row.first.decodeAgain();
  conditionChanged(row);
}

void QueryEditor::checkValue(const Row& row, const std::string& text, bool& cancel) {
  const bool isList = row.shown == QueryOperator::OneOf;
  const std::vector<std::string> values =
      isList ? splitList(text) : std::vector<std::string>{trimRight(text)};
  for (const std::string& value : values) {
    std::string refusal;
    if (row.field.isNumeric && !value.empty() && !isWholeNumber(value)) {
      refusal = "\"" + value + "\"" + translated(" non è un numero intero.");
    } else if (isList && characterCount(value) > row.field.length) {
      refusal = "\"" + value + "\"" + translated(" supera i ") + std::to_string(row.field.length) +
                translated(" caratteri.");
    } else if (!host_.keepsText(value)) {
      refusal = "\"" + value + "\". " + translated("Il database non conserva alcuni caratteri.");
    }
    if (refusal.empty()) continue;
    host_.message(row.op.caption() + ": " + refusal, msgbox::exclamation);
    cancel = true;
    return;
  }
}

void QueryEditor::valueEntered(Row& row) {
  if (row.shown == QueryOperator::Any) {
    row.op.select(std::string(traitsOf(QueryOperator::Equal).code));
    show(row);
  }
  conditionChanged(row);
}

void QueryEditor::conditionChanged(const Row& row) {
  recompose();
  CurrentRecordChanged.raise(std::string(row.field.dataField));
}

void QueryEditor::recompose() {
  text_.setText(ComponiCondizione());
  const std::string stated = words();
  condition_.setCaption(stated.empty() ? unrestrictedText_ : stated);
  answer_.setCaption("");
  const std::string reversed = reversedRanges();
  warning_.setCaption(reversed);
  warning_.setVisible(!reversed.empty());
}

std::string QueryEditor::reversedRanges() const {
  std::string text;
  for (const auto& row : rows_) {
    if (row->shown != QueryOperator::Range) continue;
    const std::string& from = row->first.text();
    const std::string& to = row->second.text();
    if (!isReversed(columnOf(row->field), from, to)) continue;
    const auto quoted = [](const std::string& part) { return "\"" + part + "\""; };
    text += (text.empty() ? "" : " ") + translated("L'intervallo di ") + quoted(row->op.caption()) +
            translated(" è rovesciato: da ") + quoted(from) + translated(" a ") + quoted(to) +
            translated(" non c'è nulla.");
  }
  return text;
}

bool QueryEditor::confirmRanges() {
  const std::string reversed = reversedRanges();
  if (!reversed.empty()) host_.message(reversed, msgbox::exclamation);
  return reversed.empty();
}

void QueryEditor::count() {
  if (!confirmRanges()) return;
  std::string found;
  Count.raise(found);
  answer_.setCaption(found);
}

// ---- codes

void QueryEditor::decode(const Row& row, RangeEnd end, const std::string& value,
                         std::string& description) {
  if (!takesCodes(row.shown)) return;
  StartDecode.raise({std::string(row.field.caption), value, end}, description);
}

void QueryEditor::setUnknown(std::string_view dataField, RangeEnd end, bool unknown) {
  if (Row* const row = rowOf(dataField)) row->box(end).setUnknown(unknown);
}

void QueryEditor::decodeAgain(std::string_view dataField) {
  Row* const row = rowOf(dataField);
  if (!row) return;
  for (EditBox* box : {&row->first, &row->second}) {
    if (!box->text().empty()) box->decodeAgain();
  }
}

void QueryEditor::lookUp(Row& row, RangeEnd end) {
  EditBox& box = row.box(end);
  const QueryRequest request{std::string(row.field.caption), box.text(), end};
  std::optional<Value> chosen;
  StartLookup.raise(request, chosen);
  if (!chosen) return;
  CloseLookup.raise(request, *chosen);
  if (row.shown != QueryOperator::OneOf) {
    box.enter(*chosen);
    return;
  }
  // The chosen code is added to the list.
  std::vector<std::string> values = splitList(box.text());
  values.push_back(trimRight(toDisplay(*chosen)));
  box.enter(joinList(values));
}

// ---- saved filters

bool QueryEditor::loadFilter(const std::string& name) {
  const Value text = surroundings_.store->Load(storageKey_, name);
  if (!text.isText() || text.as<std::string>().empty()) return false;
  const auto conditions = readFilter(text.as<std::string>());
  std::vector<std::pair<Row*, const QueryCondition*>> known;
  for (const SavedCondition& each : conditions) {
    // Fields that this version of the window does not have are skipped.
    Row* const row = rowOf(each.dataField);
    if (!row) continue;
    static_cast<void>(predicateOf(*row, each.condition));  // raises when there is none
    known.emplace_back(row, &each.condition);
  }
  for (const auto& row : rows_) state(*row, {});
  for (const auto& [row, condition] : known) state(*row, *condition);
  recompose();
  return true;
}

void QueryEditor::saveFilter(const std::string& name, bool isDefault) {
  std::vector<SavedCondition> conditions;
  for (const auto& row : rows_) {
    if (row->shown == QueryOperator::Any) continue;
    conditions.push_back({std::string(row->field.dataField), conditionOf(*row)});
  }
  surroundings_.store->Save(storageKey_, name, writeFilter(conditions), isDefault);
}

}  // namespace kebu::controls
