#include "forms/anagrafica/filters/filter_pages.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "tests/support/test_workplace.h"

namespace kebu::forms {
namespace {

/// A store of filters that tells what it was asked.
class RecordingStore : public host::SavedFilterService {
 public:
  void Initialize(const Ref<host::Cinterface>&) override {}
  Value Load(const std::string& key, const std::string& name) override {
    calls.push_back("load " + key + ": " + name);
    const auto found = texts_.find(key + name);
    return found == texts_.end() ? Value() : Value(found->second);
  }
  void Save(const std::string& key, const std::string& name, const std::string& text,
            bool isDefault) override {
    calls.push_back("save " + key + ": " + name + (isDefault ? ", the default" : ""));
    texts_[key + name] = text;
  }

  std::vector<std::string> calls;

 private:
  std::map<std::string, std::string> texts_;
};

class Window : public controls::Form {
 public:
  explicit Window(controls::Desktop& desktop) : Form("FRM", desktop) {}
};

TEST(FilterPages, CreateTheirFiltersAsDefaultsAtTheFirstOpeningAndLoadThemAtLaterOnes) {
  tests::TestWorkplace workplace;
  workplace.open();
  Window window(workplace.runtime().desktop);
  Services services(workplace.runtime().platform, window);
  services.setHost(workplace.plugin());
  controls::RecordFrame profile("FME_ANAGRAFICA", services);
  PageContext context(workplace.runtime(), services, profile);
  context.company = std::int32_t{1};
  const auto store = std::make_shared<RecordingStore>();
  context.hostServices.savedFilters = store;

  FilterPages(context).ImpostaEnQuery();
  EXPECT_EQ(
      store->calls,
      (std::vector<std::string>{
          "load KB_CLI: Filtro clienti Tarvo", "save KB_CLI: Filtro clienti Tarvo, the default",
          "load KB_CLI: Filtro clienti Tarvo", "load KB_ART: Filtro articoli Tarvo",
          "save KB_ART: Filtro articoli Tarvo, the default",
          "load KB_ART: Filtro articoli Tarvo"}));

  store->calls.clear();
  FilterPages(context).ImpostaEnQuery();
  EXPECT_EQ(store->calls, (std::vector<std::string>{"load KB_CLI: Filtro clienti Tarvo",
                                                    "load KB_ART: Filtro articoli Tarvo"}));
  workplace.close();
}

}  // namespace
}  // namespace kebu::forms
