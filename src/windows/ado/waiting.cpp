#include "windows/ado/waiting.h"

#include <algorithm>

#include "windows/ado/ado_constants.h"
#include "windows/support/handles.h"

namespace kebu::windows {

namespace {

/// Waits as a call to another apartment does: COM's own messages to this thread are handled, such
/// as those of ADO's thread; keys and clicks stay in the queue.
class ApartmentWait {
 public:
  void operator()(DWORD milliseconds) const {
    HANDLE handle = never_.get();
    DWORD index = 0;
    const HRESULT result = CoWaitForMultipleHandles(0, milliseconds, 1, &handle, &index);
    if (result != RPC_S_CALLPENDING) Sleep(milliseconds);  // it could not wait
  }

 private:
  OwnedEvent never_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};  ///< is not set by anybody
};

}  // namespace

bool await(const Dispatch& object, const std::function<bool()>& goOn) {
  constexpr DWORD longest = 16;  // milliseconds
  const ApartmentWait wait;
  bool isCancelled = false;
  try {
    // The first pauses are short, so that a quick statement is not delayed.
    DWORD pause = 0;
    // Reading the state also raises the statement's error, once.
    while (object && (object.number(L"State") & (stateExecuting | stateFetching)) != 0) {
      wait(pause);
      const bool isStopped = pause == longest && !goOn();
      if (isStopped && !isCancelled) {
        isCancelled = true;
        object.call(L"Cancel");
      }
      pause = std::clamp<DWORD>(2 * pause, 1, longest);
    }
  } catch (const RuntimeError&) {
    if (!isCancelled) throw;
  }
  return !isCancelled;
}

}  // namespace kebu::windows
