#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "common/setting_store.h"
#include "common/trap.h"

namespace kebu::controls {

/// What controls ask of the window that they stand in: to report errors, to put a message or
/// question to the user, and to be busy during a command.
class ControlHost : public ErrorReporter {
 public:
  /// `text` in Italian; style and answer use the message-box codes.
  virtual std::int32_t message(const std::string& text, std::int32_t style) = 0;
  /// Carries out a command of the user's, during which the window is busy.
  virtual void work(const std::function<void()>& command) { command(); }
  /// From here to the matching endGesture() runs what one gesture of the user's, or one call of the
  /// host's, has started. Gestures may be nested.
  virtual void beginGesture() {}
  virtual void endGesture() {}
  /// A part of a message in the user's language.
  virtual std::string translated(const std::string& text) { return text; }
  /// Whether the database keeps every character of a text in a column that is not Unicode.
  virtual bool keepsText(const std::string& /*text*/) { return true; }
  /// Where the user's arrangements are kept; null for nowhere.
  virtual SettingStore* settingStore() { return nullptr; }
};

/// While it lives, a gesture is carried out. Without a host it is nothing.
class Gesture {
 public:
  explicit Gesture(ControlHost* host) : host_(host) {
    if (host_) host_->beginGesture();
  }
  ~Gesture() {
    if (host_) host_->endGesture();
  }
  Gesture(const Gesture&) = delete;
  Gesture& operator=(const Gesture&) = delete;

 private:
  ControlHost* host_;
};

}  // namespace kebu::controls
