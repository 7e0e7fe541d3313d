#pragma once

#include "controls/query_editor.h"
#include "controls/record_frame.h"
#include "controls/simple_controls.h"
#include "windows/views/controls/view.h"

namespace kebu::windows {

/// A group of controls, which its page draws as a card.
class GroupBoxView : public View {
 public:
  GroupBoxView(ViewSite& site, controls::GroupBox& model, HWND page, const char* kind = "GroupBox");

  void place(const layout::Placement& placement) override { bounds_ = placement.bounds; }
  void refresh() override { InvalidateRect(page_, nullptr, FALSE); }
  HWND describedWindow() const override { return page_; }
  bool hasOwnWindow() const override { return false; }
  std::vector<Describable*> members() override;

 protected:
  void describe(Inspection& inspection) override;

 private:
  HWND page_;
  layout::Rect bounds_;
};

/// A query editor: a group whose fields can be inspected.
class QueryEditorView : public GroupBoxView {
 public:
  QueryEditorView(ViewSite& site, controls::QueryEditor& model, HWND page);

 protected:
  void describe(Inspection& inspection) override;
  bool describePart(Inspection& inspection) override;

 private:
  controls::QueryEditor& model_;
};

/// A record frame is not drawn, but its state can be inspected.
class RecordFrameView : public View {
 public:
  RecordFrameView(ViewSite& site, controls::RecordFrame& model, HWND parent);

 protected:
  void describe(Inspection& inspection) override;

 private:
  controls::RecordFrame& model_;
};

/// A control that is not drawn and has no state of its own.
class HiddenView : public View {
 public:
  HiddenView(ViewSite& site, controls::Control& model, const char* kind)
      : View(site, model, kind) {}
};

}  // namespace kebu::windows
