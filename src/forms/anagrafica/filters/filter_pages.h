#pragma once

#include <optional>
#include <string>

#include "controls/query_editor.h"
#include "controls/record_frame.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/page.h"
#include "forms/changes/record_changes.h"
#include "forms/filters/filter_editor.h"
#include "forms/page_context.h"
#include "forms/procedure.h"
#include "sql/query_predicate.h"

namespace kebu::forms {

/// Which customers and which articles are published: two query editors, whose
/// conditions are stored with the profile's parameters.
class FilterPages : public Page {
 public:
  /// `bar` is shown while rows are counted.
  FilterPages(PageContext& context, controls::ProgressBar& bar,
              const QueryComposer& composer = sql::queryComposer);

  controls::QueryEditor ENHQUERY_CLI;
  controls::QueryEditor ENHQUERY_ART;

  void place(PageGroups& groups) override;
  void release() override;

  /// Prepares both editors with their saved filters.
  void ImpostaEnQuery();
  /// The conditions as the synchronisation appends them; "" for no restriction.
  std::string StringaLimitiClienti();
  std::string StringaLimitiArticoli();
  /// Part of the profile's save: saves both filters and writes the conditions
  /// that differ into the parameter row. Cancels when the bounds of a range are
  /// the wrong way round, or a condition's builder was left by Abort.
  void storeConditions(controls::RecordFrame& parameters, bool& cancel, Procedure& p);
  /// The conditions as storeConditions writes them. Errors of their builders are raised.
  CompletedValues conditions();
  /// The row in which the conditions are stored.
  void setParameters(const controls::RecordFrame& parameters) { parameters_ = &parameters; }
  /// Says so when a stored condition is not the one that the page composes: saved filters are the
  /// user's, stored conditions the company's.
  void compareWithStored();
  const FilterEditor& customersFilter() const { return customers_; }
  const FilterEditor& articlesFilter() const { return articles_; }
  /// Shows the saved filters again.
  void reload();

 private:
  struct Filter;

  Filter customers();
  Filter articles();
  static void prepare(const Filter& filter, Procedure& p);
  /// Whether the page would store what is stored, or nothing is stored yet.
  bool isStored(const Filter& filter) const;
  /// The condition of a filter; nothing when the procedure was left by Abort.
  std::optional<std::string> build(const char* procedureName, const FilterEditor& filter);
  /// False when the condition could not be composed.
  bool store(const Filter& filter, controls::RecordFrame& parameters, Procedure& p);

  PageContext& context_;
  const controls::RecordFrame* parameters_ = nullptr;
  FilterEditor customers_;
  FilterEditor articles_;
};

}  // namespace kebu::forms
