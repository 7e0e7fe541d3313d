#pragma once

#include <map>
#include <memory>
#include <vector>

#include "common/event.h"
#include "host/navigator.h"
#include "windows/host/navigator_events.h"
#include "windows/support/automation.h"
#include "windows/support/windows_api.h"

namespace kebu::workbench {

/// The host's navigator as a COM object: it has no members, only a connection point that passes on
/// the navigator's events.
class NavigatorObject : public windows::Automated<host::Navigator>,
                        public IConnectionPointContainer,
                        public IConnectionPoint {
 public:
  NavigatorObject(std::shared_ptr<host::Navigator> navigator, REFIID events);

  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
    return Automated::QueryInterface(wanted, object);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return Automated::AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return Automated::Release(); }

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
  STDMETHODIMP FindConnectionPoint(REFIID events, IConnectionPoint** point) override;

  STDMETHODIMP GetConnectionInterface(IID* events) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

 private:
  void* find(REFIID wanted) override;
  void raise(windows::NavigatorEvent event, const windows::Variant& argument) const;

  IID events_;
  std::map<DWORD, windows::ComPtr<IDispatch>> sinks_;
  DWORD lastCookie_ = 0;
  std::vector<Subscription> subscriptions_;
};

}  // namespace kebu::workbench
