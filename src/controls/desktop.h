#pragma once

namespace kebu::controls {

class Form;
class LookupList;

/// Where windows appear: the real screen, or a scenario player that acts as the
/// user.
class Desktop {
 public:
  virtual ~Desktop() = default;

  /// Brings the window onto the screen.
  virtual void show(Form& form) = 0;
  /// Lets the user work in `form`; returns when it is closed.
  virtual void runModal(Form& form) = 0;
  /// Takes the window off the screen.
  virtual void hide(Form& form) = 0;
  /// Lets the user choose a row of `list`; returns when one is chosen or the list is left.
  virtual void runLookup(LookupList& list) = 0;
  /// Draws what changed, in the middle of long work.
  virtual void repaint() = 0;
};

}  // namespace kebu::controls
