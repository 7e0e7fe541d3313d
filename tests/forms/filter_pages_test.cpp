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
  Services services(workplace.runtime().platform, window);
  services.setHost(workplace.plugin());
  services.setLog(workplace.plugin()->ClsGlobal()->CreateLog());
  controls::RecordFrame profile("FME_ANAGRAFICA", services);
  controls::RecordFrame parameters("FME_PARAMETRI", services);
  PageContext context(workplace.runtime(), services, profile);
  context.company = std::int32_t{1};
  context.hostServices.savedFilters = std::make_shared<RecordingStore>();
  composerFails = false;
  FilterPages pages(context, {composePredicate, sql::composeConjunction});
  pages.ImpostaEnQuery();
  const auto saves = [&](msgbox::Answer answer) {
    workplace.user().boxes.clear();
    workplace.user().answerTo = [=](const workbench::ShownMessage& box) {
      return workbench::offers(box.style, answer) ? answer : msgbox::ok;
    };
    bool cancel = false;
    procedure(context, "test", [&](Procedure& p) { pages.storeConditions(parameters, cancel, p); });
    return !cancel;
  };
  composerFails = true;
  EXPECT_FALSE(saves(msgbox::abort));
  ASSERT_EQ(workplace.user().boxes.size(), 2U);
  EXPECT_NE(workplace.user().boxes[0].text.find("StringaLimitiClienti"), std::string::npos);
  EXPECT_NE(workplace.user().boxes[1].text.find("Filtro clienti"), std::string::npos);

  EXPECT_TRUE(saves(msgbox::ignore));
  ASSERT_EQ(workplace.user().boxes.size(), 2U);
  EXPECT_NE(workplace.user().boxes[1].text.find("StringaLimitiArticoli"), std::string::npos);
  workplace.user().answerTo = [](const workbench::ShownMessage& box) {
    return workbench::wayOut(box.style);
  };
  workplace.close();
}

}  // namespace
}  // namespace kebu::forms
