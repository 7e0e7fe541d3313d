#include "forms/anagrafica/profile/parameters/parameter_page.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/anagrafica/deposit_lookup.h"
#include "forms/anagrafica/profile/parameters/parameter_choices.h"
#include "forms/messages.h"
#include "sql/deposits.h"
#include "sql/profile.h"

namespace kebu::forms {

namespace {

/// A box that edits a text column without any rule. Its name is TXT_ and the column.
struct PlainBox {
  const char* column = nullptr;
  const char* caption = nullptr;
  bool masked = false;
};

constexpr PlainBox plainBoxes[] = {
    {.column = "GM04_FTPADDRESS", .caption = "Indirizzo server"},
    {.column = "GM04_FTPUSER", .caption = "Utente"},
    {.column = "GM04_FTPPWD", .caption = "Password", .masked = true},
    {.column = "GM04_PATHEXPORT", .caption = "Cartella esportazione"},
    {.column = "GM04_PATHIMPORT", .caption = "Cartella importazione"},
    {.column = "GM04_PATHBACKUP", .caption = "Cartella backup"},
    {.column = "GM04_PATHLOG", .caption = "Cartella log"},
};
constexpr std::size_t longestPlainText = 255;

/// Options that this connector does not offer: 0 on every save, whatever was set.
constexpr const char* zeroedColumns[] = {
    "GM04_FLGGESTSCONTI",   "GM04_FLGGESTVARIANTI",   "GM04_FLGGESTCESSIONARI", "GM04_FLGGESTLOTTI",
    "GM04_INDSELCLIENTI",   "GM04_INDDATAREGINCASSO", "GM04_INDMODRECUPERO",    "GM04_INDDESTIN",
    "GM04_INDSTAMPAPREZZI", "GM04_INDSINCRO",
};

enum ImportDeposit : std::int16_t { fromDocument = 0, asGiven = 1 };

constexpr const char* purchaseList = "16";

bool isBlank(const Value& value) {
  return NVL(value, "") == Value("");
}

}  // namespace

ParameterPage::ParameterPage(PageContext& context)
    : FME_PARAMETRI("FME_PARAMETRI", context.services), context_(context) {
  context_.profile.addChild(FME_PARAMETRI);
  bindControls();
  handleEvents();
}

void ParameterPage::bindControls() {
  // The choices come before the boxes whose state and decoding depend on them.
  CMB_GM04_INDTIPODEPIMP.bind(FME_PARAMETRI, "GM04_INDTIPODEPIMP");
  CBO_TIPOVALORIZZ.bind(FME_PARAMETRI, "GM04_INDTIPOCOSTOART");
  CMB_GM04_INDTIPOGIACENZA.bind(FME_PARAMETRI, "GM04_INDTIPOGIACENZA");
  TXT_GM04_CODDOCWEB_MG36.bind(FME_PARAMETRI, "GM04_CODDOCWEB_MG36");
  TXT_GM04_DEPDOCWEB_MG58.bind(FME_PARAMETRI, "GM04_DEPDOCWEB_MG58");
  TXT_NUMLIST.bind(FME_PARAMETRI, "GM04_LISTCOSTOART_LI10");
  TXT_GM04_DEPGIACENZE_MG58.bind(FME_PARAMETRI, "GM04_DEPGIACENZE_MG58");
  CHK_GM04_FLGGESTPREZZI.bind(FME_PARAMETRI, "GM04_FLGGESTPREZZI");
  CHK_GM04_INDESTRIMG.bind(FME_PARAMETRI, "GM04_INDESTRIMG");
  TXT_GM04_NUMNOTECLIENTI.bind(FME_PARAMETRI, "GM04_NUMNOTECLIENTI");
  TXT_GM04_LASTSYNCCLI.bind(FME_PARAMETRI, "GM04_LASTSYNCCLI");
  TXT_GM04_LASTSYNCCLI.setEditable(false);
  for (const PlainBox& plain : plainBoxes) {
    controls::EditBox& box =
        plainBoxes_.emplace_back(std::string("TXT_") + plain.column, plain.caption);
    box.bind(FME_PARAMETRI, plain.column);
    box.setMaxLength(longestPlainText);
    box.setMasked(plain.masked);
  }
  TXT_GM04_CODDOCWEB_MG36.setDescription(LBL_DESCDOCWEB);
  TXT_GM04_DEPDOCWEB_MG58.setDescription(TXT_DEC_DEPDOCWEB_MG58);
  TXT_GM04_DEPGIACENZE_MG58.setDescription(LBL_DESCDEPGIACENZE);
  TXT_NUMLIST.setDescription(LBL_DESCLIST);
}

void ParameterPage::handleEvents() {
  FME_PARAMETRI.BeforeUpdate.on([this](bool& cancel) { FME_PARAMETRI_BeforeUpdate(cancel); });
  FME_PARAMETRI.UpdateBatchAll.on([this](bool& cancel) { FME_PARAMETRI_UpdateBatchAll(cancel); });
  FME_PARAMETRI.ChangeStatus.on([this](auto, auto) { FME_PARAMETRI_ChangeStatus(); });

  TXT_GM04_CODDOCWEB_MG36.StartDecode.on([this](const std::string& code, std::string& description) {
    TXT_GM04_CODDOCWEB_MG36_StartDecode(code, description);
  });
  TXT_GM04_CODDOCWEB_MG36.StartLookup.on(
      [this](controls::EditBox&) { TXT_GM04_CODDOCWEB_MG36_StartLookup(); });
  TXT_GM04_DEPDOCWEB_MG58.StartDecode.on([this](const std::string& code, std::string& description) {
    decodeDeposit("TXT_GM04_DEPDOCWEB_MG58_StartDecode", TXT_GM04_DEPDOCWEB_MG58, code,
                  description);
  });
  TXT_GM04_DEPDOCWEB_MG58.StartLookup.on([this](controls::EditBox& box) {
    lookUpDeposit("TXT_GM04_DEPDOCWEB_MG58_StartLookup", box);
  });
  TXT_GM04_DEPGIACENZE_MG58.StartDecode.on(
      [this](const std::string& code, std::string& description) {
        decodeDeposit("TXT_GM04_DEPGIACENZE_MG58_StartDecode", TXT_GM04_DEPGIACENZE_MG58, code,
                      description);
      });
  TXT_GM04_DEPGIACENZE_MG58.StartLookup.on([this](controls::EditBox& box) {
    lookUpDeposit("TXT_GM04_DEPGIACENZE_MG58_StartLookup", box);
  });
  TXT_NUMLIST.StartDecode.on([this](const std::string& number, std::string& description) {
    TXT_NUMLIST_StartDecode(number, description);
  });

  TXT_GM04_NUMNOTECLIENTI.GotFocus.on([this] { TXT_GM04_NUMNOTECLIENTI_GotFocus(); });
  TXT_GM04_NUMNOTECLIENTI.AfterItem.on([this] { TXT_GM04_NUMNOTECLIENTI_AfterItem(); });

  CBO_TIPOVALORIZZ.ChangeRow.on([this] { CBO_TIPOVALORIZZ_ChangeRow(); });
  CBO_TIPOVALORIZZ.GotFocus.on([this] { valuationBefore_ = CBO_TIPOVALORIZZ.value(); });
  CBO_TIPOVALORIZZ.AfterItem.on([this] { CBO_TIPOVALORIZZ_AfterItem(); });
  CMB_GM04_INDTIPODEPIMP.ChangeRow.on([this] { CMB_GM04_INDTIPODEPIMP_ChangeRow(); });
}

void ParameterPage::place(PageGroups& groups) {
  GRP_IMPDOC.addAll(TXT_GM04_CODDOCWEB_MG36, LBL_DESCDOCWEB, CMB_GM04_INDTIPODEPIMP,
                    TXT_GM04_DEPDOCWEB_MG58, TXT_DEC_DEPDOCWEB_MG58);
  GRP_COSTOART.addAll(CBO_TIPOVALORIZZ, TXT_NUMLIST, LBL_DESCLIST);
  GRP_PUBBLICAZIONE.addAll(CMB_GM04_INDTIPOGIACENZA, TXT_GM04_DEPGIACENZE_MG58, LBL_DESCDEPGIACENZE,
                           CHK_GM04_FLGGESTPREZZI, CHK_GM04_INDESTRIMG, TXT_GM04_NUMNOTECLIENTI,
                           TXT_GM04_LASTSYNCCLI);
  for (controls::EditBox& box : plainBoxes_) GRP_TRASFERIMENTO.add(box);
  groups["GRPMAIN_PAR"].addAll(GRP_IMPDOC, GRP_COSTOART, GRP_PUBBLICAZIONE, GRP_TRASFERIMENTO);
}

void ParameterPage::CaricoCombo(std::span<const FixedChoiceCombo> others) {
  procedure(context_, "CaricoCombo", [&](Procedure& p) {
    const auto fillCombo = [&](const FixedChoiceCombo& filled) {
      p.step([&] { fill(filled, context_); });
    };
    fillCombo({CMB_GM04_INDTIPOGIACENZA, choices::stock});
    fillCombo({CMB_GM04_INDTIPODEPIMP, choices::importDeposit});
    fillCombo({CBO_TIPOVALORIZZ, choices::valuation});
    for (const FixedChoiceCombo& other : others) fillCombo(other);
  });
}

std::vector<std::string> ParameterPage::unknownCodes() const {
  std::vector<std::string> captions;
  for (const controls::EditBox* box : {&TXT_GM04_CODDOCWEB_MG36, &TXT_GM04_DEPDOCWEB_MG58,
                                       &TXT_NUMLIST, &TXT_GM04_DEPGIACENZE_MG58}) {
    if (box->isUnknown()) captions.push_back(box->caption());
  }
  return captions;
}

void ParameterPage::open(const std::string& statement) {
  FME_PARAMETRI.setDataSource(nullptr);
  if (!rows_) {
    rows_ = context_.newRecordset();
    rows_->setCursorLocation(ado::CursorLocation::Client);
  }
  if (rows_->isOpen()) rows_->Close();
  rows_->Open(statement, context_.connection, ado::CursorType::Static,
              ado::LockType::BatchOptimistic);
  FME_PARAMETRI.setDataSource(rows_);
}

void ParameterPage::bindColumns() {
  open(sql::ParametriVuoti());
}

void ParameterPage::ShowChild() {
  procedure(context_, "ShowChild",
            [&](Procedure& p) { p.step([&] { open(sql::Parametri(context_.profileKey())); }); });
}

void ParameterPage::ClearChild() {
  procedure(context_, "ClearChild",
            [&](Procedure& p) { p.step([&] { open(sql::ParametriVuoti()); }); });
}

void ParameterPage::FME_PARAMETRI_BeforeUpdate(bool& cancel) {
  // An Abort cancels the save.
  cancel = !procedure(context_, "FME_PARAMETRI_BeforeUpdate", [&](Procedure& p) {
    const auto field = [&](const char* name) { return p.value(FME_PARAMETRI, name); };
    const Value kind = NVL(field("GM04_INDTIPODEPIMP"), Value(fromDocument));
    const Value document = field("GM04_CODDOCWEB_MG36");

    if (equalAsVariants(kind, Value(asGiven)) && isBlank(field("GM04_DEPDOCWEB_MG58"))) {
      TXT_GM04_DEPDOCWEB_MG58.setHint(context_.translate("Indicare il deposito"));
      p.tell(messages::depositMissing, msgbox::exclamation);
      FME_PARAMETRI.Refused.raise(TXT_GM04_DEPDOCWEB_MG58);
      return false;
    }
    if (equalAsVariants(kind, Value(fromDocument)) && !isBlank(document)) {
      const std::string code = toText(document);
      if (!VerificaDepositoDocumento(code)) {
        p.step([&] { tellDefaultDepositMissing(trim(code)); });
        FME_PARAMETRI.Refused.raise(TXT_GM04_CODDOCWEB_MG36);
        return false;
      }
    }
    for (const CompletedValue& set : p.step([&] { return completedValues(); })) {
      p.set(FME_PARAMETRI, set.column, set.value);
    }
    return true;
  });
}

CompletedValues ParameterPage::completedValues() const {
  const auto field = [&](const char* name) { return FME_PARAMETRI.field(name); };
  constexpr std::int16_t zero = 0;
  CompletedValues completed;
  const Value kind = NVL(field("GM04_INDTIPODEPIMP"), Value(fromDocument));
  if (equalAsVariants(kind, Value(fromDocument)) && !isBlank(field("GM04_CODDOCWEB_MG36"))) {
    // The default deposit of the document type is used instead.
    completed.push_back({"GM04_DEPDOCWEB_MG58", Null{}});
  }
  for (const char* column : zeroedColumns) completed.push_back({column, zero});
  if (isBlank(field("GM04_INDTIPOGIACENZA"))) completed.push_back({"GM04_INDTIPOGIACENZA", zero});
  const Value profileId = context_.profileId();
  if (!equalAsVariants(CDecN(field("GM04_IDDISPOSITIVO_GM03")), profileId)) {
    completed.push_back({"GM04_IDDISPOSITIVO_GM03", profileId});
  }
  if (!equalAsVariants(CDecN(field("GM04_DITTA_CG18")), context_.company)) {
    completed.push_back({"GM04_DITTA_CG18", context_.company});
  }
  return completed;
}

void ParameterPage::addChanges(PlannedChanges& changes, const CompletedValues& conditions) const {
  CompletedValues completed = completedValues();
  completed.insert(completed.end(), conditions.begin(), conditions.end());
  addRecord(changes, context_, context_.translate("Parametri"), FME_PARAMETRI, completed);
}

void ParameterPage::tellDefaultDepositMissing(const std::string& document) {
  const auto quoted = [](const std::string& text) { return "\"" + text + "\""; };
  const auto translate = [this](const char* text) { return context_.translate(text); };
  const std::string text =
      translate("Attenzione, non risulta impostato ") + quoted(translate("Deposito default")) +
      translate(" sul documento specificato (") + quoted(document) + ").\r\n" +
      translate("Modificare la configurazione in personalizzazione documenti azienda.");
  context_.services.showText(text, msgbox::exclamation);
}

void ParameterPage::FME_PARAMETRI_ChangeStatus() {
  procedure(context_, "FME_PARAMETRI_ChangeStatus", [&](Procedure& p) {
    // Has no consequence, on purpose: the date of the last synchronisation changes nothing here.
    static_cast<void>(
        p.step([&] { return RTrimN(FME_PARAMETRI.field("GM04_LASTSYNCCLI")).empty(); }));
  });
}

// A row without its profile's key must not be sent.
void ParameterPage::FME_PARAMETRI_UpdateBatchAll(bool& cancel) {
  cancel = !procedure(context_, "FME_PARAMETRI_UpdateBatchAll", [&](Procedure& p) {
    if (!FME_PARAMETRI.hasRecord()) return true;
    const Value profileId = context_.profileId();
    p.step([&] { rows_->MoveFirst(); });
    for (; p.more(rows_); p.next(rows_)) {
      p.step([&] {
        if (equalAsVariants(rows_->value("GM04_IDDISPOSITIVO_GM03"), profileId)) return;
        rows_->setValue("GM04_IDDISPOSITIVO_GM03", profileId);
        rows_->Update();
      });
    }
    p.step([&] { rows_->MoveFirst(); });
    return true;
  });
}

Value ParameterPage::customerNotes() const {
  const std::string& text = TXT_GM04_NUMNOTECLIENTI.text();
  return equalAsVariants(CDecN(text), std::int32_t{0}) ? Value(Null{}) : Value(text);
}

void ParameterPage::storeCustomerNotes(Procedure& p) {
  if (!FME_PARAMETRI.hasRecord()) return;
  const Value notes = p.step([&] { return customerNotes(); });
  p.step([&] {
    FME_PARAMETRI.setField("GM04_NUMNOTECLIENTI", notes);
    rows_->Update();
  });
  p.step([&] {
    try {
      rows_->UpdateBatch();
    } catch (const RuntimeError& error) {
      if (!error.isConflict()) throw;
      FME_PARAMETRI.tellConflict();
    }
  });
  p.step([&] { TXT_GM04_NUMNOTECLIENTI.refreshFromRecord(); });
}

void ParameterPage::addCustomerNotes(PlannedChanges& changes) const {
  if (!FME_PARAMETRI.hasRecord()) return;
  const auto read = [&](const Value& value) {
    return ReadRow{{TXT_GM04_NUMNOTECLIENTI.caption(), value, RTrimN(value)}};
  };
  changes.add(context_.translate("Parametri"), read(rows_->originalValue("GM04_NUMNOTECLIENTI")),
              read(customerNotes()));
}

bool ParameterPage::VerificaDepositoDocumento(const std::string& document) {
  return procedure(context_, "VerificaDepositoDocumento", [&](Procedure& p) {
    const Ref<ado::Recordset> rows = p.read(sql::DepositoDocumento(p.company(), document));
    return p.step([&] { return !rows->EOF_() && !isBlank(rows->value("MG3G_DEPDEFAULT_MG58")); });
  });
}

void ParameterPage::TXT_GM04_CODDOCWEB_MG36_StartDecode(const std::string& code,
                                                        std::string& description) {
  procedure(context_, "TXT_GM04_CODDOCWEB_MG36_StartDecode", [&](Procedure& p) {
    const std::string statement = p.step([&] {
      return context_.hostServices.decodes->DocumentType(context_.companyKey().text, code);
    });
    description = p.lookUpText(statement, "MG36_DESCR");
    TXT_GM04_CODDOCWEB_MG36.setUnknown(description.empty());
  });
}

void ParameterPage::TXT_GM04_CODDOCWEB_MG36_StartLookup() {
  procedure(context_, "TXT_GM04_CODDOCWEB_MG36_StartLookup", [&](Procedure& p) {
    const auto list = p.step(
        [&] { return context_.hostServices.lookups->DocumentTypes(context_.companyKey().text); });
    const auto code = p.choose(list, TXT_GM04_CODDOCWEB_MG36.text());
    if (code) p.step([&] { TXT_GM04_CODDOCWEB_MG36.enter(*code); });
  });
}

void ParameterPage::decodeDeposit(const char* name, controls::EditBox& box, const std::string& code,
                                  std::string& description) {
  procedure(context_, name, [&](Procedure& p) {
    description = p.lookUpText(sql::DecodificaDeposito(p.company(), code), "MG58_DESCRDEP");
    box.setUnknown(description.empty());
  });
}

void ParameterPage::lookUpDeposit(const char* name, controls::EditBox& box) {
  procedure(context_, name, [&](Procedure& p) {
    const auto code = p.choose(depositLookup(sql::ElencoDepositi(p.company())), box.text());
    if (code) p.step([&] { box.enter(*code); });
  });
}

void ParameterPage::TXT_NUMLIST_StartDecode(const std::string& number, std::string& description) {
  procedure(context_, "TXT_NUMLIST_StartDecode", [&](Procedure& p) {
    const int kind = CBO_TIPOVALORIZZ.text() == purchaseList ? 1 : 0;
    description = p.step([&] {
      return context_.lookUpText(
          sql::DescrizioneListino(context_.companyKey(), kind, toSqlNumber(CDecN(number))),
          "MG44_DESCLIST");
    });
    TXT_NUMLIST.setUnknown(description.empty());
  });
}

void ParameterPage::TXT_GM04_NUMNOTECLIENTI_GotFocus() {
  procedure(context_, "TXT_GM04_NUMNOTECLIENTI_GotFocus",
            [&](Procedure&) { customerNotesBefore_ = TXT_GM04_NUMNOTECLIENTI.text(); });
}

void ParameterPage::TXT_GM04_NUMNOTECLIENTI_AfterItem() {
  procedure(context_, "TXT_GM04_NUMNOTECLIENTI_AfterItem", [&](Procedure& p) {
    if (TXT_GM04_NUMNOTECLIENTI.text() == customerNotesBefore_) return;
    p.step([&] { context_.profile.markModified(); });
  });
}

void ParameterPage::CBO_TIPOVALORIZZ_ChangeRow() {
  procedure(context_, "CBO_TIPOVALORIZZ_ChangeRow", [&](Procedure&) {
    const std::string code = CBO_TIPOVALORIZZ.text();
    // No row has the code 18; it is tested on purpose.
    const bool takesList = code == purchaseList || code == "17" || code == "18";
    TXT_NUMLIST.setEditable(takesList);
    TXT_NUMLIST.setRequired(takesList);
  });
}

void ParameterPage::CBO_TIPOVALORIZZ_AfterItem() {
  // The list number belongs to the valuation before.
  if (CBO_TIPOVALORIZZ.value() == valuationBefore_) return;
  ignoringErrors([&] { FME_PARAMETRI.setField("GM04_LISTCOSTOART_LI10", Null{}); });
  ignoringErrors([&] { TXT_NUMLIST.refreshFromRecord(); });
}

void ParameterPage::CMB_GM04_INDTIPODEPIMP_ChangeRow() {
  procedure(context_, "CMB_GM04_INDTIPODEPIMP_ChangeRow", [&](Procedure&) {
    const bool given = CMB_GM04_INDTIPODEPIMP.text() != "0";
    TXT_GM04_DEPDOCWEB_MG58.setEnabled(given);
    TXT_DEC_DEPDOCWEB_MG58.setEnabled(given);
  });
}

}  // namespace kebu::forms
