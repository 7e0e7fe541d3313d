#pragma once

#include <ostream>

namespace kebu::workbench {

/// Writes this process's output to a debugger to a stream, as long as it lives. Only one may exist
/// at a time.
class TraceListener {
 public:
  explicit TraceListener(std::ostream& out);
  ~TraceListener();
  TraceListener(const TraceListener&) = delete;
  TraceListener& operator=(const TraceListener&) = delete;

 private:
  void* handler_;
};

}  // namespace kebu::workbench
