#include "forms/anagrafica/filters/filter_pages.h"

#include <functional>

#include "common/convert.h"
#include "common/nulls.h"
#include "common/platform.h"

namespace kebu::forms {

/// What differs between the two.
struct FilterPages::Filter {
  controls::QueryEditor& editor;
  FilterEditor& filter;
  const char* keySuffix;  ///< of the storage key for saved filters
  const char* savedName;
  const char* column;  ///< of the parameters, for the condition
  const char* name;    ///< for messages
  /// Nothing when its builder was left by Abort.
  std::function<std::optional<std::string>()> condition;
};

FilterPages::FilterPages(PageContext& context, controls::ProgressBar& bar,
                         const QueryComposer& composer)
    : ENHQUERY_CLI("ENHQUERY_CLI", context.services, composer),
      ENHQUERY_ART("ENHQUERY_ART", context.services, composer),
      context_(context),
      customers_(context, ENHQUERY_CLI, bar, customersSubject()),
      articles_(context, ENHQUERY_ART, bar, articlesSubject()) {
  for (controls::QueryEditor* editor : {&ENHQUERY_CLI, &ENHQUERY_ART}) {
    // A changed filter is saved with the profile.
    editor->CurrentRecordChanged.on([this, editor](const std::string&) {
      procedure(context_, editor->Name() + "_CurrentRecordChanged",
                [&](Procedure&) { context_.profile.markModified(); });
      // Once the user has changed a filter, only what became equal is told no more.
      for (const Filter& filter : {customers(), articles()}) {
        if (isStored(filter)) context_.notices.remove(filter.savedName);
      }
    });
  }
}

FilterPages::Filter FilterPages::customers() {
  return {.editor = ENHQUERY_CLI,
          .filter = customers_,
          .keySuffix = "_CLI",
          .savedName = "Filtro clienti Tarvo",
          .column = "GM04_WHERECLIFOR",
          .name = "Filtro clienti",
          .condition = [this] { return build("StringaLimitiClienti", customers_); }};
}

FilterPages::Filter FilterPages::articles() {
  return {.editor = ENHQUERY_ART,
          .filter = articles_,
          .keySuffix = "_ART",
          .savedName = "Filtro articoli Tarvo",
          .column = "GM04_WHERESELARTICOLI",
          .name = "Filtro articoli",
          .condition = [this] { return build("StringaLimitiArticoli", articles_); }};
}

void FilterPages::place(PageGroups& groups) {
  groups["GRPMAIN_FILTROCLI"].add(ENHQUERY_CLI);
  groups["GRPMAIN_FILTROART"].add(ENHQUERY_ART);
}

void FilterPages::ImpostaEnQuery() {
  procedure(context_, "ImpostaEnQuery", [&](Procedure& p) {
    prepare(customers(), p);
    prepare(articles(), p);
    compareWithStored();
  });
}

void FilterPages::prepare(const Filter& filter, Procedure& p) {
  filter.filter.prepare(filter.keySuffix, p);
  const auto load = [&] { return filter.editor.loadFilter(filter.savedName); };
  if (p.step(load)) return;
  p.step([&] { filter.editor.saveFilter(filter.savedName, true); });
  p.step(load);
}

bool FilterPages::isStored(const Filter& filter) const {
  if (!parameters_ || !parameters_->hasRecord()) return true;
  bool isSame = true;
  ignoringErrors([&] {
    isSame = RTrimN(parameters_->field(filter.column)) == RTrimN(filter.filter.condition());
  });
  return isSame;
}

void FilterPages::compareWithStored() {
  for (const Filter& filter : {customers(), articles()}) {
    if (isStored(filter)) {
      context_.notices.remove(filter.savedName);
      continue;
    }
    context_.notices.show(
        {.cause = filter.savedName,
         .text = context_.translate(filter.name) + ": " +
                 context_.translate("la condizione memorizzata nel profilo è diversa da quella "
                                    "della pagina. Il salvataggio la sostituisce.")});
  }
}

std::optional<std::string> FilterPages::build(const char* procedureName,
                                              const FilterEditor& filter) {
  return procedure(context_, procedureName, [&](Procedure& p) {
    return std::optional(p.step([&] { return filter.condition(); }));
  });
}

std::string FilterPages::StringaLimitiClienti() {
  return customers().condition().value_or("");
}

std::string FilterPages::StringaLimitiArticoli() {
  return articles().condition().value_or("");
}

void FilterPages::storeConditions(controls::RecordFrame& parameters, bool& cancel, Procedure& p) {
  // A range whose bounds are the wrong way round would publish nothing.
  cancel = p.step([&] { return !ENHQUERY_CLI.confirmRanges() || !ENHQUERY_ART.confirmRanges(); });
  if (cancel) return;
  cancel = !store(customers(), parameters, p) || !store(articles(), parameters, p);
}

bool FilterPages::store(const Filter& filter, controls::RecordFrame& parameters, Procedure& p) {
  p.step([&] { filter.editor.saveFilter(filter.savedName, true); });
  const auto condition = filter.condition();
  if (!condition) {
    // An empty condition would publish everything.
    p.step([&] {
      context_.services.showText(
          context_.translate(filter.name) + ": " +
              context_.translate("la condizione non è stata composta. Il profilo non è stato "
                                 "salvato."),
          msgbox::exclamation);
    });
    return false;
  }
  p.step([&] {
    // Trailing blanks do not count.
    if (RTrimN(parameters.field(filter.column)) == RTrimN(*condition)) return;
    parameters.setField(filter.column, *condition);
  });
  return true;
}

CompletedValues FilterPages::conditions() {
  CompletedValues written;
  for (const Filter& filter : {customers(), articles()}) {
    written.push_back({filter.column, filter.filter.condition(), context_.translate(filter.name)});
  }
  return written;
}

void FilterPages::reload() {
  procedure(context_, "ImpostaEnQuery", [&](Procedure& p) {
    for (const Filter& filter : {customers(), articles()}) {
      p.step([&] { static_cast<void>(filter.editor.loadFilter(filter.savedName)); });
    }
    compareWithStored();
  });
}

void FilterPages::release() {
  ENHQUERY_CLI.releaseSurroundings();
  ENHQUERY_ART.releaseSurroundings();
}

}  // namespace kebu::forms
