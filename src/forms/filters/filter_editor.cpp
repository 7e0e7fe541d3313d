#include "forms/filters/filter_editor.h"

#include <algorithm>

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/filters/filter_fields.h"
#include "sql/filters.h"

namespace kebu::forms {

namespace {

std::string customerCondition(Steps& step, controls::QueryEditor& editor) {
  return step([&] { return editor.ComponiCondizione(); });
}

std::string articleCondition(Steps& step, controls::QueryEditor& editor) {
  // The whole text is read and not used: only the items tell which table each belongs to.
  static_cast<void>(step([&] { return editor.composedText().text(); }));
  std::string condition;
  for (const auto& item : step([&] { return editor.items(); })) {
    if (!item.Condizione.empty())
      condition += sql::CongiuntoArticoli(item.DataField, item.Condizione);
  }
  return condition;
}

constexpr const char* businessName = "Ragione sociale";

}  // namespace

const FilterSubject& customersSubject() {
  static const FilterSubject subject{customerFields, customerCodes(), sql::ContaClienti,
                                     customerCondition, "Clienti selezionati: "};
  return subject;
}

const FilterSubject& articlesSubject() {
  static const FilterSubject subject{articleFields, articleCodes(), sql::ContaArticoli,
                                     articleCondition, "Articoli selezionati: "};
  return subject;
}

FilterEditor::FilterEditor(PageContext& context, controls::QueryEditor& editor,
                           const FilterSubject& subject)
    : context_(context), editor_(editor), subject_(subject) {
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

void FilterEditor::prepare(Steps& step, const char* keySuffix) {
  step([&] {
    const Ref<host::ClsGlobal> global = context_.services.host()->ClsGlobal();
    editor_.setStorageKey(global->ApplicationCode() + keySuffix);
    editor_.setSurroundings({toDecimal(context_.company), global->SessionId(), global->UserId(),
                             global, context_.savedFilters, context_.connection});
  });
  step([&] {
    for (const controls::QueryField& field : subject_.fields) editor_.addField(field);
    editor_.completeDeclaration();
  });
}

const CodeField* FilterEditor::codesOf(const std::string& caption) const {
  const auto at = std::find_if(subject_.codes.begin(), subject_.codes.end(),
                               [&](const CodeField& codes) { return codes.caption == caption; });
  return at == subject_.codes.end() ? nullptr : &*at;
}

CodeField::Keys FilterEditor::upperKeys(const CodeField& codes, controls::RangeEnd end) const {
  CodeField::Keys keys;
  for (const std::string_view upper : codes.upper) {
    if (!upper.empty()) keys.push_back(toDisplay(NVL(editor_.value(upper, end), "")));
  }
  return keys;
}

void FilterEditor::StartLookup(const Request& request, std::optional<Value>& chosen) {
  trap(context_.services, named("_StartLookup"), [&](Steps& step) {
    const CodeField* const codes = codesOf(request.caption);
    if (!codes) return;
    const auto list =
        step([&] { return codes->list(context_, *codes, upperKeys(*codes, request.end)); });
    chosen = step([&] { return context_.choose(list); });
  });
}

void FilterEditor::CloseLookup(const Request& request, Value& chosen) {
  trap(context_.services, named("_CloseLookup"), [&](Steps& step) {
    // A name is a text to be compared with, not a code with a description.
    if (request.caption == businessName) chosen = step([&] { return Value(RTrimN(chosen)); });
  });
}

void FilterEditor::StartDecode(const Request& request, std::string& description) {
  trap(context_.services, named("_StartDecode"), [&](Steps&) {
    const CodeField* const codes = codesOf(request.caption);
    if (codes && codes->decoder) description = decode(*codes, request);
  });
}

std::string FilterEditor::decode(const CodeField& codes, const Request& request) {
  return trap(context_.services, codes.decoder, [&](Steps& step) {
    const std::string code = toDisplay(NVL(request.value, ""));
    const bool isTooLong = codes.longestCode > 0 && characterCount(code) > codes.longestCode;
    if (code.empty() || isTooLong) return std::string();
    CodeField::Keys keys = upperKeys(codes, request.end);
    keys.push_back(code);
    const std::string statement = step([&] { return codes.statement(context_, codes, keys); });
    return step([&] { return context_.lookUpText(statement, codes.description); });
  });
}

void FilterEditor::CurrentRecordChanged(const std::string& dataField) {
  trap(context_.services, named("_CurrentRecordChanged"), [&](Steps&) {
    // What a code of a lower level means hangs on the levels above it.
    for (const controls::QueryField& field : subject_.fields) {
      const CodeField* const codes = codesOf(std::string(field.caption));
      const bool isBelow = codes && std::find(codes->upper.begin(), codes->upper.end(),
                                              dataField) != codes->upper.end();
      if (isBelow) editor_.decodeAgain(field.dataField);
    }
  });
}

void FilterEditor::Conta(std::string& answer) {
  trap(context_.services, named("_Conta"), [&](Steps& step) {
    const std::string filter = condition(step);
    const std::string found = step([&] {
      return context_.lookUpText(subject_.countStatement(context_.companyKey(), filter), "QUANTI");
    });
    if (!found.empty()) answer = context_.translate(subject_.counted) + found;
  });
}

}  // namespace kebu::forms
