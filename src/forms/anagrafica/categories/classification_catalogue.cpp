#include "forms/anagrafica/categories/classification_catalogue.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "common/convert.h"
#include "common/nulls.h"
#include "sql/categories.h"

namespace kebu::forms {

namespace {

enum Column : std::uint8_t { Entity, Code, Description, TakesCode };
constexpr std::array<const char*, 4> columns{"GM23_INDENTITA", "GM23_CODICE", "GM23_DESCRIZIONE",
                                             "GM23_INDCODAGG"};

template <class Cell>
ClassificationCatalogue::Entry entryOf(const Cell& cell) {
  return {toInt32(CDecN(cell(Entity))), cell(Code), RTrimN(cell(Description)),
          equalAsVariants(CDecN(cell(TakesCode)), std::int32_t{1})};
}

}  // namespace

void ClassificationCatalogue::open(const PageContext& context) {
  rows_.reset();
  rows_ = context.openReadable(sql::Classificazioni());
}

std::vector<ClassificationCatalogue::Entry> ClassificationCatalogue::entries() const {
  std::vector<Entry> all;
  if (!rows_ || rows_->EOF_()) return all;
  std::array<std::size_t, columns.size()> places{};
  std::transform(columns.begin(), columns.end(), places.begin(),
                 [&](const char* column) { return ado::requireIndex(rows_->fields(), column); });
  const auto rows = rows_->GetRows(-1);
  all.reserve(rows.size());
  for (const RowValues& row : rows) {
    all.push_back(entryOf([&](Column column) -> const Value& { return row[places[column]]; }));
  }
  return all;
}

std::optional<ClassificationCatalogue::Entry> ClassificationCatalogue::find(
    int entity, const std::string& code) const {
  if (!rows_) return std::nullopt;
  rows_->setFilter(sql::FiltroClassificazione(entity, code));
  if (rows_->EOF_()) return std::nullopt;
  return entryOf([&](Column column) { return rows_->value(columns[column]); });
}

}  // namespace kebu::forms
