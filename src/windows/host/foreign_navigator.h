#pragma once

#include "host/navigator.h"
#include "windows/support/identity.h"

namespace kebu::windows {

/// The host's navigator; its events are heard until this ends. A navigator without events that this
/// knows is kept as well.
class ForeignNavigator : public host::Navigator, public Foreign {
 public:
  using Role = host::Navigator;

  explicit ForeignNavigator(ComPtr<IDispatch> object);
  ~ForeignNavigator() override;

 private:
  class Sink;

  ComPtr<IConnectionPoint> point_;
  ComPtr<Sink> sink_;
  DWORD cookie_ = 0;
};

}  // namespace kebu::windows
