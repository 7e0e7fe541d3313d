#include "windows/views/window/host_window_watch.h"

#include <map>
#include <mutex>
#include <vector>

namespace kebu::windows {

namespace {

/// The host's window of each window of ours. The host's may belong to another thread.
std::map<HWND, HWND> watched;
std::mutex guard;

std::vector<HWND> watchersOf(HWND hosts) {
  const std::lock_guard lock(guard);
  std::vector<HWND> found;
  for (const auto& [ours, other] : watched) {
    if (other == hosts) found.push_back(ours);
  }
  return found;
}

LRESULT CALLBACK hookProcedure(int code, WPARAM wParam, LPARAM lParam) {
  if (code == HC_ACTION) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (sent.message == WM_DESTROY) {
      // A window of this thread is told at once, one of another thread soon.
      for (HWND ours : watchersOf(sent.hwnd)) {
        SendNotifyMessageW(ours, HostWindowWatch::message, 0, 0);
      }
    }
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

HostWindowWatch::HostWindowWatch(HWND hosts, HWND ours)
    : ours_(ours),
      hook_(SetWindowsHookExW(WH_CALLWNDPROC, hookProcedure, nullptr,
                              GetWindowThreadProcessId(hosts, nullptr))) {
  const std::lock_guard lock(guard);
  watched[ours] = hosts;
}

HostWindowWatch::~HostWindowWatch() {
  const std::lock_guard lock(guard);
  watched.erase(ours_);
}

}  // namespace kebu::windows
