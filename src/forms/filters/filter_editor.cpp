#include "forms/filters/filter_editor.h"

#include <algorithm>

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/interruptible.h"
#include "sql/filters.h"
#include "sql/preview.h"
#include "sql/query_predicate.h"

namespace kebu::forms {

namespace {

std::string customerCondition(const controls::QueryEditor& editor) {
  return editor.ComponiCondizione();
}

std::string customerClause(const controls::QueryEditor::Item& item) {
  return sql::composeConjunction({item.Condizione});
}

std::string articleClause(const controls::QueryEditor::Item& item) {
  return item.Condizione.empty() ? "" : sql::CongiuntoArticoli(item.DataField, item.Condizione);
}

std::string articleCondition(const controls::QueryEditor& editor) {
  // The whole text is read and, on purpose, not used: only the items tell which table each belongs
  // to.
  static_cast<void>(editor.composedText().text());
  std::string condition;
  for (const auto& item : editor.items()) condition += articleClause(item);
  return condition;
}

constexpr const char* businessName = "Ragione sociale";

}  // namespace

const FilterSubject& customersSubject() {
  static const FilterSubject subject{.fields = customerFields(),
                                     .previewKind = 1,
                                     .countStatement = sql::ContaClienti,
                                     .condition = customerCondition,
                                     .conditionOf = customerClause,
                                     .unrestricted = "nessuna restrizione: tutti i clienti",
                                     .counted = "Clienti selezionati: ",
                                     .listed = "con e-mail, nell'anteprima: "};
  return subject;
}

const FilterSubject& articlesSubject() {
  static const FilterSubject subject{.fields = articleFields(),
                                     .previewKind = 2,
                                     .countStatement = sql::ContaArticoli,
                                     .condition = articleCondition,
                                     .conditionOf = articleClause,
                                     .unrestricted = "nessuna restrizione: tutti gli articoli",
                                     .counted = "Articoli selezionati: ",
                                     .listed = "con le varianti, nell'anteprima: "};
  return subject;
}

FilterEditor::FilterEditor(PageContext& context, controls::QueryEditor& editor,
                           controls::ProgressBar& bar, const FilterSubject& subject)
    : context_(context), editor_(editor), bar_(bar), subject_(subject) {
  editor_.setTranslator([this](const std::string& text) { return context_.translate(text); });
  editor_.StartLookup.on([this](const Request& request, std::optional<Value>& chosen) {
    StartLookup(request, chosen);
  });
  editor_.StartDecode.on([this](const Request& request, std::string& description) {
    StartDecode(request, description);
  });
  editor_.CloseLookup.on(
      [this](const Request& request, Value& chosen) { CloseLookup(request, chosen); });
  editor_.CurrentRecordChanged.on(
      [this](const std::string& dataField) { CurrentRecordChanged(dataField); });
  editor_.Count.on([this](std::string& answer) { Conta(answer); });
}

void FilterEditor::prepare(const char* keySuffix, Procedure& p) {
  p.step([&] {
    const Ref<host::ClsGlobal> global = context_.services.host()->ClsGlobal();
    editor_.setStorageKey(global->ApplicationCode() + keySuffix);
    editor_.setSurroundings({toDecimal(context_.company), global->SessionId(), global->UserId(),
                             global, context_.hostServices.savedFilters, context_.connection});
  });
  p.step([&] {
    for (const auto& field : declarationsOf(subject_.fields)) editor_.addField(field);
    editor_.setUnrestrictedText(context_.translate(subject_.unrestricted));
    editor_.completeDeclaration();
  });
}

std::vector<FilterClause> FilterEditor::clauses() const {
  std::vector<FilterClause> clauses;
  const auto items = editor_.items();
  for (std::size_t field = 0; field < items.size(); ++field) {
    std::string condition = subject_.conditionOf(items[field]);
    if (condition.empty()) continue;
    clauses.push_back(
        {editor_.row(field).op.caption() + ' ' + editor_.sentence(field), std::move(condition)});
  }
  return clauses;
}

std::vector<std::string> FilterEditor::unknownCodes() const {
  std::vector<std::string> captions;
  for (std::size_t field = 0; field < editor_.fieldCount(); ++field) {
    const controls::QueryEditor::Row& row = editor_.row(field);
    const bool isUnknown = (row.first.isVisible() && row.first.isUnknown()) ||
                           (row.second.isVisible() && row.second.isUnknown());
    if (isUnknown) captions.push_back(row.op.caption());
  }
  return captions;
}

const FilterField* FilterEditor::codesOf(const std::string& caption) const {
  const auto at = std::ranges::find(subject_.fields, caption, &FilterField::caption);
  return at != subject_.fields.end() && at->hasCodes() ? &*at : nullptr;
}

CodeKeys FilterEditor::upperKeys(const FilterField& field, controls::RangeEnd end) const {
  CodeKeys keys;
  for (const std::string_view upper : field.upper) {
    if (!upper.empty()) keys.push_back(toDisplay(NVL(editor_.value(upper, end), "")));
  }
  return keys;
}

void FilterEditor::StartLookup(const Request& request, std::optional<Value>& chosen) {
  procedure(context_, named("_StartLookup"), [&](Procedure& p) {
    const FilterField* const field = codesOf(request.caption);
    if (!field) return;
    const auto list =
        p.step([&] { return field->list(context_, *field, upperKeys(*field, request.end)); });
    chosen = p.choose(list, request.value);
  });
}

void FilterEditor::CloseLookup(const Request& request, Value& chosen) {
  procedure(context_, named("_CloseLookup"), [&](Procedure& p) {
    // A name is a text to be compared with, not a code with a description.
    if (request.caption == businessName) chosen = p.step([&] { return Value(RTrimN(chosen)); });
  });
}

void FilterEditor::StartDecode(const Request& request, std::string& description) {
  procedure(context_, named("_StartDecode"), [&](Procedure&) {
    const FilterField* const field = codesOf(request.caption);
    if (field && field->codes.decoder) description = decode(*field, request);
  });
}

std::string FilterEditor::decode(const FilterField& field, const Request& request) {
  return procedure(context_, field.codes.decoder, [&](Procedure& p) {
    const std::string code = toDisplay(NVL(request.value, ""));
    const bool isTooLong = field.longestCode > 0 && characterCount(code) > field.longestCode;
    if (code.empty() || isTooLong) return std::string();
    CodeKeys keys = upperKeys(field, request.end);
    keys.push_back(code);
    const std::string statement = p.step([&] { return field.decode(context_, field, keys); });
    std::string description = p.lookUpText(statement, field.codes.description);
    editor_.setUnknown(field.dataField, request.end, description.empty());
    return description;
  });
}

void FilterEditor::CurrentRecordChanged(const std::string& dataField) {
  procedure(context_, named("_CurrentRecordChanged"), [&](Procedure&) {
    // The meaning of a code depends on the codes of the levels above it.
    for (const FilterField& field : subject_.fields) {
      const auto& upper = field.upper;
      if (std::ranges::find(upper, dataField) != upper.end()) {
        editor_.decodeAgain(field.dataField);
      }
    }
  });
}

void FilterEditor::Conta(std::string& answer) {
  procedure(context_, named("_Conta"), [&](Procedure& p) {
    const std::string filter = p.step([&] { return condition(); });
    const std::string view = p.lookUpText(sql::NomeTabella(subject_.previewKind), "Tabella");
    if (view.empty()) return;  // which view it is could not be read
    const std::string statement = subject_.countStatement(view, p.company(), filter);
    Ref<ado::Recordset> rows;
    const bool isInterrupted = p.step([&] {
      return !runInterruptibly(context_, bar_, "Conteggio in corso...",
                               [&] { rows = context_.connection->Execute(statement); });
    });
    if (isInterrupted) {
      answer = context_.translate("Conteggio interrotto.");
      return;
    }
    const std::string counted = RTrimN(p.value(rows, "QUANTI"));
    const std::string listed = RTrimN(p.value(rows, "ELENCATI"));
    if (counted.empty()) return;
    answer = context_.translate(subject_.counted) + counted;
    if (listed != counted) answer += "; " + context_.translate(subject_.listed) + listed;
  });
}

}  // namespace kebu::forms
