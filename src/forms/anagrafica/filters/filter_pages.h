#pragma once

#include <string>

#include "controls/query_editor.h"
#include "controls/record_frame.h"
#include "controls/simple_controls.h"
#include "forms/filters/filter_editor.h"
#include "forms/page_context.h"

namespace kebu::forms {

/// Which customers and which articles are published: two query editors, whose
/// conditions are stored with the profile's parameters.
class FilterPages {
 public:
  explicit FilterPages(PageContext& context);

  controls::QueryEditor ENHQUERY_CLI;
  controls::QueryEditor ENHQUERY_ART;

  void place(controls::GroupBox& customers, controls::GroupBox& articles);
  /// Prepares both editors with their saved filters.
  void ImpostaEnQuery();
  /// The conditions as the synchronisation appends them; "" for no restriction.
  std::string StringaLimitiClienti();
  std::string StringaLimitiArticoli();
  /// A step of the profile's save: saves both filters and writes the
  /// conditions that differ into the parameter row. Cancels on a range that
  /// stands the wrong way round.
  void storeConditions(Steps& step, controls::RecordFrame& parameters, bool& cancel);
  /// Shows the saved filters again.
  void reload();
  void release();

 private:
  struct Filter;

  Filter customers();
  Filter articles();
  void prepare(Steps& step, const Filter& filter);
  static void store(Steps& step, const Filter& filter, controls::RecordFrame& parameters);
  std::string condition(const char* procedure, FilterEditor& filter);

  PageContext& context_;
  FilterEditor customers_;
  FilterEditor articles_;
};

}  // namespace kebu::forms
