#include "common/guid.h"

#include <gtest/gtest.h>

namespace kebu {
namespace {

TEST(Guid, TextPadsEveryField) {
  EXPECT_EQ(guidText({0xAB, 0x1, 0xF00D, {0x00, 0x0F, 0xFF, 0x10, 0x01, 0xA0, 0x09, 0x7B}}),
            "000000AB0001F00D000FFF1001A0097B");
  EXPECT_EQ(guidText({}), std::string(32, '0'));
}

}  // namespace
}  // namespace kebu
