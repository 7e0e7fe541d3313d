#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/categories/category_kinds.h"
#include "forms/anagrafica/categories/classification_catalogue.h"
#include "forms/page_context.h"

namespace kebu::forms {

/// The category levels of customers or of articles: a line of a classification,
/// its additional code and a description for each.
class CategoryLevels {
 public:
  struct Level {
    /// `index` from 0.
    Level(const CategoryKind& kind, int index);

    controls::ComboBox classification;
    controls::EditBox code;
    controls::EditBox description;
  };

  /// `modified` is called when the user changed a level.
  CategoryLevels(const CategoryKind& kind, PageContext& context, ClassificationCatalogue& catalogue,
                 std::function<void()> modified);

  const CategoryKind& kind() const { return kind_; }
  std::deque<Level>& levels() { return levels_; }
  const std::deque<Level>& levels() const { return levels_; }
  void place(controls::GroupBox& group);

  /// Empties every level.
  void clear();

  /// The classification chosen; 0 for none.
  static std::int32_t chosen(const Level& level);

  /// What is stored of a level, or would be; nothing for a level that is not used.
  struct Content {
    std::string classification;
    std::string code;
    std::string description;
    bool operator==(const Content&) const = default;
  };
  static std::optional<Content> contentOf(const Level& level);
  /// Shows what is stored of a level, from 1. A level that the page does not have is skipped.
  void show(std::int32_t level, const Content& content);

 private:
  void handleEvents(Level& level);
  void AfterItem(Level& level);
  void ChangeRow(Level& level);
  void TXT_COD_ART_AZ_LostFocus(Level& level);
  /// Whether the level can store the text; tells the user when it cannot.
  bool confirmText(const Level& level, const std::string& text);
  void lookUpCode(Level& level);
  host::LookupDefinition configuratorVariants() const;
  std::string comboEvent(const char* name) const { return std::string(kind_.combos) + name; }

  const CategoryKind& kind_;
  PageContext& context_;
  ClassificationCatalogue& catalogue_;
  std::function<void()> modified_;
  std::deque<Level> levels_;
  /// The texts when a combo, or a code box, received the focus.
  std::string classificationBefore_;
  std::string captionBefore_;  ///< of the combo's entry
  std::string codeBefore_;
};

}  // namespace kebu::forms
