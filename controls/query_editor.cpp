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

/// What stands in a box whose operator is no list is one code or text.
bool takesCodes(QueryOperator op) {
  return op == QueryOperator::Any || op == QueryOperator::Equal || op == QueryOperator::Different ||
         op == QueryOperator::Range;
}

std::string rowName(const std::string& editor, std::size_t row) {
  return editor + "(" + std::to_string(row) + ")";
}

}  // namespace

QueryEditor::Row::Row(const std::string& name, const QueryField& declared)
    : field(declared),
      op(name + ".OPERATORE", std::string(declared.caption)),
      first(name + ".VALORE1"),
      second(name + ".VALORE2"),
      firstDescription(name + ".DESCRIZIONE1"),
      secondDescription(name + ".DESCRIZIONE2") {}

std::string QueryEditor::operatorName(const std::string& editor, std::size_t row) {
  return rowName(editor, row) + ".OPERATORE";
}

std::string QueryEditor::valueName(const std::string& editor, std::size_t row, RangeEnd end) {
  return rowName(editor, row) + (end == RangeEnd::First ? ".VALORE1" : ".VALORE2");
}

std::string QueryEditor::composedTextName(const std::string& editor) {
  return editor + ".CONDIZIONE";
}

bool QueryEditor::isPartName(std::string_view editor, std::string_view name) {
  if (editor.empty() || !name.starts_with(editor)) return false;
  name.remove_prefix(editor.size());
  return name.starts_with('(') || name.starts_with('.');
}

QueryOperator QueryEditor::Row::chosen() const {
  return operatorByCode(op.text()).value_or(QueryOperator::Any);
}

QueryEditor::QueryEditor(std::string name, ControlHost& host)
    : GroupBox(std::move(name)),
      host_(host),
      text_(composedTextName(Name()), "Condizione"),
      count_(Name() + ".CONTA", "Conta"),
      answer_(Name() + ".ESITO"),
      warning_(Name() + ".AVVISO") {
  text_.setEditable(false);
  text_.setLines(3);
  warning_.setWarning(true);
  warning_.setVisible(false);
  count_.ButtonClick.on([this] { count(); });
}

QueryEditor::~QueryEditor() = default;

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
  const std::string name = rowName(Name(), rows_.size() + 1);
  Row& row = *rows_.emplace_back(std::make_unique<Row>(name, field));
  row.op.setCaption(translated(field.caption));
  row.op.setShowsCodes(false);
  row.op.setRows(field.isNumeric ? numberOperators_ : textOperators_);
  if (field.hasLookup) {
    row.first.setDescription(row.firstDescription);
    row.second.setDescription(row.secondDescription);
  }
  row.op.select(std::string(traitsOf(QueryOperator::Any).code));
  listen(row);
  show(row);
  addAll(row.op, row.first, row.firstDescription, row.second, row.secondDescription);
}

void QueryEditor::listen(Row& row) {
  row.op.AfterItem.on([this, &row] { operatorChosen(row); });
  const auto listenTo = [&](EditBox& box, RangeEnd end) {
    box.BeforeItem.on(
        [this, &row](const std::string& text, bool& cancel) { checkValue(row, text, cancel); });
    box.AfterItem.on([this, &row] { valueEntered(row); });
    if (!row.field.hasLookup) return;
    box.StartLookup.on([this, &row, end](EditBox&) { lookUp(row, end); });
    box.StartDecode.on([this, &row, end](const std::string& value, std::string& description) {
      decode(row, end, value, description);
    });
  };
  listenTo(row.first, RangeEnd::First);
  listenTo(row.second, RangeEnd::Second);
}

void QueryEditor::completeDeclaration() {
  text_.setCaption(translated(text_.caption()));
  count_.setCaption(translated(count_.caption()));
  addAll(warning_, text_, count_, answer_);
  changed.raise();
}

void QueryEditor::removeLastField() {
  Row& row = *rows_.back();
  for (Control* part : {static_cast<Control*>(&row.op), static_cast<Control*>(&row.first),
                        static_cast<Control*>(&row.second)}) {
    part->setVisible(false);
  }
  removed_.push_back(std::move(rows_.back()));
  rows_.pop_back();
}

// ---- conditions

QueryEditor::Row* QueryEditor::find(std::string_view dataField) const {
  const auto at = std::find_if(rows_.begin(), rows_.end(),
                               [&](const auto& row) { return row->field.dataField == dataField; });
  return at == rows_.end() ? nullptr : at->get();
}

const QueryEditor::Row& QueryEditor::get(std::string_view dataField) const {
  const Row* const row = find(dataField);
  if (!row) throw RuntimeError(5, Name() + " has no field " + std::string(dataField));
  return *row;
}

QueryCondition QueryEditor::conditionOf(const Row& row) const {
  QueryCondition stated;
  stated.op = row.shown;
  if (stated.op == QueryOperator::OneOf) {
    stated.values = splitList(row.first.text());
  } else if (stated.op == QueryOperator::Range) {
    stated.values = {row.first.text(), row.second.text()};
  } else if (stated.op != QueryOperator::Any && traitsOf(stated.op).values == 1) {
    stated.values = {row.first.text()};
  }
  return stated;
}

