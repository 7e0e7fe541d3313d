#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kebu::forms {

/// A classification that is offered besides the catalogue's.
struct FixedClassification {
  std::int16_t code;
  std::string_view caption;
};

inline constexpr FixedClassification fixedArticleClassifications[] = {
    {253, "Famiglia\\Sottofamiglia"},
    {254, "Gruppo\\Sottogruppo"},
    {255, "Codice parlante"},
};

/// What differs between the category pages of customers and of articles.
struct CategoryKind {
  int entity;  ///< as the tables number it
  int levels;
  std::string_view combos;  ///< the names of the three control arrays
  std::string_view codes;
  std::string_view descriptions;
  bool choiceClearsBoxes;  ///< before anything else that it does
  std::span<const FixedClassification> fixed;
};

inline constexpr CategoryKind customerCategories{
    .entity = 1,
    .levels = 4,
    .combos = "CBO_CLI_AZ",
    .codes = "TXT_COD_CLI_AZ",
    .descriptions = "TXT_DESC_CLI_AZ",
    .choiceClearsBoxes = false,
    .fixed = {},
};
inline constexpr CategoryKind articleCategories{
    .entity = 3,
    .levels = 3,
    .combos = "CBO_ART_AZ",
    .codes = "TXT_COD_ART_AZ",
    .descriptions = "TXT_DESC_ART_AZ",
    .choiceClearsBoxes = true,
    .fixed = fixedArticleClassifications,
};

/// What the additional code of an article classification names, and what the
/// company must have for the classification to be offered.
enum class AdditionalCode { None, ConfigurationVariant, ArticleDimension };

constexpr AdditionalCode additionalCodeOf(std::int32_t articleClassification) {
  switch (articleClassification) {
    case 11:
    case 12:
      return AdditionalCode::ConfigurationVariant;
    case 13:
    case 14:
      return AdditionalCode::ArticleDimension;
    default:
      return AdditionalCode::None;
  }
}

}  // namespace kebu::forms
