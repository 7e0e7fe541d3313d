#include "forms/interruptible.h"

#include <gtest/gtest.h>

#include "tests/support/test_workplace.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/company/company.h"

namespace kebu::forms {
namespace {

/// Statements last until they are cancelled, or some seconds.
class Lasting : public workbench::StatementObserver {
 public:
  void before(const std::string& /*text*/, bool /*edit*/) override {}
  bool isInterrupted(const std::string& /*text*/) override { return lasts; }
  void after(const std::string& /*text*/, bool /*edit*/, std::int64_t /*rows*/,
             const RuntimeError* /*error*/) override {}

  bool lasts = true;
};

TEST(Interruptible, TheBarSaysWhatLastsAndOffersToEndIt) {
  Lasting statements;
  tests::TestWorkplace workplace;
  controls::Form window("FRM", workplace.runtime().desktop);
  Services services(workplace.runtime().platform, window);
  controls::RecordFrame frame("FME", services);
  PageContext context(workplace.runtime(), services, frame);
  context.connection = workbench::newConnection(workbench::demoCompany(), &statements);
  context.connection->Open();
  controls::ProgressBar bar("PBAR");
  std::string told;
  bool isEnded = false;
  bar.changed.on([&] {
    if (!bar.isRunning()) return;
    told = bar.text();
    if (isEnded && bar.isInterruptible() && !bar.isInterrupted()) bar.interrupt();
  });
  const auto run = [&] {
    return runInterruptibly(context, bar, "Conteggio in corso...",
                            [&] { context.connection->Execute("SELECT 1"); });
  };
  EXPECT_TRUE(run());
  EXPECT_EQ(told, "Conteggio in corso...");
  EXPECT_FALSE(bar.isRunning() || bar.isInterruptible());
  isEnded = true;
  EXPECT_FALSE(run());
  EXPECT_FALSE(bar.isRunning() || bar.isInterruptible());
  // What does not last shows nothing.
  statements.lasts = false;
  told.clear();
  EXPECT_TRUE(run());
  EXPECT_EQ(told, "");
}

}  // namespace
}  // namespace kebu::forms
