#pragma once

#include <vector>

#include "controls/notice_list.h"
#include "windows/views/controls/view.h"
#include "windows/views/window/window.h"

namespace kebu::windows {

/// The notices below the title. Each is a static control, so that screen readers find it; they are
/// told when the texts change.
class NoticeListView : public View, private Window {
 public:
  NoticeListView(ViewSite& site, controls::NoticeList& model, HWND parent);
  ~NoticeListView() override;

  HWND handle() const override { return Window::handle(); }
  void place(const layout::Placement& placement) override;
  void refresh() override;
  void applyTheme() override;
  void command(HWND from, UINT code) override;
  void drawItem(const DRAWITEMSTRUCT& item) override;
  HBRUSH colours(HDC dc, HWND window) override;
  std::function<void()> actionFor(const Key& key) override;
  /// A notice's text is described by Windows itself.
  std::optional<PartId> partIn(HWND window) const override;

 protected:
  void describe(Inspection& inspection) override;
  bool describePart(Inspection& inspection) override;

 private:
  /// The controls of one notice. They are kept when there are fewer notices.
  struct Line {
    OwnedWindow text;
    OwnedWindow button;
  };

  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
  void paint();
  void arrange();
  /// The notice of a button; nothing for another window.
  std::optional<std::size_t> indexOf(HWND button) const;
  void press(std::size_t index);

  controls::NoticeList& model_;
  std::string told_;  ///< the texts that screen readers were told of
  std::vector<Line> lines_;
};

}  // namespace kebu::windows
