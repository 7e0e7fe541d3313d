#pragma once

#include <cstdint>
#include <string_view>

#include "forms/anagrafica/preview/preview_page.h"

namespace kebu::forms {

/// The window's pages: the side bar's link, and the group and navigator bar
/// that are shown for the view.
struct View {
  std::int32_t number;
  std::string_view link;
  std::string_view group;
  std::string_view navigatorBar;  ///< "" for none
  PreviewKind preview = PreviewKind::None;
};

inline constexpr View views[] = {
    {1, "Parametri", "GRPMAIN_PAR", "INAV_PAR"},
    {2, "Listini", "GRPMAIN_LISTINI", "INAV_PAR"},
    {3, "Depositi", "GRPMAIN_GIACENZE", "INAV_PAR"},
    {6, "Categorie clienti", "GRPMAIN_CATCLIENTI", "INAV_CATCLIART"},
    {7, "Categorie articoli", "GRPMAIN_CATART", "INAV_CATCLIART"},
    {8, "Anteprima articoli", "GRPMAIN_RIEPART", "", PreviewKind::Articles},
    {9, "Anteprima clienti", "GRPMAIN_RIEPART", "", PreviewKind::Customers},
    {10, "Filtro clienti", "GRPMAIN_FILTROCLI", "INAV_PAR"},
    {11, "Filtro articoli", "GRPMAIN_FILTROART", "INAV_PAR"},
    {12, "Sconti", "GRPMAIN_SCONTI", "INAV_PAR"},
};

/// What is hidden before another page is shown, in this order. The discount
/// page is left out on purpose.
inline constexpr std::string_view hiddenWithEveryView[] = {
    "GRPMAIN_PAR",       "GRPMAIN_CATCLIENTI", "GRPMAIN_CATART", "GRPMAIN_LISTINI",
    "GRPMAIN_GIACENZE",  "INAV_PAR",           "INAV_CATCLIART", "GRPMAIN_RIEPART",
    "GRPMAIN_FILTROCLI", "GRPMAIN_FILTROART",
};

/// The rule under which every page's group is registered with the resize manager.
inline constexpr std::int32_t groupResizeRule = 15;

/// How a control follows the window's size.
struct ResizeRule {
  std::string_view control;
  std::int32_t rule;  ///< sides kept: 1 left, 2 top, 4 right, 8 bottom
};

/// Told to the resize manager after the groups, in this order; a control that
/// the window does not have is passed over.
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
