#include "forms/anagrafica/categories/classification_catalogue.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "sql/categories.h"

namespace kebu::forms {

void ClassificationCatalogue::open(const PageContext& context) {
  rows_.reset();
  rows_ = context.openReadable(sql::Classificazioni());
}

ClassificationCatalogue::Entry ClassificationCatalogue::current() const {
  return {toInt32(CDecN(rows_->value("GM23_INDENTITA"))), rows_->value("GM23_CODICE"),
          RTrimN(rows_->value("GM23_DESCRIZIONE")),
          equalAsVariants(CDecN(rows_->value("GM23_INDCODAGG")), std::int32_t{1})};
}

std::optional<ClassificationCatalogue::Entry> ClassificationCatalogue::find(
    int entity, const std::string& code) const {
  if (!rows_) return std::nullopt;
  rows_->setFilter(sql::FiltroClassificazione(entity, code));
  if (rows_->EOF_()) return std::nullopt;
  return current();
}

}  // namespace kebu::forms
