#pragma once

#include <functional>

namespace kebu::windows {

/// Code of ours that runs on this thread because a message arrived or the host called. It may wait
/// in a message loop of its own or of the host's, and more of it may start there.
class Activity {
 public:
  Activity() { ++depth_; }
  ~Activity();
  Activity(const Activity&) = delete;
  Activity& operator=(const Activity&) = delete;

  /// Runs `work` when none of our code is running on this thread any more; at once when none is.
  /// For what would pull objects away from under the code that uses them. Errors are dropped.
  static void afterwards(std::function<void()> work);

 private:
  static thread_local int depth_;
};

}  // namespace kebu::windows
