#include "sql/discount_candidates.h"

#include <string_view>

#include "sql/script.h"
#include "sql/text.h"

namespace kebu::sql {

namespace {

/// One SELECT over a source: its columns in the order of the kind, and what follows.
class Candidates {
 public:
  Candidates(const DiscountKind& kind, const DiscountSource& source, const Company& company,
             std::int32_t priceRows)
      : kind_(kind), source_(source), company_(company), priceRows_(priceRows) {}

  std::string select(const std::string& into) {
    script_.line("SELECT");
    columns();
    if (!into.empty()) script_.line(" INTO ").line(into);
    script_.line(" FROM ").line(join({source_.table, " WITH(NOLOCK)"})).lines(source_.joins);
    script_.line(" WHERE ").line(join({own("_DITTA_CG18"), " = ", company_}));
    filter();
    if (isGrouped()) script_.line(" GROUP BY ").list(source_.groupBy);
    if (!source_.orderBy.front().empty()) script_.line(" ORDER BY ").list(source_.orderBy);
    return script_.text();
  }

 private:
  bool onPrice() const { return kind_.mode == DiscountMode::OnPrice; }
  bool isGrouped() const { return !source_.groupBy.front().empty(); }
  std::string own(std::string_view column) const { return join({source_.prefix(), column}); }
  /// A column of the source, or its aggregate where rows are grouped.
  std::string one(std::string_view aggregate, const std::string& expression) const {
    return isGrouped() ? join({aggregate, "(", expression, ")"}) : expression;
  }

  /// Ends a column: its alias, and the comma before the next one.
  void column(std::string_view expression, std::string_view alias, bool last = false) {
    script_.line(join({expression, " as ", alias, last ? "" : ","}));
  }
  void nulls(std::initializer_list<std::string_view> aliases) {
    for (const std::string_view alias : aliases) column("NULL", alias);
  }

  void columns();
  void description(const Description& description);
  void articleDescription(std::string_view code, std::string_view alias);
  void familyPath(const Description& description);
  void validity(bool last);
  void ruleName();
  void priceColumns();
  void gridColumns();
  void options(bool last);
  void filter();

