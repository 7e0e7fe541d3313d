#include "windows/ado/waiting.h"

#include <windows.h>
// After windows.h, which it builds on.
#include <objbase.h>

#include <algorithm>
#include <memory>

#include "windows/ado/ado_constants.h"

namespace kebu::windows {

namespace {

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};

/// Waits as a call to another apartment does: what COM itself has for this thread gets through,
/// such as word from ADO's own thread; keys and clicks stay where they are.
class ApartmentWait {
 public:
  void operator()(DWORD milliseconds) const {
    HANDLE handle = never_.get();
    DWORD index = 0;
    const HRESULT result = CoWaitForMultipleHandles(0, milliseconds, 1, &handle, &index);
    if (result != RPC_S_CALLPENDING) Sleep(milliseconds);  // it could not wait
  }

 private:
  std::unique_ptr<void, HandleCloser> never_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

}  // namespace

void await(const Dispatch& object, const std::function<void()>& meanwhile) {
  constexpr DWORD longest = 16;  // milliseconds
  const ApartmentWait wait;
  // What is done soon is not waited for longer than it takes.
  DWORD pause = 0;
  // The state tells of the work's error too, the first time it is asked for.
  while (object && (object.number(L"State") & (stateExecuting | stateFetching)) != 0) {
    wait(pause);
    if (pause == longest) meanwhile();
    pause = std::clamp<DWORD>(2 * pause, 1, longest);
  }
}

}  // namespace kebu::windows
