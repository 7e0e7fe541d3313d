#pragma once

#include <string>
#include <vector>

#include "workbench/host/message_box.h"

namespace kebu::workbench {

/// The message boxes that no check has matched yet, oldest first.
class ShownMessages {
 public:
  void add(const ShownMessage& box) { boxes_.push_back(box); }
  /// Returns whether a box contains `text`, and removes it and the boxes before it.
  bool take(const std::string& text) {
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
      if (boxes_[i].text.find(text) == std::string::npos) continue;
      boxes_.erase(boxes_.begin(), boxes_.begin() + static_cast<std::ptrdiff_t>(i) + 1);
      return true;
    }
    return false;
  }
  const std::vector<ShownMessage>& boxes() const { return boxes_; }
  void clear() { boxes_.clear(); }

 private:
  std::vector<ShownMessage> boxes_;
};

}  // namespace kebu::workbench
