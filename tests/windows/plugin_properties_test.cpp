// Every property of the contract, set and read by name and through the vtable.
#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "tests/windows/instance.h"
#include "tests/windows/listener.h"
#include "tests/windows/nasty_variants.h"
#include "tests/windows/same_variant.h"
#include "windows/host/navigator_events.h"
#include "windows/support/dispatch.h"
#include "windows/support/text.h"
#include "windows/support/windows_api.h"
#include "workbench/windows/host_automation.h"
#include "workbench/windows/trace_listener.h"

namespace kebu::tests {

namespace {

using windows::ComPtr;
using windows::Dispatch;
using windows::Variant;

/// An argument for a member of the vtable, converted to whatever type it takes.
struct Given {
  const VARIANT& value;
  operator VARIANT_BOOL() const { return value.boolVal; }
  operator LONG() const { return value.lVal; }
  operator IDispatch*() const { return value.pdispVal; }
  operator VARIANT() const { return value; }
};

/// A place for the result of a member of the vtable, whatever its type.
struct Received {
  VARIANT& value;
  operator VARIANT_BOOL*() const { return as(VT_BOOL, &value.boolVal); }
  operator LONG*() const { return as(VT_I4, &value.lVal); }
  operator IDispatch**() const { return as(VT_DISPATCH, &value.pdispVal); }
  operator VARIANT*() const { return &value; }

