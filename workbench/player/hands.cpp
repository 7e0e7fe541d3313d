#include "workbench/player/hands.h"

#include <algorithm>

#include "workbench/player/scenario.h"

namespace kebu::workbench {

std::size_t noticeWith(const std::string& text, const std::vector<ItemView>& notices) {
  const auto at = std::find_if(notices.begin(), notices.end(), [&](const ItemView& notice) {
    return notice.text.find(text) != std::string::npos;
  });
  if (at == notices.end()) throw StepError("there is no notice \"" + text + "\"");
  return static_cast<std::size_t>(at - notices.begin());
}

}  // namespace kebu::workbench
