#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ado/connection.h"
#include "common/query_condition.h"
#include "controls/combo_box.h"
#include "controls/control_host.h"
#include "controls/edit_box.h"
#include "controls/query_operators.h"
#include "controls/simple_controls.h"
#include "host/cls_global.h"

namespace kebu::controls {

/// A field as a form declares it. The options go by their place among the
/// arguments of the declaration; this editor acts on 6 and 8 alone.
struct QueryField {
  std::string_view group;
  std::string_view caption;
  std::string_view dataField;
  bool option4;
  std::int32_t position;
  bool hasLookup;  ///< option 6
  bool option7;
  bool isNumeric;  ///< option 8
  bool option9;
  bool option10;
  bool option11;
  std::size_t length;
};

/// Which of the two values of a range; the first is also the only one of others.
enum class RangeEnd : std::uint8_t { First = 1, Second = 2 };

/// A look-up or decode that the editor asks its form for.
struct QueryRequest {
  std::string caption;
  std::string value;
  RangeEnd end;
};

/// The enhanced query editor: a row of operator and values for each declared
/// field, the predicates that come of them, and filters saved by name
/// in the host's store.
///
/// Its parts are ordinary controls, named after the editor and the row counted
/// from 1: "ENHQUERY_CLI(2).VALORE1".
class QueryEditor : public OfKind<ControlKind::QueryEditor, GroupBox> {
 public:
  /// What the window hands the editor. This editor uses the store alone.
  struct Surroundings {
    Decimal company;
    Value sessionId;
    Value userId;
    Ref<host::ClsGlobal> global;
    Ref<host::SavedFilterService> store;
    Ref<ado::Connection> connection;
  };

  /// A field with the predicate that its user's choices come to.
  struct Item {
    std::string_view DataField;
    std::string Condizione;  ///< "" when the field restricts nothing
  };

  QueryEditor(std::string name, ControlHost& host, const QueryComposer& composer);

  void setSurroundings(Surroundings surroundings) { surroundings_ = std::move(surroundings); }
  /// Releases the objects that the editor was handed.
  void releaseSurroundings() { surroundings_ = {}; }
  /// Under which filters are kept in the store.
  void setStorageKey(const std::string& key) { storageKey_ = key; }
  /// Puts the texts of the rows into the user's language; before the first field.
  void setTranslator(Translator translator) { translator_ = std::move(translator); }
  /// What the editor says in words while nothing is restricted.
  void setUnrestrictedText(const std::string& text) { unrestrictedText_ = text; }

  void addField(const QueryField& field);
  /// The last field was declared: the controls below the rows are added.
  void completeDeclaration();
  std::size_t fieldCount() const { return rows_.size(); }
  /// Its row disappears, and what was stated on it restricts nothing any more.
  void removeLastField();

  /// In the order of declaration.
  std::vector<Item> items() const;
  /// The conjunction of all items; "" when nothing is restricted.
  std::string ComponiCondizione() const;
  /// The value stated on a field at that end, by "uguale a" or a range; "" for other operators,
  /// for none and for an unknown field.
  std::string value(std::string_view dataField, RangeEnd end) const;
  /// What is stated on a field. RuntimeError 5 for an unknown field.
  QueryCondition condition(std::string_view dataField) const;
  /// Whether the code stated on a field was looked for and not found.
  void setUnknown(std::string_view dataField, RangeEnd end, bool unknown);
  /// Asks for a field's descriptions afresh.
  void decodeAgain(std::string_view dataField);
  /// Tells the user of ranges that stand the wrong way round; whether there are none.
  bool confirmRanges();

  /// States the conditions of another editor on the fields that both have, and none on the rest.
  void copyFrom(const QueryEditor& other);
  /// What is stated on all fields, in words: "Provincia uguale a MI; Citta' contiene ANO". "" when
  /// nothing is.
  std::string words() const;
  /// Shows the saved filter of that name; false when there is none. RuntimeError 5
  /// or 13 for one that cannot be read, which changes nothing.
  bool loadFilter(const std::string& name);
  /// Stores what is stated now under the name.
  void saveFilter(const std::string& name, bool isDefault);

