#pragma once

#include <cstdint>
#include <string>

#include "controls/record_frame.h"

namespace kebu::controls {

/// A box of text, bound to a column or on its own, with an optional decoded
/// description beside it and an optional look-up.
class EditBox : public OfKind<ControlKind::EditBox, BoundControl> {
 public:
  using OfKind::OfKind;

  const std::string& text() const { return text_; }
  /// Sets the text from the program: raises no event but StartDecode.
  void setText(const std::string& text);
  Value value() const override { return text_.empty() ? Value(Null{}) : Value(text_); }
  bool isMissing() const override { return required_ && text_.empty(); }
  void show(const Value& stored) override { setText(trimRight(toDisplay(stored))); }

  /// A box that is not editable shows its text and lets it be copied.
  bool isEditable() const { return editable_ && acceptsChanges(); }
  void setEditable(bool editable) { setShown(editable_, editable); }
  bool isRequired() const { return required_; }
  void setRequired(bool required) { setShown(required_, required); }
  bool isMasked() const { return masked_; }
  void setMasked(bool masked) { masked_ = masked; }
  /// In characters; 0 without limit.
  std::size_t maxLength() const { return maxLength_; }
  void setMaxLength(std::size_t length) { setShown(maxLength_, length); }
  /// Shown in the box while it is empty.
  const std::string& hint() const { return hint_; }
  void setHint(const std::string& hint) { setShown(hint_, hint); }
  /// The height of the box in lines of text.
  int lines() const { return lines_; }
  void setLines(int lines) { lines_ = lines; }
  /// The control that shows the description of the code in this box.
  void setDescription(Control& description) { description_ = &description; }
  const Control* description() const { return description_; }
  /// Whether the code was looked for and not found. A handler of StartDecode says so; it is
  /// shown beside the description, which stays empty.
  bool isUnknown() const { return unknown_; }
  void setUnknown(bool unknown);
  /// Raises StartDecode again: the description depends on more than the code, and
  /// that has changed.
  void decodeAgain();
  bool hasLookup() const { return StartLookup.hasHandlers(); }

  /// The gesture: enter the box, replace its text, leave it.
  void type(const std::string& text);
  /// The gesture: open the look-up.
  void lookup();
  /// Takes the code that a look-up chose, as if typed.
  void enter(const Value& code);

  Event<> GotFocus;
  Event<> LostFocus;
  /// The user's text is about to be taken; a handler may cancel it.
  Event<const std::string&, bool&> BeforeItem;
  /// The text was changed by the user and taken.
  Event<> AfterItem;
  /// A code, and the description to fill in (empty when there is none).
  Event<const std::string&, std::string&> StartDecode;
  /// The look-up is opened; the handler enters what was chosen.
  Event<EditBox&> StartLookup;

 private:
  void requireEditable() const;
  void decode();

  std::string text_;
  std::string decoded_;  ///< the text that the description belongs to
  bool editable_ = true;
  bool required_ = false;
  bool masked_ = false;
  std::size_t maxLength_ = 0;
  std::string hint_;
  int lines_ = 1;
  Control* description_ = nullptr;
  bool unknown_ = false;
};

}  // namespace kebu::controls
