#pragma once

#include "controls/navigator_bar.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/categories/category_levels.h"
#include "forms/anagrafica/categories/classification_catalogue.h"
#include "forms/anagrafica/page.h"
#include "forms/anagrafica/profile/parameters/parameter_page.h"
#include "forms/page_context.h"
#include "forms/page_load.h"
#include "forms/procedure.h"

namespace kebu::forms {

/// Which classifications are published as the platform's categories: four
/// levels for customers, three for articles. They have a navigator bar of their own.
class CategoriesPage : public Page {
 public:
  CategoriesPage(PageContext& context, controls::NavigatorBar& navigator,
                 ParameterPage& parameters);

  controls::GroupBox GRP_CATART{"GRP_CATART", "Categorie articoli"};
  controls::GroupBox GRP_CATCLI{"GRP_CATCLI", "Categorie clienti"};
  controls::GroupBox GRP_PARCLI{"GRP_PARCLI", "Parametri clienti"};

  void place(PageGroups& groups) override;

  void release() override { catalogue_.close(); }

  /// Offers the catalogue's classifications in every combo.
  void CaricaComboClientiArticoli();
  /// Shows what is stored for the current profile, or proposes the usual levels.
  void LetturaDatiConfigurazioneCategorie();
  /// The levels are disabled while the profile is being changed.
  void setEnabled(bool enabled);

 private:
  void INAV_CATCLIART_ButtonClick(const std::string& button);
  void ConfermaModificheCategorie();
  void addCatalogue(Procedure& p);
  bool isOffered(std::int32_t articleClassification, Procedure& p);
  /// Shows the stored levels, or the usual ones when there are none.
  void showStored(const Ref<ado::Recordset>& rows, Procedure& p);
  void showDefaults();
  void store(CategoryLevels& levels, const Ref<ado::Recordset>& rows, Procedure& p);

  PageContext& context_;
  controls::NavigatorBar& navigator_;
  ParameterPage& parameters_;
  PageLoad load_;
  ClassificationCatalogue catalogue_;
  CategoryLevels customers_;
  CategoryLevels articles_;
};

}  // namespace kebu::forms
