#include "windows/views/form/view_factory.h"

#include "controls/visit.h"
#include "windows/views/controls/button_view.h"
#include "windows/views/controls/check_box_view.h"
#include "windows/views/controls/combo_box_view.h"
#include "windows/views/controls/edit_box_view.h"
#include "windows/views/controls/label_view.h"
#include "windows/views/controls/navigator_bar_view.h"
#include "windows/views/controls/notice_list_view.h"
#include "windows/views/controls/progress_bar_view.h"
#include "windows/views/controls/sheet_view.h"
#include "windows/views/controls/side_bar_view.h"
#include "windows/views/controls/status_bar_view.h"
#include "windows/views/controls/windowless_views.h"
#include "windows/views/grid/query_grid_view.h"

namespace kebu::windows {

namespace {

using Made = std::unique_ptr<View>;

/// Makes a `Drawn` for a `Model`.
template <class Model, class Drawn>
auto make(ViewSite& site, HWND parent) {
  return [&site, parent](Model& model) -> Made {
    return std::make_unique<Drawn>(site, model, parent);
  };
}

template <class Model>
auto hide(ViewSite& site, const char* kind) {
  return [&site, kind](Model& model) -> Made {
    return std::make_unique<HiddenView>(site, model, kind);
  };
}

}  // namespace

std::unique_ptr<View> makeView(ViewSite& site, controls::Control& control, HWND parent) {
  return controls::visit(control, Overloaded{
                                      make<controls::Button, ButtonView>(site, parent),
                                      make<controls::CheckBox, CheckBoxView>(site, parent),
                                      make<controls::ComboBox, ComboBoxView>(site, parent),
                                      make<controls::EditBox, EditBoxView>(site, parent),
                                      make<controls::GroupBox, GroupBoxView>(site, parent),
                                      make<controls::Label, LabelView>(site, parent),
                                      make<controls::NavigatorBar, NavigatorBarView>(site, parent),
                                      make<controls::NoticeList, NoticeListView>(site, parent),
                                      make<controls::ProgressBar, ProgressBarView>(site, parent),
                                      make<controls::QueryEditor, QueryEditorView>(site, parent),
                                      make<controls::QueryGrid, QueryGridView>(site, parent),
                                      make<controls::RecordFrame, RecordFrameView>(site, parent),
                                      make<controls::Sheet, SheetView>(site, parent),
                                      make<controls::SideBar, SideBarView>(site, parent),
                                      make<controls::StatusBar, StatusBarView>(site, parent),
                                      make<controls::TitleBar, LabelView>(site, parent),
                                      hide<controls::Form>(site, "Form"),
                                      hide<controls::MdiContainer>(site, "MdiContainer"),
                                      hide<controls::ResizeManager>(site, "ResizeManager"),
                                  });
}

}  // namespace kebu::windows
