#pragma once

#include <cstdint>
#include <type_traits>

namespace kebu::controls {

/// The classes of controls. A new one is added here and to visit.h; the compiler
/// then names every place that has to deal with it.
enum class ControlKind : std::uint8_t {
  Button,
  CheckBox,
  ComboBox,
  EditBox,
  Form,
  GroupBox,
  Label,
  MdiContainer,
  NavigatorBar,
  NoticeList,
  ProgressBar,
  QueryEditor,
  QueryGrid,
  RecordFrame,
  ResizeManager,
  Sheet,
  SideBar,
  StatusBar,
  TitleBar,
};

/// The control as one of class `Kind` (which may have subclasses of other kinds);
/// null when it is none. `Control` may be const.
template <class Kind, class Control>
auto* as(Control& control) {
  using Result = std::conditional_t<std::is_const_v<Control>, const Kind, Kind>;
  return Kind::includes(control.kind()) ? static_cast<Result*>(&control) : nullptr;
}

}  // namespace kebu::controls
