#include "windows/views/window/attached_view.h"

namespace kebu::windows {

WindowTable<View*>& attachedViews() {
  static WindowTable<View*> table;
  return table;
}

}  // namespace kebu::windows
