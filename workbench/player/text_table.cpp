#include "workbench/player/text_table.h"

#include <algorithm>

namespace kebu::workbench {

namespace {

/// The number of characters: continuation bytes of UTF-8 are not counted.
std::size_t width(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

}  // namespace

void TextTable::write(std::ostream& out, const std::string& indent) const {
  std::vector<std::size_t> widths;
  for (const auto& line : lines_) {
    widths.resize(std::max(widths.size(), line.size()));
    for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], width(line[i]));
  }
  for (const auto& line : lines_) {
    std::string text = indent;
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (widths[i] == 0) continue;
      text += line[i];
      text.append(widths[i] - width(line[i]) + 2, ' ');
    }
    text.erase(text.find_last_not_of(' ') + 1);
    out << text << '\n';
  }
}

}  // namespace kebu::workbench
