#pragma once

#include <span>
#include <string>
#include <vector>

#include "controls/query_editor.h"
#include "forms/filters/filter_fields.h"
#include "forms/page_context.h"
#include "forms/procedure.h"

namespace kebu::forms {

/// What an editor filters.
struct FilterSubject {
  std::span<const FilterField> fields;
  int previewKind;  ///< of the view that publishes it
  std::string (*countStatement)(const std::string& view, const sql::Company& company,
                                const std::string& filter);
  /// The condition on the subject that the editor's choices come to.
  std::string (*condition)(const controls::QueryEditor& editor);
  /// The condition that the choices on one field come to; "" when they restrict nothing.
  std::string (*conditionOf)(const controls::QueryEditor::Item& item);
  const char* unrestricted;  ///< what the editor says while nothing is restricted, in Italian
  const char* counted;       ///< what is counted, in Italian
  const char* listed;        ///< what the preview lists of it, when that is another number
};

const FilterSubject& customersSubject();
const FilterSubject& articlesSubject();

/// What is stated on one field of a filter.
struct FilterClause {
  std::string words;      ///< "Provincia uguale a MI"
  std::string condition;  ///< as it is appended, with its own connector
};

/// Prepares an editor of customers or articles and answers its events, in the
/// main window and in the selection dialogs. Errors are reported under the
/// editor's name: "ENHQUERY_CLI_StartLookup".
class FilterEditor {
 public:
  /// `bar` is shown while rows are counted.
  FilterEditor(PageContext& context, controls::QueryEditor& editor, controls::ProgressBar& bar,
               const FilterSubject& subject);

  /// Hands the editor the host's objects and declares its fields. Its saved filters
  /// are kept under the host application's code and `keySuffix`.
  void prepare(const char* keySuffix, Procedure& p);
  /// The condition that the editor's choices come to; "" for no restriction.
  std::string condition() const { return subject_.condition(editor_); }
  /// The same field by field, without those that restrict nothing.
  std::vector<FilterClause> clauses() const;
  /// The captions of the fields on which a code is stated that was not found.
  std::vector<std::string> unknownCodes() const;
  const FilterSubject& subject() const { return subject_; }

 private:
  using Request = controls::QueryRequest;

  std::string named(const char* event) const { return editor_.Name() + event; }
  /// The field of that caption; nothing for one without codes.
  const FilterField* codesOf(const std::string& caption) const;
  CodeKeys upperKeys(const FilterField& field, controls::RangeEnd end) const;

  void StartLookup(const Request& request, std::optional<Value>& chosen);
  void StartDecode(const Request& request, std::string& description);
  void CloseLookup(const Request& request, Value& chosen);
  void CurrentRecordChanged(const std::string& dataField);
  void Conta(std::string& answer);
  std::string decode(const FilterField& field, const Request& request);

  PageContext& context_;
  controls::QueryEditor& editor_;
  controls::ProgressBar& bar_;
  const FilterSubject& subject_;
};

}  // namespace kebu::forms
