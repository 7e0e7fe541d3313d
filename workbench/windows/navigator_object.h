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
/// the navigator's events. With a class type it also describes itself by that.
class NavigatorObject : public windows::Automated<host::Navigator>,
                        public IConnectionPointContainer,
                        public IConnectionPoint,
                        public IProvideClassInfo {
 public:
  NavigatorObject(std::shared_ptr<host::Navigator> navigator,
                  windows::NavigatorEventInterface events,
                  windows::ComPtr<ITypeInfo> classType = {});

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

  STDMETHODIMP GetClassInfo(ITypeInfo** info) override;

 private:
  void* find(REFIID wanted) override;
  void raise(windows::NavigatorEvent event, const windows::Variant& argument) const;

  windows::NavigatorEventInterface events_;
  windows::ComPtr<ITypeInfo> classType_;
  std::map<DWORD, windows::ComPtr<IDispatch>> sinks_;
  DWORD lastCookie_ = 0;
  std::vector<Subscription> subscriptions_;
};

}  // namespace kebu::workbench
