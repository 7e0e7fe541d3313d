// The plug-in's DLL as a COM server: registered, created, filled, heard and unloaded.
//
//   server_tests [GoogleTest's options] PATH\KEBU_ANAGKELMORIA.dll
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/windows/arguments.h"
#include "tests/windows/import_patch.h"
#include "tests/windows/instance.h"
#include "tests/windows/listener.h"
#include "tests/windows/registry.h"
#include "tests/windows/same_variant.h"
#include "windows/host/navigator_events.h"
#include "windows/support/automation.h"
#include "windows/support/com_error.h"
#include "windows/support/dispatch.h"
#include "windows/support/handles.h"
#include "windows/support/text.h"
#include "windows/support/windows_api.h"
#include "windows/types/kebu_anagkelmoria.h"
#include "workbench/host/object_models.h"
#include "workbench/windows/host_automation.h"
#include "workbench/windows/trace_listener.h"
#include "workbench/windows/user_classes.h"

namespace kebu::tests {

namespace {

using windows::check;
using windows::ComPtr;
using windows::Dispatch;
using windows::Variant;

constexpr const wchar_t* programId = L"KEBU_ANAGKELMORIA.CLSKB_ANAGKELMORIA";
constexpr const wchar_t* fileName = L"KEBU_ANAGKELMORIA.dll";

/// The library, loaded to call its entry points.
class Library {
 public:
  explicit Library(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {
    if (!module_) throw RuntimeError(48, "the DLL cannot be loaded: " + windows::toUtf8(path));
  }

  HMODULE module() const { return module_.get(); }
  HRESULT call(const char* entryPoint) const {
    const auto function = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
        reinterpret_cast<void*>(GetProcAddress(module_.get(), entryPoint)));
    return function ? function() : E_NOTIMPL;
  }

 private:
  windows::OwnedModule module_;
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

/// The entries that mention the plug-in, as text.
std::vector<std::string> mentions(const RegistryContents& contents) {
  const std::wstring own[] = {
      L"KEBU_ANAGKELMORIA", textOf(__uuidof(::CLSKB_ANAGKELMORIA)), textOf(__uuidof(::Cinterface)),
      textOf(__uuidof(::DCLSKB_ANAGKELMORIAEvents)), textOf(__uuidof(::DNavigatorEvents))};
  std::vector<std::string> found;
  for (const auto& [place, value] : contents) {
    for (const std::wstring& name : own) {
      if (place.find(name) != std::wstring::npos || value.find(name) != std::wstring::npos) {
        found.push_back(windows::toUtf8(place));
      }
    }
  }
  return found;
}

void expectRegistered(const RegistryContents& entries) {
  const std::wstring classKey = L"CLSID\\" + textOf(__uuidof(::CLSKB_ANAGKELMORIA));
  const auto value = [&](const std::wstring& place) {
    const auto at = entries.find(place);
    return at == entries.end() ? std::wstring(L"(none)") : at->second;
  };
  EXPECT_TRUE(holdsFile(value(classKey + L"\\InprocServer32|")));
  EXPECT_EQ(value(classKey + L"\\InprocServer32|ThreadingModel"), L"Apartment");
  EXPECT_EQ(value(classKey + L"\\ProgID|"), programId);
  EXPECT_EQ(value(std::wstring(programId) + L"\\CLSID|"), textOf(__uuidof(::CLSKB_ANAGKELMORIA)));
  const std::wstring typeLibrary = value(classKey + L"\\TypeLib|");
  const bool isThere = std::any_of(entries.begin(), entries.end(), [&](const auto& entry) {
    return entry.first.find(typeLibrary + L"\\1.0\\0\\win") != std::wstring::npos &&
           holdsFile(entry.second);
  });
  EXPECT_TRUE(isThere) << "the type library";
}

TEST(Server, CreatesInstances) {
  ComPtr<IClassFactory> factory;
  check(CoGetClassObject(__uuidof(::CLSKB_ANAGKELMORIA), CLSCTX_INPROC_SERVER, nullptr,
                         IID_IClassFactory, factory.putVoid()));
  ComPtr<IDispatch> made;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, made.putVoid()), S_OK);
  ComPtr<IUnknown> inner;
  EXPECT_EQ(factory->CreateInstance(made.get(), IID_IUnknown, inner.putVoid()),
            CLASS_E_NOAGGREGATION);
  ComPtr<IPersist> foreign;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPersist, foreign.putVoid()), E_NOINTERFACE);
  EXPECT_FALSE(foreign);

  EXPECT_TRUE(createInstance()) << "by the class identifier";
  CLSID named{};
  check(CLSIDFromProgID(programId, &named));
  ComPtr<IDispatch> byName;
  EXPECT_EQ(CoCreateInstance(named, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, byName.putVoid()),
            S_OK);
}

