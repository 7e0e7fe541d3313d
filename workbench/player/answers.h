#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>

#include "workbench/host/message_box.h"

namespace kebu::workbench {

/// Decides how message boxes are answered: by the queued answers, then by the
/// default buttons. A scenario that answers the same box with Retry again and again
/// is stopped.
class Answers {
 public:
  struct Decision {
    std::int32_t answer = msgbox::ok;
    bool byDefault = false;
    /// Why the scenario cannot go on; empty when it can.
    std::string complaint;
  };

  void queue(msgbox::Answer answer) { queued_.push_back(answer); }
  std::size_t queued() const { return queued_.size(); }
  Decision decide(const ShownMessage& box);

 private:
  bool retriesForEver(const ShownMessage& box, std::int32_t answer);

  std::deque<msgbox::Answer> queued_;
  ShownMessage retried_;
  int retries_ = 0;
};

}  // namespace kebu::workbench