 private:
  template <class T>
  T* as(VARTYPE type, T* target) const {
    value.vt = type;
    return target;
  }
};

struct Property {
  const wchar_t* name;
  HRESULT (*put)(::Cinterface& plugin, const VARIANT& value);
  HRESULT (*get)(::Cinterface& plugin, VARIANT& value);
  std::vector<Variant> values;  ///< each comes back as it was
  Variant first;                ///< what a new instance has
  bool isKnownLater = false;    ///< a new instance has another object
};

template <auto Put>
HRESULT put(::Cinterface& plugin, const VARIANT& value) {
  return (plugin.*Put)(Given{value});
}
template <auto Get>
HRESULT get(::Cinterface& plugin, VARIANT& value) {
  return (plugin.*Get)(Received{value});
}
#define MEMBER(prefix, name) \
  L## #name, put<&::Cinterface::prefix##name>, get<&::Cinterface::get_##name>

Variant date(double day) {
  Variant result;
  result.raw().vt = VT_DATE;
  result.raw().date = day;
  return result;
}

Variant number(double value) {
  Variant result;
  result.raw().vt = VT_R8;
  result.raw().dblVal = value;
  return result;
}

Variant amount(double value) {
  Variant result;
  result.raw().vt = VT_CY;
  result.raw().cyVal.int64 = static_cast<LONGLONG>(value * 10000);
  return result;
}

Variant byte(BYTE value) {
  Variant result;
  result.raw().vt = VT_UI1;
  result.raw().bVal = value;
  return result;
}

Variant bytes() {
  Variant result;
  result.raw().vt = VT_ARRAY | VT_UI1;
  result.raw().parray = SafeArrayCreateVector(VT_UI1, 0, 3);
  for (LONG i = 0; i < 3; ++i)
    SafeArrayPutElement(result.get().parray, &i, const_cast<char*>(&"abc"[i]));
  return result;
}

/// In the order of the contract.
std::vector<Property> properties() {
  const Variant object(ComPtr<IDispatch>::adopt(new Listener));
  const Variant nothing(ComPtr<IDispatch>(nullptr));
  const std::vector<Variant> objects = {object, nothing};
  const auto navigator =
      workbench::automate(makeRef<host::Navigator>(), windows::navigatorEventsId);
  // The second one raises no events.
  const std::vector<Variant> navigators = {Variant(ComPtr<IDispatch>(navigator.get())), object,
                                           nothing};
  const std::vector<Variant> flags = {true, false};
  const std::vector<Variant> narrow = {std::int32_t{2}, std::int32_t{-32768}};
  const std::vector<Variant> handle = {std::int32_t{0x12345678}, std::int32_t{-2}};
  const std::vector<Variant> places = {std::int32_t{240}, std::int32_t{-70000}};
  const std::vector<Variant> anything = {
      "perché",    std::int16_t{7}, Variant::null(), object,  date(45356.5625),
      number(0.1), amount(12.5),    byte(3),         bytes(), {}};
  const Variant zero = std::int32_t{0};
  return {
      {MEMBER(putref_, ClsGlobal), objects, nothing},
      {MEMBER(putref_, ActiveFrame), objects, nothing},
      {MEMBER(putref_, ActiveNavigator), navigators, nothing},
      {MEMBER(putref_, ActiveDll), objects, nothing, true},
      {MEMBER(putref_, StatusBar), objects, nothing},
      {MEMBER(put_, CanInsert), flags, false},
      {MEMBER(put_, CanDelete), flags, false},
      {MEMBER(put_, CanUpdate), flags, false},
      {MEMBER(put_, CanQbe), flags, false},
      {MEMBER(put_, WindowState), narrow, zero},
      {MEMBER(put_, WindowModal), flags, false},
      {MEMBER(put_, ProgramMode), narrow, zero},
      {MEMBER(put_, MenuModulo), anything, {}},
      {MEMBER(put_, MenuPadre), anything, {}},
      {MEMBER(put_, MenuProg), anything, {}},
      {MEMBER(put_, Caption), anything, {}},
      {MEMBER(put_, hwndParent), handle, zero},
      {MEMBER(putref_, Connection), objects, nothing},
      {L"Cwindow", nullptr, get<&::Cinterface::get_Cwindow>, {}, nothing},
      {MEMBER(put_, Top), places, zero},
      {MEMBER(put_, Left), places, zero},
      {MEMBER(putref_, ClsVoceMenu), objects, nothing},
      {MEMBER(put_, IsActive), flags, false},
      {MEMBER(put_, IsCalled), flags, false},
      {MEMBER(put_, Filtro), {}, {}},
  };
}
#undef MEMBER

/// The two ways to a property.
struct Way {
  const char* name;
  bool byName;
};
constexpr Way ways[] = {{"by name", true}, {"through the vtable", false}};

bool write(::Cinterface& plugin, const Property& property, const Way& way, const Variant& value) {
  if (!way.byName) return property.put(plugin, value.get()) == S_OK;
  Dispatch(ComPtr<IDispatch>(&plugin)).put(property.name, value);
  return true;
}

Variant read(::Cinterface& plugin, const Property& property, const Way& way) {
  if (way.byName) return Dispatch(ComPtr<IDispatch>(&plugin)).call(property.name);
  Variant value;
  windows::check(property.get(plugin, *value.put()));
  return value;
}

TEST(PluginProperties, ReadBackAsTheyAreSet) {
  const ComPtr<::Cinterface> plugin = createInstance();
  for (const Property& property : properties()) {
    SCOPED_TRACE(windows::toUtf8(property.name));
    for (const Way& way : ways) {
      const bool holds =
          property.isKnownLater || isSame(read(*plugin.get(), property, way), property.first);
      EXPECT_TRUE(holds) << "of a new instance, " << way.name;
    }
    for (const Way& writing : ways) {
      for (std::size_t i = 0; i < property.values.size(); ++i) {
        const Variant& value = property.values[i];
        EXPECT_TRUE(write(*plugin.get(), property, writing, value)) << "value " << i;
        for (const Way& reading : ways) {
          EXPECT_TRUE(isSame(read(*plugin.get(), property, reading), value))
              << "value " << i << " written " << writing.name << ", read " << reading.name;
        }
      }
      // As it was, before it is written in another way.
      if (!property.values.empty() && !property.isKnownLater) {
        write(*plugin.get(), property, writing, property.first);
      }
    }
  }
}

/// What the variant is when it is copied, references followed; nothing when it cannot be.
std::optional<Variant> copied(const Variant& value) {
  try {
    return Variant::copyOf(value.get());
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

/// Whether a number, flag or object is what automation makes of the variant.
bool isConverted(const Variant& kept, const Variant& value) {
  if (value.type() == VT_BOOL && kept.type() == VT_BOOL) return kept.get().boolVal != VARIANT_FALSE;
  if (value.type() == VT_BOOL && kept.type() == VT_I4) return kept.get().lVal != 0;
  if (value.type() == VT_ERROR && kept.type() == VT_I4) return kept.get().lVal == 0;  // left out
  Variant converted;
  const auto isMadeUnder = [&](LCID locale) {
    return SUCCEEDED(VariantChangeTypeEx(converted.put(), const_cast<VARIANT*>(&value.get()),
                                         locale, 0, kept.type())) &&
           isSame(converted, kept);
  };
  // The plug-in reads texts under the thread's locale, the type library under the user's.
  return isMadeUnder(GetThreadLocale()) || isMadeUnder(LOCALE_USER_DEFAULT);
}

TEST(PluginProperties, KeepAnythingOrTellThatTheyDoNot) {
  const ComPtr<::Cinterface> plugin = createInstance();
  for (const Property& property : properties()) {
    const std::wstring name = property.name;
    if (!property.put || name == L"Filtro") continue;  // which discards what it is given
    const bool takesAnything = name.starts_with(L"Menu") || name == L"Caption";
    const bool isPlace = name == L"Top" || name == L"Left";
    for (const Way& way : ways) {
      if (!way.byName && !takesAnything && !isPlace) continue;  // a C++ caller has its type
      for (const NastyVariant& given : nastyVariants()) {
        SCOPED_TRACE(windows::toUtf8(name) + ' ' + way.name + ": " + given.name);
        const Variant before = read(*plugin.get(), property, way);
        std::ostringstream trace;
        bool isTold = false;
        try {
          const workbench::TraceListener tracing(trace);
          write(*plugin.get(), property, way, given.value);
        } catch (const RuntimeError&) {
          isTold = true;
        }
        isTold |= trace.str().find("KVRE:|") != std::string::npos;
        const Variant kept = read(*plugin.get(), property, way);
        const auto value = copied(given.value);
        const bool isSaved = value && isSame(kept, *value);
        const bool isKept = isSaved || (!takesAnything && value && isConverted(kept, *value));
        EXPECT_TRUE(isKept || (isTold && isSame(kept, before))) << "it has type " << kept.type();
      }
    }
  }
}

TEST(PluginProperties, StandInTheContractsOrder) {
  const ComPtr<::Cinterface> plugin = createInstance();
  std::vector<std::string> expected;
  for (const Property& property : properties()) {
    expected.push_back(windows::toUtf8(property.name));
  }
  for (const char* method : {"ShowForm", "CloseForm", "TransferData"}) {
    expected.emplace_back(method);
  }

  ComPtr<ITypeInfo> info;
  windows::check(plugin->GetTypeInfo(0, 0, info.put()));
  ComPtr<ITypeInfo> vtable;
  HREFTYPE reference = 0;
  // A dual interface is described twice; the other one is that of its vtable.
  windows::check(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
  windows::check(info->GetRefTypeInfo(reference, vtable.put()));
  constexpr SHORT inheritedSlots = 7;
  std::vector<std::string> found;
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(vtable->GetFuncDesc(i, &function)); ++i) {
    EXPECT_EQ(function->oVft, static_cast<SHORT>((inheritedSlots + i) * sizeof(void*)))
        << "function " << i;
    windows::Bstr name;
    vtable->GetDocumentation(function->memid, name.put(), nullptr, nullptr, nullptr);
    vtable->ReleaseFuncDesc(function);
    if (found.empty() || found.back() != name.toUtf8()) found.push_back(name.toUtf8());
  }
  EXPECT_EQ(found, expected);
}

}  // namespace

}  // namespace kebu::tests
