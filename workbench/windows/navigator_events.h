#pragma once

#include <windows.h>

#include <ocidl.h>

#include <map>
#include <memory>
#include <vector>

#include "common/event.h"
#include "host/navigator.h"
#include "workbench/windows/automation.h"

namespace kebu::workbench {

/// The host's navigator: an object without members that passes its events on to
/// whoever asks its connection point.
class NavigatorObject : public Automated<host::Navigator>,
                        public IConnectionPointContainer,
                        public IConnectionPoint {
 public:
  NavigatorObject(std::shared_ptr<host::Navigator> navigator, REFIID events);

  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
    return AutomationObject::QueryInterface(wanted, object);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return AutomationObject::AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return AutomationObject::Release(); }

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
  STDMETHODIMP FindConnectionPoint(REFIID events, IConnectionPoint** point) override;

  STDMETHODIMP GetConnectionInterface(IID* events) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

 private:
  IUnknown* furtherInterface(REFIID wanted) override;
  void raise(DISPID event, const Variant& argument) const;

  IID events_;
  std::map<DWORD, ComRef<IDispatch>> sinks_;
  DWORD lastCookie_ = 0;
  std::vector<Subscription> subscriptions_;
};

}  // namespace kebu::workbench
