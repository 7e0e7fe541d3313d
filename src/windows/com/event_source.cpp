#include "windows/com/event_source.h"

#include "common/swallowed_errors.h"
#include "windows/com/system_platform.h"
#include "windows/support/com_error.h"
#include "windows/support/enumerator.h"

namespace kebu::windows {

void EventSource::raise(const char* name, DISPID event, const Variant& argument) const {
  const auto listeners = listeners_;  // a listener may leave during the call
  for (const auto& [cookie, listener] : listeners) {
    VARIANT lent = argument.get();
    DISPPARAMS parameters = {&lent, nullptr, 1, 0};
    Variant answer;
    EXCEPINFO raised = {};
    const HRESULT result = listener->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                            &parameters, answer.put(), &raised, nullptr);
    if (SUCCEEDED(result)) continue;
    SystemPlatform platform;
    traceIgnored(platform, name, result == DISP_E_EXCEPTION ? errorIn(raised) : errorOf(result));
  }
}

STDMETHODIMP EventSource::QueryInterface(REFIID wanted, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (wanted != IID_IUnknown && wanted != IID_IConnectionPoint) return E_NOINTERFACE;
  *object = static_cast<IConnectionPoint*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP EventSource::GetConnectionInterface(IID* events) {
  if (!events) return E_POINTER;
  *events = events_;
  return S_OK;
}

STDMETHODIMP EventSource::GetConnectionPointContainer(IConnectionPointContainer** container) {
  return copyTo(&owner_, container);
}

STDMETHODIMP EventSource::Advise(IUnknown* listener, DWORD* cookie) {
  if (!listener || !cookie) return E_POINTER;
  *cookie = 0;
  ComPtr<IDispatch> events;
  // A listener may know the events by their own interface or by IDispatch alone.
  if (FAILED(listener->QueryInterface(events_, events.putVoid())) &&
      FAILED(listener->QueryInterface(IID_IDispatch, events.putVoid()))) {
    return CONNECT_E_CANNOTCONNECT;
  }
  return hresultOf([&] {
    listeners_.emplace(lastCookie_ + 1, std::move(events));
    *cookie = ++lastCookie_;
  });
}

STDMETHODIMP EventSource::Unadvise(DWORD cookie) {
  // Released last: the listener's destructor may call this object.
  const auto left = listeners_.extract(cookie);
  return left ? S_OK : CONNECT_E_NOCONNECTION;
}

STDMETHODIMP EventSource::EnumConnections(IEnumConnections** connections) {
  if (!connections) return E_POINTER;
  *connections = nullptr;
  return hresultOf([&] {
    std::vector<Connection> all;
    for (const auto& [cookie, listener] : listeners_) {
      all.push_back({ComPtr<IUnknown>(listener.get()), cookie});
    }
    *connections = new Connections(std::move(all));
  });
}

}  // namespace kebu::windows
