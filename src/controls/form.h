#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/ref.h"
#include "controls/control.h"
#include "controls/desktop.h"
#include "controls/record_frame.h"
#include "controls/simple_controls.h"

namespace kebu::controls {

/// A window: its controls, its place in pixels, and its life from load to unload.
class Form : public OfKind<ControlKind::Form>, public std::enable_shared_from_this<Form> {
 public:
  Form(std::string name, Desktop& desktop);
  ~Form() override;

  std::int32_t left() const { return left_; }
  std::int32_t top() const { return top_; }
  void moveTo(std::int32_t left, std::int32_t top);
  bool isLoaded() const { return loaded_; }

  /// All controls of the window, those in groups too, in tab order.
  std::vector<Control*> controls() const;
  Control* find(std::string_view name) override;
  /// The pages, of which one is seen; none in a dialog.
  const std::vector<GroupBox*>& pages() const { return pages_; }
  /// The page that is seen: of those that are visible the one that appeared last. Null for none.
  GroupBox* pageInFront() const { return visiblePages_.empty() ? nullptr : visiblePages_.back(); }
  /// The controls that edit a column.
  std::vector<BoundControl*> boundControls() const;
  void translate(const Translator& translator) override;
  /// A text of a view's own in the user's language.
  std::string translated(std::string_view text) const;

  /// The screen that it is shown on.
  Desktop& desktop() const { return desktop_; }

  /// The visible button that Enter and F10 click; null when there is none.
  Button* defaultButton() const;
  /// The visible button that a key of its own clicks; null when there is none.
  Button* buttonOfKey(std::string_view key) const;

  /// Loads the window when it is not yet loaded, shows and activates it. When
  /// `modal`, returns after it is closed.
  void Show(bool modal);
  /// Moves the focus to a control of the page that is shown.
  void focusOn(Control& control);
  /// The control that was asked for last; null when none was.
  const Control* focusWanted() const { return focusWanted_; }
  Event<Control&> FocusWanted;
  /// The gesture: reads again what the page shows, where a page can.
  virtual void refreshPage() {}
  /// The page of the user guide that explains what is shown.
  virtual std::string guidePage() const { return "index"; }
  /// The gesture: shows the table of keys in a list that can be searched.
  void showKeys();
  /// The window came to the front.
  void activate() { Form_Activate(); }
  /// Closes the window unless Form_QueryUnload cancels; whether it is closed.
  bool Unload();
  /// Closes the window without asking: it is gone already, with the host's window that owned it.
  void End();

 protected:
  /// Adds the control; a group with all that it contains, now and later.
  void add(Control& control);
  template <class... Controls>
  void addAll(Controls&... all) {
    (add(all), ...);
  }
  /// Adds a group that is a page. Of pages that are visible from the beginning the first one is in
  /// front.
  void addPage(GroupBox& page);
  /// Takes a window that was not closed off the screen. To be called at the start of the destructor
  /// of a class that owns controls: what is on the screen uses them until then.
  void leaveScreen() noexcept;

  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_QueryUnload(bool& cancel) { static_cast<void>(cancel); }
  virtual void Form_Unload() {}

 private:
  void finishUnload();
  /// Raises `changed` when a control is added to the group or to one inside it.
  void listenTo(Control& control);
  /// Takes a page that appeared to the front, and one that disappeared from there.
  void stackPage(GroupBox& page);
  void coverPages();

  Desktop& desktop_;
  std::vector<Control*> outermost_;
  std::vector<GroupBox*> pages_;
  std::vector<GroupBox*> visiblePages_;  ///< from the back to the front
  Translator translator_;
  std::int32_t left_ = 0;
  std::int32_t top_ = 0;
  bool loaded_ = false;
  Control* focusWanted_ = nullptr;
};

}  // namespace kebu::controls
