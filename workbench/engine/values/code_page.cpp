#include "workbench/engine/values/code_page.h"

#include <algorithm>
#include <string_view>

#include "workbench/engine/values/characters.h"

namespace kebu::engine {
namespace {

/// The characters of 1252's places 0x80 to 0x9F, which Latin-1 has not. Five places are unused.
constexpr std::u32string_view windowsOnly = U"€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ";

/// Letters and signs that 1252 lacks, and what Windows takes for them.
struct BestFit {
  std::u32string_view lacking;
  std::u32string_view taken;
};
constexpr BestFit bestFits[] = {
    {U"ĀāĂăĄąĆćĈĉĊċČčĎďĐđĒēĔĕĖėĘęĚěĜĝĞğĠġĢģ", U"AaAaAaCcCcCcCcDdÐdEeEeEeEeEeGgGgGgGg"},
    {U"ĤĥĦħĨĩĪīĬĭĮįİıĴĵĶķĹĺĻļĽľŁłŃńŅņŇň", U"HhHhIiIiIiIiIiJjKkLlLlLlLlNnNnNn"},
    {U"ŌōŎŏŐőŔŕŖŗŘřŚśŜŝŞşŢţŤťŦŧŨũŪūŬŭŮůŰűŲų", U"OoOoOoRrRrRrSsSsSsTtTtTtUuUuUuUuUuUu"},
    {U"ŴŵŶŷŹźŻżǍǎǏǐǑǒǓǔ", U"WwYyZzZzAaIiOoUu"},
    {U"ΓΘΣΦΩαδεπστφ", U"GTSFOadepstf"},
    {U"‐‑―′‵⁄∕∙√∞∼−", U"---'`//·v8~-"},
};

char32_t fitting(char32_t c) {
  constexpr char32_t firstWide = 0xFF01, lastWide = 0xFF5E, toNarrow = 0xFEE0;
  if (c >= firstWide && c <= lastWide) return c - toNarrow;
  for (const BestFit& fit : bestFits) {
    const std::size_t at = fit.lacking.find(c);
    if (at < fit.taken.size()) return fit.taken[at];
  }
  return U'?';
}

bool isInCodePage(char32_t c) {
  return c < 0x80 || (c >= 0xA0 && c <= 0xFF) || windowsOnly.find(c) != std::u32string_view::npos;
}

}  // namespace

std::string inCodePage(std::string text) {
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::all_of(text.begin(), text.end(), isAscii)) return text;
  std::u32string kept;
  for (const char32_t c : decoded(text)) {
    constexpr char32_t firstOfTwoUnits = 0x10000;
    if (c >= firstOfTwoUnits) {
      kept += U"??";
    } else {
      kept += isInCodePage(c) ? c : fitting(c);
    }
  }
  return encoded(kept);
}

}  // namespace kebu::engine
