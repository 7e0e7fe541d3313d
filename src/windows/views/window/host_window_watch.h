#pragma once

#include "windows/support/handles.h"

namespace kebu::windows {

/// Tells a window of ours when a window of the host's is destroyed. Windows itself destroys a
/// window only with its owner, which is always a top-level window; the host may have named one
/// inside it.
class HostWindowWatch {
 public:
  /// `ours` gets the message once.
  HostWindowWatch(HWND hosts, HWND ours);
  ~HostWindowWatch();
  HostWindowWatch(const HostWindowWatch&) = delete;
  HostWindowWatch& operator=(const HostWindowWatch&) = delete;

  static constexpr UINT message = WM_APP + 3;

 private:
  HWND ours_;
  OwnedHook hook_;
};

}  // namespace kebu::windows
