#include "forms/anagrafica/profile/parameters/parameter_page.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/anagrafica/deposit_lookup.h"
#include "forms/anagrafica/profile/parameters/parameter_choices.h"
#include "sql/deposits.h"
#include "sql/profile.h"

namespace kebu::forms {

namespace {

struct PlainBox {
  const char* name;
  const char* column;
  const char* caption;
  std::size_t length;
  bool masked;
};

constexpr PlainBox plainBoxes[] = {
    {"TXT_GM04_FTPADDRESS", "GM04_FTPADDRESS", "Indirizzo server", 255, false},
    {"TXT_GM04_FTPUSER", "GM04_FTPUSER", "Utente", 255, false},
    {"TXT_GM04_FTPPWD", "GM04_FTPPWD", "Password", 255, true},
    {"TXT_GM04_PATHEXPORT", "GM04_PATHEXPORT", "Cartella esportazione", 255, false},
    {"TXT_GM04_PATHIMPORT", "GM04_PATHIMPORT", "Cartella importazione", 255, false},
    {"TXT_GM04_PATHBACKUP", "GM04_PATHBACKUP", "Cartella backup", 255, false},
    {"TXT_GM04_PATHLOG", "GM04_PATHLOG", "Cartella log", 255, false},
};

/// What this connector does not offer: 0 on every save, whatever was set.
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
    : FME_PARAMETRI("FME_PARAMETRI", context.services),
      GRP_IMPDOC("GRP_IMPDOC", "Importazione documenti"),
      TXT_GM04_CODDOCWEB_MG36("TXT_GM04_CODDOCWEB_MG36", "Documento ordini web"),
      LBL_DESCDOCWEB("LBL_DESCDOCWEB"),
      CMB_GM04_INDTIPODEPIMP("CMB_GM04_INDTIPODEPIMP", "Deposito documenti"),
      TXT_GM04_DEPDOCWEB_MG58("TXT_GM04_DEPDOCWEB_MG58", "Deposito"),
      TXT_DEC_DEPDOCWEB_MG58("TXT_DEC_DEPDOCWEB_MG58"),
      GRP_COSTOART("GRP_COSTOART", "Costo articolo"),
      CBO_TIPOVALORIZZ("CBO_TIPOVALORIZZ", "Valorizzazione"),
      TXT_NUMLIST("TXT_NUMLIST", "Listino"),
      LBL_DESCLIST("LBL_DESCLIST"),
      GRP_PUBBLICAZIONE("GRP_PUBBLICAZIONE", "Pubblicazione"),
      CMB_GM04_INDTIPOGIACENZA("CMB_GM04_INDTIPOGIACENZA", "Tipo giacenza"),
      TXT_GM04_DEPGIACENZE_MG58("TXT_GM04_DEPGIACENZE_MG58", "Deposito giacenze"),
      LBL_DESCDEPGIACENZE("LBL_DESCDEPGIACENZE"),
      CHK_GM04_FLGGESTPREZZI("CHK_GM04_FLGGESTPREZZI", "Gestione prezzi"),
      CHK_GM04_INDESTRIMG("CHK_GM04_INDESTRIMG", "Estrazione immagini"),
      TXT_GM04_NUMNOTECLIENTI("TXT_GM04_NUMNOTECLIENTI", "Numero note clienti"),
      TXT_GM04_LASTSYNCCLI("TXT_GM04_LASTSYNCCLI", "Ultima sincronizzazione clienti"),
      GRP_TRASFERIMENTO("GRP_TRASFERIMENTO", "Trasferimento"),
      context_(context) {
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
    controls::EditBox& box = plainBoxes_.emplace_back(plain.name, plain.caption);
    box.bind(FME_PARAMETRI, plain.column);
    box.setMaxLength(plain.length);
    box.setMasked(plain.masked);
  }
  TXT_GM04_CODDOCWEB_MG36.setDescription(LBL_DESCDOCWEB);
  TXT_GM04_DEPDOCWEB_MG58.setDescription(TXT_DEC_DEPDOCWEB_MG58);
  TXT_GM04_DEPGIACENZE_MG58.setDescription(LBL_DESCDEPGIACENZE);
  TXT_NUMLIST.setDescription(LBL_DESCLIST);
}

void ParameterPage::handleEvents() {
  FME_PARAMETRI.BeforeUpdate.on([this](bool& cancel) { FME_PARAMETRI_BeforeUpdate(cancel); });
  FME_PARAMETRI.UpdateBatchAll.on([this] { FME_PARAMETRI_UpdateBatchAll(); });
  FME_PARAMETRI.ChangeStatus.on([this](auto, auto) { FME_PARAMETRI_ChangeStatus(); });

  TXT_GM04_CODDOCWEB_MG36.StartDecode.on([this](const std::string& code, std::string& description) {
    TXT_GM04_CODDOCWEB_MG36_StartDecode(code, description);
  });
  TXT_GM04_CODDOCWEB_MG36.StartLookup.on(
      [this](controls::EditBox&) { TXT_GM04_CODDOCWEB_MG36_StartLookup(); });
  TXT_GM04_DEPDOCWEB_MG58.StartDecode.on([this](const std::string& code, std::string& description) {
    decodeDeposit("TXT_GM04_DEPDOCWEB_MG58_StartDecode", code, description);
  });
  TXT_GM04_DEPDOCWEB_MG58.StartLookup.on([this](controls::EditBox& box) {
    lookUpDeposit("TXT_GM04_DEPDOCWEB_MG58_StartLookup", box);
  });
  TXT_GM04_DEPGIACENZE_MG58.StartDecode.on(
      [this](const std::string& code, std::string& description) {
        decodeDeposit("TXT_GM04_DEPGIACENZE_MG58_StartDecode", code, description);
      });
  TXT_GM04_DEPGIACENZE_MG58.StartLookup.on([this](controls::EditBox& box) {
    lookUpDeposit("TXT_GM04_DEPGIACENZE_MG58_StartLookup", box);
  });
  TXT_NUMLIST.StartDecode.on([this](const std::string& number, std::string& description) {
    TXT_NUMLIST_StartDecode(number, description);
  });

  CBO_TIPOVALORIZZ.ChangeRow.on([this] { CBO_TIPOVALORIZZ_ChangeRow(); });
  CBO_TIPOVALORIZZ.GotFocus.on([this] { valuationBefore_ = CBO_TIPOVALORIZZ.value(); });
  CBO_TIPOVALORIZZ.AfterItem.on([this] { CBO_TIPOVALORIZZ_AfterItem(); });
  CMB_GM04_INDTIPODEPIMP.ChangeRow.on([this] { CMB_GM04_INDTIPODEPIMP_ChangeRow(); });
}

void ParameterPage::place(controls::GroupBox& page) {
  GRP_IMPDOC.addAll(TXT_GM04_CODDOCWEB_MG36, LBL_DESCDOCWEB, CMB_GM04_INDTIPODEPIMP,
                    TXT_GM04_DEPDOCWEB_MG58, TXT_DEC_DEPDOCWEB_MG58);
  GRP_COSTOART.addAll(CBO_TIPOVALORIZZ, TXT_NUMLIST, LBL_DESCLIST);
  GRP_PUBBLICAZIONE.addAll(CMB_GM04_INDTIPOGIACENZA, TXT_GM04_DEPGIACENZE_MG58, LBL_DESCDEPGIACENZE,
                           CHK_GM04_FLGGESTPREZZI, CHK_GM04_INDESTRIMG, TXT_GM04_NUMNOTECLIENTI,
                           TXT_GM04_LASTSYNCCLI);
  for (controls::EditBox& box : plainBoxes_) GRP_TRASFERIMENTO.add(box);
  page.addAll(GRP_IMPDOC, GRP_COSTOART, GRP_PUBBLICAZIONE, GRP_TRASFERIMENTO);
}

void ParameterPage::CaricoCombo(std::span<const FixedChoiceCombo> others) {
  trap(context_.services, "CaricoCombo", [&](Steps& step) {
    const auto fillCombo = [&](const FixedChoiceCombo& filled) {
      step([&] { fill(filled, context_); });
    };
    fillCombo({CMB_GM04_INDTIPOGIACENZA, choices::stock});
    fillCombo({CMB_GM04_INDTIPODEPIMP, choices::importDeposit});
    fillCombo({CBO_TIPOVALORIZZ, choices::valuation});
    for (const FixedChoiceCombo& other : others) fillCombo(other);
  });
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
  trap(context_.services, "ShowChild",
       [&](Steps& step) { step([&] { open(sql::Parametri(context_.profileKey())); }); });
}

void ParameterPage::ClearChild() {
  trap(context_.services, "ClearChild",
       [&](Steps& step) { step([&] { open(sql::ParametriVuoti()); }); });
}

void ParameterPage::FME_PARAMETRI_BeforeUpdate(bool& cancel) {
  trap(context_.services, "FME_PARAMETRI_BeforeUpdate", [&](Steps& step) {
    const auto field = [&](const char* name) {
      return step([&] { return FME_PARAMETRI.field(name); });
    };
    const auto set = [&](const char* name, const Value& value) {
      step([&] { FME_PARAMETRI.setField(name, value); });
    };
    const std::int16_t zero = 0;
    const Value kind = NVL(field("GM04_INDTIPODEPIMP"), zero);
    const Value document = field("GM04_CODDOCWEB_MG36");

    if (equalAsVariants(kind, Value(asGiven)) && isBlank(field("GM04_DEPDOCWEB_MG58"))) {
      constexpr std::int32_t depositMissing = 12569;
      step([&] { context_.services.showMessage(depositMissing, msgbox::exclamation); });
      cancel = true;
      return;
    }
    if (equalAsVariants(kind, Value(fromDocument)) && !isBlank(document)) {
      const std::string code = step([&] { return toText(document); });
      if (!VerificaDepositoDocumento(code)) {
        step([&] { tellDefaultDepositMissing(trim(code)); });
        cancel = true;
        return;
      }
      // The document's own default deposit applies.
      set("GM04_DEPDOCWEB_MG58", Null{});
    }
    for (const char* column : zeroedColumns) set(column, zero);
    if (isBlank(field("GM04_INDTIPOGIACENZA"))) set("GM04_INDTIPOGIACENZA", zero);
    const Value profileId = context_.profileId();
    if (!equalAsVariants(CDecN(field("GM04_IDDISPOSITIVO_GM03")), profileId)) {
      set("GM04_IDDISPOSITIVO_GM03", profileId);
    }
    if (!equalAsVariants(CDecN(field("GM04_DITTA_CG18")), context_.company)) {
      set("GM04_DITTA_CG18", context_.company);
    }
  });
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
  trap(context_.services, "FME_PARAMETRI_ChangeStatus", [&](Steps& step) {
    // Whether customers were ever synchronised changes nothing on the page, and is meant not to.
    static_cast<void>(
        step([&] { return RTrimN(FME_PARAMETRI.field("GM04_LASTSYNCCLI")).empty(); }));
  });
}

void ParameterPage::FME_PARAMETRI_UpdateBatchAll() {
  trap(context_.services, "FME_PARAMETRI_UpdateBatchAll", [&](Steps& step) {
    if (!FME_PARAMETRI.hasRecord()) return;
    const Value profileId = context_.profileId();
    step([&] { rows_->MoveFirst(); });
    while (step([&] { return !rows_->EOF_(); })) {
      step([&] {
        if (equalAsVariants(rows_->value("GM04_IDDISPOSITIVO_GM03"), profileId)) return;
        rows_->setValue("GM04_IDDISPOSITIVO_GM03", profileId);
        rows_->Update();
      });
      step([&] { rows_->MoveNext(); });
    }
    step([&] { rows_->MoveFirst(); });
  });
}

void ParameterPage::storeCustomerNotes(Steps& step) {
  if (!FME_PARAMETRI.hasRecord()) return;
  const std::string& text = TXT_GM04_NUMNOTECLIENTI.text();
  const bool none = step([&] { return equalAsVariants(CDecN(text), std::int32_t{0}); });
  step([&] {
    FME_PARAMETRI.setField("GM04_NUMNOTECLIENTI", none ? Value(Null{}) : Value(text));
    rows_->Update();
  });
  step([&] { rows_->UpdateBatch(); });
  step([&] { TXT_GM04_NUMNOTECLIENTI.refreshFromRecord(); });
}

bool ParameterPage::VerificaDepositoDocumento(const std::string& document) {
  return trap(context_.services, "VerificaDepositoDocumento", [&](Steps& step) {
    const Ref<ado::Recordset> rows = step([&] {
      return context_.connection->Execute(sql::DepositoDocumento(context_.companyKey(), document));
    });
    return step([&] { return !rows->EOF_() && !isBlank(rows->value("MG3G_DEPDEFAULT_MG58")); });
  });
}

void ParameterPage::TXT_GM04_CODDOCWEB_MG36_StartDecode(const std::string& code,
                                                        std::string& description) {
  trap(context_.services, "TXT_GM04_CODDOCWEB_MG36_StartDecode", [&](Steps& step) {
    const std::string statement =
        step([&] { return context_.decodes->DocumentType(context_.companyKey().text, code); });
    description = step([&] { return context_.lookUpText(statement, "MG36_DESCR"); });
  });
}

void ParameterPage::TXT_GM04_CODDOCWEB_MG36_StartLookup() {
  trap(context_.services, "TXT_GM04_CODDOCWEB_MG36_StartLookup", [&](Steps& step) {
    const auto list =
        step([&] { return context_.lookups->DocumentTypes(context_.companyKey().text); });
    const auto code = step([&] { return context_.choose(list); });
    if (code) step([&] { TXT_GM04_CODDOCWEB_MG36.enter(*code); });
  });
}

void ParameterPage::decodeDeposit(const char* procedure, const std::string& code,
                                  std::string& description) {
  trap(context_.services, procedure, [&](Steps& step) {
    description = step([&] {
      return context_.lookUpText(sql::DecodificaDeposito(context_.companyKey(), code),
                                 "MG58_DESCRDEP");
    });
  });
}

void ParameterPage::lookUpDeposit(const char* procedure, controls::EditBox& box) {
  trap(context_.services, procedure, [&](Steps& step) {
    const auto code = step(
        [&] { return context_.choose(depositLookup(sql::ElencoDepositi(context_.companyKey()))); });
    if (code) step([&] { box.enter(*code); });
  });
}

void ParameterPage::TXT_NUMLIST_StartDecode(const std::string& number, std::string& description) {
  trap(context_.services, "TXT_NUMLIST_StartDecode", [&](Steps& step) {
    const int kind = CBO_TIPOVALORIZZ.text() == purchaseList ? 1 : 0;
    description = step([&] {
      return context_.lookUpText(
          sql::DescrizioneListino(context_.companyKey(), kind, toSqlNumber(CDecN(number))),
          "MG44_DESCLIST");
    });
  });
}

void ParameterPage::CBO_TIPOVALORIZZ_ChangeRow() {
  trap(context_.services, "CBO_TIPOVALORIZZ_ChangeRow", [&](Steps& step) {
    const std::string code = CBO_TIPOVALORIZZ.text();
    // No row carries 18; the test for it is meant.
    const bool takesList = code == purchaseList || code == "17" || code == "18";
    step([&] { TXT_NUMLIST.setEditable(takesList); });
    step([&] { TXT_NUMLIST.setRequired(takesList); });
  });
}

void ParameterPage::CBO_TIPOVALORIZZ_AfterItem() {
  // Another valuation forgets the list number.
  if (CBO_TIPOVALORIZZ.value() == valuationBefore_) return;
  ignoringErrors([&] { FME_PARAMETRI.setField("GM04_LISTCOSTOART_LI10", Null{}); });
  ignoringErrors([&] { TXT_NUMLIST.refreshFromRecord(); });
}

void ParameterPage::CMB_GM04_INDTIPODEPIMP_ChangeRow() {
  trap(context_.services, "CMB_GM04_INDTIPODEPIMP_ChangeRow", [&](Steps& step) {
    const bool given = CMB_GM04_INDTIPODEPIMP.text() != "0";
    step([&] { TXT_GM04_DEPDOCWEB_MG58.setEnabled(given); });
    step([&] { TXT_DEC_DEPDOCWEB_MG58.setEnabled(given); });
  });
}

}  // namespace kebu::forms
