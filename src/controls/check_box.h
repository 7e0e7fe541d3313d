#pragma once

#include "controls/record_frame.h"

namespace kebu::controls {

/// A flag, stored as 1 or 0.
class CheckBox : public OfKind<ControlKind::CheckBox, BoundControl> {
 public:
  using OfKind::OfKind;

  bool isTicked() const { return ticked_; }
  /// Sets it from the program: raises Click when it differs, but not AfterChange.
  void setTicked(bool ticked);
  Value value() const override { return static_cast<std::int16_t>(ticked_ ? 1 : 0); }
  void show(const Value& stored) override;

  /// The gesture.
  void tick(bool on);
  /// It was ticked or cleared, by the user or by the program.
  Event<> Click;
  /// The user changed it.
  Event<> AfterChange;

 private:
  bool ticked_ = false;
};

}  // namespace kebu::controls