TEST(Server, AnInstanceHasOneIdentity) {
  const ComPtr<::Cinterface> plugin = createInstance();
  const auto identity = plugin.as<IUnknown>();
  const auto points = plugin.as<IConnectionPointContainer>();
  ASSERT_TRUE(points);
  EXPECT_EQ(points.as<IUnknown>().get(), identity.get());
  EXPECT_EQ(plugin.as<IDispatch>().as<IUnknown>().get(), identity.get());
  ComPtr<IDispatch> self;
  check(plugin->get_ActiveDll(self.put()));
  EXPECT_EQ(self.as<IUnknown>().get(), identity.get()) << "ActiveDll begins as the instance";
  ComPtr<ITypeInfo> info;
  TYPEATTR* attributes = nullptr;
  check(plugin.as<IProvideClassInfo>()->GetClassInfo(info.put()));
  check(info->GetTypeAttr(&attributes));
  EXPECT_TRUE(attributes->guid == __uuidof(::CLSKB_ANAGKELMORIA));
  info->ReleaseTypeAttr(attributes);
}

TEST(Server, MembersConvertOrKeepWhatTheyHave) {
  const ComPtr<::Cinterface> plugin = createInstance();
  const Dispatch named(plugin.as<IDispatch>());
  LONG state = 0;
  check(plugin->put_WindowState(2));
  EXPECT_EQ(plugin->put_WindowState(70000), S_OK);
  EXPECT_EQ(plugin->get_WindowState(&state), S_OK);
  EXPECT_EQ(state, 2) << "a number beyond 16 bits is ignored";
  named.put(L"ProgramMode", Variant(std::int32_t{5}));
  named.put(L"ProgramMode", Variant(std::int32_t{-32769}));
  EXPECT_EQ(named.call(L"ProgramMode").get().lVal, 5);
  named.put(L"Top", Variant("12"));
  named.put(L"Top", Variant("in alto"));
  EXPECT_EQ(named.call(L"Top").type(), VT_I4);
  EXPECT_EQ(named.call(L"Top").get().lVal, 12);
  named.put(L"Filtro", Variant("CG44_CLIFOR = 1"));
  EXPECT_EQ(named.call(L"Filtro").type(), VT_EMPTY);
  EXPECT_EQ(plugin->get_WindowState(nullptr), E_POINTER) << "an answer needs a place to go to";
}

TEST(Server, AnInstanceWithoutWindowHasNoneToGive) {
  const ComPtr<::Cinterface> plugin = createInstance();
  ComPtr<IDispatch> window;
  EXPECT_EQ(plugin->get_Cwindow(window.put()), S_OK);
  EXPECT_FALSE(window);
  VARIANT closed;
  VariantInit(&closed);
  EXPECT_EQ(plugin->CloseForm(&closed), S_OK);
  EXPECT_EQ(closed.vt, VT_BOOL);
  EXPECT_FALSE(closed.boolVal);
  ComPtr<IDispatch> frame;
  EXPECT_EQ(plugin->get_ActiveFrame(frame.put()), S_OK);
  EXPECT_FALSE(frame);
}

TEST(Server, NumbersFollowTheThreadsLocale) {
  const LCID before = GetThreadLocale();
  constexpr struct {
    LCID locale;
    LONG top;
  } cases[] = {{0x0410, 4},     // Italian: 3,75
               {0x0409, 375}};  // American: 375
  for (const auto& [locale, expected] : cases) {
    SetThreadLocale(locale);
    const ComPtr<::Cinterface> plugin = createInstance();
    Variant top;
    check(plugin->put_Top(Variant("3,75").get()));
    check(plugin->get_Top(top.put()));
    EXPECT_EQ(top.type(), VT_I4);
    EXPECT_EQ(top.get().lVal, expected) << "locale " << locale;
  }
  SetThreadLocale(before);
}

/// The connection point of the plug-in's events.
ComPtr<IConnectionPoint> eventsOf(const ComPtr<::Cinterface>& plugin) {
  ComPtr<IConnectionPoint> point;
  check(plugin.as<IConnectionPointContainer>()->FindConnectionPoint(
      __uuidof(::DCLSKB_ANAGKELMORIAEvents), point.put()));
  return point;
}

