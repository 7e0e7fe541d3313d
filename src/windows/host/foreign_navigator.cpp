#include "windows/host/foreign_navigator.h"

#include "windows/host/foreign_services.h"
#include "windows/host/navigator_events.h"
#include "windows/support/com_object.h"
#include "windows/support/values.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Receives the navigator's events. The navigator may hold it longer than the connection lasts.
class ForeignNavigator::Sink final : public ComObject<IDispatch> {
 public:
  explicit Sink(host::Navigator& navigator) : navigator_(&navigator) {}

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
    if (parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
    const ComPtr<Sink> alive(this);
    try {
      return raise(event, parameters->rgvarg[0]) ? S_OK : DISP_E_MEMBERNOTFOUND;
    } catch (...) {
      if (raised) fill(*raised, RuntimeError::current());
      return DISP_E_EXCEPTION;
    }
  }

 protected:
  void* find(REFIID wanted) override {
    return wanted == navigatorEventsId ? static_cast<IDispatch*>(this)
                                       : ComObject<IDispatch>::find(wanted);
  }

 private:
  /// False for an event that the interface does not have.
  bool raise(DISPID event, const VARIANT& argument) {
    const bool heard = navigator_ != nullptr;
    switch (static_cast<NavigatorEvent>(event)) {
      case NavigatorEvent::BeforeExportToOffice:
        if (heard) navigator_->BeforeExportToOffice.raise(keptValue(argument));
        return true;
      case NavigatorEvent::InitializeLayoutObjectModel:
        if (heard) {
          navigator_->InitializeLayoutObjectModel.raise(
              wrap<ForeignLayoutModel>(objectIn(argument)));
        }
        return true;
      case NavigatorEvent::InitializeScriptObjectModel:
        if (heard) {
          navigator_->InitializeScriptObjectModel.raise(
              wrap<ForeignScriptModel>(objectIn(argument)));
        }
        return true;
    }
    return false;
  }

  host::Navigator* navigator_;
};

ForeignNavigator::ForeignNavigator(ComPtr<IDispatch> object) : Foreign(std::move(object)) {
  const auto container = comObject().as<IConnectionPointContainer>();
  if (!container) throw errorOf(CONNECT_E_NOCONNECTION);
  check(container->FindConnectionPoint(navigatorEventsId, point_.put()));
  sink_ = ComPtr<Sink>::adopt(new Sink(*this));
  check(point_->Advise(sink_.get(), &cookie_));
}

ForeignNavigator::~ForeignNavigator() {
  sink_->leave();
  point_->Unadvise(cookie_);
}

}  // namespace kebu::windows
