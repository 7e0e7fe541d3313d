#include "forms/anagrafica/discounts/discount_grid.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <stdexcept>

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/anagrafica/discounts/list_types.h"
#include "forms/anagrafica/discounts/rule_details.h"
#include "forms/changes/grid_changes.h"
#include "forms/changes/record_changes.h"
#include "forms/procedure.h"
#include "sql/discount_rules.h"

namespace kebu::forms {

using controls::ColumnKind;
using controls::GridColumn;
using controls::ValueListItem;

/// The names, captions and columns by which the two modes differ.
struct DiscountModeNames {
  const char* check;
  const char* checkCaption;
  const char* grid;
  const char* setUp;           ///< the procedure that sets the grid up
  const char* tableProcedure;  ///< the procedure that names the working table
  const char* tablePrefix;
  std::string_view typeField;
  std::span<const ValueListItem> types;
  std::string_view articleField;
};

namespace {

constexpr ValueListItem priceTypes[] = {{0, "Percentuale"}, {1, "Nuovo prezzo"}};
constexpr ValueListItem gridTypes[] = {
    {0, "Sconto su qtà"}, {1, "Sconto su importo"}, {2, "Prezzo netto su qtà"}};
constexpr ValueListItem percentageField[] = {{0, "Sc 1%"}};
constexpr ValueListItem priceFields[] = {{0, "Prezzo lordo"}, {1, "Prezzo netto"}};

constexpr DiscountModeNames onPrice{
    .check = "CHK_SCONTOPREZZOART",
    .checkCaption = discountsOnPrice,
    .grid = "QGRID_SCONTOSUPREZZO",
    .setUp = "ImpostaQGRID_SCONTOSUPREZZO",
    .tableProcedure = "GetTempTableNameScontiSuPrezzo",
    .tablePrefix = "Prezzo",
    .typeField = "GM61_TIPOSCONTO",
    .types = priceTypes,
    .articleField = "GM61_DESC1",
};
constexpr DiscountModeNames onGrid{
    .check = "CHK_GRIGLIASCONTI",
    .checkCaption = discountGrids,
    .grid = "QGRID_SCONTOSUGRIGLIA",
    .setUp = "ImpostaQGRID_SCONTOSUGRIGLIA",
    .tableProcedure = "GetTempTableNameScontiSuGriglia",
    .tablePrefix = "Griglia",
    .typeField = "GM61_TIPOGRIGLIASCONTO",
    .types = gridTypes,
    .articleField = "GM61_CODART_MG66",
};

constexpr const char* selected = "GM61_ATTIVA";
constexpr const char* erpField = "GM61_CAMPOCORVANE";
/// A column without a field in the table: its list of prices is lent to cells of `erpField`.
constexpr const char* priceList = "DUMMY";

const DiscountModeNames& namesOf(sql::DiscountMode mode) {
  return mode == sql::DiscountMode::OnPrice ? onPrice : onGrid;
}

const DiscountListType& listTypeOf(const sql::DiscountKind& kind) {
  const auto* const found =
      std::ranges::find(discountListTypes, kind.listType, &DiscountListType::number);
  if (found == std::end(discountListTypes)) throw std::out_of_range("no such list type");
  return *found;
}

bool isOne(const Value& value) {
  return equalAsVariants(CDecN(value), Value(std::int16_t{1}));
}

/// The cause of the notice of a rule that cannot be stored.
std::string quoteCause(const controls::QueryGrid& grid) {
  return "quote in " + grid.Name();
}

}  // namespace

DiscountGrid::DiscountGrid(PageContext& context, ProgressDisplay& progress, sql::DiscountMode mode)
    : check(namesOf(mode).check, namesOf(mode).checkCaption),
      grid(namesOf(mode).grid, context.services),
      names_(namesOf(mode)),
      mode_(mode),
      context_(context),
      progress_(progress) {
  // Enabled when a list type is chosen.
  check.setEnabled(false);
  grid.setEnabled(false);
  check.Click.on([this] { CheckClick(); });
  check.AfterChange.on([this] {
    procedure(context_, check.Name() + "_AfterChange", [&](Procedure&) { Modified.raise(); });
  });
  grid.cellLocked = [this](std::int32_t row, const std::string& field) {
    return isLocked(row, field);
  };
  grid.setRowStateField(selected);
  grid.rowStateOf = [this](std::int32_t row) {
    constexpr std::int32_t incomplete = 2;
    const bool isRefused = isOne(grid.cell(row, selected)) && hasQuote(row);
    return isRefused ? Value(incomplete) : Value(Null{});
  };
  grid.rowMenu = [this](std::int32_t row) { return rowMenu(row); };
  grid.showDetails = [this] { showDetails(); };
  grid.OnEditing.on([this](const std::string&, bool&) { OnEditing(); });
  grid.OnEdited.on([this](const std::string&) { OnEdited(); });
  grid.SelectionBoxClick.on([this](const std::string& field, bool&) { SelectionBoxClick(field); });
  grid.RowChanged.on([this] { RowChanged(); });
  grid.GetCellRenderColumn.on(
      [this](std::int32_t row, const std::string& field, std::string& lender) {
        GetCellRenderColumn(row, field, lender);
      });
  grid.SelectAllClickEXT.on([this](const std::string&, bool selecting, bool& cancel) {
    SelectAllClickEXT(selecting, cancel);
  });
}

void DiscountGrid::renameTable() {
  table_ = context_.services.GetTempTableName(names_.tableProcedure, names_.tablePrefix);
}

void DiscountGrid::Imposta(const sql::DiscountKind& kind) {
  kind_ = &kind;
  context_.notices.remove(quoteCause(grid));
  procedure(context_, names_.setUp, [&](Procedure& p) {
    const auto translate = [this](const std::string& text) { return context_.translate(text); };
    const auto add = [&](const GridColumn& column) {
      p.step([&] { grid.addColumn(column, translate); });
    };
    grid.clearColumns();
    add({.field = selected, .caption = "Sel.", .width = 950, .kind = ColumnKind::Check});
    add({.field = "GM61_DESCLISTCORVANE", .caption = "Listini Corvane", .width = 2200});
    for (GridColumn column : listTypeOf(kind).columns) {
      if (column.caption.empty()) break;
      if (column.field == articleOfMode) column.field = names_.articleField;
      add(column);
    }
    add({.field = names_.typeField,
         .caption = "Sconto Tarvo",
         .width = 1650,
         .kind = ColumnKind::ValueList,
         .items = names_.types});
    add({.field = erpField,
         .caption = "Campo list. Corvane",
         .width = 2050,
         .kind = ColumnKind::ValueList,
         .items = percentageField});
    add({.field = "GM61_NOMEREGOLA", .caption = "Nome Tarvo", .width = 2600});
    add({.field = priceList,
         .caption = "Dummy",
         .kind = ColumnKind::ValueList,
         .items = priceFields});
    if (!kind.saved.position) return;
    add({.field = "GM61_POSIZIONE",
         .caption = "Posizione",
         .width = 1150,
         .kind = ColumnKind::Number});
  });
}

bool DiscountGrid::isLocked(std::int32_t row, const std::string& field) {
  if (field == selected) return false;
  const bool isEdited = field == names_.typeField || field == erpField || field == "GM61_POSIZIONE";
  return !isEdited || !isOne(grid.cell(row, selected));
}

void DiscountGrid::OnEditing() {
  procedure(context_, eventName("_OnEditing"),
            [&](Procedure& p) { p.step([&] { stored.rowChanges(rows()); }); });
}

void DiscountGrid::OnEdited() {
  procedure(context_, eventName("_OnEdited"), [&](Procedure& p) {
    if (!rows()) return;
    Modified.raise();
    const Value zero(std::int16_t{0});
    const std::string type(names_.typeField);
    const bool isFirstType = equalAsVariants(CDecN(p.value(rows(), type)), zero);
    if (!isFirstType || equalAsVariants(p.value(rows(), erpField), zero)) return;
    // A percentage always comes from the first discount.
    p.step([&] { grid.write({{type, zero}, {erpField, zero}}); });
    p.step([&] { grid.refresh(); });
  });
}

void DiscountGrid::SelectionBoxClick(const std::string& field) {
  procedure(context_, eventName("_SelectionBoxClick"), [&](Procedure& p) {
    p.step([&] { stored.rowChanges(rows()); });
    if (field == selected && context_.loaded) Modified.raise();
    if (field == selected) p.step([&] { tellOfQuote(); });
  });
}

bool DiscountGrid::hasQuote(std::int32_t row) {
  if (!kind_) return false;
  return std::ranges::any_of(sql::testiRegola(*kind_), [&](std::string_view column) {
    return toDisplay(grid.cell(row, column)).find('\'') != std::string::npos;
  });
}

void DiscountGrid::tellOfQuote() {
  const std::int32_t row = grid.currentRow();
  if (!hasQuote(row)) return;
  if (isOne(grid.cell(row, selected))) {
    context_.notices.remove(quoteCause(grid));
    return;
  }
  const auto translate = [this](const char* text) { return context_.translate(text); };
  context_.notices.show(
      {.cause = quoteCause(grid),
       .text = check.caption() + ": \"" + toDisplay(grid.cell(row, "GM61_NOMEREGOLA")) + "\": " +
               translate("un testo della regola contiene un apostrofo, il database ne rifiuterà "
                         "il salvataggio.")});
}

void DiscountGrid::RowChanged() {
  procedure(context_, eventName("_RowChanged"), [&](Procedure& p) {
    if (!rows() || grid.currentRow() == 0) return;
    const Value saved = p.value(rows(), "GM61_DATAULTAGG");
    if (saved.holds<Date>()) LastUpdate.raise(saved.as<Date>());
  });
}

void DiscountGrid::GetCellRenderColumn(std::int32_t row, const std::string& field,
                                       std::string& lender) {
  procedure(context_, eventName("_GetCellRenderColumn"), [&](Procedure&) {
    if (rows()) lender = GetNodeEdit(row, field);
  });
}

std::string DiscountGrid::GetNodeEdit(std::int32_t row, const std::string& field) {
  return procedure(context_, "GetNodeEdit_" + grid.Name(), [&](Procedure& p) -> std::string {
    if (field != erpField) return "";
    const Value type = p.step([&] { return grid.cell(row, names_.typeField); });
    return isOne(type) ? priceList : "";
  });
}

void DiscountGrid::SelectAllClickEXT(bool selecting, bool& cancel) {
  cancel = true;  // one statement ticks all, instead of the grid row by row
  progress_.during(eventName("_SelectAllClickEXT"), "Seleziona/deseleziona in corso...",
                   [&](Procedure& p) {
                     const auto painted = context_.paintedMeanwhile();
                     p.step([&] { stored.rowsChange(rows()); });
                     p.run(sql::SelezionaTutte(table_, selecting));
                     p.step([&] { grid.requery(); });
                     Modified.raise();
                   });
}

std::string DiscountGrid::nameOf(const sql::RuleStatements& statements,
                                 const RowValues& row) const {
  const auto text = [&](std::string_view column) { return RTrimN(statements.value(row, column)); };
  std::string name = text("GM61_NOMEREGOLA");
  for (const GridColumn& column : listTypeOf(*kind_).columns) {
    if (column.caption.empty()) break;
    const std::string part =
        text(column.field == articleOfMode ? "GM61_CODART_MG66" : column.field);
    if (!part.empty()) name += ", " + part;
  }
  return name;
}

ReadColumn DiscountGrid::readColumn(std::string_view column, const Value& value,
                                    const std::vector<sql::SavedValue>& rule) const {
  const auto itemsOf = [&](std::string_view field) {
    const auto at = std::ranges::find(grid.columns(), field, &controls::QueryGrid::Column::field);
    return at == grid.columns().end() ? controls::QueryGrid::Items() : at->items;
  };
  std::string caption = grid.captionOf(column);
  if (column == "GM61_VALORESCONTO") caption = context_.translate("Valore pubblicato");
  if (caption.empty()) caption = column;
  if (column == selected) return readFlag(context_, caption, value);
  if (column == names_.typeField) return {caption, value, captionIn(itemsOf(column), value)};
  if (column == erpField) {
    const auto type = std::ranges::find(rule, names_.typeField, &sql::SavedValue::column);
    const bool isSecond = type != rule.end() && isOne(type->value);
    return {caption, value, captionIn(itemsOf(isSecond ? priceList : erpField), value)};
  }
  return {caption, value, RTrimN(value)};
}

void DiscountGrid::showDetails() {
  procedure(context_, eventName("_Dettagli"), [&](Procedure& p) {
    if (!rows() || !kind_) return;
    const std::string text = p.step([&] { return describeRule(context_, *kind_, rows(), p); });
    if (text.empty()) return;
    p.step([&] { context_.services.showText(text, msgbox::information); });
  });
}

controls::Menu DiscountGrid::rowMenu(std::int32_t row) {
  const auto translate = [this](const char* text) { return context_.translate(text); };
  controls::Menu menu;
  menu.push_back({.caption = translate("Dettagli") + "\t" + translate("Alt+Invio"),
                  .act = [this] { showDetails(); }});
  if (mode_ == sql::DiscountMode::Grid) {
    const bool isOffered = grid.acceptsChanges() && !isLocked(row, erpField);
    menu.push_back({.caption = translate("Prezzo netto su qtà dal prezzo netto"),
                    .act = isOffered ? [this, row] { takeNetPrice(row); } : std::function<void()>(),
                    .beginsGroup = true});
  }
  return menu;
}

void DiscountGrid::takeNetPrice(std::int32_t row) {
  constexpr std::int16_t onAmount = 1;
  constexpr std::int16_t netPrice = 1;
  constexpr std::int16_t netPriceByQuantity = 2;
  const std::string type(names_.typeField);
  grid.edit(row, type, Value(onAmount));
  grid.edit(row, erpField, Value(netPrice));
  grid.edit(row, type, Value(netPriceByQuantity));
}

void DiscountGrid::CheckClick() {
  procedure(context_, check.Name() + "_Click",
            [&](Procedure&) { grid.setEnabled(toBoolean(CDecN(check.value()))); });
}

}  // namespace kebu::forms
