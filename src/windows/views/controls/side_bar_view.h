#pragma once

#include <string>
#include <vector>

#include "controls/simple_controls.h"
#include "windows/views/controls/view.h"
#include "windows/views/window/pointer_watch.h"
#include "windows/views/window/subclass.h"

namespace kebu::windows {

/// The links to the pages, as a list that the arrow keys walk; Enter and Space open a page.
class SideBarView : public View {
 public:
  SideBarView(ViewSite& site, controls::SideBar& model, HWND parent);

  HWND handle() const override { return window_.get(); }
  void refresh() override;
  void applyTheme() override;
  void command(HWND from, UINT code) override;
  void drawItem(const DRAWITEMSTRUCT& item) override;
  HBRUSH colours(HDC dc, HWND window) override;
  std::function<void()> actionFor(const Key& key) override;
  /// Opens the page of the link at `index`, if there is one.
  void openAt(std::size_t index);
  /// To the link after the chosen one, or before it.
  void step(int by);
  PartId partAt(POINT point) override;
  bool goToPart(const PartId& part) override;

 protected:
  void describe(Inspection& inspection) override;
  bool describePart(Inspection& inspection) override;
  std::wstring lineIn(HWND /*window*/) const override { return {}; }

 private:
  int chosenIndex() const;
  void open(std::size_t index);
  int indexAt(LPARAM point) const;
  /// What the list itself does not do.
  std::optional<LRESULT> answer(const ControlMessage& received);

  controls::SideBar& model_;
  std::vector<std::wstring> texts_;  ///< as the list has them
  bool movesByKey_ = false;          ///< while the list handles a key
  void pointerOn(int index);

  PointerPlace pointer_;
  int hot_ = -1;      ///< the link that the pointer is on
  int pressed_ = -1;  ///< the chosen link, while the mouse is down on it
  OwnedWindow window_;
};

}  // namespace kebu::windows
