#pragma once

#include <string>
#include <vector>

#include "tests/support/random.h"
#include "tests/walk/gesture_source.h"

namespace kebu::tests {

/// How a random user walks.
struct WalkKind {
  std::size_t gestures = 100;
  bool faults = false;  ///< statements fail, answers are lost, services and rights are missing
  int windows = 1;
};

/// A user who makes random gestures on whatever stands in the window in front.
class RandomUser : public GestureSource {
 public:
  RandomUser(std::uint64_t seed, const WalkKind& kind) : random_(seed), kind_(kind) {}

  std::optional<workbench::Words> next(const Moment& moment) override;
  msgbox::Answer answer(const workbench::ShownMessage& box) override;
  std::optional<std::int32_t> row(std::int32_t rows) override;

 private:
  workbench::Words beforeOpening();
  workbench::Words fault(const Moment& moment);
  workbench::Words onControl(controls::Form& form);
  workbench::Words atHost();
  std::string text();
  std::string number(std::size_t count);

  Random random_;
  WalkKind kind_;
  std::size_t made_ = 0;
  std::size_t boxes_ = 0;          ///< answered since the last gesture
  int preparations_ = 0;           ///< made before the window opens
  bool isModal_ = false;           ///< the windows that open from now on
  bool isServerAway_ = false;      ///< the database's
  std::vector<std::string> seen_;  ///< codes that the window showed
};

}  // namespace kebu::tests