TEST(DataTransfer, ItsConnectionsAreListed) {
  const ComPtr<::Cinterface> plugin = createInstance();
  const ComPtr<IConnectionPoint> point = eventsOf(plugin);
  const auto listener = ComPtr<Listener>::adopt(new Listener);
  DWORD cookie = 0;
  check(point->Advise(listener.get(), &cookie));

  ComPtr<IEnumConnectionPoints> points;
  IConnectionPoint* listed = nullptr;
  check(plugin.as<IConnectionPointContainer>()->EnumConnectionPoints(points.put()));
  EXPECT_EQ(points->Next(1, &listed, nullptr), S_OK);
  const auto first = ComPtr<IConnectionPoint>::adopt(listed);
  EXPECT_EQ(first.get(), point.get());
  EXPECT_EQ(points->Skip(1), S_FALSE);
  ComPtr<IEnumConnections> connections;
  CONNECTDATA connection{};
  check(point->EnumConnections(connections.put()));
  EXPECT_EQ(connections->Next(1, &connection, nullptr), S_OK);
  EXPECT_EQ(connection.dwCookie, cookie);
  const auto other = ComPtr<IUnknown>::adopt(connection.pUnk);
  EXPECT_EQ(other.as<IUnknown>().get(), listener.as<IUnknown>().get());
}

TEST(DataTransfer, ReachesItsListeners) {
  const ComPtr<::Cinterface> plugin = createInstance();
  const ComPtr<IConnectionPoint> point = eventsOf(plugin);
  const auto listener = ComPtr<Listener>::adopt(new Listener);
  DWORD cookie = 0;
  check(point->Advise(listener.get(), &cookie));

  Variant day;
  day.raw().vt = VT_DATE;
  day.raw().date = 45356.5625;
  const Variant object(ComPtr<IDispatch>(listener.get()));
  const auto& heard = listener->heard;
  for (const Variant& data :
       {Variant("perché"), Variant(std::int16_t{3}), day, object, Variant()}) {
    Variant result = "full";
    check(plugin->TransferData(data.get(), result.put()));
    ASSERT_FALSE(heard.empty());
    EXPECT_EQ(heard.back().event, 1);
    EXPECT_TRUE(isSame(heard.back().argument, data)) << "a variant of type " << data.type();
    EXPECT_EQ(result.type(), VT_EMPTY);
  }
  Dispatch(plugin.as<IDispatch>()).call(L"TransferData", {Variant("by name")});
  EXPECT_EQ(heard.size(), 6U) << "once for every call";

  listener->then = [&] { point->Unadvise(cookie); };
  const auto second = ComPtr<Listener>::adopt(new Listener);
  DWORD secondCookie = 0;
  check(point->Advise(second.get(), &secondCookie));
  Variant result;
  check(plugin->TransferData(Variant("bye").get(), result.put()));
  check(plugin->TransferData(Variant("gone").get(), result.put()));
  EXPECT_EQ(heard.size(), 7U) << "it left during the event";
  EXPECT_EQ(second->heard.size(), 2U);
  EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION) << "it can leave only once";
}

TEST(Trace, EachInstanceReportsItsBeginningAndEnd) {
  std::ostringstream trace;
  {
    const workbench::TraceListener tracing(trace);
    const ComPtr<::Cinterface> one = createInstance();
    createInstance();
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
  ASSERT_EQ(found.size(), 4U) << trace.str();
  const char* const kinds[] = {"INI", "INI", "TER", "TER"};
  for (std::size_t i = 0; i < found.size(); ++i)
    EXPECT_TRUE(isLine(found[i], kinds[i])) << found[i];
  const auto identifier = [&](std::size_t i) { return found[i].substr(6, 32); };
  EXPECT_EQ(identifier(0), identifier(3));
  EXPECT_EQ(identifier(1), identifier(2));
  EXPECT_NE(identifier(0), identifier(1));
}

/// A listener of the host's that fails.
class FailingListener final : public windows::ComObject<IDispatch> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* raised,
                      UINT*) override {
    windows::fill(*raised, RuntimeError(75, "Accesso negato", "Host"));
    return DISP_E_EXCEPTION;
  }
};

