#include "bench/large_companies.h"

#include <string>

namespace kebu::workbench {

namespace {

constexpr int copies = 76;  // with the 1,300 originals: 100,100 articles

/// Adds copies of the company's rows; a number is appended to the article's code.
void multiply(engine::Session& session, const std::string& table, const std::string& prefix,
              const std::string& codeColumn) {
  std::string columns;
  std::string values;
  const auto empty = session.execute("SELECT TOP 1 * FROM " + table);
  for (const engine::ResultColumn& field : empty.front().columns) {
    columns += (columns.empty() ? "" : ", ") + field.name;
    values +=
        (values.empty() ? "" : ", ") +
        (field.name == codeColumn ? "RTRIM(" + field.name + ") + '-' + CAST(NUMERO AS varchar(3))"
                                  : field.name);
  }
  session.execute("INSERT INTO " + table + " (" + columns + ") SELECT " + values + " FROM " +
                  table + " CROSS JOIN ##NUMERI WHERE " + prefix + "_DITTA_CG18 = 1");
}

}  // namespace

void fillWithArticles(engine::Session& session) {
  session.execute("CREATE TABLE ##NUMERI (NUMERO int NOT NULL)");
  for (int i = 1; i <= copies; ++i) {
    session.execute("INSERT INTO ##NUMERI VALUES (" + std::to_string(i) + ")");
  }
  multiply(session, "MG66_ANAGRART", "MG66", "MG66_CODART");
  multiply(session, "MG87_ARTDESC", "MG87", "MG87_CODART_MG66");
  multiply(session, "MG70_GIACDEP", "MG70", "MG70_CODART_MG66");
  multiply(session, "KB02_PREZZIART", "KB02", "KB02_CODART_MG66");
}

void fillWithPrices(engine::Session& session) {
  session.execute(
      "DELETE FROM LI16_LISTARTCF "
      "INSERT INTO LI16_LISTARTCF (LI16_DITTA_CG18, LI16_CLIFOR_CG44, LI16_CODART_MG66, "
      "LI16_OPZIONE_MG5E, LI16_FLGLIST, LI16_DATAINIZIOVAL, LI16_DATAFINEVAL, LI16_PREZZO, "
      "LI16_SC1PER) "
      "SELECT 1, 10000 + A.N * 100 + B.N * 10 + C.N, "
      "'ART-' + CAST(100 + D.N * 10 + E.N AS varchar(3)), '', 1, '20200101', '20991231', "
      "19.9 + A.N, 10 + D.N "
      "FROM (VALUES (0),(1),(2),(3),(4),(5),(6),(7),(8),(9)) AS A (N) "
      "CROSS JOIN (VALUES (0),(1),(2),(3),(4),(5),(6),(7),(8),(9)) AS B (N) "
      "CROSS JOIN (VALUES (0),(1),(2),(3),(4),(5),(6),(7),(8),(9)) AS C (N) "
      "CROSS JOIN (VALUES (0),(1),(2),(3),(4),(5),(6),(7),(8),(9)) AS D (N) "
      "CROSS JOIN (VALUES (0),(1),(2),(3),(4),(5),(6),(7),(8),(9)) AS E (N)");
}

}  // namespace kebu::workbench
