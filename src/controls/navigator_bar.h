#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/record_frame.h"
#include "controls/rights.h"

namespace kebu::controls {

/// The bar of record buttons. Bound to a frame it calls the frame's actions and
/// enables those that the frame's state and the user's rights allow. Unbound it
/// enables "Conferma" and "Annulla" while its page says that it is modified.
class NavigatorBar : public OfKind<ControlKind::NavigatorBar> {
 public:
  struct Button {
    std::string key;  ///< the Italian caption, by which handlers know it
    std::string caption;
    bool enabled = false;
    bool offered = false;  ///< whether it would be enabled if the user had all rights
  };

  NavigatorBar(std::string name, ControlHost& host, const std::vector<std::string>& keys);

  void bind(RecordFrame& frame);
  void unbind() { frame_ = nullptr; }
  void setRights(const Rights& rights);
  /// Whether the page of an unbound bar has changes that are not stored.
  void setModified(bool modified);

  const std::vector<Button>& buttons() const { return buttons_; }
  bool isButtonEnabled(const std::string& key) const;
  /// Enables only what the user's rights allow. An unknown key is ignored.
  void setButtonEnabled(const std::string& key, bool enabled);
  /// Enables what the bound frame's state allows now.
  void refreshButtons();
  /// Whether the buttons follow the frame's state. A page for which the bar does
  /// something else switches this off and sets the buttons itself.
  void setFollowsFrame(bool follows);
  void translate(const Translator& translator) override;

  /// The gesture, by key or by the caption shown.
  void press(const std::string& name);
  /// A button was pressed, by its key; a handler that sets the flag keeps the bar
  /// from calling the frame.
  Event<bool&, const std::string&> ButtonClick;

  /// Whether the user can be shown what "Conferma" would change.
  bool showsChanges() const { return ChangesAsked.hasHandlers(); }
  /// What the button for it is called.
  const std::string& changesCaption() const { return changesCaption_; }
  /// The gesture that asks for it; refused while "Conferma" is disabled.
  void askChanges();
  Event<> ChangesAsked;

 private:
  Button* buttonOf(const std::string& name);
  bool permits(const std::string& key) const;
  void act(const std::string& key);

  ControlHost& host_;
  RecordFrame* frame_ = nullptr;
  Rights rights_;
  bool followsFrame_ = true;
  std::vector<Button> buttons_;
  std::string changesCaption_ = changesName;

  static constexpr const char* changesName = "Che cosa cambia con Conferma";
};

/// The function key that presses a button of a bar, by the button's key: "F10". "" for none.
std::string_view functionKeyOf(std::string_view button);

/// Whose changes the bar can show.
inline constexpr const char* confirmButton = "Conferma";

}  // namespace kebu::controls
