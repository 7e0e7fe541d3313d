#include "forms/changes/changes_dialog.h"

#include <memory>
#include <vector>

#include "controls/fixed_rows.h"
#include "controls/progress.h"

namespace kebu::forms {

namespace {

constexpr controls::GridColumn columns[] = {
    {.field = "MODIFICA", .caption = "Operazione", .width = 1500},
    {.field = "RIGA", .caption = "Riga", .width = 3300},
    {.field = "CAMPO", .caption = "Campo", .width = 2300},
    {.field = "PRIMA", .caption = "Valore memorizzato", .width = 2300},
    {.field = "DOPO", .caption = "Nuovo valore", .width = 2300},
};

const char* nameOf(ChangeKind kind) {
  switch (kind) {
    case ChangeKind::Insert:
      return "Inserimento";
    case ChangeKind::Update:
      return "Modifica";
    default:
      return "Eliminazione";
  }
}

}  // namespace

FRMKB_MODIFICHE::FRMKB_MODIFICHE(PageContext& context, const PlannedChanges& changes)
    : Form("FRMKB_MODIFICHE", context.desktop()),
      context_(context),
      QGRID_MODIFICHE("QGRID_MODIFICHE", context.services) {
  setCaption("Che cosa cambia con Conferma");
  addAll(notes_, LBL_MODIFICHE, QGRID_MODIFICHE, CMD_CHIUDI);
  CMD_CHIUDI.setDefault(true);
  CMD_CHIUDI.setCancel(true);
  CMD_CHIUDI.ButtonClick.on([this] { Unload(); });
  const auto translate = [this](const std::string& text) { return context_.translate(text); };
  setCaption(translate(caption()));
  Form::translate(translate);
  describe(changes);
  list(changes);
}

void FRMKB_MODIFICHE::describe(const PlannedChanges& changes) {
  if (changes.lines().empty()) {
    LBL_MODIFICHE.setCaption(context_.translate("Conferma non cambia nessuna riga."));
  } else {
    const auto count = [&](const char* text, ChangeKind kind) {
      return context_.translate(text) + controls::groupedNumber(changes.rowsWith(kind));
    };
    LBL_MODIFICHE.setCaption(count("Righe inserite: ", ChangeKind::Insert) +
                             count(", modificate: ", ChangeKind::Update) +
                             count(", eliminate: ", ChangeKind::Delete) + ".");
  }
  for (const std::string& note : changes.notes()) notes_.show({.cause = note, .text = note});
}

void FRMKB_MODIFICHE::list(const PlannedChanges& changes) {
  std::vector<ado::Field> fields;
  for (const controls::GridColumn& column : columns) {
    QGRID_MODIFICHE.addColumn(column,
                              [this](const std::string& text) { return context_.translate(text); });
    fields.push_back({.name = std::string(column.field), .type = ado::DataType::VarWChar});
  }
  std::vector<RowValues> rows;
  rows.reserve(changes.lines().size());
  for (const PlannedChange& line : changes.lines()) {
    rows.emplace_back(std::vector<Value>{context_.translate(nameOf(line.kind)), line.row,
                                         line.column, line.before, line.after});
  }
  QGRID_MODIFICHE.setDataSource(
      std::make_shared<controls::FixedRows>(std::move(fields), std::move(rows)));
}

void showChanges(PageContext& context, const PlannedChanges& changes) {
  std::make_shared<FRMKB_MODIFICHE>(context, changes)->Show(true);
}

}  // namespace kebu::forms
