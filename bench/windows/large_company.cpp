// A database file with the demo company and 100,100 articles, 100,000 customers' prices.
//
//   kebu_large_company DATABASE
#include "bench/large_companies.h"
#include "bench/windows/on_dll.h"
#include "workbench/cli/company_file.h"

namespace {

void make(const std::string& path) {
  using namespace kebu::workbench;
  createCompanyFile(path);
  kebu::engine::Session session(openCompany(path));
  fillWithArticles(session);
  fillWithPrices(session);
}

}  // namespace

int main(int argc, char** argv) {
  return kebu::bench::onDll(argc, argv, "kebu_large_company", make);
}
