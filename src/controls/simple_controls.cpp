#include "controls/simple_controls.h"

#include <algorithm>

#include "controls/control_host.h"

namespace kebu::controls {

void Label::translate(const Translator& translator) {
  Control::translate(translator);
  unknownText_ = translator(unknownText_);
}

std::string_view keyOf(const Button& button) {
  if (button.isDefault()) return "F10";
  return button.isCancel() ? std::string_view("Esc") : button.key();
}

void GroupBox::add(Control& child) {
  child.setContainer(*this);
  children_.push_back(&child);
  ChildAdded.raise(child);
}

Control* GroupBox::find(std::string_view name) {
  if (isNamed(name)) return this;
  for (Control* child : children()) {
    if (Control* const found = child->find(name)) return found;
  }
  return nullptr;
}

void Button::click() {
  const Gesture gesture(gestureHost());
  requireChangesAccepted();
  ButtonClick.raise();
}

void ProgressBar::start() {
  running_ = true;
  maximum_ = 0;
  setVisible(true);
  changed.raise();
}

void ProgressBar::setMaximum(std::int32_t maximum) {
  maximum_ = maximum;
  position_ = 0;
  timeLeft_ = TimeLeft();
  changed.raise();
}

bool ProgressBar::setPosition(std::int32_t position) {
  const auto before = percent();
  position_ = std::clamp(position, 0, maximum_);
  if (percent() == before) return false;
  changed.raise();
  return true;
}

std::optional<std::int32_t> ProgressBar::percent() const {
  if (maximum_ <= 0) return std::nullopt;
  return static_cast<std::int32_t>(std::int64_t{100} * position_ / maximum_);
}

std::string ProgressBar::detail() const {
  const Progress progress{position_, maximum_};
  if (!running_ || maximum_ <= 0) return "";
  return progressText(progress, timeLeft_.estimate(progress), translator_);
}

void ProgressBar::setInterruptible(bool interruptible) {
  if (interruptible) interrupted_ = false;
  setShown(interruptible_, interruptible);
}

void ProgressBar::interrupt() {
  if (!interruptible_) throw GestureRefused("what " + Name() + " shows cannot be interrupted");
  interrupted_ = true;
}

void ProgressBar::translate(const Translator& translator) {
  Control::translate(translator);
  interruptCaption_ = translator(interruptCaption_);
  translator_ = translator;
}

void ProgressBar::stop() {
  running_ = false;
  if (!keepsText_) text_.clear();
  setVisible(false);
  changed.raise();
}

void SideBar::addLink(std::int32_t view, const std::string& text) {
  links_.push_back({view, text, false});
  changed.raise();
}

void SideBar::select(std::int32_t view) {
  if (const Link* link = linkTo(view)) selected_ = static_cast<std::size_t>(link - links_.data());
  changed.raise();
}

void SideBar::mark(std::int32_t view, bool marked) {
  const Link* const link = linkTo(view);
  if (!link || link->marked == marked) return;
  links_[static_cast<std::size_t>(link - links_.data())].marked = marked;
  changed.raise();
}

std::string SideBar::textOf(std::int32_t view) const {
  const Link* const link = linkTo(view);
  return link ? link->text : "";
}

void SideBar::translate(const Translator& translator) {
  Control::translate(translator);
  for (Link& link : links_) link.text = translator(link.text);
  changed.raise();
}

void SideBar::click(std::int32_t view) {
  requireReachable();
  const Link* link = linkTo(view);
  if (!link) throw GestureRefused(Name() + " has no link to view " + std::to_string(view));
  OnClickItemLink.raise(*link);
}

const SideBar::Link* SideBar::linkTo(std::int32_t view) const {
  const auto at = std::ranges::find(links_, view, &Link::view);
  return at == links_.end() ? nullptr : &*at;
}

void ResizeManager::layOut() {
  if (registrations_.empty()) Setup.raise(*this);
  changed.raise();
}

}  // namespace kebu::controls
