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

/// "ENHQUERY_CLI(2).VALORE1"
std::string partName(const std::string& editor, std::size_t row, std::string_view part) {
  const std::string number = std::to_string(row);
  std::string name;
  name.reserve(editor.size() + number.size() + part.size() + 3);
  name.append(editor).append(1, '(').append(number).append(").").append(part);
  return name;
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
  textOperators_.reserve(queryOperators().size());
  numberOperators_.reserve(queryOperators().size());
  for (const OperatorTraits& traits : queryOperators()) {
    const ComboBox::Row row{std::string(traits.code), translated(traits.caption)};
    textOperators_.push_back(row);
    if (!traits.ofTextOnly) numberOperators_.push_back(row);
  }
}

void QueryEditor::addField(const QueryField& field) {
  if (textOperators_.empty()) nameOperators();
  fields_.push_back({field, translated(field.caption), nullptr});
}

QueryEditor::Row& QueryEditor::row(std::size_t field) const {
  if (Row* const made = fields_.at(field).row.get()) return *made;
  // A row belongs to its field from the declaration on; that it is made late changes nothing.
  return const_cast<QueryEditor*>(this)->makeRow(field);
}

QueryEditor::Row& QueryEditor::makeRow(std::size_t field) {
  auto& [declared, caption, made] = fields_[field];
  made = std::make_unique<Row>(Name(), field + 1, declared);
  Row& row = *made;
  row.op.setCaption(caption);
  row.op.setShowsCodes(false);
  row.op.setRows(declared.isNumeric ? numberOperators_ : textOperators_);
  if (declared.hasLookup) {
    row.first.setDescription(row.firstDescription);
    row.second.setDescription(row.secondDescription);
  }
  row.op.select(std::string(traitsOf(QueryOperator::Any).code));
  listen(row);
  show(row);
  for (Control* part : row.parts()) part->setContainer(*this);
  return row;
}

Control* QueryEditor::find(std::string_view name) {
  // Whoever looks for another control has no use for the rows.
  return isNamed(name) || isPartName(Name(), name) ? GroupBox::find(name) : nullptr;
}

const std::vector<Control*>& QueryEditor::children() const {
  const auto& below = GroupBox::children();
  // What was removed still counts, so that the list differs from the one before by its length.
  const std::size_t rowParts = Row::partCount * (fields_.size() + removed_.size());
  if (parts_.size() == rowParts + below.size()) return parts_;
  parts_.clear();
  const auto add = [&](Row& row) {
    for (Control* part : row.parts()) parts_.push_back(part);
  };
  for (std::size_t i = 0; i < fields_.size(); ++i) add(row(i));
  for (const auto& row : removed_) add(*row);
  parts_.insert(parts_.end(), below.begin(), below.end());
  return parts_;
}

void QueryEditor::listen(Row& row) {
  row.op.AfterItem.on([this, &row] { operatorChosen(row); });
  listen<RangeEnd::First>(row);
  listen<RangeEnd::Second>(row);
}

// The end is no part of what the handlers keep, so that they need no memory of their own.
template <RangeEnd end>
void QueryEditor::listen(Row& row) {
  EditBox& box = row.box(end);
  box.BeforeItem.on(
      [this, &row](const std::string& text, bool& cancel) { checkValue(row, text, cancel); });
  box.AfterItem.on([this, &row] { valueEntered(row); });
  if (!row.field.hasLookup) return;
  box.StartLookup.on([this, &row](EditBox&) { lookUp(row, end); });
  box.StartDecode.on([this, &row](const std::string& value, std::string& description) {
    decode(row, end, value, description);
  });
}

void QueryEditor::completeDeclaration() {
  text_.setCaption(translated(text_.caption()));
  count_.setCaption(translated(count_.caption()));
  addAll(warning_, text_, count_, answer_);
  changed.raise();
}

