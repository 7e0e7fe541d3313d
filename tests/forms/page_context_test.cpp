#include "forms/page_context.h"

#include <gtest/gtest.h>

#include "controls/lookup_list.h"
#include "tests/support/no_desktop.h"
#include "tests/support/test_workplace.h"

namespace kebu::forms {
namespace {

class LookingDesktop : public controls::NoDesktop {
 public:
  void runLookup(controls::LookupList& list) override { place = list.currentPlace(); }
  std::int32_t place = -1;
};

TEST(PageContext, OpensALookupAtTheCodeThatIsThere) {
  tests::TestWorkplace workplace;
  LookingDesktop desktop;
  controls::Form window("FRM", desktop);
  Services services(workplace.runtime().platform, window);
  controls::RecordFrame frame("FME", services);
  PageContext context({workplace.runtime().platform, workplace.runtime().ado, desktop}, services,
                      frame);
  context.connection = workplace.newConnection();
  context.connection->Open();
  const host::LookupDefinition deposits{
      .title = "Depositi",
      .statement =
          "SELECT MG58_CODDEP FROM MG58_DEPOSITI WHERE MG58_DITTA_CG18 = 1"
          " ORDER BY MG58_CODDEP",
      .captions = {"Codice"},
      .key = ""};
  EXPECT_EQ(context.choose(deposits, "02 "), std::nullopt);
  EXPECT_EQ(desktop.place, 2);
}

}  // namespace
}  // namespace kebu::forms
