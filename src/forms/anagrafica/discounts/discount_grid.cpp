#include "forms/anagrafica/discounts/discount_grid.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <stdexcept>

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/anagrafica/discounts/list_types.h"
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
  const char* setUp;           ///< the procedure that lays the grid out
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
    .checkCaption = "Sconti su prezzo",
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
    .checkCaption = "Griglie di sconto",
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

template <class Items>
constexpr GridColumn listColumn(std::string_view field, std::string_view caption,
                                std::int32_t width, const Items& items) {
  return {field, caption, width, ColumnKind::ValueList, std::data(items), std::size(items)};
}

const DiscountModeNames& namesOf(sql::DiscountMode mode) {
  return mode == sql::DiscountMode::OnPrice ? onPrice : onGrid;
}

const DiscountListType& listTypeOf(const sql::DiscountKind& kind) {
  const auto* const found =
      std::find_if(std::begin(discountListTypes), std::end(discountListTypes),
                   [&](const DiscountListType& type) { return type.number == kind.listType; });
  if (found == std::end(discountListTypes)) throw std::out_of_range("no such list type");
  return *found;
}

bool isOne(const Value& value) {
  return equalAsVariants(CDecN(value), Value(std::int16_t{1}));
}

}  // namespace

DiscountGrid::DiscountGrid(PageContext& context, ProgressDisplay& progress, sql::DiscountMode mode)
    : check(namesOf(mode).check, namesOf(mode).checkCaption),
      grid(namesOf(mode).grid, context.services),
      names_(namesOf(mode)),
      mode_(mode),
      context_(context),
      progress_(progress) {
  // Until a list type is chosen there is nothing to switch on.
  check.setEnabled(false);
  grid.setEnabled(false);
  check.Click.on([this] { CheckClick(); });
  check.AfterChange.on([this] {
    trap(context_.services, check.Name() + "_AfterChange", [&](Steps&) { Modified.raise(); });
  });
  grid.cellLocked = [this](std::int32_t row, const std::string& field) {
    return isLocked(row, field);
  };
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
  trap(context_.services, names_.setUp, [&](Steps& step) {
    const auto translate = [this](const std::string& text) { return context_.translate(text); };
    const auto add = [&](const GridColumn& column) {
      step([&] { grid.addColumn(column, translate); });
    };
    step([&] { grid.clearColumns(); });
    add({selected, "Sel.", 950, ColumnKind::Check});
    add({"GM61_DESCLISTCORVANE", "Listini Corvane", 2200, ColumnKind::Text});
    for (GridColumn column : listTypeOf(kind).columns) {
      if (column.caption.empty()) break;
      if (column.field == articleOfMode) column.field = names_.articleField;
      add(column);
    }
    add(listColumn(names_.typeField, "Sconto Tarvo", 1650, names_.types));
    add(listColumn(erpField, "Campo list. Corvane", 2050, percentageField));
    add({"GM61_NOMEREGOLA", "Nome Tarvo", 2600, ColumnKind::Text});
    add(listColumn(priceList, "Dummy", 0, priceFields));
    if (kind.saved.position) add({"GM61_POSIZIONE", "Posizione", 1150, ColumnKind::Number});
  });
}

bool DiscountGrid::isLocked(std::int32_t row, const std::string& field) {
  if (field == selected) return false;
  const bool isEdited = field == names_.typeField || field == erpField || field == "GM61_POSIZIONE";
  return !isEdited || !isOne(grid.cell(row, selected));
}

void DiscountGrid::OnEdited() {
  trap(context_.services, procedure("_OnEdited"), [&](Steps& step) {
    if (!rows()) return;
    Modified.raise();
    const auto field = [&](std::string_view name) {
      return step([&] { return rows()->value(name); });
    };
    const Value zero(std::int16_t{0});
    const std::string type(names_.typeField);
    const bool isFirstType = equalAsVariants(CDecN(field(type)), zero);
    if (!isFirstType || equalAsVariants(field(erpField), zero)) return;
    // A percentage always comes from the first discount.
    step([&] { grid.write({{type, zero}, {erpField, zero}}); });
    step([&] { grid.refresh(); });
  });
}

void DiscountGrid::SelectionBoxClick(const std::string& field) {
  trap(context_.services, procedure("_SelectionBoxClick"), [&](Steps&) {
    if (field == selected && context_.loaded) Modified.raise();
  });
}

void DiscountGrid::RowChanged() {
  trap(context_.services, procedure("_RowChanged"), [&](Steps& step) {
    if (!rows() || grid.currentRow() == 0) return;
    const Value saved = step([&] { return rows()->value("GM61_DATAULTAGG"); });
    if (saved.holds<Date>()) LastUpdate.raise(saved.as<Date>());
  });
}

void DiscountGrid::GetCellRenderColumn(std::int32_t row, const std::string& field,
                                       std::string& lender) {
  trap(context_.services, procedure("_GetCellRenderColumn"), [&](Steps&) {
    if (rows()) lender = GetNodeEdit(row, field);
  });
}

std::string DiscountGrid::GetNodeEdit(std::int32_t row, const std::string& field) {
  return trap(context_.services, "GetNodeEdit_" + grid.Name(), [&](Steps& step) -> std::string {
    if (field != erpField) return "";
    const Value type = step([&] { return grid.cell(row, names_.typeField); });
    return isOne(type) ? priceList : "";
  });
}

void DiscountGrid::SelectAllClickEXT(bool selecting, bool& cancel) {
  cancel = true;  // one statement does it, not the grid row by row
  progress_.during(
      procedure("_SelectAllClickEXT"), "Seleziona/deseleziona in corso...", [&](Steps& step) {
        const auto painted = context_.paintedMeanwhile();
        step([&] { context_.connection->Execute(sql::SelezionaTutte(table_, selecting)); });
        step([&] { grid.requery(); });
        Modified.raise();
      });
}

void DiscountGrid::CheckClick() {
  trap(context_.services, check.Name() + "_Click",
       [&](Steps& step) { step([&] { grid.setEnabled(toBoolean(CDecN(check.value()))); }); });
}

}  // namespace kebu::forms
