#include "windows/views/window/attached_view.h"

namespace kebu::windows {

WindowTable<AttachedView>& attachedViews() {
  static WindowTable<AttachedView> table;
  return table;
}

}  // namespace kebu::windows
