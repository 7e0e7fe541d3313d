#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "controls/control.h"

namespace kebu::controls {

class Label : public Control {
 public:
  using Control::Control;

  static bool includes(ControlKind kind) { return kind == ControlKind::Label; }
  ControlKind kind() const override { return ControlKind::Label; }

  /// A text that is not to be overlooked.
  bool isWarning() const { return warning_; }
  void setWarning(bool warning) { warning_ = warning; }

 private:
  bool warning_ = false;
};

class TitleBar : public Control {
 public:
  using Control::Control;

  static bool includes(ControlKind kind) { return kind == ControlKind::TitleBar; }
  ControlKind kind() const override { return ControlKind::TitleBar; }
};

class GroupBox : public Control {
 public:
  using Control::Control;

  static bool includes(ControlKind kind) {
    return kind == ControlKind::GroupBox || kind == ControlKind::QueryEditor;
  }
  ControlKind kind() const override { return ControlKind::GroupBox; }
  Control* find(std::string_view name) override;

  /// Puts `child` into this group, after those that are there.
  void add(Control& child);
  template <class... Controls>
  void addAll(Controls&... all) {
    (add(all), ...);
  }
  /// The controls of the group, in the order in which they were added.
  const std::vector<Control*>& children() const { return children_; }
  /// A control came into the group.
  Event<Control&> ChildAdded;

 private:
  std::vector<Control*> children_;
};

class Button : public Control {
 public:
  using Control::Control;

  static bool includes(ControlKind kind) { return kind == ControlKind::Button; }
  ControlKind kind() const override { return ControlKind::Button; }

  void click();
  Event<> ButtonClick;
};

/// A bar with a text that moves while something long is at work, or shows how
/// much of it is done when that can be counted.
class ProgressBar : public Control {
 public:
  explicit ProgressBar(std::string name);

  static bool includes(ControlKind kind) { return kind == ControlKind::ProgressBar; }
  ControlKind kind() const override { return ControlKind::ProgressBar; }

  bool isAnimated() const { return animated_; }
  void setAnimated(bool animated);
  const std::string& text() const { return text_; }
  void setText(const std::string& text);
  /// Whether the text stays when the bar stops; off for this system's bar.
  bool keepsText() const { return keepsText_; }
  void setKeepsText(bool keeps) { keepsText_ = keeps; }
  void moveTo(std::int32_t left, std::int32_t top);
  std::int32_t left() const { return left_; }
  std::int32_t top() const { return top_; }
  void bringToFront() { changed.raise(); }
  bool isRunning() const { return running_; }
  /// Begins; how much is to be done is not known yet.
  void start();
  /// From 0 on, `maximum` things are to be done.
  void setMaximum(std::int32_t maximum);
  /// How many are done; true when the bar looks different from before.
  bool setPosition(std::int32_t position);
  /// 0 to 100; nothing while it is not known how much is to be done.
  std::optional<std::int32_t> percent() const;
  void stop();

 private:
  bool animated_ = false;
  bool keepsText_ = true;
  bool running_ = false;
  std::int32_t maximum_ = 0;
  std::int32_t position_ = 0;
  std::string text_;
  std::int32_t left_ = 0;
  std::int32_t top_ = 0;
};

/// The window's bar of text panels, counted from 1.
class StatusBar : public Control {
 public:
  StatusBar(std::string name, std::size_t panels);

  static bool includes(ControlKind kind) { return kind == ControlKind::StatusBar; }
  ControlKind kind() const override { return ControlKind::StatusBar; }

  const std::vector<std::string>& panels() const { return panels_; }
  void setPanelText(std::size_t panel, const std::string& text);
  bool isAnimated() const { return animated_; }
  void setAnimated(bool animated);

 private:
  std::vector<std::string> panels_;
  bool animated_ = false;
};

/// Links to the pages, by view number.
class SideBar : public Control {
 public:
  struct Link {
    std::int32_t view = 0;
    std::string text;
  };

  using Control::Control;

  static bool includes(ControlKind kind) { return kind == ControlKind::SideBar; }
  ControlKind kind() const override { return ControlKind::SideBar; }

  void addLink(std::int32_t view, const std::string& text);
  const std::vector<Link>& links() const { return links_; }
  /// The link shown as chosen; nothing before the first.
  const Link* selected() const;
  void selectFirst();
  /// Shows the link of `view` as chosen, without an event.
  void select(std::int32_t view);
  void translate(const Translator& translator) override;

  /// The gesture; GestureRefused when there is no link of that view.
  void click(std::int32_t view);
  Event<const Link&> OnClickItemLink;

 private:
  const Link* linkTo(std::int32_t view) const;

  std::vector<Link> links_;
  std::size_t selected_ = static_cast<std::size_t>(-1);
};

/// Controls that follow the window's size, in the order of registration.
class ResizeManager : public Control {
 public:
  struct Registration {
    std::string control;
    std::int32_t rule = 0;
  };

  using Control::Control;

  static bool includes(ControlKind kind) { return kind == ControlKind::ResizeManager; }
  ControlKind kind() const override { return ControlKind::ResizeManager; }

  void registerControl(const std::string& control, std::int32_t rule);
  const std::vector<Registration>& registrations() const { return registrations_; }
  /// Asks once for the registrations and lets views lay the window out.
  void layOut();
  Event<ResizeManager&> Setup;

 private:
  std::vector<Registration> registrations_;
};

}  // namespace kebu::controls
