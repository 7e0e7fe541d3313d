#pragma once

#include <map>

#include "windows/support/com_ptr.h"
#include "windows/support/variant.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// The connection point at which a host subscribes to an object's events. It is a part of the
/// object and shares its reference count.
class EventSource final : public IConnectionPoint {
 public:
  EventSource(REFIID events, IConnectionPointContainer& owner) : events_(events), owner_(owner) {}
  EventSource(const EventSource&) = delete;
  EventSource& operator=(const EventSource&) = delete;

  /// Calls every listener. Failures are ignored, but for a trace line under the event's name.
  void raise(const char* name, DISPID event, const Variant& argument) const;

  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }

  STDMETHODIMP GetConnectionInterface(IID* events) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* listener, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

 private:
  IID events_;
  IConnectionPointContainer& owner_;
  std::map<DWORD, ComPtr<IDispatch>> listeners_;
  DWORD lastCookie_ = 0;
};

}  // namespace kebu::windows
