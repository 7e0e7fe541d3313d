#pragma once

#include <deque>
#include <span>
#include <string>
#include <vector>

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/fixed_choice.h"
#include "forms/anagrafica/page.h"
#include "forms/changes/record_changes.h"
#include "forms/page_context.h"
#include "forms/procedure.h"

namespace kebu::forms {

/// The profile's parameters: a child frame with one row of GM04_PARAMETRITVRO,
/// validated and completed before every save of the profile.
class ParameterPage : public Page {
 public:
  explicit ParameterPage(PageContext& context);

  controls::RecordFrame FME_PARAMETRI;

  controls::GroupBox GRP_IMPDOC{"GRP_IMPDOC", "Importazione documenti"};
  controls::EditBox TXT_GM04_CODDOCWEB_MG36{"TXT_GM04_CODDOCWEB_MG36", "Documento ordini web"};
  controls::Label LBL_DESCDOCWEB{"LBL_DESCDOCWEB"};
  controls::ComboBox CMB_GM04_INDTIPODEPIMP{"CMB_GM04_INDTIPODEPIMP", "Deposito documenti"};
  controls::EditBox TXT_GM04_DEPDOCWEB_MG58{"TXT_GM04_DEPDOCWEB_MG58", "Deposito"};
  controls::Label TXT_DEC_DEPDOCWEB_MG58{"TXT_DEC_DEPDOCWEB_MG58"};

  controls::GroupBox GRP_COSTOART{"GRP_COSTOART", "Costo articolo"};
  controls::ComboBox CBO_TIPOVALORIZZ{"CBO_TIPOVALORIZZ", "Valorizzazione"};
  controls::EditBox TXT_NUMLIST{"TXT_NUMLIST", "Listino"};
  controls::Label LBL_DESCLIST{"LBL_DESCLIST"};

  controls::GroupBox GRP_PUBBLICAZIONE{"GRP_PUBBLICAZIONE", "Pubblicazione"};
  controls::ComboBox CMB_GM04_INDTIPOGIACENZA{"CMB_GM04_INDTIPOGIACENZA", "Tipo giacenza"};
  controls::EditBox TXT_GM04_DEPGIACENZE_MG58{"TXT_GM04_DEPGIACENZE_MG58", "Deposito giacenze"};
  controls::Label LBL_DESCDEPGIACENZE{"LBL_DESCDEPGIACENZE"};
  controls::CheckBox CHK_GM04_FLGGESTPREZZI{"CHK_GM04_FLGGESTPREZZI", "Gestione prezzi"};
  controls::CheckBox CHK_GM04_INDESTRIMG{"CHK_GM04_INDESTRIMG", "Estrazione immagini"};
  controls::EditBox TXT_GM04_NUMNOTECLIENTI{"TXT_GM04_NUMNOTECLIENTI", "Numero note clienti"};
  controls::EditBox TXT_GM04_LASTSYNCCLI{"TXT_GM04_LASTSYNCCLI", "Ultima sincronizzazione clienti"};

  controls::GroupBox GRP_TRASFERIMENTO{"GRP_TRASFERIMENTO", "Trasferimento"};

  void place(PageGroups& groups) override;

  void release() override { FME_PARAMETRI.setDataSource(nullptr); }

  /// Binds the frame to an empty record set, which gives it its columns.
  void bindColumns();
  /// Fills the page's combos with their fixed choices, and then those of other pages.
  void CaricoCombo(std::span<const FixedChoiceCombo> others);
  /// Shows the parameters of the current profile, or none.
  void ShowChild();
  void ClearChild();
  void FME_PARAMETRI_ChangeStatus();
  /// The captions of the boxes that show a code which was not found.
  std::vector<std::string> unknownCodes() const;
  /// Stores the number of customer notes by itself, apart from the profile's save.
  void storeCustomerNotes(Procedure& p);

  /// Adds what a save of the profile would do to the row; `conditions` are those of the filters.
  void addChanges(PlannedChanges& changes, const CompletedValues& conditions) const;
  /// Adds what storeCustomerNotes would do.
  void addCustomerNotes(PlannedChanges& changes) const;

 private:
  void bindControls();
  void handleEvents();
  void open(const std::string& statement);

  void FME_PARAMETRI_BeforeUpdate(bool& cancel);
  void FME_PARAMETRI_UpdateBatchAll(bool& cancel);
  void tellDefaultDepositMissing(const std::string& document);
  /// What every save sets, once it is not refused.
  CompletedValues completedValues() const;
  /// The number of customer notes as it is stored by itself: none for 0.
  Value customerNotes() const;
  bool VerificaDepositoDocumento(const std::string& document);
  void decodeDeposit(const char* name, controls::EditBox& box, const std::string& code,
                     std::string& description);
  void lookUpDeposit(const char* name, controls::EditBox& box);
  void TXT_GM04_CODDOCWEB_MG36_StartDecode(const std::string& code, std::string& description);
  void TXT_GM04_CODDOCWEB_MG36_StartLookup();
  void TXT_NUMLIST_StartDecode(const std::string& number, std::string& description);
  void CBO_TIPOVALORIZZ_ChangeRow();
  void CBO_TIPOVALORIZZ_AfterItem();
  void CMB_GM04_INDTIPODEPIMP_ChangeRow();
  void TXT_GM04_NUMNOTECLIENTI_GotFocus();
  void TXT_GM04_NUMNOTECLIENTI_AfterItem();

  PageContext& context_;
  Ref<ado::Recordset> rows_;
  /// The boxes that are edited freely, from the table of plain columns.
  std::deque<controls::EditBox> plainBoxes_;
  /// The valuation when its combo received the focus.
  Value valuationBefore_;
  std::string customerNotesBefore_;  ///< the number of notes when its box got the focus
};

}  // namespace kebu::forms