  const DiscountKind& kind_;
  const DiscountSource& source_;
  const Company& company_;
  std::int32_t priceRows_;
  Script script_;
};

void Candidates::columns() {
  if (kind_.form != StatementForm::Union) {
    const std::string by =
        source_.numberedBy.empty() ? own("_DITTA_CG18") : std::string(source_.numberedBy);
    column(join({"ROW_NUMBER() OVER(ORDER BY ", by, " ASC)"}), "GM61_ID");
  }
  column(own("_DITTA_CG18"), "GM61_DITTA_CG18");
  column(std::to_string(kind_.listType), "GM61_INDTIPOLISTINO");
  column(join({"'", source_.label, "'"}), "GM61_DESCLISTCORVANE");
  column("0", "GM61_ATTIVA");
  if (!source_.customer.empty()) column(source_.customer, "GM61_CODCLIENTE");
  description(source_.desc1);
  description(source_.desc2);
  if (!source_.article.empty()) {
    column(source_.article, "GM61_CODART_MG66");
    column(source_.option, "GM61_OPZIONE_MG5E");
  }
  if (!source_.families.front().empty()) {
    column(source_.families[0], "GM61_FAM_MG53");
    column(source_.families[1], "GM61_SFAM_MG54");
    column(source_.families[2], "GM61_GRUPPO_MG55");
    column(source_.families[3], "GM61_SGRUPPO_MG56");
  }
  if (onPrice()) {
    priceColumns();
  } else {
    gridColumns();
  }
}

void Candidates::description(const Description& description) {
  switch (description.form) {
    case DescriptionForm::Absent:
      return;
    case DescriptionForm::Expression:
      script_.lines(description.expression);
      script_.line(join({"as ", description.alias, ","}));
      return;
    case DescriptionForm::Article:
      articleDescription(join({"LTRIM(RTRIM(", source_.article, "))"}), description.alias);
      return;
    case DescriptionForm::ArticleAsStored:
      articleDescription(join({source_.table, ".", source_.article}), description.alias);
      return;
    case DescriptionForm::FamilyPath:
      familyPath(description);
      return;
  }
}

void Candidates::articleDescription(std::string_view code, std::string_view alias) {
  script_.line(join({"CASE ISNULL(", source_.option, ",'')"}))
      .line("WHEN '' THEN")
      .line(code)
      .line("ELSE")
      .line(join({code, " + '/' + ", source_.option}))
      .line(join({"END as ", alias, ","}));
}

// The deepest level first: with it set, all levels above are shown, empty ones too.
void Candidates::familyPath(const Description& description) {
  const auto& [family, subFamily, group, subGroup] = source_.families;
  const std::string_view after = description.expression.front();
  std::string paths[4];
  paths[0] = join({"LTRIM(RTRIM(", family, "))"});
  paths[1] = join({paths[0], " + '/' + ", subFamily});
  paths[2] = join({paths[1], " + '/' + ", group});
  paths[3] = join({paths[2], " + '/' + ", subGroup});
  for (std::size_t level = 3; level > 0; --level) {
    script_.line(join({"CASE WHEN ISNULL(", source_.families[level], ",'')<>'' THEN"}))
        .line(join({paths[level], after}))
        .line("ELSE");
  }
  script_.line(join({paths[0], after})).line("END").line("END");
  script_.line(join({"END as ", description.alias, ","}));
}

void Candidates::validity(bool last) {
  column(one("max", own("_DATAINIZIOVAL")), "GM61_DATAINIZIO");
  column(one("min", own("_DATAFINEVAL")), "GM61_DATAFINE", last);
}

void Candidates::ruleName() {
  const std::string number = join({"ROW_NUMBER() OVER(ORDER BY ", own("_DITTA_CG18"), " ASC)"});
  const std::string_view label = source_.nameLabel.empty() ? source_.label : source_.nameLabel;
  std::string name = join({"'", label, " - ' + CAST("});
  if (source_.namedFromIdentity) name += "IDENT_CURRENT('GM61_KBDISCOUNTRULES') ";
  if (!onPrice()) name += join({"   + ", std::to_string(priceRows_), "\r\n"});
  name += join({source_.namedFromIdentity ? "+ " : "", number, " as varchar)"});
  column(name, "GM61_NOMEREGOLA");
}

void Candidates::options(bool last) {
  nulls({"GM61_FLGPRZBARRATI", "GM61_FLGNONTRATTAREALTRISC", "GM61_FLGMONOUSO",
         "GM61_INDREGOLEINCLUSIONE"});
  column(kind_.saved.position ? "1" : "NULL", "GM61_POSIZIONE");
  column("NULL", "GM61_DATAULTAGG", last);
}

void Candidates::priceColumns() {
  validity(false);
  column("1", "GM61_FLGSCONTISUPRZ");
  column("0", "GM61_FLGGRIGLIASCONTI");
  ruleName();
  column("0", "GM61_TIPOSCONTO");
  const std::string price = own("_PREZZO");
  const std::string discount = own("_SC1PER");
  column(one("max", discount), "GM61_SC1PER");
  column(one("max", price), "GM61_PREZZOLORDO");
  column(one("max", join({price, " - ((", price, " / 100 ) * ", discount, ")"})),
         "GM61_PREZZONETTO");
  column("0", "GM61_CAMPOCORVANE");
  options(true);
}

void Candidates::gridColumns() {
  ruleName();
  column("0", "GM61_TIPOSCONTO");
  column("NULL", "GM61_VALORESCONTO");
  column("1", "GM61_TIPOGRIGLIASCONTO");
  for (const char step : std::string_view("0123456789")) {
    const std::string_view number(&step, 1);
    column("NULL", join({"GM61_GRIGLIAVALINF", number}));
    column("NULL", join({"GM61_GRIGLIAVALORESC", number}));
  }
  nulls({"GM61_SC1PER", "GM61_PREZZOLORDO", "GM61_PREZZONETTO"});
  column("0", "GM61_CAMPOCORVANE");
  options(false);
  validity(true);
}

void Candidates::filter() {
  for (const std::string_view piece : source_.filter) {
    if (piece == validToday) {
      script_.line(join({"AND ", own("_DATAINIZIOVAL"), " <= GETDATE()"}))
          .line(join({"AND ", own("_DATAFINEVAL"), " >= GETDATE()"}));
    } else if (!piece.empty()) {
      script_.line(piece);
    }
  }
}

std::string copied(const std::string& table, const std::string& query) {
  return join({"SELECT * INTO ", table, " FROM (", query, ") AS TMP"});
}

}  // namespace

std::string CreaCandidati(const std::string& table, const Company& company,
                          const DiscountKind& kind, std::int32_t priceRows) {
  const auto select = [&](const DiscountSource& source, const std::string& into) {
    return Candidates(kind, source, company, priceRows).select(into);
  };
  switch (kind.form) {
    case StatementForm::Single:
      return select(kind.sources.front(), table);
    case StatementForm::Wrapped:
      // The second pair of parentheses is meant.
      return copied(table, join({"(", select(kind.sources.front(), ""), ")"}));
    case StatementForm::Union:
      break;
  }
  std::string branches;
  for (const DiscountSource& source : kind.sources) {
    branches += (branches.empty() ? "" : " UNION ") + select(source, "");
  }
  return copied(table, join({"SELECT \r\n",
                             "ROW_NUMBER() OVER(ORDER BY TMPINTERNA.GM61_DITTA_CG18 ASC) AS "
                             "GM61_ID",
                             " ,*", " FROM", "(", branches, ") AS TMPINTERNA"}));
}

std::string RigheCandidati(const std::string& table, const DiscountKind& kind) {
  return join({"SELECT * FROM ", table, kind.rowsOrder});
}

}  // namespace kebu::sql