TEST(Trace, ReportsWhatIsIgnored) {
  const ComPtr<::Cinterface> plugin = createInstance();
  const ComPtr<IConnectionPoint> point = eventsOf(plugin);
  DWORD cookie = 0;
  check(point->Advise(ComPtr<IDispatch>::adopt(new FailingListener).get(), &cookie));
  std::ostringstream trace;
  {
    const workbench::TraceListener tracing(trace);
    Variant array;
    array.raw().vt = VT_ARRAY | VT_I4;
    array.raw().parray = SafeArrayCreateVector(VT_I4, 0, 1);
    EXPECT_EQ(plugin->put_Left(array.get()), S_OK);
    EXPECT_EQ(plugin->put_WindowState(70000), S_OK);
    Variant result;
    EXPECT_EQ(plugin->TransferData(Variant("x").get(), result.put()), S_OK);
  }
  EXPECT_EQ(trace.str(),
            "KVRE:|put_Left|13|KEBU_ANAGKELMORIA|Type mismatch\n"
            "KVRE:|WindowState|6|KEBU_ANAGKELMORIA|Overflow\n"
            "KVRE:|DataTransfer|75|Host|Accesso negato\n");
}

TEST(ActiveDll, AnInstanceThatHoldsItselfEndsWithItsLastReference) {
  std::ostringstream trace;
  const workbench::TraceListener tracing(trace);
  {
    const ComPtr<::Cinterface> plugin = createInstance();
    check(plugin->putref_ActiveDll(plugin.get()));
  }
  EXPECT_NE(trace.str().find("|TER|"), std::string::npos) << trace.str();
}

TEST(ActiveDll, AnotherInstanceIsHeldAsItself) {
  const ComPtr<::Cinterface> holder = createInstance();
  ComPtr<IUnknown> identity;
  {
    const ComPtr<::Cinterface> held = createInstance();
    check(holder->putref_ActiveDll(held.get()));
    identity = held.as<IUnknown>();
  }
  ComPtr<IDispatch> back;
  check(holder->get_ActiveDll(back.put()));
  EXPECT_EQ(back.as<IUnknown>().get(), identity.get());
}

constexpr windows::Member<bool> dllMembers[] = {
    {L"IsActive", [](bool& isActive, const windows::Arguments&) { return Variant(isActive); }},
};

TEST(ActiveDll, AnObjectOfTheHostsIsAskedWhetherItIsActive) {
  const ComPtr<::Cinterface> plugin = createInstance();
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
  EXPECT_TRUE(journal.empty());
  *isActive = true;
  navigator->InitializeLayoutObjectModel.raise(model);
  EXPECT_EQ(journal.size(), 1U) << "it is asked at every event";
}

/// A copy of the library at another place, registered.
class OtherCopy {
 public:
  explicit OtherCopy(const std::wstring& original) {
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetTempPathW(MAX_PATH, folder.data()));
    path_ = folder + fileName;
    if (!CopyFileW(original.c_str(), path_.c_str(), FALSE)) throw std::runtime_error("no copy");
    library_ = std::make_unique<Library>(path_);
    EXPECT_EQ(library_->call("DllRegisterServer"), S_OK);
  }
  ~OtherCopy() {
    EXPECT_EQ(library_->call("DllUnregisterServer"), S_OK);
    library_.reset();
    DeleteFileW(path_.c_str());
  }
  OtherCopy(const OtherCopy&) = delete;
  OtherCopy& operator=(const OtherCopy&) = delete;

 private:
  std::wstring path_;
  std::unique_ptr<Library> library_;
};

HRESULT WINAPI noTypeLibrary(ITypeLib* /*library*/, LPOLESTR /*path*/, LPOLESTR /*help*/) {
  return TYPE_E_REGISTRYACCESS;
}

TEST(Registering, LeavesWhatAnotherCopyRegistered) {
  const std::wstring path = windows::toWide(arguments().front());
  const Library library(path);
  {
    const OtherCopy other(path);
    const RegistryContents others = registeredClasses();
    EXPECT_EQ(library.call("DllUnregisterServer"), S_OK);
    EXPECT_TRUE(registeredClasses() == others) << "nothing of it belongs to this copy";
    const ImportPatch failing(library.module(), "RegisterTypeLib", noTypeLibrary);
    EXPECT_EQ(library.call("DllRegisterServer"), TYPE_E_REGISTRYACCESS);
    EXPECT_TRUE(registeredClasses() == others) << "all is as it was before";
  }
  EXPECT_EQ(mentions(registeredClasses()), std::vector<std::string>{});
  EXPECT_EQ(library.call("DllRegisterServer"), S_OK);
}

/// Whether the system runs programs of both widths. Otherwise their registries are one.
bool hasOtherPrograms() {
  BOOL onWider = FALSE;
  return sizeof(void*) == 8 || (IsWow64Process(GetCurrentProcess(), &onWider) && onWider);
}

