#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "forms/anagrafica/discounts/discounts_page.h"
#include "forms/anagrafica/preview/preview_page.h"

namespace kebu::forms {

/// A page of the window: how it is chosen, and what is shown for it.
struct PageEntry {
  std::optional<std::int32_t> view = {};  ///< the number by which it is chosen, if it can be
  std::string_view link = {};             ///< in the side bar, where links stand by view number
  std::string_view group;                 ///< the group box that holds the page
  std::string_view bar = {};              ///< the navigator bar; "" for none
  PreviewKind preview = PreviewKind::None;
  bool staysShown = false;  ///< not hidden when another page is shown
};

/// In the order in which the groups are registered with the resize manager.
inline constexpr PageEntry pageTable[] = {
    {.view = 1, .link = "Parametri", .group = "GRPMAIN_PAR", .bar = "INAV_PAR"},
    {.view = 2, .link = "Listini", .group = "GRPMAIN_LISTINI", .bar = "INAV_PAR"},
    {.view = 3, .link = "Depositi", .group = "GRPMAIN_GIACENZE", .bar = "INAV_PAR"},
    {.group = "GRPMAIN_ATTIVITA"},
    {.view = 6,
     .link = "Categorie clienti",
     .group = "GRPMAIN_CATCLIENTI",
     .bar = "INAV_CATCLIART"},
    {.view = 7, .link = "Categorie articoli", .group = "GRPMAIN_CATART", .bar = "INAV_CATCLIART"},
    {.group = "GRPMAIN_CAMPI"},
    {.view = 8,
     .link = "Anteprima articoli",
     .group = "GRPMAIN_RIEPART",
     .preview = PreviewKind::Articles},
    {.view = 9,
     .link = "Anteprima clienti",
     .group = "GRPMAIN_RIEPART",
     .preview = PreviewKind::Customers},
    {.view = 11, .link = "Filtro articoli", .group = "GRPMAIN_FILTROART", .bar = "INAV_PAR"},
    // Not hidden with the others, on purpose.
    {.view = DiscountsPage::view,
     .link = "Sconti",
     .group = "GRPMAIN_SCONTI",
     .bar = "INAV_PAR",
     .staysShown = true},
    {.view = 10, .link = "Filtro clienti", .group = "GRPMAIN_FILTROCLI", .bar = "INAV_PAR"},
};

/// The rule under which every page's group is registered with the resize manager.
inline constexpr std::int32_t groupResizeRule = 15;

/// How a control follows the window's size.
struct ResizeRule {
  std::string_view control;
  std::int32_t rule;  ///< sides kept: 1 left, 2 top, 4 right, 8 bottom
};

/// Registered with the resize manager after the groups, in this order. A control
/// that the window does not have is skipped.
inline constexpr ResizeRule controlResizeRules[] = {
    {"ENHQUERY_ART", 15},
    {"ENHQUERY_CLI", 15},
    {"GRP_CATCLI", 7},
    {"GRP_PARCLI", 7},
    {"GRP_CATART", 7},
    {"GRP_IMPDOC", 7},
    {"GRP_COSTOART", 7},
    {"GRP_DEP", 15},
    {"GRP_LISTINI", 15},
    {"GRP_AGGLISTINI", 13},
    {"QGRID_ART", 15},
    {"QGRID_DEP", 15},
    {"QGRID_LISTINI", 15},
    {"QGRID_SCONTOSUPREZZO", 7},
    {"QGRID_SCONTOSUGRIGLIA", 15},
    {"GRB_GENERALESCONTI", 7},
    {"TITLEBAR", 7},
    {"BTN_AGGLISTINI", 9},
    {"CMD_AGGIORNA", 6},
    {"LBL_DATAULTAGG", 7},
};

}  // namespace kebu::forms