QueryCondition QueryEditor::condition(std::string_view dataField) const {
  return conditionOf(get(dataField));
}

void QueryEditor::setCondition(std::string_view dataField, const QueryCondition& condition) {
  static_cast<void>(get(dataField));
  Row& row = *find(dataField);
  static_cast<void>(composePredicate(columnOf(row.field), condition));  // or it cannot be stated
  state(row, condition);
  recompose();
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
  all.reserve(rows_.size());
  for (const auto& row : rows_) {
    all.push_back(
        {row->field.dataField, composePredicate(columnOf(row->field), conditionOf(*row))});
  }
  return all;
}

std::string QueryEditor::ComponiCondizione() const {
  std::string text;
  for (const Item& item : items()) {
    if (!item.Condizione.empty()) text += " AND (" + item.Condizione + ")";
  }
  return text;
}

std::string QueryEditor::value(std::string_view dataField, RangeEnd end) const {
  const Row* const row = find(dataField);
  if (!row) return "";
  const QueryCondition stated = conditionOf(*row);
  // What equals a value begins and ends with it.
  const bool isBoth = end == RangeEnd::First || stated.op == QueryOperator::Equal;
  if (stated.op == QueryOperator::OneOf) return "";
  return isBoth ? row->first.text() : row->second.text();
}

std::string QueryEditor::sentence(std::size_t row) const {
  const Row& shown = *rows_.at(row);
  const ComboBox::Row* const op = shown.op.selected();
  std::string text = op ? op->caption : "";
  const auto add = [&](const char* before, const EditBox& box, const Label& description) {
    if (!box.isVisible() || box.text().empty()) return;
    text += before + box.text();
    if (!description.caption().empty()) text += " (" + description.caption() + ")";
  };
  add(" ", shown.first, shown.firstDescription);
  add(" ... ", shown.second, shown.secondDescription);
  return text;
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
  // What is no longer seen is not kept either.
  if (op == QueryOperator::Any || traitsOf(op).values == 0) first.clear();
  show(row);
  row.first.setText(first);
  if (traitsOf(op).values < 2) row.second.setText("");
  row.first.decodeAgain();
  conditionChanged(row);
}

void QueryEditor::checkValue(Row& row, const std::string& text, bool& cancel) {
  const bool isList = row.shown == QueryOperator::OneOf;
  const std::vector<std::string> values =
      isList ? splitList(text) : std::vector<std::string>{trimRight(text)};
  for (const std::string& value : values) {
    std::string refusal;
    if (row.field.isNumeric && !value.empty() && !isWholeNumber(value)) {
      refusal = "\"" + value + "\" non è un numero intero.";
    } else if (isList && characterCount(value) > row.field.length) {
      refusal = "\"" + value + "\" supera i " + std::to_string(row.field.length) + " caratteri.";
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
  answer_.setCaption("");
  const std::string reversed = reversedRanges();
  warning_.setCaption(reversed);
  warning_.setVisible(!reversed.empty());
}

bool QueryEditor::isReversed(const Row& row) const {
  const QueryCondition stated = conditionOf(row);
  return stated.op == QueryOperator::Range &&
         controls::isReversed(columnOf(row.field), stated.values[0], stated.values[1]);
}

std::string QueryEditor::reversedRanges() const {
  std::string text;
  for (const auto& row : rows_) {
    if (!isReversed(*row)) continue;
    text += (text.empty() ? "" : " ") + std::string("L'intervallo di \"") + row->op.caption() +
            "\" è rovesciato: da \"" + row->first.text() + "\" a \"" + row->second.text() +
            "\" non c'è nulla.";
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

void QueryEditor::decodeAgain(std::string_view dataField) {
  Row* const row = find(dataField);
  if (!row) return;
  for (EditBox* box : {&row->first, &row->second}) {
    if (!box->text().empty()) box->decodeAgain();
  }
}

void QueryEditor::lookUp(Row& row, RangeEnd end) {
  EditBox& box = end == RangeEnd::First ? row.first : row.second;
  const QueryRequest request{std::string(row.field.caption), box.text(), end};
  std::optional<Value> chosen;
  StartLookup.raise(request, chosen);
  if (!chosen) return;
  CloseLookup.raise(request, *chosen);
  if (row.shown != QueryOperator::OneOf) {
    box.enter(*chosen);
    return;
  }
  // A list grows by what is chosen.
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
    // A field of another version of the window has nothing to be stated on.
    Row* const row = find(each.dataField);
    if (!row) continue;
    static_cast<void>(composePredicate(columnOf(row->field), each.condition));
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
    const QueryCondition stated = conditionOf(*row);
    if (stated.op == QueryOperator::Any) continue;
    conditions.push_back({std::string(row->field.dataField), stated});
  }
  surroundings_.store->Save(storageKey_, name, writeFilter(conditions), isDefault);
}

}  // namespace kebu::controls
