#include "workbench/windows/navigator_object.h"

#include "windows/host/navigator_events.h"
#include "windows/support/windows_api.h"
#include "workbench/windows/host_automation.h"

namespace kebu::workbench {

using windows::ComPtr;
using windows::NavigatorEvent;
using windows::Variant;

NavigatorObject::NavigatorObject(std::shared_ptr<host::Navigator> navigator,
                                 windows::NavigatorEventInterface events,
                                 ComPtr<ITypeInfo> classType)
    : Automated(std::move(navigator), {}),
      events_(std::move(events)),
      classType_(std::move(classType)) {
  subscriptions_.push_back(subject()->BeforeExportToOffice.connect([this](const Value& arguments) {
    raise(NavigatorEvent::BeforeExportToOffice, windows::toVariant(arguments));
  }));
  subscriptions_.push_back(
      subject()->InitializeLayoutObjectModel.connect([this](const Ref<host::LayoutModel>& model) {
        raise(NavigatorEvent::InitializeLayoutObjectModel, Variant(automate(model)));
      }));
  subscriptions_.push_back(
      subject()->InitializeScriptObjectModel.connect([this](const Ref<host::ScriptModel>& model) {
        raise(NavigatorEvent::InitializeScriptObjectModel,
              Variant(automate(Ref<host::LayoutModel>(model))));
      }));
}

void NavigatorObject::raise(NavigatorEvent event, const Variant& argument) const {
  const auto sinks = sinks_;  // a sink may leave while it is called
  for (const auto& [cookie, sink] : sinks) {
    VARIANT lent = argument.get();
    DISPPARAMS parameters{&lent, nullptr, 1, 0};
    for (const auto& [id, raised] : events_.events) {
      if (raised != event) continue;
      sink->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                   nullptr, nullptr);
    }
  }
}

void* NavigatorObject::find(REFIID wanted) {
  if (wanted == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(this);
  if (wanted == IID_IConnectionPoint) return static_cast<IConnectionPoint*>(this);
  if (wanted == IID_IProvideClassInfo && classType_) return static_cast<IProvideClassInfo*>(this);
  return Automated::find(wanted);
}

STDMETHODIMP NavigatorObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
  if (points) *points = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP NavigatorObject::FindConnectionPoint(REFIID events, IConnectionPoint** point) {
  if (!point) return E_POINTER;
  *point = nullptr;
  if (events != events_.id) return CONNECT_E_NOCONNECTION;
  *point = this;
  AddRef();
  return S_OK;
}

STDMETHODIMP NavigatorObject::GetConnectionInterface(IID* events) {
  if (!events) return E_POINTER;
  *events = events_.id;
  return S_OK;
}

STDMETHODIMP NavigatorObject::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (!container) return E_POINTER;
  *container = this;
  AddRef();
  return S_OK;
}

STDMETHODIMP NavigatorObject::Advise(IUnknown* sink, DWORD* cookie) {
  if (!sink || !cookie) return E_POINTER;
  *cookie = 0;
  ComPtr<IDispatch> events;
  // The sink may know the events' interface by its own name only.
  if (FAILED(sink->QueryInterface(events_.id, events.putVoid())) &&
      FAILED(sink->QueryInterface(IID_IDispatch, events.putVoid()))) {
    return CONNECT_E_CANNOTCONNECT;
  }
  *cookie = ++lastCookie_;
  sinks_[*cookie] = std::move(events);
  return S_OK;
}

STDMETHODIMP NavigatorObject::Unadvise(DWORD cookie) {
  return sinks_.erase(cookie) > 0 ? S_OK : CONNECT_E_NOCONNECTION;
}

STDMETHODIMP NavigatorObject::GetClassInfo(ITypeInfo** info) {
  return windows::copyTo(classType_.get(), info);
}

STDMETHODIMP NavigatorObject::EnumConnections(IEnumConnections** connections) {
  if (connections) *connections = nullptr;
  return E_NOTIMPL;
}

}  // namespace kebu::workbench
