#include "windows/ado/waiting.h"

#include <windows.h>

#include <algorithm>

#include "windows/ado/ado_constants.h"

namespace kebu::windows {

void await(const Dispatch& object, const std::function<void()>& meanwhile) {
  constexpr DWORD longest = 16;  // milliseconds
  // What is done soon is not waited for longer than it takes.
  DWORD pause = 0;
  // The state tells of the work's error too, the first time it is asked for.
  while (object && (object.number(L"State") & (stateExecuting | stateFetching)) != 0) {
    Sleep(pause);
    if (pause == longest) meanwhile();
    pause = std::clamp<DWORD>(2 * pause, 1, longest);
  }
}

}  // namespace kebu::windows
