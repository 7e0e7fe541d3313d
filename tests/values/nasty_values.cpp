#include "tests/values/nasty_values.h"

#include <string_view>
#include <vector>

namespace kebu::tests {

using namespace std::string_literals;

std::span<const NastyValue> nastyValues() {
  static const std::vector<NastyValue> values{
      {"Quote", "'"},
      {"QuoteInside", "d'oro"},
      {"TwoQuotes", "''"},
      {"DoubleQuote", "\"x\""},
      {"Brackets", "[a]]"},
      {"Wildcards", "%_[^a]%"},
      {"Comment", "a--b"},
      {"OpenComment", "/*"},
      {"SecondStatement", "';DELETE FROM GM04_PARAMETRITVRO--"},
      {"Backslash", "\\n\\0\\"},
      {"LineEnd", "a\r\nb"},
      {"Tab", "a\tb"},
      {"ControlCharacters", "\x01\x02\x1b[0m\x7f"},
      {"ZeroByte", "a\0b"s},
      {"FourBytes", "\xF0\x9F\x98\x80"},
      {"FourBytesOften",
       [] {
         std::string text;
         for (int i = 0; i < 100; ++i) text += "\xF0\x9F\x98\x80";
         return text;
       }()},
      {"RightToLeft", "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"},
      {"LeftToRightOverride",
       "\xE2\x80\xAE"
       "abc"},
      {"NotInTheCodePage",
       "\xC5\x81\xC3\xB3"
       "d\xC5\xBA"},
      {"Euro", "\xE2\x82\xAC 5"},
      {"CombinedAccent", "e\xCC\x80"},
      {"NotUtf8",
       "a\xFF\xFE"
       "b"},
      {"CutUtf8", "a\xE2\x82"},
      {"HalfOfAPair", "\xED\xA0\x80"},
      {"BlanksAround", "  x  "},
      {"Blanks", "   "},
      {"HardBlank", "\xC2\xA0"},
      {"Long", std::string(300, 'x')},
      {"VeryLong", std::string(10'000, 'y')},
      {"Null", "NULL"},
      {"Zero", "0"},
      {"MinusZero", "-0"},
      {"Minus", "-1"},
      {"HalfInItalian", "1,5"},
      {"HalfInEnglish", "1.5"},
      {"Thousands", "1.234"},
      {"ThousandsAndHalf", "1.234,5"},
      {"WrongGroups", "1.23,4"},
      {"Exponent", "1e5"},
      {"Hexadecimal", "&HFF"},
      {"LeadingZeros", "007"},
      {"Plus", "+5"},
      {"NumberAndMore", "12abc"},
      {"BeyondSmallint", "32768"},
      {"BeyondInt", "2147483648"},
      {"BeyondBigint", "9223372036854775808"},
      {"BeyondDecimal", "99999999999999999999999999999999999999999"},
      {"ManyDecimals", "0,000000000000000000000000000000001"},
      {"Infinity", "1E400"},
      {"NoSuchDay", "31/02/2024"},
      {"DayBeforeAll", "01/01/0001"},
      {"DayAfterAll", "31/12/99999"},
      {"AmericanDay", "12/31/2024"},
      {"TrueInEnglish", "True"},
  };
  return values;
}

}  // namespace kebu::tests
