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
  const char* keySuffix;  ///< of the storage key for saved filters
  const char* savedName;
  const char* column;  ///< of the parameters, for the condition
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
      procedure(context_, editor->Name() + "_CurrentRecordChanged",
                [&](Procedure&) { context_.profile.markModified(); });
    });
  }
}

FilterPages::Filter FilterPages::customers() {
  return {.editor = ENHQUERY_CLI,
          .filter = customers_,
          .keySuffix = "_CLI",
          .savedName = "Filtro clienti Tarvo",
          .column = "GM04_WHERECLIFOR",
          .condition = [this] { return StringaLimitiClienti(); }};
}

FilterPages::Filter FilterPages::articles() {
  return {.editor = ENHQUERY_ART,
          .filter = articles_,
          .keySuffix = "_ART",
          .savedName = "Filtro articoli Tarvo",
          .column = "GM04_WHERESELARTICOLI",
          .condition = [this] { return StringaLimitiArticoli(); }};
}

void FilterPages::place(PageGroups& groups) {
  groups["GRPMAIN_FILTROCLI"].add(ENHQUERY_CLI);
  groups["GRPMAIN_FILTROART"].add(ENHQUERY_ART);
}

void FilterPages::ImpostaEnQuery() {
  procedure(context_, "ImpostaEnQuery", [&](Procedure& p) {
    prepare(customers(), p);
    prepare(articles(), p);
  });
}

void FilterPages::prepare(const Filter& filter, Procedure& p) {
  filter.filter.prepare(filter.keySuffix, p);
  const auto load = [&] { return filter.editor.loadFilter(filter.savedName); };
  if (p.step(load)) return;
  p.step([&] { filter.editor.saveFilter(filter.savedName, true); });
  p.step(load);
}

std::string FilterPages::StringaLimitiClienti() {
  return procedure(context_, "StringaLimitiClienti",
                   [&](Procedure& p) { return p.step([&] { return customers_.condition(); }); });
}

std::string FilterPages::StringaLimitiArticoli() {
  return procedure(context_, "StringaLimitiArticoli",
                   [&](Procedure& p) { return p.step([&] { return articles_.condition(); }); });
}

void FilterPages::storeConditions(controls::RecordFrame& parameters, bool& cancel, Procedure& p) {
  // A range whose bounds are the wrong way round would publish nothing.
  cancel = p.step([&] { return !ENHQUERY_CLI.confirmRanges() || !ENHQUERY_ART.confirmRanges(); });
  if (cancel) return;
  store(customers(), parameters, p);
  store(articles(), parameters, p);
}

void FilterPages::store(const Filter& filter, controls::RecordFrame& parameters, Procedure& p) {
  p.step([&] { filter.editor.saveFilter(filter.savedName, true); });
  const std::string condition = filter.condition();
  p.step([&] {
    // Trailing blanks do not count.
    if (RTrimN(parameters.field(filter.column)) == RTrimN(condition)) return;
    parameters.setField(filter.column, condition);
  });
}

void FilterPages::reload() {
  procedure(context_, "ImpostaEnQuery", [&](Procedure& p) {
    for (const Filter& filter : {customers(), articles()}) {
      p.step([&] { static_cast<void>(filter.editor.loadFilter(filter.savedName)); });
    }
  });
}

void FilterPages::release() {
  ENHQUERY_CLI.releaseSurroundings();
  ENHQUERY_ART.releaseSurroundings();
}

}  // namespace kebu::forms
