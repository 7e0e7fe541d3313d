// The plug-in's DLL as a COM server: registered, created, filled, heard, let go.
//
//   server_check PATH\KEBU_ANAGKELMORIA.dll
#include <windows.h>
// After windows.h, which they build on.
#include <ocidl.h>
#include <olectl.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/windows/checks.h"
#include "tests/windows/listener.h"
#include "tests/windows/property_checks.h"
#include "tests/windows/registry.h"
#include "tests/windows/same_variant.h"
#include "windows/host/navigator_events.h"
#include "windows/support/automation.h"
#include "windows/support/com_error.h"
#include "windows/support/dispatch.h"
#include "windows/support/text.h"
#include "windows/types/kebu_anagkelmoria.h"
#include "workbench/cli/program_words.h"
#include "workbench/host/object_models.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/host_automation.h"
#include "workbench/windows/trace_listener.h"

namespace kebu::tests {

namespace {

using windows::check;
using windows::ComPtr;
using windows::Dispatch;
using windows::Variant;

constexpr const wchar_t* programId = L"KEBU_ANAGKELMORIA.CLSKB_ANAGKELMORIA";
constexpr const wchar_t* fileName = L"KEBU_ANAGKELMORIA.dll";

/// The library, loaded to call its doors.
class Library {
 public:
  explicit Library(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {
    if (!module_) throw RuntimeError(48, "the DLL cannot be loaded: " + windows::toUtf8(path));
  }
  ~Library() { FreeLibrary(module_); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  HRESULT call(const char* door) const {
    const auto function = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
        reinterpret_cast<void*>(GetProcAddress(module_, door)));
    return function ? function() : E_NOTIMPL;
  }

 private:
  HMODULE module_;
};

std::wstring textOf(REFGUID id) {
  wchar_t text[39] = {};
  StringFromGUID2(id, text, 39);
  return text;
}

bool holdsFile(const std::wstring& value) {
  return value.size() >= std::wstring(fileName).size() &&
         lstrcmpiW(value.c_str() + value.size() - std::wstring(fileName).size(), fileName) == 0;
}

/// The entries that speak of the plug-in.
RegistryContents mentions(const RegistryContents& contents) {
  const std::wstring own[] = {
      L"KEBU_ANAGKELMORIA", textOf(__uuidof(::CLSKB_ANAGKELMORIA)), textOf(__uuidof(::Cinterface)),
      textOf(__uuidof(::DCLSKB_ANAGKELMORIAEvents)), textOf(__uuidof(::DNavigatorEvents))};
  RegistryContents found;
  for (const auto& [place, value] : contents) {
    for (const std::wstring& name : own) {
      if (place.find(name) != std::wstring::npos || value.find(name) != std::wstring::npos) {
        found.emplace(place, value);
      }
    }
  }
  return found;
}

void checkRegistered(const RegistryContents& entries) {
  const std::wstring classKey = L"CLSID\\" + textOf(__uuidof(::CLSKB_ANAGKELMORIA));
  const auto value = [&](const std::wstring& place) {
    const auto at = entries.find(place);
    return at == entries.end() ? std::wstring(L"(none)") : at->second;
  };
  expectThat(holdsFile(value(classKey + L"\\InprocServer32|")), "the class names its server");
  expectThat(value(classKey + L"\\InprocServer32|ThreadingModel") == L"Apartment",
             "the class lives in apartments");
  expectThat(value(classKey + L"\\ProgID|") == programId, "the class knows its name");
  expectThat(value(std::wstring(programId) + L"\\CLSID|") == textOf(__uuidof(::CLSKB_ANAGKELMORIA)),
             "the name leads to the class");
  const std::wstring typeLibrary = value(classKey + L"\\TypeLib|");
  const bool isThere = std::any_of(entries.begin(), entries.end(), [&](const auto& entry) {
    return entry.first.find(typeLibrary + L"\\1.0\\0\\win") != std::wstring::npos &&
           holdsFile(entry.second);
  });
  expectThat(isThere, "the type library is registered");
}

ComPtr<::Cinterface> create() {
  ComPtr<::Cinterface> plugin;
  check(CoCreateInstance(__uuidof(::CLSKB_ANAGKELMORIA), nullptr, CLSCTX_INPROC_SERVER,
                         __uuidof(::Cinterface), plugin.putVoid()));
  return plugin;
}

void checkCreation() {
  ComPtr<IClassFactory> factory;
  check(CoGetClassObject(__uuidof(::CLSKB_ANAGKELMORIA), CLSCTX_INPROC_SERVER, nullptr,
                         IID_IClassFactory, factory.putVoid()));
  ComPtr<IDispatch> made;
  expectThat(factory->CreateInstance(nullptr, IID_IDispatch, made.putVoid()) == S_OK,
             "the class factory makes instances");
  ComPtr<IUnknown> inner;
  expectThat(
      factory->CreateInstance(made.get(), IID_IUnknown, inner.putVoid()) == CLASS_E_NOAGGREGATION,
      "none that is a part of another object");
  ComPtr<IPersist> foreign;
  expectThat(factory->CreateInstance(nullptr, IID_IPersist, foreign.putVoid()) == E_NOINTERFACE &&
                 !foreign,
             "none under an interface that it lacks");

  expectThat(static_cast<bool>(create()), "created by its class identifier");
  CLSID named{};
  check(CLSIDFromProgID(programId, &named));
  ComPtr<IDispatch> byName;
  expectThat(CoCreateInstance(named, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              byName.putVoid()) == S_OK,
             "created by its name");
}

void checkIdentity() {
  const ComPtr<::Cinterface> plugin = create();
  const auto identity = plugin.as<IUnknown>();
  const auto points = plugin.as<IConnectionPointContainer>();
  expectThat(points && points.as<IUnknown>().get() == identity.get() &&
                 plugin.as<IDispatch>().as<IUnknown>().get() == identity.get(),
             "every interface belongs to the one object");
  ComPtr<IDispatch> self;
  check(plugin->get_ActiveDll(self.put()));
  expectThat(self.as<IUnknown>().get() == identity.get(), "ActiveDll begins as the instance");
  ComPtr<ITypeInfo> info;
  TYPEATTR* attributes = nullptr;
  check(plugin.as<IProvideClassInfo>()->GetClassInfo(info.put()));
  check(info->GetTypeAttr(&attributes));
  expectThat(attributes->guid == __uuidof(::CLSKB_ANAGKELMORIA), "it tells of what class it is");
  info->ReleaseTypeAttr(attributes);
}

void checkNarrowing() {
  const ComPtr<::Cinterface> plugin = create();
  const Dispatch named(plugin.as<IDispatch>());
  LONG state = 0;
  check(plugin->put_WindowState(2));
  expectThat(plugin->put_WindowState(70000) == S_OK && plugin->get_WindowState(&state) == S_OK &&
                 state == 2,
             "WindowState beyond 16 bits leaves the one that is there");
  named.put(L"ProgramMode", Variant(std::int32_t{5}));
  named.put(L"ProgramMode", Variant(std::int32_t{-32769}));
  expectThat(named.call(L"ProgramMode").get().lVal == 5, "so does ProgramMode");
  named.put(L"Top", Variant("12"));
  named.put(L"Top", Variant("in alto"));
  expectThat(named.call(L"Top").type() == VT_I4 && named.call(L"Top").get().lVal == 12,
             "Top is converted, and kept when it cannot be");
  named.put(L"Filtro", Variant("CG44_CLIFOR = 1"));
  expectThat(named.call(L"Filtro").type() == VT_EMPTY, "Filtro reads back empty");
  ComPtr<IDispatch> window;
  expectThat(plugin->get_Cwindow(window.put()) == S_OK && !window, "Cwindow yields no object");
  expectThat(plugin->get_WindowState(nullptr) == E_POINTER, "an answer needs a place to go to");
  VARIANT closed;
  VariantInit(&closed);
  expectThat(plugin->CloseForm(&closed) == S_OK && closed.vt == VT_BOOL && !closed.boolVal,
             "CloseForm without a window answers false");
  ComPtr<IDispatch> frame;
  expectThat(plugin->get_ActiveFrame(frame.put()) == S_OK && !frame,
             "ActiveFrame without a window yields no object");
}

void checkLocale() {
  const LCID before = GetThreadLocale();
  constexpr struct {
    LCID locale;
    LONG top;
    const char* what;
  } cases[] = {{0x0410, 4, "with an Italian thread 3,75 is nearly 4"},
               {0x0409, 375, "with an American one it is 375"}};
  for (const auto& [locale, expected, what] : cases) {
    SetThreadLocale(locale);
    const ComPtr<::Cinterface> plugin = create();
    Variant top;
    check(plugin->put_Top(Variant("3,75").get()));
    check(plugin->get_Top(top.put()));
    expectThat(top.type() == VT_I4 && top.get().lVal == expected, what);
  }
  SetThreadLocale(before);
}

void checkDataTransfer() {
  const ComPtr<::Cinterface> plugin = create();
  const auto container = plugin.as<IConnectionPointContainer>();
  ComPtr<IConnectionPoint> point;
  check(container->FindConnectionPoint(__uuidof(::DCLSKB_ANAGKELMORIAEvents), point.put()));
  const auto listener = ComPtr<Listener>::adopt(new Listener);
  DWORD cookie = 0;
  check(point->Advise(listener.get(), &cookie));

  ComPtr<IEnumConnectionPoints> points;
  IConnectionPoint* listed = nullptr;
  check(container->EnumConnectionPoints(points.put()));
  const bool isOne = points->Next(1, &listed, nullptr) == S_OK;
  const auto first = ComPtr<IConnectionPoint>::adopt(listed);
  expectThat(isOne && first.get() == point.get() && points->Skip(1) == S_FALSE,
             "the events' connection point is listed");
  ComPtr<IEnumConnections> connections;
  CONNECTDATA connection{};
  check(point->EnumConnections(connections.put()));
  expectThat(connections->Next(1, &connection, nullptr) == S_OK && connection.dwCookie == cookie,
             "a listener is listed");
  const auto other = ComPtr<IUnknown>::adopt(connection.pUnk);
  expectThat(other.as<IUnknown>().get() == listener.as<IUnknown>().get(), "as itself");

  Variant day;
  day.raw().vt = VT_DATE;
  day.raw().date = 45356.5625;
  const Variant object(ComPtr<IDispatch>(listener.get()));
  for (const Variant& data :
       {Variant("perché"), Variant(std::int16_t{3}), day, object, Variant()}) {
    Variant result = "full";
    check(plugin->TransferData(data.get(), result.put()));
    const auto& heard = listener->heard;
    const bool same =
        !heard.empty() && heard.back().event == 1 && isSame(heard.back().argument, data);
    expectThat(same && result.type() == VT_EMPTY,
               "DataTransfer passes on a variant of kind " + std::to_string(data.type()));
  }
  Dispatch(plugin.as<IDispatch>()).call(L"TransferData", {Variant("by name")});
  expectThat(listener->heard.size() == 6, "and once for every call");

  listener->then = [&] { point->Unadvise(cookie); };
  const auto second = ComPtr<Listener>::adopt(new Listener);
  DWORD secondCookie = 0;
  check(point->Advise(second.get(), &secondCookie));
  Variant result;
  check(plugin->TransferData(Variant("bye").get(), result.put()));
  check(plugin->TransferData(Variant("gone").get(), result.put()));
  expectThat(listener->heard.size() == 7 && second->heard.size() == 2,
             "a listener that leaves while it is told hears no more, others do");
  expectThat(point->Unadvise(cookie) == CONNECT_E_NOCONNECTION, "it can leave only once");
}

void checkTrace() {
  std::ostringstream trace;
  {
    const workbench::TraceListener tracing(trace);
    const ComPtr<::Cinterface> one = create();
    create();
  }
  std::istringstream lines(trace.str());
  std::vector<std::string> found;
  for (std::string line; std::getline(lines, line);) found.push_back(line);
  const auto isLine = [](const std::string& line, const std::string& kind) {
    constexpr std::size_t start = 6;
    constexpr std::size_t digits = 32;
    return line.substr(0, start) == "KVRA:|" &&
           line.find_first_not_of("0123456789ABCDEF", start) == start + digits &&
           line.substr(start + digits) == "|" + kind + "|KEBU_ANAGRAFICA|CLSKB_ANAGRAFICA";
  };
  expectThat(found.size() == 4 && isLine(found[0], "INI") && isLine(found[1], "INI") &&
                 isLine(found[2], "TER") && isLine(found[3], "TER"),
             "each instance tells the debugger of its beginning and end");
  const auto identifier = [&](std::size_t i) {
    return i < found.size() ? found[i].substr(6, 32) : "";
  };
  expectThat(identifier(0) == identifier(3) && identifier(1) == identifier(2) &&
                 identifier(0) != identifier(1),
             "under an identifier of its own");
}

void checkOwnActiveDll() {
  std::ostringstream trace;
  const workbench::TraceListener tracing(trace);
  {
    const ComPtr<::Cinterface> plugin = create();
    check(plugin->putref_ActiveDll(plugin.get()));
  }
  expectThat(trace.str().find("|TER|") != std::string::npos,
             "an instance that is its own ActiveDll ends with its last reference");
  {
    const ComPtr<::Cinterface> holder = create();
    ComPtr<IUnknown> identity;
    {
      const ComPtr<::Cinterface> held = create();
      check(holder->putref_ActiveDll(held.get()));
      identity = held.as<IUnknown>();
    }
    ComPtr<IDispatch> back;
    check(holder->get_ActiveDll(back.put()));
    expectThat(back.as<IUnknown>().get() == identity.get(),
               "another instance that is held as ActiveDll is still there as itself");
  }
}

constexpr windows::Member<bool> dllMembers[] = {
    {L"IsActive", [](bool& isActive, const windows::Arguments&) { return Variant(isActive); }},
};

void checkForeignActiveDll() {
  const ComPtr<::Cinterface> plugin = create();
  std::vector<std::string> journal;
  const Ref<host::Navigator> navigator = makeRef<host::Navigator>();
  const Ref<host::LayoutModel> model =
      makeRef<workbench::LayoutModel>([&](const std::string& told) { journal.push_back(told); });
  check(plugin->putref_ActiveNavigator(
      workbench::automate(navigator, windows::navigatorEventsId).get()));
  const auto isActive = std::make_shared<bool>(false);
  check(plugin->putref_ActiveDll(windows::automated<bool>(isActive, dllMembers).get()));
  check(plugin->put_IsActive(VARIANT_TRUE));
  navigator->InitializeLayoutObjectModel.raise(model);
  expectThat(journal.empty(), "whether it is active an ActiveDll of the host's own says");
  *isActive = true;
  navigator->InitializeLayoutObjectModel.raise(model);
  expectThat(journal.size() == 1, "and is asked anew at every event");
}

void run(const std::wstring& path) {
  const workbench::Apartment apartment;
  std::cout << "registration\n";
  RegistryContents before;
  {
    const Library library(path);
    library.call("DllUnregisterServer");  // what a run that broke down left
    before = registeredClasses();
    expectThat(library.call("DllRegisterServer") == S_OK, "DllRegisterServer succeeds");
    checkRegistered(added(before, registeredClasses()));
    expectThat(library.call("DllRegisterServer") == S_OK, "a second time too");
  }

  std::cout << "class\n";
  checkCreation();
  checkIdentity();
  std::cout << "members\n";
  {
    const ComPtr<::Cinterface> plugin = create();
    checkProperties(*plugin.get());
    checkOrder(*plugin.get());
  }
  checkNarrowing();
  checkLocale();
  std::cout << "events and trace\n";
  checkDataTransfer();
  checkTrace();
  checkOwnActiveDll();
  checkForeignActiveDll();

  std::cout << "end\n";
  {
    const ComPtr<::Cinterface> held = create();
    CoFreeUnusedLibrariesEx(0, 0);
    expectThat(GetModuleHandleW(fileName) != nullptr, "an instance keeps the library");
  }
  CoFreeUnusedLibrariesEx(0, 0);
  expectThat(GetModuleHandleW(fileName) == nullptr, "without one it is unloaded");
  {
    const Library library(path);
    expectThat(library.call("DllCanUnloadNow") == S_OK, "an unused library says so");
    expectThat(library.call("DllUnregisterServer") == S_OK, "DllUnregisterServer succeeds");
    expectThat(library.call("DllUnregisterServer") == S_OK, "a second time too");
  }
  const RegistryContents after = registeredClasses();
  expectThat(after == before, "the registry is as it was before");
  expectThat(mentions(after).empty(), "nothing of the plug-in is left in the registry");
  for (const auto& [place, value] : mentions(after)) {
    std::cout << "    left behind: " << windows::toUtf8(place) << '\n';
  }
}

}  // namespace

}  // namespace kebu::tests

int main(int argc, char** argv) {
  const auto words = kebu::workbench::programWords(argc, argv);
  if (words.size() != 1) {
    std::cout << "use: server_check DLL\n";
    return 1;
  }
  return kebu::tests::carryOut([&] { kebu::tests::run(kebu::windows::toWide(words[0])); });
}