void QueryEditor::removeLastField() {
  if (auto& row = fields_.back().row) {
    for (Control* part : row->parts()) part->setVisible(false);
    removed_.push_back(std::move(row));
  }
  fields_.pop_back();
}

// ---- conditions

std::size_t QueryEditor::indexOf(std::string_view dataField) const {
  const auto at = std::find_if(fields_.begin(), fields_.end(), [&](const Field& field) {
    return field.declared.dataField == dataField;
  });
  return at == fields_.end() ? none : static_cast<std::size_t>(at - fields_.begin());
}

std::size_t QueryEditor::requireField(std::string_view dataField) const {
  const std::size_t field = indexOf(dataField);
  if (field == none) throw RuntimeError(5, Name() + " has no field " + std::string(dataField));
  return field;
}

QueryCondition QueryEditor::conditionOf(const Field& field) {
  QueryCondition stated;
  if (!field.row) return stated;
  const Row& row = *field.row;
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
  return conditionOf(fields_[requireField(dataField)]);
}

void QueryEditor::setCondition(std::string_view dataField, const QueryCondition& condition) {
  const std::size_t field = requireField(dataField);
  // Or it cannot be stated.
  static_cast<void>(composePredicate(columnOf(fields_[field].declared), condition));
  state(field, condition);
  recompose();
}

void QueryEditor::state(std::size_t field, const QueryCondition& condition) {
  if (condition.op == QueryOperator::Any && !fields_[field].row) return;
  Row& row = this->row(field);
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
  all.reserve(fields_.size());
  for (const Field& field : fields_) {
    all.push_back(
        {field.declared.dataField, composePredicate(columnOf(field.declared), conditionOf(field))});
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
  const std::size_t field = indexOf(dataField);
  if (field == none || !fields_[field].row) return "";
  const QueryCondition stated = conditionOf(fields_[field]);
  // What equals a value begins and ends with it.
  const bool isBoth = end == RangeEnd::First || stated.op == QueryOperator::Equal;
  if (stated.op == QueryOperator::OneOf) return "";
  return fields_[field].row->box(isBoth ? RangeEnd::First : RangeEnd::Second).text();
}

std::string QueryEditor::sentence(std::size_t field) const {
  const Row& shown = row(field);
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

std::string QueryEditor::reversedRanges() const {
  std::string text;
  for (const Field& field : fields_) {
    const QueryCondition stated = conditionOf(field);
    if (stated.op != QueryOperator::Range) continue;
    const std::string& from = stated.values[0];
    const std::string& to = stated.values[1];
    if (!isReversed(columnOf(field.declared), from, to)) continue;
    text += (text.empty() ? "" : " ") + std::string("L'intervallo di \"") +
            field.row->op.caption() + "\" è rovesciato: da \"" + from + "\" a \"" + to +
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
  const std::size_t field = indexOf(dataField);
  if (field == none || !fields_[field].row) return;
  Row& row = *fields_[field].row;
  for (EditBox* box : {&row.first, &row.second}) {
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
  std::vector<std::pair<std::size_t, const QueryCondition*>> known;
  for (const SavedCondition& each : conditions) {
    // A field of another version of the window has nothing to be stated on.
    const std::size_t field = indexOf(each.dataField);
    if (field == none) continue;
    static_cast<void>(composePredicate(columnOf(fields_[field].declared), each.condition));
    known.emplace_back(field, &each.condition);
  }
  for (std::size_t i = 0; i < fields_.size(); ++i) state(i, {});
  for (const auto& [field, condition] : known) state(field, *condition);
  recompose();
  return true;
}

void QueryEditor::saveFilter(const std::string& name, bool isDefault) {
  std::vector<SavedCondition> conditions;
  for (const Field& field : fields_) {
    const QueryCondition stated = conditionOf(field);
    if (stated.op == QueryOperator::Any) continue;
    conditions.push_back({std::string(field.declared.dataField), stated});
  }
  surroundings_.store->Save(storageKey_, name, writeFilter(conditions), isDefault);
}

}  // namespace kebu::controls
