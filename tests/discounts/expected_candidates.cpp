#include "tests/discounts/expected_candidates.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>

#include "common/convert.h"
#include "common/nulls.h"

namespace kebu::sql {

namespace {

const char* const null = "NULL";

/// A row of a price list; columns all lists have go without their prefix.
class PriceRow {
 public:
  PriceRow(std::string prefix, std::map<std::string, Value> values)
      : prefix_(std::move(prefix)), values_(std::move(values)) {}

  const Value& value(const std::string& column) const { return values_.at(prefix_ + column); }
  std::string text(const std::string& column) const { return candidateText(value(column)); }
  std::string code(const std::string& column) const { return RTrimN(value(column)); }
  Decimal number(const std::string& column) const { return toDecimal(CDecN(value(column))); }
  bool is(const std::string& column, int flag) const { return number(column) == Decimal(flag); }
  Decimal netPrice() const {
    return number("_PREZZO") * (Decimal(1) - number("_SC1PER") * Decimal::scaled(1, 2));
  }

 private:
  std::string prefix_;
  std::map<std::string, Value> values_;
};

using Rows = std::vector<PriceRow>;
using Group = std::vector<const PriceRow*>;

std::vector<std::map<std::string, Value>> read(engine::Session& session, const std::string& text) {
  const engine::ResultSet result = session.execute(text).front();
  std::vector<std::map<std::string, Value>> rows;
  for (const auto& values : result.rows) {
    auto& row = rows.emplace_back();
    for (std::size_t i = 0; i < values.size(); ++i) row[result.columns[i].name] = values[i];
  }
  return rows;
}

/// Names and values of the columns that tell what a candidate is about.
using Cells = std::vector<std::pair<std::string, std::string>>;

struct PriceList {
  std::string label;
  std::string nameLabel;
  std::string prefix;
  std::string table;
  std::function<bool(const PriceRow&)> holds;
  std::vector<std::string> key;  ///< rows that agree in it are one candidate; none: each is
  std::function<Cells(const Group&)> cells;
};

std::string pathOf(const PriceRow& row, const std::array<std::string, 4>& columns) {
  std::size_t deepest = 3;
  while (deepest > 0 && row.code(columns[deepest]).empty()) --deepest;
  std::string path = trim(row.code(columns[0]));
  for (std::size_t level = 1; level <= deepest; ++level) path += "/" + row.text(columns[level]);
  return path;
}

std::string articleOf(const PriceRow& row) {
  const std::string option = row.code("_OPZIONE_MG5E");
  return row.code("_CODART_MG66") + (option.empty() ? "" : "/" + option);
}

Cells families(const std::array<std::string, 4>& values) {
  return {{"GM61_FAM_MG53", values[0]},
          {"GM61_SFAM_MG54", values[1]},
          {"GM61_GRUPPO_MG55", values[2]},
          {"GM61_SGRUPPO_MG56", values[3]}};
}

Cells familiesOf(const PriceRow& row, const std::array<std::string, 4>& columns) {
  return families(
      {row.text(columns[0]), row.text(columns[1]), row.text(columns[2]), row.text(columns[3])});
}

Cells articleCells(const PriceRow& row, const std::string& desc2,
                   const std::array<std::string, 4>& path = {null, null, null, null}) {
  Cells cells{{"GM61_DESC1", articleOf(row)},
              {"GM61_DESC2", desc2},
              {"GM61_CODART_MG66", row.text("_CODART_MG66")},
              {"GM61_OPZIONE_MG5E", row.text("_OPZIONE_MG5E")}};
  for (const auto& cell : families(path)) cells.push_back(cell);
  return cells;
}

Cells pathCells(const PriceRow& row, const std::array<std::string, 4>& columns,
                const std::string& desc2) {
  Cells cells{{"GM61_DESC1", pathOf(row, columns)},
              {"GM61_DESC2", desc2},
              {"GM61_CODART_MG66", null},
              {"GM61_OPZIONE_MG5E", null}};
  for (const auto& cell : familiesOf(row, columns)) cells.push_back(cell);
  return cells;
}

bool isSale(const PriceRow& row) {
  return row.is("_FLGUSODECOR", 0) && row.is("_FLGVENDACQ", 0);
}

bool isSaleInEuro(const PriceRow& row) {
  return isSale(row) && row.code("_CODICE_CG08") == "EURO";
}

/// Descriptions of areas or categories by their codes, joined by "/".
std::map<std::string, std::string> descriptions(engine::Session& session,
                                                const std::string& company,
                                                const std::array<std::string, 3>& statements) {
  std::map<std::string, std::string> found;
  for (const std::string& statement : statements) {
    const engine::ResultSet result = session.execute(statement + company).front();
    for (const auto& values : result.rows) {
      std::string codes;
      for (std::size_t i = 0; i + 1 < values.size(); ++i) codes += "/" + RTrimN(values[i]);
      found[codes] = toText(values.back());
    }
  }
  return found;
}

/// "NOR-Nord/TRI-Triveneto"; NULL when a level has no description.
std::string describedPath(const PriceRow& row, const std::array<std::string, 3>& columns,
                          const std::map<std::string, std::string>& names) {
  std::string codes;
  std::string path;
  for (const std::string& column : columns) {
    const std::string code = row.code(column);
    if (code.empty() && !codes.empty()) continue;
    codes += "/" + code;
    const auto name = names.find(codes);
    if (name == names.end()) return null;
    path += (path.empty() ? "" : "/") + code + "-" + name->second;
  }
  return path;
}

const std::array<std::string, 4> aPath{"_AFAM_MG53", "_ASFAM_MG54", "_AGRUP_MG55", "_ASGRUP_MG56"};
const std::array<std::string, 4> stepPath{"_FAM_MG53", "_SFAM_MG54", "_GRUP_MG55", "_SGRUP_MG56"};

PriceList articleList(bool grouped) {
  return {"Lis. Anag. art.",
          "Lis. Anag. art.",
          "LI10",
          "LI10_LISTARTIC",
          [](const PriceRow& r) {
            return isSale(r) && r.is("_INDTIPOLIS", 0) && r.code("_DEPOS_MG58").empty();
          },
          grouped ? std::vector<std::string>{"_CODART_MG66", "_OPZIONE_MG5E", "_NUMLIST"}
                  : std::vector<std::string>{},
          [](const Group& g) { return articleCells(*g.front(), g.front()->text("_NUMLIST")); }};
}

PriceList depositList() {
  return {"Lis. art./dep.",
          "Lis. art./dep.",
          "LI10",
          "LI10_LISTARTIC",
          [](const PriceRow& r) {
            return isSale(r) && r.is("_INDTIPOLIS", 1) && !r.code("_DEPOS_MG58").empty();
          },
          {"_CODART_MG66", "_OPZIONE_MG5E", "_NUMLIST"},
          [](const Group& g) {
            std::string last;
            for (const PriceRow* r : g) last = std::max(last, r->text("_DEPOS_MG58"));
            return articleCells(*g.front(), last);
          }};
}

PriceList describedList(const std::string& label, const std::string& nameLabel,
                        const std::string& prefix, const std::string& table,
                        const std::array<std::string, 3>& columns,
                        const std::map<std::string, std::string>& names) {
  return {label,
          nameLabel,
          prefix,
          table,
          isSaleInEuro,
          {"_CODART_MG66", "_OPZIONE_MG5E", columns[0], columns[1], columns[2]},
          [columns, names](const Group& g) {
            const PriceRow& r = *g.front();
            return articleCells(r, describedPath(r, columns, names),
                                {r.text(columns[0]), r.text(columns[1]), r.text(columns[2]), null});
          }};
}

PriceList familyList(bool grouped) {
  return {
      "Lis. cod. parlante",
      "Lis. cod. parlante",
      "LI33",
      "LI33_LISTCODP",
      [](const PriceRow& r) { return isSaleInEuro(r) && r.is("_INDTIPOLIS", 0); },
      grouped ? std::vector<std::string>(aPath.begin(), aPath.end()) : std::vector<std::string>{},
      [](const Group& g) { return pathCells(*g.front(), aPath, ""); }};
}

PriceList stepList(bool byList) {
  std::vector<std::string> key{"_CODART_MG66", "_OPZIONE_MG5E"};
  if (byList) key.emplace_back("_NUMLISTUTIL");
  return {"Lis. art./scagl. qtà",
          "Lis. art./scagl. qtà",
          "LI14",
          "LI14_LISTARTQTA",
          isSaleInEuro,
          key,
          [byList](const Group& g) {
            return articleCells(*g.front(), byList ? g.front()->text("_NUMLISTUTIL") : null);
          }};
}

PriceList familyStepList() {
  return {"Lis. cod. parlante/scagl. qtà",
          "Lis. cod. parlante/scagl. qtà",
          "LI34",
          "LI34_LISTCODPQTA",
          isSaleInEuro,
          std::vector<std::string>(stepPath.begin(), stepPath.end()),
          [](const Group& g) { return pathCells(*g.front(), stepPath, null); }};
}

bool isCustomersStep(const PriceRow& row) {
  return row.is("_FLGUSODECOR", 0) && row.is("_TIPOCF_CG44", 0) &&
         row.code("_CODICE_CG08") == "EURO";
}

Cells customerArticleCells(const Group& g) {
  const PriceRow& r = *g.front();
  return {{"GM61_CODCLIENTE", r.text("_CLIFOR_CG44")},
          {"GM61_DESC1", articleOf(r)},
          {"GM61_CODART_MG66", r.text("_CODART_MG66")},
          {"GM61_OPZIONE_MG5E", r.text("_OPZIONE_MG5E")}};
}

PriceList customerSteps() {
  return {"Lis. Cli./Art./Scagl. qtà",
          "Lis. Cli./Art./Scagl. qtà",
          "LI15",
          "LI15_LISTARTCFQTA",
          [](const PriceRow& r) { return isCustomersStep(r) && r.is("_FLGLIST", 1); },
          {"_CLIFOR_CG44", "_CODART_MG66", "_OPZIONE_MG5E"},
          customerArticleCells};
}

PriceList customerFamilySteps(engine::Session& session, const std::string& company) {
  // The families of the articles, by the article.
  const std::array<std::string, 4> columns{"_FAM_MG53", "_SFAM_MG54", "_GRUPPO_MG55",
                                           "_SGRUPPO_MG56"};
  std::map<std::string, PriceRow> articles;
  for (auto& row :
       read(session, "SELECT * FROM MG66_ANAGRART WHERE MG66_DITTA_CG18 = " + company)) {
    const std::string code = RTrimN(row.at("MG66_CODART"));
    articles.emplace(code, PriceRow("MG66", std::move(row)));
  }
  const auto articleOfRow = [articles](const PriceRow& r) {
    const auto found = articles.find(r.code("_CODART_MG66"));
    return found == articles.end() ? std::nullopt : std::optional<PriceRow>(found->second);
  };
  return {"Lis. cli./art./scagl. qtà",
          "Lis. cli./art./scagl. qtà",
          "LI15",
          "LI15_LISTARTCFQTA",
          [articleOfRow](const PriceRow& r) {
            const auto article = articleOfRow(r);
            return isCustomersStep(r) && r.code("_OPZIONE_MG5E").empty() && article &&
                   !article->code("_FAM_MG53").empty();
          },
          {"_CLIFOR_CG44", "_CODART_MG66", "_OPZIONE_MG5E"},
          [articleOfRow, columns](const Group& g) {
            const PriceRow& r = *g.front();
            const PriceRow article = articleOfRow(r).value();
            Cells cells{
                {"GM61_CODCLIENTE", r.text("_CLIFOR_CG44")},
                {"GM61_DESC1", r.text("_CLIFOR_CG44")},
                {"GM61_DESC2", pathOf(article, columns) + " (" + r.code("_CODART_MG66") + ")"},
                {"GM61_CODART_MG66", r.text("_CODART_MG66")},
                {"GM61_OPZIONE_MG5E", r.text("_OPZIONE_MG5E")}};
            for (const auto& cell : familiesOf(article, columns)) cells.push_back(cell);
            return cells;
          }};
}

PriceList customerArticles() {
  return {"Lis. Cli./Art.",
          "Lis. Cli./Art.",
          "LI16",
          "LI16_LISTARTCF",
          [](const PriceRow& r) { return r.is("_TIPOCF_CG44", 0) && r.is("_FLGLIST", 1); },
          {"_CLIFOR_CG44", "_CODART_MG66", "_OPZIONE_MG5E"},
          customerArticleCells};
}

PriceList customerFamilies() {
  return {"Lis. Cliente / cod. parl.",
          "Lis. Cliente / cod. parl.",
          "LI18",
          "LI18_LISTCFCODP",
          [](const PriceRow& r) {
            return r.is("_TIPOCF_CG44", 0) && r.is("_FLGUSODECOR", 0) && r.is("_FLGLIST", 1);
          },
          {},
          [](const Group& g) {
            const PriceRow& r = *g.front();
            Cells cells{{"GM61_CODCLIENTE", r.text("_CLIFOR_CG44")},
                        {"GM61_DESC1", r.text("_CLIFOR_CG44")},
                        {"GM61_DESC2", pathOf(r, aPath)}};
            for (const auto& cell : familiesOf(r, aPath)) cells.push_back(cell);
            return cells;
          }};
}

std::vector<PriceList> listsOf(engine::Session& session, DiscountMode mode, std::int32_t listType,
                               const std::string& company) {
  const bool onPrice = mode == DiscountMode::OnPrice;
  switch (listType) {
    case 1:
      return {onPrice ? customerArticles() : customerSteps()};
    case 3:
      return {onPrice ? customerFamilies() : customerFamilySteps(session, company)};
    case 4:
      if (onPrice) return {articleList(false), familyList(false)};
      return {stepList(false), familyStepList()};
    default:
      break;
  }
  if (!onPrice) return {stepList(true), familyStepList()};
  const auto areas = descriptions(
      session, company,
      {"SELECT MG07_MACROAREA, MG07_DESCRMACROAR FROM MG07_MACROAREE WHERE MG07_TIPOCF = 0 AND "
       "MG07_DITTA_CG18 = ",
       "SELECT MG08_MACROAREA_MG07, MG08_AREA, MG08_DESCRAREA FROM MG08_AREE WHERE "
       "MG08_TIPOCF_MG07 = 0 AND MG08_DITTA_CG18 = ",
       "SELECT MG09_MACROAREA_MG08, MG09_AREA_MG08, MG09_ZONA, MG09_DESCRZONA FROM MG09_ZONE WHERE "
       "MG09_TIPOCF_MG08 = 0 AND MG09_DITTA_CG18 = "});
  const auto categories = descriptions(
      session, company,
      {"SELECT MG10_MACROCAT, MG10_DESCRMACROCAT FROM MG10_MACROCAT WHERE MG10_TIPOCF = 0 AND "
       "MG10_DITTA_CG18 = ",
       "SELECT MG11_MACROCAT_MG10, MG11_CATEG, MG11_DESCRCAT FROM MG11_CATEG WHERE "
       "MG11_TIPOCF_MG10 = 0 AND MG11_DITTA_CG18 = ",
       "SELECT MG12_MACROCAT_MG11, MG12_CATEG_MG11, MG12_SOTTOCAT, MG12_DESCRSOTTOCAT FROM "
       "MG12_SOTTOCAT WHERE MG12_TIPOCF_MG11 = 0 AND MG12_DITTA_CG18 = "});
  return {articleList(true), depositList(),
          describedList("Lis. art./mca./area/zona", "Lis. art./mca./area/zona.", "LI12",
                        "LI12_LISTARTZONE", {"_MACROAREA_MG07", "_AREA_MG08", "_ZONA_MG09"}, areas),
          describedList("Lis. art./mct./cat./scat.", "Lis. art./mct./cat./scat.", "LI13",
                        "LI13_LISTARTCAT", {"_MACROCAT_MG10", "_CATEG_MG11", "_SOTTCAT_MG12"},
                        categories),
          familyList(true)};
}

std::string highest(const Group& group, const std::function<Decimal(const PriceRow&)>& of) {
  Decimal found = of(*group.front());
  for (const PriceRow* row : group) found = std::max(found, of(*row));
  return candidateText(found);
}

Candidate candidateOf(const PriceList& list, const Group& group, DiscountMode mode,
                      std::int32_t listType, const std::string& company) {
  std::string from = group.front()->text("_DATAINIZIOVAL");
  std::string until = group.front()->text("_DATAFINEVAL");
  for (const PriceRow* row : group) {
    from = std::max(from, row->text("_DATAINIZIOVAL"));
    until = std::min(until, row->text("_DATAFINEVAL"));
  }
  const std::string position = listType == 4 ? "1" : null;
  const auto column = [](const char* name) {
    return [name](const PriceRow& r) { return r.number(name); };
  };

  Candidate candidate{{"GM61_DITTA_CG18", company},
                      {"GM61_INDTIPOLISTINO", std::to_string(listType)},
                      {"GM61_DESCLISTCORVANE", list.label},
                      {"GM61_ATTIVA", "0"}};
  const auto add = [&](const Cells& cells) {
    candidate.insert(candidate.end(), cells.begin(), cells.end());
  };
  const Cells options{{"GM61_CAMPOCORVANE", "0"},
                      {"GM61_FLGPRZBARRATI", null},
                      {"GM61_FLGNONTRATTAREALTRISC", null},
                      {"GM61_FLGMONOUSO", null},
                      {"GM61_INDREGOLEINCLUSIONE", null},
                      {"GM61_POSIZIONE", position},
                      {"GM61_DATAULTAGG", null}};
  const Cells validity{{"GM61_DATAINIZIO", from}, {"GM61_DATAFINE", until}};
  add(list.cells(group));
  if (mode == DiscountMode::OnPrice) {
    add(validity);
    add({{"GM61_FLGSCONTISUPRZ", "1"},
         {"GM61_FLGGRIGLIASCONTI", "0"},
         {"GM61_NOMEREGOLA", list.nameLabel + " - "},
         {"GM61_TIPOSCONTO", "0"},
         {"GM61_SC1PER", highest(group, column("_SC1PER"))},
         {"GM61_PREZZOLORDO", highest(group, column("_PREZZO"))},
         {"GM61_PREZZONETTO", highest(group, [](const PriceRow& r) { return r.netPrice(); })}});
    add(options);
  } else {
    add({{"GM61_NOMEREGOLA", list.nameLabel + " - "},
         {"GM61_TIPOSCONTO", "0"},
         {"GM61_VALORESCONTO", null},
         {"GM61_TIPOGRIGLIASCONTO", "1"}});
    for (int step = 0; step < 10; ++step) {
      add({{"GM61_GRIGLIAVALINF" + std::to_string(step), null},
           {"GM61_GRIGLIAVALORESC" + std::to_string(step), null}});
    }
    add({{"GM61_SC1PER", null}, {"GM61_PREZZOLORDO", null}, {"GM61_PREZZONETTO", null}});
    add(options);
    add(validity);
  }
  return candidate;
}

}  // namespace

std::string candidateText(const Value& value) {
  if (value.isEmpty() || value.isNull()) return null;
  if (value.holds<Date>()) return value.as<Date>().toAnsi();
  return value.isNumber() ? toSqlNumber(value) : toText(value);
}

std::vector<Candidate> expectedCandidates(engine::Session& session, DiscountMode mode,
                                          std::int32_t listType, const std::string& company) {
  const std::string today = candidateText(session.execute("SELECT GETDATE()").front().rows[0][0]);
  std::vector<Candidate> candidates;
  for (const PriceList& list : listsOf(session, mode, listType, company)) {
    Rows rows;
    for (auto& values : read(session, "SELECT * FROM " + list.table + " WHERE " + list.prefix +
                                          "_DITTA_CG18 = " + company)) {
      rows.emplace_back(list.prefix, std::move(values));
    }
    std::map<std::string, Group> groups;
    for (const PriceRow& row : rows) {
      const bool isValid = row.text("_DATAINIZIOVAL") <= today && today <= row.text("_DATAFINEVAL");
      if (!isValid || !list.holds(row)) continue;
      std::string key = list.key.empty() ? row.text("_ID") : "";
      for (const std::string& column : list.key) key += row.code(column) + '|';
      groups[key].push_back(&row);
    }
    for (const auto& [key, group] : groups) {
      candidates.push_back(candidateOf(list, group, mode, listType, company));
    }
  }
  return candidates;
}

}  // namespace kebu::sql
