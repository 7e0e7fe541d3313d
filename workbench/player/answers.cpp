#include "workbench/player/answers.h"

namespace kebu::workbench {

namespace {

constexpr int mostRetries = 10;

}  // namespace

bool Answers::retriesForEver(const ShownMessage& box, std::int32_t answer) {
  if (answer != msgbox::retry) {
    retries_ = 0;
    return false;
  }
  if (box != retried_) retries_ = 0;
  retried_ = box;
  return ++retries_ > mostRetries;
}

Answers::Decision Answers::decide(const ShownMessage& box) {
  if (!queued_.empty()) {
    const msgbox::Answer answer = queued_.front();
    queued_.pop_front();
    retries_ = 0;
    if (offers(box.style, answer)) return {answer, false, ""};
    return {wayOut(box.style), false,
            "the message box \"" + box.title + "\" offers no " + answerName(answer)};
  }
  const msgbox::Answer answer = defaultButton(box.style);
  if (!retriesForEver(box, answer)) return {answer, true, ""};
  retries_ = 0;
  return {msgbox::abort, true,
          "the same error came back after " + std::to_string(mostRetries) + " retries"};
}

}  // namespace kebu::workbench
