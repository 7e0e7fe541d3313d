#pragma once

#include "host/navigator.h"
#include "windows/support/identity.h"

namespace kebu::windows {

/// The host's navigator; its events are heard until this ends.
class ForeignNavigator : public host::Navigator, public Foreign {
 public:
  using Role = host::Navigator;

  /// RuntimeError 459 when the object has no connection point for the events.
  explicit ForeignNavigator(ComPtr<IDispatch> object);
  ~ForeignNavigator() override;

 private:
  class Sink;

  ComPtr<IConnectionPoint> point_;
  ComPtr<Sink> sink_;
  DWORD cookie_ = 0;
};

}  // namespace kebu::windows
