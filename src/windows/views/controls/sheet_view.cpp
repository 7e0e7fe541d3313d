#include "windows/views/controls/sheet_view.h"

#include <algorithm>

#include "windows/support/text.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/window/text_out.h"

namespace kebu::windows {

namespace {

using Role = controls::SheetLine::Role;

// In 96ths of an inch.
constexpr int edge = 14;
constexpr int gap = 14;
constexpr int above = 4;  // a line's text
constexpr int aboveHeading = 18;
constexpr int warningStripe = 4;
constexpr int barHeight = 10;
// In percent of the width.
constexpr int labelPart = 48;
constexpr int valuePart = 34;

constexpr UINT wrapped = DT_LEFT | DT_TOP | DT_WORDBREAK | DT_NOPREFIX;

int heightIn(HDC dc, const std::string& text, int width) {
  const std::wstring wide = toWide(text);
  RECT area{0, 0, std::max(width, 1), 0};
  DrawTextW(dc, wide.c_str(), static_cast<int>(wide.size()), &area, wrapped | DT_CALCRECT);
  return static_cast<int>(area.bottom);
}

void paragraph(HDC dc, const std::string& text, const RECT& area, COLORREF ink) {
  const std::wstring wide = toWide(text);
  RECT place = area;
  SetTextColor(dc, ink);
  DrawTextW(dc, wide.c_str(), static_cast<int>(wide.size()), &place, wrapped);
}

}  // namespace

SheetView::SheetView(ViewSite& site, controls::Sheet& model, HWND parent)
    : View(site, model, "Sheet"),
      model_(model),
      window_(createStock(
          L"LISTBOX",
          WS_TABSTOP | WS_VSCROLL | LBS_OWNERDRAWVARIABLE | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT,
          0, parent)) {
  subscriptions_.push_back(model_.CopyWanted.connect([this](const std::string& text) {
    if (!copyToClipboard(handle(), text)) MessageBeep(MB_OK);
  }));
  subscriptions_.push_back(
      model_.SaveWanted.connect([this](const std::string& text) { save(text); }));
}

void SheetView::save(const std::string& text) const {
  const auto path = askForFile(handle(), textFile, toWide(model_.caption()));
  if (!path) return;
  FileInTheMaking file(*path);
  file.write(text);
  file.complete();
}

void SheetView::place(const layout::Placement& placement) {
  View::place(placement);
  measure();
}

void SheetView::refresh() {
  if (shown_ == model_.lines()) return;
  shown_ = model_.lines();
  SetWindowTextW(handle(), toWide(model_.caption()).c_str());
  SendMessageW(handle(), WM_SETREDRAW, FALSE, 0);
  const LRESULT chosen = SendMessageW(handle(), LB_GETCURSEL, 0, 0);
  SendMessageW(handle(), LB_RESETCONTENT, 0, 0);
  for (const controls::SheetLine& line : shown_) {
    const std::wstring reading = toWide(controls::readingOf(line));
    SendMessageW(handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(reading.c_str()));
  }
  measure();
  SendMessageW(handle(), LB_SETCURSEL, static_cast<WPARAM>(std::max<LRESULT>(chosen, 0)), 0);
  SendMessageW(handle(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(handle(), nullptr, TRUE);
}

void SheetView::applyTheme() {
  View::applyTheme();
  measure();
}

SheetView::Columns SheetView::columnsOf(const controls::SheetLine& line) const {
  RECT client{};
  GetClientRect(handle(), &client);
  const int left = theme().px(edge);
  const int right = std::max(static_cast<int>(client.right) - theme().px(edge), left);
  const int width = right - left;
  const int valueLeft = left + width * labelPart / 100;
  const int barLeft = valueLeft + width * valuePart / 100;
  const bool isWhole = line.value.empty() && !line.share;
  return {.left = left,
          .labelRight = isWhole ? right : valueLeft - theme().px(gap),
          .valueLeft = valueLeft,
          .valueRight = line.share ? barLeft - theme().px(gap) : right,
          .barLeft = barLeft,
          .right = right};
}

int SheetView::heightOf(const controls::SheetLine& line) const {
  const ScreenDc screen;
  const bool isHeading = line.role == Role::Heading;
  const Selected font(screen.get(), isHeading ? theme().strong() : theme().font());
  const Columns columns = columnsOf(line);
  const int text =
      std::max(heightIn(screen.get(), line.label, columns.labelRight - columns.left),
               heightIn(screen.get(), line.value, columns.valueRight - columns.valueLeft));
  constexpr int highest = 255;  // of an item of a list box
  return std::min(text + theme().px(isHeading ? aboveHeading + above : 2 * above), highest);
}

void SheetView::measure() {
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    SendMessageW(handle(), LB_SETITEMHEIGHT, i, heightOf(shown_[i]));
  }
  InvalidateRect(handle(), nullptr, TRUE);
}

void SheetView::drawBar(HDC dc, const RECT& row, const Columns& columns,
                        const controls::Share& share) const {
  const Palette& colours = theme().colours();
  const int middle = row.top + theme().px(above) + theme().metrics().lineHeight / 2;
  const int half = theme().px(barHeight) / 2;
  const RECT bar{columns.barLeft, middle - half, columns.right, middle + half};
  fill(dc, bar, colours.locked);
  RECT filled = bar;
  filled.right = bar.left + share.of(static_cast<std::int32_t>(bar.right - bar.left));
  fill(dc, filled, colours.accent);
  frame(dc, bar, colours.border);
}

void SheetView::drawItem(const DRAWITEMSTRUCT& item) {
  const Palette& colours = theme().colours();
  const bool isFocused = (item.itemState & ODS_SELECTED) && GetFocus() == handle();
  fill(item.hDC, item.rcItem, isFocused ? colours.chosen : colours.card);
  if (item.itemID >= shown_.size()) return;
  const controls::SheetLine& line = shown_[item.itemID];
  const bool isHeading = line.role == Role::Heading;
  const auto ink = [&](Colour usual) { return isFocused ? onChosen(colours, usual) : usual; };
  const Columns columns = columnsOf(line);
  const Selected font(item.hDC, isHeading ? theme().strong() : theme().font());
  SetBkMode(item.hDC, TRANSPARENT);
  RECT area = item.rcItem;
  area.top += theme().px(isHeading ? aboveHeading : above);
  area.left = columns.left;
  area.right = columns.labelRight;
  paragraph(item.hDC, line.label, area,
            ink(line.role == Role::Note ? colours.muted : colours.text));
  area.left = columns.valueLeft;
  area.right = columns.valueRight;
  paragraph(item.hDC, line.value, area, ink(colours.text));
  if (line.share) drawBar(item.hDC, item.rcItem, columns, *line.share);
  if (isHeading) {
    const LONG bottom = item.rcItem.bottom;
    fill(item.hDC, {columns.left, bottom - 1, columns.right, bottom}, colours.border);
  }
  if (line.role == Role::Warning) {
    const LONG left = item.rcItem.left;
    fill(item.hDC, {left, item.rcItem.top, left + theme().px(warningStripe), item.rcItem.bottom},
         colours.warning);
  }
  if (isFocused) frame(item.hDC, item.rcItem, colours.accent);
}

HBRUSH SheetView::colours(HDC /*dc*/, HWND /*window*/) {
  return theme().cardBrush();
}

void SheetView::describe(Inspection& inspection) {
  View::describe(inspection);
  inspection.count = static_cast<std::int32_t>(shown_.size());
}

bool SheetView::describePart(Inspection& inspection) {
  const auto index =
      itemAsked(inspection, shown_.size(), [](std::size_t, const std::string&) { return false; });
  if (!index) return false;
  describeWindow(inspection, handle());
  SendMessageW(handle(), LB_GETITEMRECT, *index, reinterpret_cast<LPARAM>(&inspection.bounds));
  writeText(inspection, controls::readingOf(shown_[*index]));
  if (shown_[*index].role == Role::Warning) addMark(inspection, "warning");
  return true;
}

}  // namespace kebu::windows
