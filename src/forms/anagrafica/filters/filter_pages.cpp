#include "forms/anagrafica/filters/filter_pages.h"

#include <functional>

#include "common/convert.h"
#include "common/nulls.h"
#include "sql/query_predicate.h"

namespace kebu::forms {

/// What differs between the two.
struct FilterPages::Filter {
  controls::QueryEditor& editor;
  FilterEditor& filter;
  const char* keySuffix;
  const char* savedName;
  const char* column;
  std::function<std::string()> condition;
};

FilterPages::FilterPages(PageContext& context)
    : ENHQUERY_CLI("ENHQUERY_CLI", context.services, sql::queryComposer),
      ENHQUERY_ART("ENHQUERY_ART", context.services, sql::queryComposer),
      context_(context),
      customers_(context, ENHQUERY_CLI, customersSubject()),
      articles_(context, ENHQUERY_ART, articlesSubject()) {
  for (controls::QueryEditor* editor : {&ENHQUERY_CLI, &ENHQUERY_ART}) {
    // A changed filter is saved with the profile.
    editor->CurrentRecordChanged.on([this, editor](const std::string&) {
      trap(context_.services, editor->Name() + "_CurrentRecordChanged",
           [&](Steps& step) { step([&] { context_.profile.markModified(); }); });
    });
  }
}

FilterPages::Filter FilterPages::customers() {
  return {ENHQUERY_CLI,           customers_,         "_CLI",
          "Filtro clienti Tarvo", "GM04_WHERECLIFOR", [this] { return StringaLimitiClienti(); }};
}

FilterPages::Filter FilterPages::articles() {
  return {
      ENHQUERY_ART, articles_, "_ART", "Filtro articoli Tarvo", "GM04_WHERESELARTICOLI", [this] {
        return StringaLimitiArticoli();
      }};
}

void FilterPages::place(controls::GroupBox& customers, controls::GroupBox& articles) {
  customers.add(ENHQUERY_CLI);
  articles.add(ENHQUERY_ART);
}

void FilterPages::ImpostaEnQuery() {
  trap(context_.services, "ImpostaEnQuery", [&](Steps& step) {
    prepare(step, customers());
    prepare(step, articles());
  });
}

void FilterPages::prepare(Steps& step, const Filter& filter) {
  filter.filter.prepare(step, filter.keySuffix);
  const auto load = [&] { return filter.editor.loadFilter(filter.savedName); };
  if (step(load)) return;
  step([&] { filter.editor.saveFilter(filter.savedName, true); });
  step(load);
}

std::string FilterPages::condition(const char* procedure, FilterEditor& filter) {
  return trap(context_.services, procedure, [&](Steps& step) { return filter.condition(step); });
}

std::string FilterPages::StringaLimitiClienti() {
  return condition("StringaLimitiClienti", customers_);
}

std::string FilterPages::StringaLimitiArticoli() {
  return condition("StringaLimitiArticoli", articles_);
}

void FilterPages::storeConditions(Steps& step, controls::RecordFrame& parameters, bool& cancel) {
  // It would publish nothing, which nobody means.
  cancel = step([&] { return !ENHQUERY_CLI.confirmRanges() || !ENHQUERY_ART.confirmRanges(); });
  if (cancel) return;
  store(step, customers(), parameters);
  store(step, articles(), parameters);
}

void FilterPages::store(Steps& step, const Filter& filter, controls::RecordFrame& parameters) {
  step([&] { filter.editor.saveFilter(filter.savedName, true); });
  const std::string condition = filter.condition();
  step([&] {
    // Trailing blanks alone are no difference.
    if (RTrimN(parameters.field(filter.column)) == RTrimN(condition)) return;
    parameters.setField(filter.column, condition);
  });
}

void FilterPages::reload() {
  trap(context_.services, "ImpostaEnQuery", [&](Steps& step) {
    for (const Filter& filter : {customers(), articles()}) {
      step([&] { static_cast<void>(filter.editor.loadFilter(filter.savedName)); });
    }
  });
}

void FilterPages::release() {
  ENHQUERY_CLI.releaseSurroundings();
  ENHQUERY_ART.releaseSurroundings();
}

}  // namespace kebu::forms
