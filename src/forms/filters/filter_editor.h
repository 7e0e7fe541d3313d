#pragma once

#include <span>
#include <string>

#include "controls/query_editor.h"
#include "forms/filters/filter_codes.h"
#include "forms/page_context.h"

namespace kebu::forms {

/// What an editor filters.
struct FilterSubject {
  std::span<const controls::QueryField> fields;
  std::span<const CodeField> codes;
  std::string (*countStatement)(const sql::Company& company, const std::string& filter);
  /// The condition on the subject that the editor's choices come to.
  std::string (*condition)(Steps& step, controls::QueryEditor& editor);
  const char* counted;  ///< what is counted, in Italian
};

const FilterSubject& customersSubject();
const FilterSubject& articlesSubject();

/// Prepares an editor of customers or articles and answers its events, in the
/// main window and in the selection dialogs alike. Errors are told under the
/// editor's name: "ENHQUERY_CLI_StartLookup".
class FilterEditor {
 public:
  FilterEditor(PageContext& context, controls::QueryEditor& editor, const FilterSubject& subject);

  /// Hands the editor what it works with and declares its fields. It keeps its
  /// saved filters under the host application's code and `keySuffix`.
  void prepare(Steps& step, const char* keySuffix);
  std::string condition(Steps& step) { return subject_.condition(step, editor_); }

 private:
  using Request = controls::QueryRequest;

  std::string named(const char* event) const { return editor_.Name() + event; }
  const CodeField* codesOf(const std::string& caption) const;
  CodeField::Keys upperKeys(const CodeField& codes, controls::RangeEnd end) const;

  void StartLookup(const Request& request, std::optional<Value>& chosen);
  void StartDecode(const Request& request, std::string& description);
  void CloseLookup(const Request& request, Value& chosen);
  void CurrentRecordChanged(const std::string& dataField);
  void Conta(std::string& answer);
  std::string decode(const CodeField& codes, const Request& request);

  PageContext& context_;
  controls::QueryEditor& editor_;
  const FilterSubject& subject_;
};

}  // namespace kebu::forms
