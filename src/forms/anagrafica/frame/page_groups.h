#pragma once

#include <array>

#include "controls/simple_controls.h"

namespace kebu::forms {

/// The group boxes that hold the window's pages, one a page.
struct PageGroups {
  controls::GroupBox GRPMAIN_PAR{"GRPMAIN_PAR"};
  controls::GroupBox GRPMAIN_LISTINI{"GRPMAIN_LISTINI"};
  controls::GroupBox GRPMAIN_GIACENZE{"GRPMAIN_GIACENZE"};
  controls::GroupBox GRPMAIN_ATTIVITA{"GRPMAIN_ATTIVITA"};
  controls::GroupBox GRPMAIN_CATCLIENTI{"GRPMAIN_CATCLIENTI"};
  controls::GroupBox GRPMAIN_CATART{"GRPMAIN_CATART"};
  controls::GroupBox GRPMAIN_CAMPI{"GRPMAIN_CAMPI"};
  controls::GroupBox GRPMAIN_RIEPART{"GRPMAIN_RIEPART"};
  controls::GroupBox GRPMAIN_FILTROART{"GRPMAIN_FILTROART"};
  controls::GroupBox GRPMAIN_SCONTI{"GRPMAIN_SCONTI"};
  controls::GroupBox GRPMAIN_FILTROCLI{"GRPMAIN_FILTROCLI"};

  /// In the order in which the resize manager is told of them.
  std::array<controls::GroupBox*, 11> all{
      &GRPMAIN_PAR,        &GRPMAIN_LISTINI, &GRPMAIN_GIACENZE,  &GRPMAIN_ATTIVITA,
      &GRPMAIN_CATCLIENTI, &GRPMAIN_CATART,  &GRPMAIN_CAMPI,     &GRPMAIN_RIEPART,
      &GRPMAIN_FILTROART,  &GRPMAIN_SCONTI,  &GRPMAIN_FILTROCLI,
  };
};

}  // namespace kebu::forms
