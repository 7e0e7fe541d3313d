// Saving the ticked rules of a kind.

#include <algorithm>

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/anagrafica/discounts/discounts_page.h"
#include "forms/anagrafica/discounts/step_reader.h"
#include "sql/discount_rules.h"

namespace kebu::forms {

namespace {

constexpr std::int32_t rowsAtATime = 500;

using Row = sql::RuleStatements::Row;

}  // namespace

bool DiscountsPage::RegistraListini(DiscountGrid& mode) {
  if (!mode.isOn()) return true;
  const sql::DiscountKind& kind = kindOf(mode);
  SaveResult result;
  const ProcedureName called(kind.names.registra, errorTitle);
  progress_.during(called, "Registrazione listini in corso...", [&](Procedure& p) {
    const Ref<ado::Recordset>& shown = mode.rows();
    const std::int32_t count = p.step([&] { return shown ? shown->RecordCount() : 0; });
    if (count == 1) {
      // When there is one row only, its tick may not have been stored in the working table yet.
      if (toInt32(CDecN(p.value(shown, "GM61_ATTIVA"))) == 1) {
        p.run(sql::SelezionaRiga(mode.table(), toSqlNumber(p.value(shown, "GM61_ID"))));
      }
    } else if (count > 1) {
      p.step([&] { shown->MoveFirst(); });  // stores an edit that is not finished
      p.step([&] { mode.grid.refresh(); });
    }
    {
      const auto painted = context_.paintedMeanwhile();
      p.run(sql::EliminaRegole(p.company(), kind.mode, std::to_string(kind.listType)));
    }
    result.deleted = true;
    storeTicked(kind, mode, result, p);
  });
  if (result.deleted) mode.stored.saved(mode.rows(), result.storedIds, options.values());
  saved(kind, mode, result);
  return result.isComplete();
}

// The notice goes with the next saving or loading of the kind that succeeds.
void DiscountsPage::saved(const sql::DiscountKind& kind, const DiscountGrid& mode,
                          const SaveResult& result) {
  if (result.isComplete()) {
    context_.notices.remove(kind.names.registra);
    return;
  }
  const auto translate = [this](const char* text) { return context_.translate(text); };
  std::string text = mode.check.caption();
  const bool isShown = !leaving_;
  if (!isShown) text += " (" + options.CMB_LISTINISCONTO.captionOf(kind.listType) + ")";
  text += ": ";
  if (!result.deleted) {
    text += translate("le regole memorizzate sono rimaste quelle di prima");
  } else if (!result.ticked) {
    text += translate("le regole memorizzate sono state eliminate e nessuna è stata salvata");
  } else {
    const bool isOne = result.stored == 1;
    text += translate(isOne ? "salvata 1 regola su" : "salvate ") +
            (isOne ? "" : std::to_string(result.stored) + translate(" regole su")) + " " +
            std::to_string(*result.ticked);
  }
  text += isShown ? translate(", premere di nuovo Conferma") : ".";
  context_.notices.show({.cause = kind.names.registra, .text = text});
}

void DiscountsPage::storeTicked(const sql::DiscountKind& kind, const DiscountGrid& mode,
                                SaveResult& result, Procedure& p) {
  const Ref<ado::Recordset> ticked = p.step([&] {
    const auto painted = context_.paintedMeanwhile();
    return context_.openReadable(sql::RegoleSelezionate(mode.table(), kind));
  });
  if (!ticked) return;
  std::vector<std::string> columns;
  for (const ado::Field& field : ticked->fields()) columns.push_back(field.name);
  sql::RuleStatements statements(p.company(), kind, columns, options.values());

  const auto stepsOf = [&](const Row& row) {
    if (kind.mode != sql::DiscountMode::Grid) return std::vector<sql::RuleStep>();
    return p.step([&] {
      const auto found = context_.connection->Execute(statements.LeggiScaglioni(row));
      return StepReader(statements, row).read(*found);
    });
  };
  result.ticked = p.step([&] { return ticked->RecordCount(); });
  progress_.expect(*result.ticked);
  std::int32_t done = 0;
  while (p.more(ticked)) {
    for (const Row& row : p.step([&] { return ticked->GetRows(rowsAtATime); })) {
      progress_.advance(++done);
      const std::vector<sql::RuleStep> steps = stepsOf(row);
      p.step([&] {
        context_.connection->ExecuteNoRecords(statements.InserisciRegola(row, steps));
        ++result.stored;
        result.storedIds.insert(StoredRules::idOf(statements.value(row, "GM61_ID")));
      });
    }
  }
}

}  // namespace kebu::forms
