// The navigator's events, from hosts that raise them by different interfaces.
#include "windows/host/navigator_events.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/windows/erp_navigator.h"
#include "tests/windows/listener.h"
#include "tests/windows/transcript.h"
#include "windows/host/host_objects.h"
#include "windows/support/module.h"
#include "workbench/host/object_models.h"
#include "workbench/windows/host_automation.h"
#include "workbench/windows/navigator_object.h"

namespace kebu::tests {

namespace {

using windows::ComPtr;
using windows::NavigatorEvent;
using windows::NavigatorEventInterface;

class Window : public host::NamedObject {
 public:
  std::string Name() const override { return "FRMKB_ANAGRAFICA"; }
  void setName(const std::string& /*name*/) override {}
};

void expectEvents(const Ref<host::Navigator>& navigator, const ComPtr<IDispatch>& object) {
  Transcript transcript;
  std::vector<std::string> entries;
  const auto note = [&](const std::string& entry) { entries.push_back(entry); };
  const Ref<host::NamedObject> window = makeRef<Window>();

  Ref<host::Navigator> heard = windows::wrapNavigator(object.get());
  const Subscription export_ = heard->BeforeExportToOffice.connect(
      [&](const Value& arguments) { transcript.note("export " + describe(arguments)); });
  const Subscription layout =
      heard->InitializeLayoutObjectModel.connect([&](const Ref<host::LayoutModel>& model) {
        const bool isSame = model->Register("FRM", window, 1, "a") == window;
        transcript.note(isSame ? "own object back" : "another object back");
      });
  const Subscription script =
      heard->InitializeScriptObjectModel.connect([&](const Ref<host::ScriptModel>& model) {
        bool cancel = false;
        model->RunEvent("tsOpen", cancel);
        transcript.note(cancel ? "refused" : "allowed");
      });
  const auto raiseAll = [&] {
    navigator->BeforeExportToOffice.raise(Value("perché"));
    navigator->InitializeLayoutObjectModel.raise(makeRef<workbench::LayoutModel>(note));
    navigator->InitializeScriptObjectModel.raise(
        makeRef<workbench::ScriptModel>(note, [](const std::string&) { return true; }));
  };
  raiseAll();
  EXPECT_EQ(transcript.lines(),
            (std::vector<std::string>{"export text \"perché\"", "own object back", "refused"}));
  EXPECT_EQ(entries, (std::vector<std::string>{"layout: FRM, kind 1, \"a\""}));
  EXPECT_EQ(windows::unwrap(heard).get(), object.get());

  const std::size_t before = transcript.lines().size();
  heard.reset();
  raiseAll();
  EXPECT_EQ(transcript.lines().size(), before) << "it was let go";

  heard = windows::wrapNavigator(object.get());
  const Subscription last = heard->BeforeExportToOffice.connect([&](const Value&) {
    transcript.note("let go");
    heard.reset();
  });
  raiseAll();
  raiseAll();
  EXPECT_EQ(transcript.lines().size(), before + 1) << "a handler may let its navigator go";
}

/// The identifiers of the described interface.
NavigatorEventInterface erpEvents() {
  return {__uuidof(::DErpNavigatorEvents),
          false,
          {{31, NavigatorEvent::BeforeExportToOffice},
           {32, NavigatorEvent::InitializeLayoutObjectModel},
           {2, NavigatorEvent::InitializeScriptObjectModel}}};
}

TEST(NavigatorEvents, ArriveByTheTypeLibrarysInterface) {
  const auto navigator = makeRef<host::Navigator>();
  expectEvents(navigator, workbench::automate(navigator, windows::navigatorEventsId));
}

TEST(NavigatorEvents, ArriveByTheInterfaceThatTheirClassDescribes) {
  const auto navigator = makeRef<host::Navigator>();
  expectEvents(navigator, ComPtr<IDispatch>::adopt(new workbench::NavigatorObject(
                              navigator.shared(), erpEvents(),
                              windows::typeInfoOf(__uuidof(::ErpNavigator)))));
}

TEST(NavigatorEvents, OfOneThatDescribesAnotherInterfaceArriveByTheTypeLibrarys) {
  const auto navigator = makeRef<host::Navigator>();
  expectEvents(navigator, ComPtr<IDispatch>::adopt(new workbench::NavigatorObject(
                              navigator.shared(), windows::ownNavigatorEvents(),
                              windows::typeInfoOf(__uuidof(::ErpNavigator)))));
}

/// Names the interface of its events, and describes nothing.
class NamingNavigator final : public workbench::NavigatorObject, public IProvideClassInfo2 {
 public:
  using NavigatorObject::NavigatorObject;

  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
    if (wanted != IID_IProvideClassInfo2) return NavigatorObject::QueryInterface(wanted, object);
    *object = static_cast<IProvideClassInfo2*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return NavigatorObject::AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return NavigatorObject::Release(); }
  STDMETHODIMP GetClassInfo(ITypeInfo** info) override {
    *info = nullptr;
    return TYPE_E_ELEMENTNOTFOUND;
  }
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) override {
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *id = __uuidof(::DErpNavigatorEvents);
    return S_OK;
  }
};

TEST(NavigatorEvents, OfOneThatNamesItsInterfaceArriveByTheUsualIdentifiers) {
  const auto navigator = makeRef<host::Navigator>();
  NavigatorEventInterface events = windows::ownNavigatorEvents();
  events.id = __uuidof(::DErpNavigatorEvents);
  expectEvents(navigator,
               ComPtr<IDispatch>::adopt(new NamingNavigator(navigator.shared(), events)));
}

TEST(NavigatorEvents, NavigatorWithoutThemIsKept) {
  const auto silent = ComPtr<IDispatch>::adopt(new Listener);
  EXPECT_EQ(windows::unwrap(windows::wrapNavigator(silent.get())).get(), silent.get());
  // Its events are unknown.
  NavigatorEventInterface other = windows::ownNavigatorEvents();
  other.id = __uuidof(::DErpNavigatorPanes);
  const auto unknown = ComPtr<IDispatch>::adopt(
      new workbench::NavigatorObject(makeRef<host::Navigator>().shared(), other));
  EXPECT_EQ(windows::unwrap(windows::wrapNavigator(unknown.get())).get(), unknown.get());
}

}  // namespace

}  // namespace kebu::tests
