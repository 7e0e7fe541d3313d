#include "windows/host/host_objects.h"

#include "windows/host/foreign_navigator.h"

namespace kebu::windows {

namespace {

class ForeignStatusBarPanel : public host::StatusBarPanel, public Foreign {
 public:
  using Role = host::StatusBarPanel;
  using Foreign::Foreign;

  void setText(const std::string& text) override { object_.put(L"Text", text); }
};

class ForeignStatusBar : public host::StatusBar, public Foreign {
 public:
  using Role = host::StatusBar;
  using Foreign::Foreign;

  Ref<host::StatusBarPanel> Panels(std::int32_t item) override {
    return wrap<ForeignStatusBarPanel>(object_.get(L"Panels").get(L"Item", {item}).object());
  }
};

class ForeignNamedObject : public host::NamedObject, public Foreign {
 public:
  using Role = host::NamedObject;
  using Foreign::Foreign;

  std::string Name() const override { return object_.text(L"Name"); }
  void setName(const std::string& name) override { object_.put(L"Name", name); }
};

}  // namespace

Ref<host::Navigator> wrapNavigator(IDispatch* object) {
  return wrap<ForeignNavigator>(ComPtr<IDispatch>(object));
}

Ref<host::StatusBar> wrapStatusBar(IDispatch* object) {
  return wrap<ForeignStatusBar>(ComPtr<IDispatch>(object));
}

Ref<host::NamedObject> wrapNamedObject(IDispatch* object) {
  return wrap<ForeignNamedObject>(ComPtr<IDispatch>(object));
}

Ref<Object> wrapObject(IDispatch* object) {
  return wrap<ForeignObject>(ComPtr<IDispatch>(object));
}

}  // namespace kebu::windows
