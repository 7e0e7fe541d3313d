#include <functional>
#include <string>

#include "tests/windows/checks.h"
#include "tests/windows/unusual_objects.h"
#include "windows/host/host_objects.h"
#include "windows/support/automation.h"
#include "windows/support/safe_array.h"

namespace kebu::tests {

namespace {

using windows::Arguments;
using windows::ComPtr;
using windows::Member;
using windows::Variant;

/// What a member of the host answers; the same for all of them.
struct Answering {
  std::function<Variant()> answer;
};

Variant answerOf(Answering& host, const Arguments& /*arguments*/) {
  return host.answer();
}

constexpr Member<Answering> members[] = {
    {L"ConnectionString", answerOf}, {L"CompanyCode", answerOf}, {L"Messages", answerOf},
    {L"CreateSqlDecode", answerOf},  {L"CreateLog", answerOf},   {L"CreateLookups", answerOf},
    {L"DocumentType", answerOf},     {L"Customers", answerOf},   {L"Title", answerOf},
    {L"Statement", answerOf},        {L"Captions", answerOf},
};

ComPtr<IDispatch> answering(std::function<Variant()> answer) {
  return windows::automated<Answering>(std::make_shared<Answering>(Answering{std::move(answer)}),
                                       members);
}

Ref<host::ClsGlobal> globalAnswering(std::function<Variant()> answer) {
  return windows::wrapClsGlobal(answering(std::move(answer)).get());
}

/// An object that has only its life.
class Mute final : public windows::ComObject<IUnknown> {};

Variant mute() {
  Variant result;
  result.raw().punkVal = new Mute;
  result.raw().vt = VT_UNKNOWN;
  return result;
}

template <class Deed>
void expectError(std::int32_t number, const std::string& description, Deed&& deed,
                 const std::string& what) {
  std::string seen = "no error";
  try {
    deed();
  } catch (const RuntimeError& error) {
    if (error.number() == number && error.description() == description) {
      expectThat(true, what);
      return;
    }
    seen = std::to_string(error.number()) + " " + error.description();
  }
  expectThat(false, what + ", but: " + seen);
}

void missingMembers() {
  const Ref<host::ClsGlobal> bare = windows::wrapClsGlobal(
      windows::automated<Answering>(std::make_shared<Answering>(), {}).get());
  expectThat(!bare->Messages() && !bare->CreateLog(),
             "services that the plug-in can do without may be missing");
  expectError(
      438, "Object doesn't support this property or method: ConnectionString",
      [&] { bare->ConnectionString(); }, "a missing member is told by its name");
  expectError(
      438, "Object doesn't support this property or method: CreateLookups",
      [&] { bare->CreateLookups(); }, "so is a missing service");
  expectError(
      459, "Object or class does not support the set of events",
      [&] { windows::wrapNavigator(windows::unwrap(bare).get()); },
      "a navigator without events is no navigator");
}

void answersOfAnotherKind() {
  const auto number = globalAnswering([] { return Variant(std::int32_t{5}); });
  expectError(
      424, "Object required: CreateLog", [&] { number->CreateLog(); }, "a number is no service");
  const auto silent = globalAnswering([] { return Variant(); });
  expectThat(!silent->CreateSqlDecode() && silent->ConnectionString().empty() &&
                 silent->CompanyCode().isEmpty(),
             "an empty answer is no service, no text and no value");
  expectError(
      91, "Object variable or With block variable not set",
      [&] { silent->CreateSqlDecode()->Customer("1", "2"); },
      "an absent service is told when it is used");
  expectError(
      94, "Invalid use of Null: ConnectionString",
      [&] { globalAnswering([] { return Variant::null(); })->ConnectionString(); },
      "a null is no text");
  expectError(
      430,
      "Class does not support Automation or does not support expected interface: "
      "Messages",
      [&] { globalAnswering(mute)->Messages(); }, "an object without members is no service");
  const auto listsAnswering = [](std::function<Variant()> answer) {
    const auto list = answering(std::move(answer));
    const auto lookups = answering([list] { return Variant(list); });
    return globalAnswering([lookups] { return Variant(lookups); })->CreateLookups();
  };
  expectError(
      13, "Type mismatch: Captions", [&] { listsAnswering([] { return "x"; })->Customers("1"); },
      "a text is no list of captions");
  expectError(
      13, "Type mismatch: Title",
      [&] { listsAnswering([] {
              return windows::textArray({"Uno", "Dùe"});
            })->Customers("1"); },
      "a list of texts is no title");
}

void errorsOfTheHost() {
  expectError(
      75, "Accesso al percorso «È» negato",
      [] {
        globalAnswering([]() -> Variant {
          throw RuntimeError(75, "Accesso al percorso «È» negato", "Host");
        })->CompanyCode();
      },
      "the host's own error comes through");
}

}  // namespace

void checkUnusualHosts() {
  missingMembers();
  answersOfAnotherKind();
  errorsOfTheHost();
}

}  // namespace kebu::tests
