#include "sql/working_tables.h"

#include "sql/text.h"

namespace kebu::sql {

std::string NuovoIdentificativo() {
  return "SELECT NEWID()";
}

std::string EliminaTabellaLavoro(const std::string& table) {
  return join({" if object_id('tempdb..", table, "') is not null ", " BEGIN ", " DROP TABLE ",
               table, " END "});
}

}  // namespace kebu::sql
