#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "controls/progress.h"

namespace kebu::controls {

class Label : public OfKind<ControlKind::Label> {
 public:
  using OfKind::OfKind;

  /// Whether views draw the text as a warning.
  bool isWarning() const { return warning_; }
  void setWarning(bool warning) { warning_ = warning; }
  /// Whether the code that it describes was not found. Views then show unknownText() while
  /// there is no caption.
  bool isUnknown() const { return unknown_; }
  void setUnknown(bool unknown) { setShown(unknown_, unknown); }
  const std::string& unknownText() const { return unknownText_; }
  void translate(const Translator& translator) override;

 private:
  bool warning_ = false;
  bool unknown_ = false;
  std::string unknownText_ = "Codice non trovato";
};

class TitleBar : public OfKind<ControlKind::TitleBar> {
 public:
  using OfKind::OfKind;
};

class GroupBox : public Control {
 public:
  using Control::Control;

  static bool includes(ControlKind kind) {
    return kind == ControlKind::GroupBox || kind == ControlKind::QueryEditor;
  }
  ControlKind kind() const override { return ControlKind::GroupBox; }
  Control* find(std::string_view name) override;

  /// Adds `child` behind the controls that the group has.
  void add(Control& child);
  template <class... Controls>
  void addAll(Controls&... all) {
    (add(all), ...);
  }
  /// The controls of the group, in the order in which they were added.
  const std::vector<Control*>& children() const { return children_; }
  /// A control was added to the group.
  Event<Control&> ChildAdded;

 private:
  std::vector<Control*> children_;
};

class Button : public OfKind<ControlKind::Button> {
 public:
  using OfKind::OfKind;

  /// Of a dialog: Enter and F10 click the default button, Esc the cancel button.
  bool isDefault() const { return default_; }
  void setDefault(bool isDefault) { default_ = isDefault; }
  bool isCancel() const { return cancel_; }
  void setCancel(bool isCancel) { cancel_ = isCancel; }
  /// Another key that clicks it while its window is in front: "F1" to "F12", or "Ctrl+" and a
  /// letter. "" for none.
  const std::string& key() const { return key_; }
  void setKey(const std::string& key) { key_ = key; }

  void click();
  Event<> ButtonClick;

 private:
  bool default_ = false;
  bool cancel_ = false;
  std::string key_;
};

/// The key that is shown on a button: "F10" on the default button, "Esc" on the cancel button, else
/// its own, or "".
std::string_view keyOf(const Button& button);

/// Shows that long work is running: a moving bar with a text, or the part that is
/// done when that can be counted.
class ProgressBar : public OfKind<ControlKind::ProgressBar> {
 public:
  explicit ProgressBar(std::string name) : OfKind(std::move(name)) { setVisible(false); }

  bool isAnimated() const { return animated_; }
  void setAnimated(bool animated) { setShown(animated_, animated); }
  const std::string& text() const { return text_; }
  void setText(const std::string& text) { setShown(text_, text); }
  /// How far the work is and how long it will still take, in words; "" while that is not known.
  std::string detail() const;
  void translate(const Translator& translator) override;
  /// Whether the text stays when the bar stops.
  void setKeepsText(bool keeps) { keepsText_ = keeps; }
  void moveTo(std::int32_t left, std::int32_t top) {
    left_ = left;
    setShown(top_, top);
  }
  std::int32_t left() const { return left_; }
  std::int32_t top() const { return top_; }
  void bringToFront() { changed.raise(); }
  bool isRunning() const { return running_; }
  /// Shows the bar; the amount of work is not known yet.
  void start();
  /// Sets the number of things to be done, and the position to 0.
  void setMaximum(std::int32_t maximum);
  /// Sets how many are done; true when percent() differs from before.
  bool setPosition(std::int32_t position);
  /// 0 to 100; nothing while the amount of work is not known.
  std::optional<std::int32_t> percent() const;
  /// Hides the bar.
  void stop();

  /// Whether the user may interrupt the work.
  bool isInterruptible() const { return interruptible_; }
  void setInterruptible(bool interruptible);
  /// What the button for it is called, with its key.
  const std::string& interruptCaption() const { return interruptCaption_; }
  /// The gesture; GestureRefused when the work is not to be interrupted.
  void interrupt();
  /// Whether the user has interrupted what is or was interruptible last.
  bool isInterrupted() const { return interrupted_; }

 private:
  bool animated_ = false;
  bool keepsText_ = true;
  bool running_ = false;
  bool interruptible_ = false;
  bool interrupted_ = false;
  std::string interruptCaption_ = "Interrompi (Esc)";
  std::int32_t maximum_ = 0;
  std::int32_t position_ = 0;
  TimeLeft timeLeft_;
  Translator translator_ = [](const std::string& text) { return text; };
  std::string text_;
  std::int32_t left_ = 0;
  std::int32_t top_ = 0;
};

/// The window's bar of text panels, counted from 1.
class StatusBar : public OfKind<ControlKind::StatusBar> {
 public:
  StatusBar(std::string name, std::size_t panels) : OfKind(std::move(name)), panels_(panels) {}

  const std::vector<std::string>& panels() const { return panels_; }
  void setPanelText(std::size_t panel, const std::string& text) {
    setShown(panels_.at(panel - 1), text);
  }
  bool isAnimated() const { return animated_; }
  void setAnimated(bool animated) { setShown(animated_, animated); }

 private:
  std::vector<std::string> panels_;
  bool animated_ = false;
};

/// Links to the pages, each with the number of its view.
class SideBar : public OfKind<ControlKind::SideBar> {
 public:
  struct Link {
    std::int32_t view = 0;
    std::string text;
    bool marked = false;  ///< there are changes on the page that are not saved
  };

  using OfKind::OfKind;

  void addLink(std::int32_t view, const std::string& text);
  const std::vector<Link>& links() const { return links_; }
  /// The link shown as chosen; null when none is.
  const Link* selected() const { return selected_ < links_.size() ? &links_[selected_] : nullptr; }
  void selectFirst() {
    if (!links_.empty()) select(links_.front().view);
  }
  /// Shows the link of `view` as chosen, without an event.
  void select(std::int32_t view);
  /// Marks the link of `view`, or removes the mark.
  void mark(std::int32_t view, bool marked);
  /// The text of the link of `view`; "" when there is none.
  std::string textOf(std::int32_t view) const;
  void translate(const Translator& translator) override;

  /// The gesture; GestureRefused when there is no link of that view.
  void click(std::int32_t view);
  Event<const Link&> OnClickItemLink;

 private:
  const Link* linkTo(std::int32_t view) const;

  std::vector<Link> links_;
  std::size_t selected_ = static_cast<std::size_t>(-1);
};

/// Knows which controls follow the window's size, in the order of registration.
class ResizeManager : public OfKind<ControlKind::ResizeManager> {
 public:
  /// `rule` adds up the sides that the control keeps its distance to: left 1,
  /// top 2, right 4, bottom 8.
  struct Registration {
    std::string control;
    std::int32_t rule = 0;
  };

  using OfKind::OfKind;

  void registerControl(const std::string& control, std::int32_t rule) {
    registrations_.push_back({control, rule});
  }
  const std::vector<Registration>& registrations() const { return registrations_; }
  /// Raises Setup when nothing is registered yet; views lay the window out.
  void layOut();
  Event<ResizeManager&> Setup;

 private:
  std::vector<Registration> registrations_;
};

}  // namespace kebu::controls
