#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace kebu::sql {

/// How a discount rule works: on the price, or by a grid of quantity steps.
enum class DiscountMode { OnPrice, Grid };

/// Pieces of a statement, one a line; an empty one ends them.
using Pieces = std::array<std::string_view, 32>;

/// The columns of a rule that hold its families, from the uppermost to the lowest.
inline constexpr std::array<std::string_view, 4> ruleFamilies{
    "GM61_FAM_MG53", "GM61_SFAM_MG54", "GM61_GRUPPO_MG55", "GM61_SGRUPPO_MG56"};

/// Stands among a source's conditions for the two that make a row valid today.
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
  /// How the rule's value is compared; with NumberIfKnown a rule without a value goes without the
  /// condition.
  enum class Form { Text, Number, NumberIfKnown };

  std::string_view column = {};  ///< of the price list
  std::string_view field = {};   ///< of the rule
  Form form = Form::Text;
};

/// How the quantity steps of a rule are read: by these conditions, the keys, and the rule's dates.
struct StepRead {
  Pieces filter = {};
  std::array<StepKey, 4> keys = {};
};

/// One of the ERP's price lists as candidates come from it. Columns that all
/// lists have (company, validity, price, first discount) go by the prefix().
struct DiscountSource {
  std::string_view label;           ///< GM61_DESCLISTCORVANE
  std::string_view nameLabel = {};  ///< how rule names begin, where that is not the label
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
  /// Whether rule names count on from the identity of GM61_KBDISCOUNTRULES.
  bool namedFromIdentity = true;
  std::string_view numberedBy = {};  ///< what numbers the rows, where it is qualified

  /// With which the names of the table and its columns begin.
  constexpr std::string_view prefix() const { return table.substr(0, 4); }
};

enum class StatementForm {
  Single,   ///< SELECT … INTO
  Union,    ///< the sources united, numbered outside
  Wrapped,  ///< one SELECT in parentheses, copied from outside
};

/// What a stored rule has beyond the columns that rules of every kind have.
struct SavedColumns {
  enum class Customer { FromRow, Null, Absent } customer;
  bool families;      ///< GM61_FAM_MG53 to GM61_SGRUPPO_MG56
  bool descriptions;  ///< GM61_DESC1 and GM61_DESC2
  /// GM61_POSIZIONE: the rules have a place in an order. Candidates begin with 1, and the user
  /// edits it in the grid.
  bool position;
};

/// One of the eight kinds of discount rules: a mode and a list type.
struct DiscountKind {
  /// The given names of the procedures that load, compute and save the kind's rules, for errors.
  struct ProcedureNames {
    const char* carica;
    const char* aggiorna;
    const char* registra;
  };

  DiscountMode mode;
  std::int32_t listType;  ///< GM61_INDTIPOLISTINO
  ProcedureNames names;
  StatementForm form;  ///< of the statement that computes candidates from the sources
  std::span<const DiscountSource> sources;
  std::string_view rowsOrder = {};  ///< how the candidates are read: the end of the SELECT
  SavedColumns saved;
};

/// The eight kinds: both modes of list types 1 to 4.
std::span<const DiscountKind> discountKinds();
/// std::out_of_range for a list type that there is not.
const DiscountKind& discountKind(DiscountMode mode, std::int32_t listType);

/// The source that a rule with this label comes from; the kind's first for an unknown label.
const DiscountSource& sourceOf(const DiscountKind& kind, std::string_view label);

}  // namespace kebu::sql
