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

/// A host whose user answers as the test says.
class AnsweringServices : public Services {
 public:
  using Services::Services;
  std::int16_t VisualizzaErrore(const std::string& procedure, const RuntimeError&) override {
    errors.push_back(procedure);
    return static_cast<std::int16_t>(answer);
  }
  std::vector<std::string> errors;
  ErrorAnswer answer = ErrorAnswer::Abort;
};

bool composerFails = false;
std::string composePredicate(const QueryColumn& column, const QueryCondition& condition) {
  if (composerFails) throw RuntimeError::internalError("no predicate");
  return sql::composePredicate(column, condition);
}

// An empty condition publishes everything, so the save must not go on with it.
TEST(FilterPages, CancelTheSaveWhenABuilderWasLeftByAbort) {
  tests::TestWorkplace workplace;
  workplace.open();
  Window window(workplace.runtime().desktop);
  AnsweringServices services(workplace.runtime().platform, window);
  services.setHost(workplace.plugin());
  controls::RecordFrame profile("FME_ANAGRAFICA", services);
  controls::RecordFrame parameters("FME_PARAMETRI", services);
  PageContext context(workplace.runtime(), services, profile);
  context.company = std::int32_t{1};
  context.hostServices.savedFilters = std::make_shared<RecordingStore>();
  composerFails = false;
  FilterPages pages(context, {composePredicate, sql::composeConjunction});
  pages.ImpostaEnQuery();
  const auto save = [&] {
    bool cancel = false;
    procedure(context, "test", [&](Procedure& p) { pages.storeConditions(parameters, cancel, p); });
    return !cancel;
  };
  composerFails = true;
  EXPECT_EQ(pages.StringaLimitiClienti(), "");
  services.errors.clear();
  EXPECT_FALSE(save());
  EXPECT_EQ(services.errors, std::vector<std::string>{"StringaLimitiClienti"});
  ASSERT_FALSE(workplace.user().boxes.empty());
  EXPECT_NE(workplace.user().boxes.back().text.find("Filtro clienti"), std::string::npos);

  services.errors.clear();
  services.answer = ErrorAnswer::Ignore;
  EXPECT_TRUE(save());
  EXPECT_EQ(services.errors,
            (std::vector<std::string>{"StringaLimitiClienti", "StringaLimitiArticoli"}));
  workplace.close();
}

}  // namespace
}  // namespace kebu::forms
