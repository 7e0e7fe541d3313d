#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"

namespace kebu::controls {

/// Something that the user should know for as long as it is so.
struct Notice {
  std::string cause;                   ///< what it is about; one notice a cause
  std::string text;                    ///< as the user reads it
  std::string action = {};             ///< the caption of its button; "" for none
  std::function<void()> perform = {};  ///< what the button does
};

/// The window's notices, in the order in which their causes arose. Visible while
/// there are any. Its caption is the text of all of them.
class NoticeList : public OfKind<ControlKind::NoticeList> {
 public:
  explicit NoticeList(std::string name);

  const std::vector<Notice>& notices() const { return notices_; }
  bool has(std::string_view cause) const;
  /// A notice of the same cause is replaced and keeps its place.
  void show(Notice notice);
  /// The cause is gone.
  void remove(std::string_view cause);
  /// The texts are put into the user's language when they are shown.
  void translate(const Translator& /*translator*/) override {}

  /// The gesture: presses the button of the notice at `index`.
  void press(std::size_t index);

 private:
  void listChanged();

  std::vector<Notice> notices_;
};

}  // namespace kebu::controls
