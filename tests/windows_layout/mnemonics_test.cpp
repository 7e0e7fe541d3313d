#include "windows/views/layout/mnemonics.h"

#include <gtest/gtest.h>

#include <set>

#include "common/convert.h"

namespace kebu::windows::layout {

TEST(MnemonicsTest, NoLetterServesTwoCaptions) {
  const std::vector<std::string> captions{"Conferma", "Codice", "Cartella log", "Città", "C",
                                          "123",      ""};
  const auto letters = chooseMnemonics(captions);
  std::set<std::string> seen;
  for (std::size_t i = 0; i < 4; ++i) {
    ASSERT_NE(letters[i], std::string::npos) << captions[i];
    EXPECT_TRUE(seen.insert(toUpperAscii(captions[i].substr(letters[i], 1))).second) << captions[i];
  }
  EXPECT_EQ(letters[0], 0U);
  EXPECT_EQ(letters[2], 9U) << "a word's first letter before one inside it";
  for (std::size_t i = 4; i < 7; ++i) EXPECT_EQ(letters[i], std::string::npos) << captions[i];
}

TEST(MnemonicsTest, AnAmpersandOfTheCaptionStaysOne) {
  EXPECT_EQ(withMnemonic("Ordini & resi", 9), "Ordini && &resi");
  EXPECT_EQ(withMnemonic("Note", std::string::npos), "Note");
}

}  // namespace kebu::windows::layout
