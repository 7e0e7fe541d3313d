#include "sql/preview.h"

#include <string_view>

#include "sql/text.h"

namespace kebu::sql {

std::string NomeTabella(int kind) {
  const std::string standard =
      kind == 1 ? "VGM16_KBWSUSERS_KELMORIA" : "VGM19_KBWSPRODUCTS_KELMORIA";
  const std::string override = standard + "_PERS";
  return lines({join({" IF EXISTS(select * FROM sys.views where name = '", override, "') "}),
                join({"     select '", override, "' as Tabella ", " ELSE ", "     select '",
                      standard, "' as Tabella "})});
}

// Both texts begin with a line end of their own.
std::string ClientiPubblicati(const std::string& view, const Company& company,
                              const std::string& filter) {
  return "\r\n" +
         lines({" select *  ", join({" from ", view}),
                join({" where CG44_DITTA_CG18 = ", company, " and Email is not NULL ", filter})});
}

std::string ArticoliPubblicati(const std::string& view, const Company& company,
                               const std::string& filter) {
  return "\r\n" + lines({" select v.*  ", join({" from ", view, " v "}),
                         join({" where MG87_DITTA_CG18 = ", company, filter})});
}

}  // namespace kebu::sql