  /// Fill in the description; it is empty before.
  Event<const QueryRequest&, std::string&> StartDecode;
  /// Fill in the code chosen; without one nothing is changed.
  Event<const QueryRequest&, std::optional<Value>&> StartLookup;
  /// After a look-up that chose; may put another text in place of the code.
  Event<const QueryRequest&, Value&> CloseLookup;
  /// The user changed the condition of a field, by its data field.
  Event<const std::string&> CurrentRecordChanged;
  /// "Conta": fill in the answer.
  Event<std::string&> Count;

  /// What is stated on a field, from 0, in words: "uguale a VER (Vernici)", "uno tra UTE, ELE".
  std::string sentence(std::size_t field) const;

  /// The name of a row's operator, or of a value.
  static std::string operatorName(const std::string& editor, std::size_t row);
  static std::string valueName(const std::string& editor, std::size_t row, RangeEnd end);
  static std::string composedTextName(const std::string& editor);
  /// Whether a control of that name is one of the editor's parts, case aside.
  static bool isPartName(std::string_view editor, std::string_view name);

  /// The controls of a field.
  struct Row {
    /// `number` counts the editor's rows from 1.
    Row(const std::string& editor, std::size_t number, const QueryField& declared);
    QueryOperator chosen() const;
    EditBox& box(RangeEnd end) { return end == RangeEnd::First ? first : second; }
    const EditBox& box(RangeEnd end) const { return end == RangeEnd::First ? first : second; }

    QueryField field;
    ComboBox op;
    EditBox first;
    EditBox second;
    Label firstDescription;
    Label secondDescription;
    QueryOperator shown = QueryOperator::Any;  ///< for which the boxes stand ready
  };
  /// The row of a field, in the order of declaration from 0.
  Row& row(std::size_t field) { return *rows_.at(field); }
  const Row& row(std::size_t field) const { return *rows_.at(field); }
  const EditBox& composedText() const { return text_; }
  Button& countButton() { return count_; }
  const Button& countButton() const { return count_; }
  const Label& countAnswer() const { return answer_; }
  const Label& warning() const { return warning_; }
  /// The condition in words.
  const Label& condition() const { return condition_; }

 private:
  /// Puts the operators into the user's language, once for all fields.
  void nameOperators();
  /// The row of a field; nothing when there is no such field.
  Row* rowOf(std::string_view dataField) const;
  std::string predicateOf(const Row& row, const QueryCondition& condition) const;
  std::string reversedRanges() const;
  void listen(Row& row);
  void listen(Row& row, RangeEnd end);
  void show(Row& row);
  void state(Row& row, const QueryCondition& condition);
  void operatorChosen(Row& row);
  void checkValue(const Row& row, const std::string& text, bool& cancel);
  void valueEntered(Row& row);
  void lookUp(Row& row, RangeEnd end);
  void decode(const Row& row, RangeEnd end, const std::string& value, std::string& description);
  void conditionChanged(const Row& row);
  void recompose();
  void count();
  std::string translated(std::string_view text) const;

  ControlHost& host_;
  QueryComposer composer_;
  Surroundings surroundings_;
  std::string storageKey_;
  Translator translator_;
  std::vector<ComboBox::Row> textOperators_;    ///< what is offered for texts
  std::vector<ComboBox::Row> numberOperators_;  ///< what is offered for numbers
  std::vector<std::unique_ptr<Row>> rows_;
  std::vector<std::unique_ptr<Row>> removed_;  ///< a view may still show them
  EditBox text_;
  Button count_;
  Label answer_;
  Label warning_;
  Label condition_;
  std::string unrestrictedText_;
};

}  // namespace kebu::controls
