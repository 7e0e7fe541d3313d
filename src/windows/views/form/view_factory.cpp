#include "windows/views/form/view_factory.h"

#include "controls/mdi_container.h"
#include "windows/views/controls/button_view.h"
#include "windows/views/controls/check_box_view.h"
#include "windows/views/controls/combo_box_view.h"
#include "windows/views/controls/edit_box_view.h"
#include "windows/views/controls/label_view.h"
#include "windows/views/controls/navigator_bar_view.h"
#include "windows/views/controls/progress_bar_view.h"
#include "windows/views/controls/side_bar_view.h"
#include "windows/views/controls/status_bar_view.h"
#include "windows/views/controls/windowless_views.h"
#include "windows/views/grid/query_grid_view.h"

namespace kebu::windows {

namespace {

using Made = std::unique_ptr<View>;

/// Nothing when the control is not of that class.
template <class Model, class Drawn>
Made make(ViewSite& site, controls::Control& control, HWND parent) {
  auto* const model = dynamic_cast<Model*>(&control);
  return model ? std::make_unique<Drawn>(site, *model, parent) : nullptr;
}

/// A new kind of control is a line here.
constexpr Made (*makers[])(ViewSite&, controls::Control&, HWND) = {
    make<controls::EditBox, EditBoxView>,
    make<controls::ComboBox, ComboBoxView>,
    make<controls::CheckBox, CheckBoxView>,
    make<controls::Button, ButtonView>,
    make<controls::Label, LabelView>,
    make<controls::TitleBar, LabelView>,
    make<controls::QueryGrid, QueryGridView>,
    make<controls::QueryEditor, QueryEditorView>,
    make<controls::GroupBox, GroupBoxView>,
    make<controls::SideBar, SideBarView>,
    make<controls::NavigatorBar, NavigatorBarView>,
    make<controls::StatusBar, StatusBarView>,
    make<controls::ProgressBar, ProgressBarView>,
    make<controls::RecordFrame, RecordFrameView>,
};

}  // namespace

std::unique_ptr<View> makeView(ViewSite& site, controls::Control& control, HWND parent) {
  for (const auto& maker : makers) {
    if (Made view = maker(site, control, parent)) return view;
  }
  if (dynamic_cast<controls::ResizeManager*>(&control)) {
    return std::make_unique<HiddenView>(site, control, "ResizeManager");
  }
  if (dynamic_cast<controls::MdiContainer*>(&control)) {
    return std::make_unique<HiddenView>(site, control, "MdiContainer");
  }
  return std::make_unique<HiddenView>(site, control, "Control");
}

}  // namespace kebu::windows
