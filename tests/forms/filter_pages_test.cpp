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

/// Pages of their own beside the window's, on the services of an open plug-in.
class FilterPagesTest : public testing::Test {
 protected:
  FilterPagesTest() {
    workplace.open();
    services.setHost(workplace.plugin());
    context.company = std::int32_t{1};
    context.hostServices.savedFilters = store;
  }

  tests::TestWorkplace workplace;
  Window window{workplace.runtime().desktop};
  Services services{workplace.runtime().platform, window};
  controls::RecordFrame profile{"FME_ANAGRAFICA", services};
  PageContext context{workplace.runtime(), services, profile};
  controls::ProgressBar bar{"PBAR"};
  std::shared_ptr<RecordingStore> store = std::make_shared<RecordingStore>();
};

TEST_F(FilterPagesTest, CreateTheirFiltersAsDefaultsAtTheFirstOpeningAndLoadThemAtLaterOnes) {
  FilterPages(context, bar).ImpostaEnQuery();
  EXPECT_EQ(
      store->calls,
      (std::vector<std::string>{
          "load KB_CLI: Filtro clienti Tarvo", "save KB_CLI: Filtro clienti Tarvo, the default",
          "load KB_CLI: Filtro clienti Tarvo", "load KB_ART: Filtro articoli Tarvo",
          "save KB_ART: Filtro articoli Tarvo, the default",
          "load KB_ART: Filtro articoli Tarvo"}));

  store->calls.clear();
  FilterPages(context, bar).ImpostaEnQuery();
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
TEST_F(FilterPagesTest, CancelTheSaveWhenABuilderWasLeftByAbort) {
  services.setLog(workplace.plugin()->ClsGlobal()->CreateLog());
  controls::RecordFrame parameters("FME_PARAMETRI", services);
  composerFails = false;
  FilterPages pages(context, bar, {composePredicate, sql::composeConjunction});
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
