// The window opened again and again, its pages visited. KEBU_OPENINGS tells how often.

#include <gtest/gtest.h>
#include <malloc.h>

#include "forms/anagrafica/frame/pages.h"
#include "tests/support/environment.h"
#include "tests/support/test_user.h"
#include "workbench/company/company.h"
#include "workbench/player/model_workplace.h"

// Where the address sanitizer keeps the memory, malloc's own figures are 0.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace kebu::tests {
namespace {

std::size_t allocatedBytes() {
  if (__sanitizer_get_current_allocated_bytes) return __sanitizer_get_current_allocated_bytes();
  return mallinfo2().uordblks;
}

void openAndVisitPages(workbench::ModelWorkplace& workplace) {
  workplace.host().open();
  for (const forms::PageEntry& page : forms::pageTable) {
    if (page.view) workplace.hands().openPage(*page.view);
  }
  workplace.hands().openPage(forms::DiscountsPage::view);
  workplace.hands().choose("CMB_LISTINISCONTO", "1");
  EXPECT_TRUE(workplace.host().close());
}

TEST(Openings, LeaveNoMemoryBehind) {
  constexpr std::uint64_t few = 25;
  constexpr std::uint64_t untilAllIsThere = 15;  // statements are compiled and kept
  constexpr std::size_t slack = 16 * 1024;
  const std::uint64_t openings = numberFrom("KEBU_OPENINGS", few);
  TestUser user;
  workbench::ModelWorkplace workplace({.user = user, .database = workbench::demoCompany()});
  user.inModalWindow = [&](controls::Form&) { workplace.hands().clickButton("CMD_OK"); };
  std::size_t before = 0;
  for (std::uint64_t i = 0; i < openings; ++i) {
    if (i == untilAllIsThere) before = allocatedBytes();
    openAndVisitPages(workplace);
    user.boxes.clear();
  }
  const std::size_t after = allocatedBytes();
  RecordProperty("before", static_cast<int>(before));
  RecordProperty("after", static_cast<int>(after));
  EXPECT_LE(after, before + slack);
}

}  // namespace
}  // namespace kebu::tests
