#pragma once

#include "controls/navigator_bar.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/categories/category_levels.h"
#include "forms/anagrafica/categories/classification_catalogue.h"
#include "forms/anagrafica/profile/parameters/parameter_page.h"
#include "forms/page_context.h"
#include "forms/procedure.h"

namespace kebu::forms {

/// Which classifications are published as the platform's categories: four
/// levels for customers, three for articles. Confirmed by a bar of its own.
class CategoriesPage {
 public:
  CategoriesPage(PageContext& context, controls::NavigatorBar& navigator,
                 ParameterPage& parameters);

  void place(controls::GroupBox& customers, controls::GroupBox& articles);

  /// Offers the catalogue's classifications in every combo.
  void CaricaComboClientiArticoli();
  /// Shows what is stored for the current profile, or proposes the usual levels.
  void LetturaDatiConfigurazioneCategorie();

  /// Gives the catalogue back.
  void close() { catalogue_.close(); }

 private:
  void INAV_CATCLIART_ButtonClick(const std::string& button);
  void ConfermaModificheCategorie();
  void addCatalogue(Procedure& p);
  bool isOffered(std::int32_t articleClassification, Procedure& p);
  void showDefaults();
  void store(CategoryLevels& levels, const Ref<ado::Recordset>& rows, Procedure& p);

  PageContext& context_;
  controls::NavigatorBar& navigator_;
  ParameterPage& parameters_;
  const controls::GroupBox* articlePage_ = nullptr;
  ClassificationCatalogue catalogue_;
  CategoryLevels customers_;
  CategoryLevels articles_;
};

}  // namespace kebu::forms
