#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "common/error.h"
#include "controls/simple_controls.h"

namespace kebu::forms {

/// The group boxes that hold the window's pages, by name.
class PageGroups {
 public:
  /// Makes the group box of that name, unless it is there.
  void add(std::string_view name) {
    if (!find(name)) groups_.emplace_back(std::string(name)).setVisible(false);
  }
  /// The group box of that name; nothing when there is none.
  controls::GroupBox* find(std::string_view name) {
    for (controls::GroupBox& group : groups_) {
      if (group.isNamed(name)) return &group;
    }
    return nullptr;
  }
  /// The group box of that name, which must be there.
  controls::GroupBox& operator[](std::string_view name) {
    if (auto* group = find(name)) return *group;
    throw RuntimeError::internalError("no page in a group " + std::string(name));
  }
  /// All of them in the order in which they were made.
  std::deque<controls::GroupBox>& all() { return groups_; }

 private:
  std::deque<controls::GroupBox> groups_;
};

}  // namespace kebu::forms
