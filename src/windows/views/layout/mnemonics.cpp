#include "windows/views/layout/mnemonics.h"

#include "common/convert.h"

namespace kebu::windows::layout {

std::vector<std::size_t> chooseMnemonics(const std::vector<std::string>& captions) {
  std::string taken;
  std::vector<std::size_t> chosen;
  for (const std::string& caption : captions) {
    const std::string upper = toUpperAscii(caption);
    std::size_t at = std::string::npos;
    // First letters of words are the easiest to find.
    for (const bool wordsOnly : {true, false}) {
      for (std::size_t i = 0; i < upper.size() && at == std::string::npos; ++i) {
        const bool isLetter = upper[i] >= 'A' && upper[i] <= 'Z';
        const bool startsWord = i == 0 || upper[i - 1] == ' ';
        const bool isFree = taken.find(upper[i]) == std::string::npos;
        if (isLetter && isFree && (startsWord || !wordsOnly)) at = i;
      }
    }
    if (at != std::string::npos) taken += upper[at];
    chosen.push_back(at);
  }
  return chosen;
}

std::string withMnemonic(const std::string& caption, std::size_t at) {
  std::string text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (i == at || caption[i] == '&') text += '&';
    text += caption[i];
  }
  return text;
}

}  // namespace kebu::windows::layout
