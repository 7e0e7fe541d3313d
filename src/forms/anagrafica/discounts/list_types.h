#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "controls/query_grid.h"

namespace kebu::forms {

/// The two modes of discount rules.
inline constexpr const char* discountsOnPrice = "Sconti su prezzo";
inline constexpr const char* discountGrids = "Griglie di sconto";

/// What the user sees of a list type of discount rules. What its two kinds are computed from and
/// what is stored of them is in sql/discount_kinds.
struct DiscountListType {
  std::int32_t number;  ///< GM61_INDTIPOLISTINO; 0 while none is chosen
  std::string_view caption;
  /// The grid's columns by which rules are recognised; one without a caption ends them.
  std::array<controls::GridColumn, 3> columns = {};
};

/// Stands for the article's column, which each mode has under a name of its own.
inline constexpr std::string_view articleOfMode = "{article}";

inline constexpr controls::GridColumn customerCode{
    .field = "GM61_CODCLIENTE", .caption = "Cliente", .width = 1000};
inline constexpr controls::GridColumn priceListData{
    .field = "GM61_DESC1", .caption = "Dati listino", .width = 1650};

inline constexpr DiscountListType discountListTypes[] = {
    {.number = 0, .caption = "Selezionare una tipologia"},
    {.number = 1,
     .caption = "Sconto associato ad un articolo e ad un cliente(tariffa speciale)",
     .columns = {customerCode, {.field = articleOfMode, .caption = "Articolo", .width = 2400}}},
    {.number = 2,
     .caption = "Sconto associato alle tariffe degli articoli",
     .columns = {priceListData,
                 {.field = "GM61_DESC2", .caption = "Altri dati listino", .width = 2500}}},
    {.number = 3,
     .caption = "Sconto associato ad una famiglia di articolo e ad un cliente",
     .columns = {customerCode,
                 {.field = "GM61_DESC1", .caption = "Cliente", .width = 1000},
                 {.field = "GM61_DESC2", .caption = "Codice parlante", .width = 2300}}},
    {.number = 4,
     .caption =
         "Sconto sugli articoli, categorie di articoli, marche o coppie categorie di art./marche",
     .columns = {priceListData,
                 {.field = "GM61_DESC2", .caption = "Altri dati listino", .width = 1600}}},
};

}  // namespace kebu::forms
