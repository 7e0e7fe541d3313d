#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "common/convert.h"
#include "common/event.h"
#include "controls/control_kind.h"
#include "host/named_object.h"

namespace kebu::controls {

class ControlHost;

/// A gesture that a person could not have made: on a control that is disabled
/// or out of sight, or on something that is not there.
class GestureRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// In pixels at 96 to the inch.
struct Size {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

using Translator = std::function<std::string(const std::string&)>;

/// The state that every control has. Controls are models: they hold what is
/// shown, obey gestures and raise events; views draw them.
class Control : public host::NamedObject {
 public:
  explicit Control(std::string name, std::string caption = {});
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// The class of the control, for visit() and as().
  virtual ControlKind kind() const = 0;

  std::string Name() const override { return name_; }
  void setName(const std::string& name) override { name_ = name; }
  /// Whether that is its name, case aside.
  bool isNamed(std::string_view name) const { return equalsIgnoringCase(name_, name); }

  const std::string& caption() const { return caption_; }
  void setCaption(const std::string& caption) { setShown(caption_, caption); }
  /// The name by which assistive technology knows a control without a caption; "" for none.
  const std::string& spokenName() const { return spokenName_; }
  void setSpokenName(const std::string& name) { spokenName_ = name; }
  bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled) {
    if (enabled_ != enabled) setShown(enabled_, enabled);
  }
  bool isVisible() const { return visible_; }
  void setVisible(bool visible) {
    if (visible_ != visible) setShown(visible_, visible);
  }
  /// Of a page: whether another one stands in front of it. It looks the same itself, so that
  /// `changed` is not raised.
  void setCovered(bool covered) { covered_ = covered; }

  /// While it is locked, it and what it contains show what they hold, which can be
  /// copied, but refuse to be changed.
  void setLocked(bool locked) {
    if (locked_ != locked) setShown(locked_, locked);
  }
  /// Whether neither it nor one of its containers is locked.
  bool acceptsChanges() const { return !locked_ && (!container_ || container_->acceptsChanges()); }

  const Size& size() const { return size_; }
  void setSize(const Size& size) { size_ = size; }

  /// The group that contains the control, null for none. While the group is hidden
  /// or disabled, so is the control.
  Control* container() const { return container_; }
  void setContainer(Control& container) { container_ = &container; }
  /// Where gestures on the control and on what it contains are carried out; null for nowhere.
  ControlHost* gestureHost() const;
  void setGestureHost(ControlHost& host) { gestureHost_ = &host; }
  /// Whether a person can use it: isShown() and looksEnabled(), and not isCovered().
  bool isReachable() const { return isShown() && looksEnabled() && !isCovered(); }
  /// Whether it and all its containers are visible.
  bool isShown() const { return visible_ && (!container_ || container_->isShown()); }
  /// Whether another page stands in front of the one that it is on.
  bool isCovered() const { return covered_ || (container_ && container_->isCovered()); }
  /// Whether it and all its containers are enabled, visible or not.
  bool looksEnabled() const { return enabled_ && (!container_ || container_->looksEnabled()); }

  /// The control of that name, case aside: this one or one inside it; null when there is none.
  virtual Control* find(std::string_view name) { return isNamed(name) ? this : nullptr; }

  /// Replaces every text shown by its translation.
  virtual void translate(const Translator& translator);

  /// What is shown has changed; views draw again.
  Event<> changed;

 protected:
  /// Sets a part of what is shown, and has views draw again.
  template <class Part>
  void setShown(Part& part, const Part& value) {
    part = value;
    changed.raise();
  }
  /// Every gesture begins with it: raises GestureRefused when no person could act here.
  void requireReachable() const;
  /// So does every gesture that changes what the control holds.
  void requireChangesAccepted() const;

 private:
  std::string name_;
  std::string caption_;
  std::string spokenName_;
  bool enabled_ = true;
  bool visible_ = true;
  bool covered_ = false;
  bool locked_ = false;
  Size size_;
  Control* container_ = nullptr;
  ControlHost* gestureHost_ = nullptr;
};

/// The base of a class of controls that is a kind of its own.
template <ControlKind own, class Base = Control>
class OfKind : public Base {
 public:
  using Base::Base;

  static bool includes(ControlKind kind) { return kind == own; }
  ControlKind kind() const override { return own; }
};

}  // namespace kebu::controls
