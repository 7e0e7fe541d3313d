#pragma once

#include <functional>

#include "controls/desktop.h"

namespace kebu::controls {

/// A screen on which nothing is seen and nobody works.
class NoDesktop : public Desktop {
 public:
  void show(Form& /*form*/, const std::function<void()>& setUp) override { setUp(); }
  void runModal(Form& /*form*/) override {}
  void hide(Form& /*form*/) override {}
  void runLookup(LookupList& /*list*/) override {}
  void repaint() override {}
};

}  // namespace kebu::controls
