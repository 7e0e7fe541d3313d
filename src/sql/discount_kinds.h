#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace kebu::sql {

/// How a discount rule works: on the price, or by a grid of steps.
enum class DiscountMode { OnPrice, Grid };

/// Pieces of a statement, one a line; an empty one ends them.
using Pieces = std::array<std::string_view, 32>;

/// The piece among a source's conditions that stands for "valid today".
inline constexpr std::string_view validToday = "{validity}";

/// How a description of a candidate is made.
enum class DescriptionForm {
  Absent,           ///< the kind has no such column
  Expression,       ///< as the source states it
  Article,          ///< the article's code trimmed, with a slash and the option
  ArticleAsStored,  ///< the same with the code untrimmed
  FamilyPath,       ///< the families down to the deepest that is set
};

struct Description {
  DescriptionForm form = DescriptionForm::Absent;
  std::string_view alias = {};
  /// The expression; for a family path what follows it.
  Pieces expression = {};
};

/// A column by which the quantity steps of a rule are found again.
struct StepKey {
  enum class Form { Text, Number, NumberIfKnown };

  std::string_view column = {};  ///< of the price list
  std::string_view field = {};   ///< of the rule
  Form form = Form::Text;
};

/// How they are read: by these conditions, the keys, and the rule's own dates.
struct StepRead {
  Pieces filter = {};
  std::array<StepKey, 4> keys = {};
};

/// One of the ERP's price lists as candidates come from it. Columns that all
/// lists have (company, validity, price, first discount) go by the prefix.
struct DiscountSource {
  std::string_view label;      ///< GM61_DESCLISTCORVANE
  std::string_view nameLabel;  ///< the label as rule names begin
  std::string_view prefix;
  std::string_view table;
  std::string_view customer = {};  ///< expressions; "" where the kind has no such column
  Description desc1 = {};
  Description desc2 = {};
  std::string_view article = {};
  std::string_view option = {};
  std::array<std::string_view, 4> families = {};
  Pieces joins = {};
  Pieces filter = {};   ///< after the company's condition
  Pieces groupBy = {};  ///< with none, rows are taken one by one
  Pieces orderBy = {};
  StepRead steps = {};
  bool namedFromIdentity = true;
  std::string_view numberedBy = {};  ///< what numbers the rows, where it is qualified
};

enum class StatementForm {
  Single,   ///< SELECT … INTO
  Union,    ///< the sources united, numbered outside
  Wrapped,  ///< one SELECT in parentheses, copied from outside
};

/// The columns of a stored rule beyond those of every kind.
struct SavedColumns {
  enum class Customer { FromRow, Null, Absent } customer;
  bool families;
  bool descriptions;
  bool position;
};

/// One of the eight kinds of discount rules: a mode and a list type.
struct DiscountKind {
  DiscountMode mode;
  std::int32_t listType;  ///< GM61_INDTIPOLISTINO
  const char* carica;
  const char* aggiorna;
  const char* registra;
  StatementForm form;
  std::span<const DiscountSource> sources;
  std::string_view position;  ///< of fresh candidates
  std::string_view rowsOrder;
  SavedColumns saved;
};

/// Both modes of list types 1 to 4.
std::span<const DiscountKind> discountKinds();
const DiscountKind& discountKind(DiscountMode mode, std::int32_t listType);

/// The source that a rule with this label comes from; the kind's first for an unknown one.
const DiscountSource& sourceOf(const DiscountKind& kind, std::string_view label);

}  // namespace kebu::sql
