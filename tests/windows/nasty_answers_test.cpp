// Hosts whose members answer with any VARIANT: it is understood as automation does, or an error
// names the member.
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "common/convert.h"
#include "tests/windows/nasty_variants.h"
#include "tests/windows/same_variant.h"
#include "windows/host/host_objects.h"
#include "windows/support/com_object.h"
#include "windows/support/text.h"
#include "windows/support/values.h"

namespace kebu::tests {

namespace {

using windows::ComPtr;
using windows::Variant;

/// An object that has every member. Members that make an object answer with this one, the others
/// with the variant that was set.
class AnswersAll final : public windows::ComObject<IDispatch> {
 public:
  const VARIANT* answer = nullptr;
  /// The name of the member that gives the answer; this one is all the others' answer.
  std::wstring answering;

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* id) override {
    *id = answering == names[0] ? 1 : 2;
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                      UINT*) override {
    if (!result) return S_OK;
    if (id != 1) {
      *result = Variant(ComPtr<IDispatch>(this)).detach();
    } else if (answer->vt & VT_BYREF || FAILED(VariantCopy(result, const_cast<VARIANT*>(answer)))) {
      *result = *answer;  // what no copy can be made of is nothing that could be released, either
    }
    return S_OK;
  }
};

/// A member of the host that answers something, and what the plug-in understands.
struct Member {
  const wchar_t* name;
  std::function<Value(host::ClsGlobal& global)> call;
};

Value ofObject(const Ref<host::NamedObject>& object) {
  return object ? "an object" : "no object";
}

host::LookupDefinition listOf(host::ClsGlobal& global) {
  return global.CreateLookups()->Codes("MG54", "1", {"A"});
}

std::vector<Member> members() {
  return {
      {L"ConnectionString", [](auto& global) { return global.ConnectionString(); }},
      {L"CompanyCode", [](auto& global) { return global.CompanyCode(); }},
      {L"ApplicationCode", [](auto& global) { return global.ApplicationCode(); }},
      {L"SessionId", [](auto& global) { return global.SessionId(); }},
      {L"UserId", [](auto& global) { return global.UserId(); }},
      {L"Translate", [](auto& global) { return global.Messages()->Translate("x"); }},
      {L"MsgBox", [](auto& global) { return global.Messages()->MsgBox("x", 0, "y", Value()); }},
      {L"MsgBoxFromId",
       [](auto& global) { return global.Messages()->MsgBoxFromId(1, 0, "y", Value()); }},
      {L"ShowError",
       [](auto& global) { return global.CreateLog()->ShowError("a", "b", "c", 4370); }},
      {L"GetPath", [](auto& global) { return global.CreateEnvironment()->GetPath(6, ""); }},
      {L"DocumentType",
       [](auto& global) { return global.CreateSqlDecode()->DocumentType("1", "2"); }},
      {L"Customer", [](auto& global) { return global.CreateSqlDecode()->Customer("1", "2"); }},
      {L"Code", [](auto& global) { return global.CreateSqlDecode()->Code("MG54", "1", {"A"}); }},
      {L"Load", [](auto& global) { return global.CreateSavedFilters()->Load("k", "n"); }},
      {L"Register",
       [](auto& global) {
         return ofObject(global.CreateLayoutModel()->Register("n", nullptr, 0, "d"));
       }},
      {L"NewConnection",
       [](auto& global) {
         return Value(global.CreateConnectionProvider()->NewConnection() ? "an object"
                                                                         : "no object");
       }},
      {L"CreateSqlDecode",
       [](auto& global) { return Value(global.CreateSqlDecode() ? "an object" : "no object"); }},
      {L"Messages",
       [](auto& global) { return Value(global.Messages() ? "an object" : "no object"); }},
  };
}

/// The variant as another type, under the locale of this run time.
std::optional<Variant> changed(const Variant& variant, VARTYPE type) {
  constexpr LCID italian = MAKELCID(MAKELANGID(LANG_ITALIAN, SUBLANG_ITALIAN), SORT_DEFAULT);
  Variant result;
  const HRESULT done =
      VariantChangeTypeEx(result.put(), const_cast<VARIANT*>(&variant.get()), italian, 0, type);
  return SUCCEEDED(done) ? std::optional(result) : std::nullopt;
}

/// Whether a value is what the variant stands for. Texts of flags and dates follow the locale.
bool standsFor(const Value& value, const Variant& answer) {
  if (value.isInteger() && answer.type() == VT_BOOL) return toInt32(value) == -1;
  if (value.isInteger() && answer.type() == VT_ERROR) return toInt32(value) == 0;  // left out
  if (value.isInteger()) {
    const auto number = changed(answer, VT_I4);
    return number && number->get().lVal == toInt32(value);
  }
  switch (answer.type()) {
    case VT_EMPTY:
    case VT_ERROR:
      return toDisplay(value).empty();
    case VT_BSTR: {
      const BSTR text = answer.get().bstrVal;
      return windows::toWide(toText(value)) ==
             std::wstring_view(text ? text : L"", SysStringLen(text));
    }
    case VT_BOOL:
      return toBoolean(value);  // as all of them are
    case VT_DATE:
      return value.isText() || isSame(windows::toVariant(value), answer);
    case VT_NULL:
      return value.isNull();
    default: {
      const auto number = changed(answer, VT_DECIMAL);
      return number && isSame(windows::toVariant(toDecimal(value)), *number);
    }
  }
}

TEST(NastyAnswers, AreUnderstoodOrRefused) {
  const auto object = ComPtr<AnswersAll>::adopt(new AnswersAll);
  for (const NastyVariant& given : nastyVariants()) {
    const VARIANT& answer = given.value.get();
    const Variant plain = answer.vt & VT_BYREF ? Variant::copyOf(answer) : Variant(given.value);
    object->answer = &answer;
    for (const Member& member : members()) {
      SCOPED_TRACE(windows::toUtf8(member.name) + ": " + given.name);
      object->answering = member.name;
      const Ref<host::ClsGlobal> global = windows::wrapClsGlobal(object.get());
      try {
        const Value value = member.call(*global);
        const bool isObject = plain.type() == VT_DISPATCH || plain.type() == VT_UNKNOWN;
        const bool isSaid = value == Value("an object") || value == Value("no object");
        EXPECT_TRUE(isSaid || isObject || standsFor(value, plain)) << "type " << plain.type();
      } catch (const RuntimeError& error) {
        const bool isNamed =
            error.description().find(windows::toUtf8(member.name)) != std::string::npos;
        const bool isTooLarge = error.number() == 6;  // for the button of an error box
        EXPECT_TRUE(isNamed || isTooLarge) << error.description();
      }
    }
    for (const wchar_t* const part : {L"Title", L"Statement", L"Captions", L"Key"}) {
      SCOPED_TRACE(windows::toUtf8(part) + ": " + given.name);
      object->answering = part;
      const Ref<host::ClsGlobal> global = windows::wrapClsGlobal(object.get());
      EXPECT_THROW(listOf(*global), RuntimeError);  // the other parts are objects
    }
  }
}

}  // namespace

}  // namespace kebu::tests