TEST(Registering, LeavesTheNameToTheCopyForOtherPrograms) {
  if (!hasOtherPrograms()) GTEST_SKIP() << "a 32-bit Windows has no 64-bit programs";
  const Library library(windows::toWide(arguments().front()));
  constexpr REGSAM others = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
  const std::wstring classes = L"CLSID\\" + textOf(__uuidof(::CLSKB_ANAGKELMORIA));
  const std::wstring server = classes + L"\\InprocServer32";
  HKEY key = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, server.c_str(), 0, nullptr, 0, KEY_WRITE | others,
                            nullptr, &key, nullptr),
            ERROR_SUCCESS);
  RegSetKeyValueW(key, nullptr, nullptr, REG_SZ, fileName, sizeof(L"KEBU_ANAGKELMORIA.dll"));
  RegCloseKey(key);
  EXPECT_EQ(library.call("DllUnregisterServer"), S_OK);
  EXPECT_TRUE(registeredClasses().contains(std::wstring(programId) + L"\\CLSID|"));
  EXPECT_EQ(RegDeleteKeyExW(HKEY_CLASSES_ROOT, server.c_str(), others, 0), ERROR_SUCCESS);
  EXPECT_EQ(RegDeleteKeyExW(HKEY_CLASSES_ROOT, classes.c_str(), others, 0), ERROR_SUCCESS);
  EXPECT_EQ(library.call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(mentions(registeredClasses()), std::vector<std::string>{});
  EXPECT_EQ(library.call("DllRegisterServer"), S_OK);
}

TEST(Registering, ForOneUserLeavesTheOthersAlone) {
  const Library library(windows::toWide(arguments().front()));
  EXPECT_EQ(library.call("DllUnregisterServer"), S_OK);
  const RegistryContents machine = registeredClasses();
  {
    const workbench::UserClasses redirected;
    library.call("DllUnregisterServer");  // what a run that broke down left
    const RegistryContents before = registeredClasses();
    EXPECT_EQ(library.call("DllRegisterServer"), S_OK);
    expectRegistered(added(before, registeredClasses()));
    EXPECT_EQ(library.call("DllUnregisterServer"), S_OK);
    // For a user who has none, the system has made the keys that all type libraries share.
    const RegistryContents after = registeredClasses();
    EXPECT_EQ(mentions(added(before, after)), std::vector<std::string>{});
    EXPECT_TRUE(added(after, before).empty()) << "nothing else is gone or changed";
  }
  EXPECT_TRUE(registeredClasses() == machine);
  EXPECT_EQ(library.call("DllRegisterServer"), S_OK);
}

TEST(Server, IsUnloadedWhenNoInstanceIsLeft) {
  {
    const ComPtr<::Cinterface> held = createInstance();
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_NE(GetModuleHandleW(fileName), nullptr);
  }
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_EQ(GetModuleHandleW(fileName), nullptr);
}

/// Registers the library for all tests, and expects nothing of it to be left afterwards.
class Registration : public testing::Environment {
 public:
  void SetUp() override {
    if (arguments().size() != 1) throw std::runtime_error("use: server_tests DLL");
    path_ = windows::toWide(arguments().front());
    const Library library(path_);
    library.call("DllUnregisterServer");  // what a run that broke down left
    before_ = registeredClasses();
    EXPECT_EQ(library.call("DllRegisterServer"), S_OK);
    expectRegistered(added(before_, registeredClasses()));
    EXPECT_EQ(library.call("DllRegisterServer"), S_OK) << "a second time";
  }
  void TearDown() override {
    if (path_.empty()) return;
    const Library library(path_);
    EXPECT_EQ(library.call("DllCanUnloadNow"), S_OK);
    EXPECT_EQ(library.call("DllUnregisterServer"), S_OK);
    EXPECT_EQ(library.call("DllUnregisterServer"), S_OK) << "a second time";
    const RegistryContents after = registeredClasses();
    EXPECT_TRUE(after == before_) << "the registry is as it was before";
    EXPECT_EQ(mentions(after), std::vector<std::string>{});
  }

 private:
  std::wstring path_;
  RegistryContents before_;
};

const testing::Environment* const registration =
    testing::AddGlobalTestEnvironment(new Registration);

}  // namespace

ComPtr<::Cinterface> createInstance() {
  ComPtr<::Cinterface> plugin;
  check(CoCreateInstance(__uuidof(::CLSKB_ANAGKELMORIA), nullptr, CLSCTX_INPROC_SERVER,
                         __uuidof(::Cinterface), plugin.putVoid()));
  return plugin;
}

}  // namespace kebu::tests
