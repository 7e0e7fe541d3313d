#include "workbench/host/translations.h"

#include <stdexcept>

namespace kebu::workbench {

Translations Translations::parse(std::string_view text) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());

  Translations result;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.empty()) continue;

    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos || line.find('\t', tab + 1) != std::string_view::npos) {
      throw std::runtime_error(std::to_string(number) +
                               ": a text and its translation with one tab between them are wanted");
    }
    result.texts_.insert_or_assign(std::string(line.substr(0, tab)),
                                   std::string(line.substr(tab + 1)));
  }
  return result;
}

const std::string& Translations::translate(const std::string& text) const {
  const auto at = texts_.find(text);
  return at == texts_.end() ? text : at->second;
}

}  // namespace kebu::workbench
