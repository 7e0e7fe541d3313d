#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "controls/combo_box.h"
#include "forms/page_context.h"

namespace kebu::forms {

/// What a combo offers: its rows in order and the code chosen at first.
struct FixedChoice {
  struct Row {
    std::int32_t code;
    std::string_view caption;
  };
  std::span<const Row> rows;
  std::int32_t initial;
  bool showsCodes;
};

/// A combo and what it is filled with.
struct FixedChoiceCombo {
  controls::ComboBox& combo;
  const FixedChoice& choice;
};

/// Puts the rows into the combo, in the user's language, and chooses the first code.
void fill(const FixedChoiceCombo& filled, const PageContext& context);

}  // namespace kebu::forms
