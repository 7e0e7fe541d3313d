#pragma once

#include <functional>

namespace kebu::controls {

class Form;
class LookupList;

/// Where windows appear: the real screen, or a scenario player that acts as the
/// user.
class Desktop {
 public:
  virtual ~Desktop() = default;

  /// Brings the window onto the screen and sets it up. A window that is new there is seen when it
  /// is set up, or when that takes long.
  virtual void show(Form& form, const std::function<void()>& setUp) = 0;
  /// Lets the user work in `form`; returns when it is closed.
  virtual void runModal(Form& form) = 0;
  /// Takes the window off the screen.
  virtual void hide(Form& form) = 0;
  /// Lets the user choose a row of `list`; returns when one is chosen or the list is left.
  virtual void runLookup(LookupList& list) = 0;
  /// Draws what changed, in the middle of long work.
  virtual void repaint() = 0;
  /// From here to the matching endWork() the window works: it shows that it is busy, and what the
  /// user enters meanwhile is discarded. Works may be nested.
  virtual void beginWork() {}
  virtual void endWork() {}
};

/// While it lives, the windows of a desktop work.
class Work {
 public:
  explicit Work(Desktop& desktop) : desktop_(desktop) { desktop_.beginWork(); }
  ~Work() { desktop_.endWork(); }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;

 private:
  Desktop& desktop_;
};

}  // namespace kebu::controls
