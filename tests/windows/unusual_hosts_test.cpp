// Hosts that answer nothing, or something else than they should.
#include <gtest/gtest.h>

#include <functional>
#include <string>

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

/// An object that cannot be called by late binding.
class WithoutMembers final : public windows::ComObject<IUnknown> {};

Variant objectWithoutMembers() {
  Variant result;
  result.raw().punkVal = new WithoutMembers;
  result.raw().vt = VT_UNKNOWN;
  return result;
}

template <class Action>
void expectError(std::int32_t number, const std::string& description, Action&& action) {
  try {
    action();
    ADD_FAILURE() << "no error, instead of " << number << ' ' << description;
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), number);
    EXPECT_EQ(error.description(), description);
  }
}

TEST(UnusualHosts, MembersAreMissing) {
  const Ref<host::ClsGlobal> bare = windows::wrapClsGlobal(
      windows::automated<Answering>(std::make_shared<Answering>(), {}).get());
  // The plug-in can do without these two.
  EXPECT_FALSE(bare->Messages());
  EXPECT_FALSE(bare->CreateLog());
  expectError(438, "Object doesn't support this property or method: ConnectionString",
              [&] { bare->ConnectionString(); });
  expectError(438, "Object doesn't support this property or method: CreateLookups",
              [&] { bare->CreateLookups(); });
}

TEST(UnusualHosts, AnswersAreOfAnotherKind) {
  const auto number = globalAnswering([] { return Variant(std::int32_t{5}); });
  expectError(424, "Object required: CreateLog", [&] { number->CreateLog(); });
  const auto silent = globalAnswering([] { return Variant(); });
  EXPECT_FALSE(silent->CreateSqlDecode());
  EXPECT_EQ(silent->ConnectionString(), "");
  EXPECT_TRUE(silent->CompanyCode().isEmpty());
  // An absent service is reported when it is used.
  expectError(91, "Object variable or With block variable not set",
              [&] { silent->CreateSqlDecode()->Customer("1", "2"); });
  expectError(94, "Invalid use of Null: ConnectionString",
              [&] { globalAnswering([] { return Variant::null(); })->ConnectionString(); });
  expectError(430,
              "Class does not support Automation or does not support expected interface: Messages",
              [&] { globalAnswering(objectWithoutMembers)->Messages(); });
  const auto listsAnswering = [](std::function<Variant()> answer) {
    const auto list = answering(std::move(answer));
    const auto lookups = answering([list] { return Variant(list); });
    return globalAnswering([lookups] { return Variant(lookups); })->CreateLookups();
  };
  expectError(13, "Type mismatch: Captions",
              [&] { listsAnswering([] { return "x"; })->Customers("1"); });
  const auto texts = [] { return windows::textArray({"Uno", "Dùe"}); };
  expectError(13, "Type mismatch: Title", [&] { listsAnswering(texts)->Customers("1"); });
}

TEST(UnusualHosts, AnErrorOfTheHostComesThrough) {
  expectError(75, "Accesso al percorso «È» negato", [] {
    globalAnswering([]() -> Variant {
      throw RuntimeError(75, "Accesso al percorso «È» negato", "Host");
    })->CompanyCode();
  });
}

}  // namespace

}  // namespace kebu::tests
