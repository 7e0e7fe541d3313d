#include "controls/notice_list.h"

#include <algorithm>

#include "controls/control_host.h"

namespace kebu::controls {

NoticeList::NoticeList(std::string name) : OfKind(std::move(name)) {
  setVisible(false);
}

bool NoticeList::has(std::string_view cause) const {
  return std::any_of(notices_.begin(), notices_.end(),
                     [&](const Notice& notice) { return notice.cause == cause; });
}

void NoticeList::show(Notice notice) {
  const auto at = std::find_if(notices_.begin(), notices_.end(),
                               [&](const Notice& old) { return old.cause == notice.cause; });
  if (at == notices_.end()) {
    notices_.push_back(std::move(notice));
  } else {
    const bool isSame = at->text == notice.text && at->action == notice.action;
    *at = std::move(notice);
    if (isSame) return;
  }
  listChanged();
}

void NoticeList::remove(std::string_view cause) {
  const auto removed =
      std::erase_if(notices_, [&](const Notice& notice) { return notice.cause == cause; });
  if (removed > 0) listChanged();
}

void NoticeList::listChanged() {
  std::string texts;
  for (const Notice& notice : notices_) texts += (texts.empty() ? "" : "\n") + notice.text;
  setVisible(!notices_.empty());
  setCaption(texts);
}

void NoticeList::press(std::size_t index) {
  const Gesture gesture(gestureHost());
  requireReachable();
  if (index >= notices_.size() || notices_[index].action.empty()) {
    throw GestureRefused(Name() + " has no such button");
  }
  // The action may remove the notice.
  const std::function<void()> perform = notices_[index].perform;
  if (perform) perform();
}

}  // namespace kebu::controls
