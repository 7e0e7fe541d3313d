#pragma once

#include <concepts>
#include <type_traits>

#include "common/error.h"
#include "common/overloaded.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/form.h"
#include "controls/mdi_container.h"
#include "controls/navigator_bar.h"
#include "controls/notice_list.h"
#include "controls/query_editor.h"
#include "controls/query_grid.h"
#include "controls/record_frame.h"
#include "controls/sheet.h"
#include "controls/simple_controls.h"

namespace kebu::controls {

/// For a visitor's case of several classes: [](const OneOf<Button, Label> auto& control) {...}.
template <class Control, class... Kinds>
concept OneOf = (std::same_as<std::remove_cv_t<Control>, Kinds> || ...);

/// Calls `visitor` with the control as its own class, like std::visit. A visitor
/// that does not take every class does not compile. `Subject` is Control, const or not.
template <class Subject, class Visitor>
decltype(auto) visit(Subject& control, Visitor&& visitor) {
  static_assert(std::is_same_v<std::remove_const_t<Subject>, Control>);
  const auto call = [&]<class Kind>(std::type_identity<Kind>) -> decltype(auto) {
    using Actual = std::conditional_t<std::is_const_v<Subject>, const Kind, Kind>;
    return visitor(static_cast<Actual&>(control));
  };
  switch (control.kind()) {
    case ControlKind::Button:
      return call(std::type_identity<Button>{});
    case ControlKind::CheckBox:
      return call(std::type_identity<CheckBox>{});
    case ControlKind::ComboBox:
      return call(std::type_identity<ComboBox>{});
    case ControlKind::EditBox:
      return call(std::type_identity<EditBox>{});
    case ControlKind::Form:
      return call(std::type_identity<Form>{});
    case ControlKind::GroupBox:
      return call(std::type_identity<GroupBox>{});
    case ControlKind::Label:
      return call(std::type_identity<Label>{});
    case ControlKind::MdiContainer:
      return call(std::type_identity<MdiContainer>{});
    case ControlKind::NavigatorBar:
      return call(std::type_identity<NavigatorBar>{});
    case ControlKind::NoticeList:
      return call(std::type_identity<NoticeList>{});
    case ControlKind::ProgressBar:
      return call(std::type_identity<ProgressBar>{});
    case ControlKind::QueryEditor:
      return call(std::type_identity<QueryEditor>{});
    case ControlKind::QueryGrid:
      return call(std::type_identity<QueryGrid>{});
    case ControlKind::RecordFrame:
      return call(std::type_identity<RecordFrame>{});
    case ControlKind::ResizeManager:
      return call(std::type_identity<ResizeManager>{});
    case ControlKind::Sheet:
      return call(std::type_identity<Sheet>{});
    case ControlKind::SideBar:
      return call(std::type_identity<SideBar>{});
    case ControlKind::StatusBar:
      return call(std::type_identity<StatusBar>{});
    case ControlKind::TitleBar:
      return call(std::type_identity<TitleBar>{});
  }
  throw RuntimeError::internalError("a control of no known kind");
}

}  // namespace kebu::controls
