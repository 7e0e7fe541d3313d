#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "windows/views/window/inspection.h"

namespace kebu::windows {

/// A control or one of its parts, as an Inspection asks for it.
struct PartId {
  Inspected part = Inspected::Control;
  std::int32_t row = 0;    ///< from 1; 0 stands for the heads of a grid
  std::int32_t index = 0;  ///< of a column or an item, from 0

  bool operator==(const PartId&) const = default;
};

/// What describes itself and its parts. Tests and assistive technology get the same answers: tests
/// by the message of an Inspection, assistive technology by AccessibleObject.
class Describable {
 public:
  Describable() = default;
  Describable(const Describable&) = delete;
  Describable& operator=(const Describable&) = delete;
  virtual ~Describable() = default;

  /// Fills in the answer; false when there is no such part.
  virtual bool inspect(Inspection& inspection) = 0;
  /// The window that it is drawn in.
  virtual HWND describedWindow() const = 0;
  /// Whether the window shows nothing else.
  virtual bool hasOwnWindow() const { return true; }
  /// The group of controls around it; null when the parent is that of its window.
  virtual Describable* groupAround() { return nullptr; }
  /// The controls of a group that are shown, in order.
  virtual std::vector<Describable*> members() { return {}; }
  /// The part at a point of the window's client area.
  virtual PartId partAt(POINT /*point*/) { return {}; }
  /// Makes a row, cell or item the current one; false when it cannot be.
  virtual bool goToPart(const PartId& /*part*/) { return false; }
  /// A text of the description's own in the user's language.
  virtual std::string translated(std::string_view text) const = 0;

  /// For objects that may outlive it.
  std::weak_ptr<Describable> weak() {
    if (!self_) self_ = std::shared_ptr<Describable>(this, [](Describable*) {});
    return self_;
  }

 private:
  std::shared_ptr<Describable> self_;  ///< owns nothing
};

}  // namespace kebu::windows
