#include "windows/views/window/activity.h"

#include <memory>
#include <utility>
#include <vector>

#include "windows/views/window/guard.h"

namespace kebu::windows {

namespace {

using Works = std::vector<std::function<void()>>;

/// Null when nothing waits. A pointer, since the destructor of a thread_local object would keep the
/// library loaded until the thread ends.
thread_local Works* waiting = nullptr;

}  // namespace

thread_local int Activity::depth_ = 0;

Activity::~Activity() {
  if (--depth_ > 0 || !waiting) return;
  const std::unique_ptr<Works> works(std::exchange(waiting, nullptr));
  for (const auto& work : *works) guarded(work);
}

void Activity::afterwards(std::function<void()> work) {
  if (!waiting) waiting = new Works;
  waiting->push_back(std::move(work));
  const Activity none;  // whose end runs it, unless another one is running
}

}  // namespace kebu::windows
