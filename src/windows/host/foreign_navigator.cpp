#include "windows/host/foreign_navigator.h"

#include <algorithm>
#include <utility>

#include "windows/host/foreign_services.h"
#include "windows/host/navigator_events.h"
#include "windows/support/com_object.h"
#include "windows/support/values.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Receives the navigator's events. The navigator may hold it longer than the connection lasts.
class ForeignNavigator::Sink final : public ComObject<IDispatch> {
 public:
  Sink(host::Navigator& navigator, NavigatorEventInterface events)
      : navigator_(&navigator), events_(std::move(events)) {}

  void leave() { navigator_ = nullptr; }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** info) override {
    if (info) *info = nullptr;
    return E_NOTIMPL;
  }
  /// Events come by their identifiers, not by names.
  STDMETHODIMP GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* /*names*/, UINT /*count*/,
                             LCID /*locale*/, DISPID* /*identifiers*/) override {
    return DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID event, REFIID /*reserved*/, LCID /*locale*/, WORD /*kind*/,
                      DISPPARAMS* parameters, VARIANT* /*answer*/, EXCEPINFO* raised,
                      UINT* /*badArgument*/) override {
    if (!parameters) return E_POINTER;
    const auto known = std::find_if(events_.events.begin(), events_.events.end(),
                                    [&](const auto& entry) { return entry.first == event; });
    // The navigator may have events that the plug-in does not hear.
    if (known == events_.events.end()) return DISP_E_MEMBERNOTFOUND;
    if (!navigator_) return S_OK;
    const ComPtr<Sink> alive(this);
    try {
      // The host may pass more arguments than the plug-in uses. The first is the last in the list.
      const VARIANT none{};
      raise(known->second,
            parameters->cArgs > 0 ? parameters->rgvarg[parameters->cArgs - 1] : none);
      return S_OK;
    } catch (...) {
      if (raised) fill(*raised, RuntimeError::current());
      return DISP_E_EXCEPTION;
    }
  }

 protected:
  void* find(REFIID wanted) override {
    const bool isEvents = wanted == events_.id && !events_.isDual;
    return isEvents ? static_cast<IDispatch*>(this) : ComObject<IDispatch>::find(wanted);
  }

 private:
  void raise(NavigatorEvent event, const VARIANT& argument) {
    switch (event) {
      case NavigatorEvent::BeforeExportToOffice:
        navigator_->BeforeExportToOffice.raise(keptValue(argument));
        break;
      case NavigatorEvent::InitializeLayoutObjectModel:
        navigator_->InitializeLayoutObjectModel.raise(wrap<ForeignLayoutModel>(objectIn(argument)));
        break;
      case NavigatorEvent::InitializeScriptObjectModel:
        navigator_->InitializeScriptObjectModel.raise(wrap<ForeignScriptModel>(objectIn(argument)));
        break;
    }
  }

  host::Navigator* navigator_;
  NavigatorEventInterface events_;
};

ForeignNavigator::ForeignNavigator(ComPtr<IDispatch> object) : Foreign(std::move(object)) {
  const auto container = comObject().as<IConnectionPointContainer>();
  if (!container) return;
  for (NavigatorEventInterface& events : eventInterfacesOf(comObject())) {
    ComPtr<IConnectionPoint> point;
    if (events.events.empty() || FAILED(container->FindConnectionPoint(events.id, point.put()))) {
      continue;
    }
    auto sink = ComPtr<Sink>::adopt(new Sink(*this, std::move(events)));
    if (FAILED(point->Advise(sink.get(), &cookie_))) continue;
    point_ = std::move(point);
    sink_ = std::move(sink);
    return;
  }
}

ForeignNavigator::~ForeignNavigator() {
  if (!sink_) return;
  sink_->leave();
  point_->Unadvise(cookie_);
}

}  // namespace kebu::windows
