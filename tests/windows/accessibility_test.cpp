// What assistive technology is told of the window: walked through by a client of IAccessible, in
// the window's own thread.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/windows/held_keys.h"
#include "tests/windows/window_fixture.h"
#include "windows/support/bstr.h"
#include "windows/support/com_ptr.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/window_reader.h"
// After the header that includes Windows'.
#include <oleacc.h>

namespace kebu::tests {

namespace {

using windows::ComPtr;
using windows::Inspected;
using workbench::isMarked;
using workbench::nameOf;
using workbench::textOf;
using workbench::WindowReader;

VARIANT childId(LONG id) {
  VARIANT child;
  VariantInit(&child);
  child.vt = VT_I4;
  child.lVal = id;
  return child;
}

/// An object of the accessibility interface, as a screen reader has it.
class Node {
 public:
  explicit Node(ComPtr<IAccessible> object) : object_(std::move(object)) {}
  static Node of(HWND window) {
    ComPtr<IAccessible> object;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                               object.putVoid());
    return Node(std::move(object));
  }
  /// The one that an event told of.
  static Node child(HWND window, LONG id) { return of(window).child(id); }

  explicit operator bool() const { return static_cast<bool>(object_); }
  IAccessible* operator->() const { return object_.get(); }

  std::string name() const { return text(&IAccessible::get_accName); }
  std::string value() const { return text(&IAccessible::get_accValue); }
  std::string description() const { return text(&IAccessible::get_accDescription); }
  std::string shortcut() const { return text(&IAccessible::get_accKeyboardShortcut); }
  LONG role() const { return number(&IAccessible::get_accRole); }
  LONG state() const { return number(&IAccessible::get_accState); }
  bool is(LONG flag) const { return (state() & flag) != 0; }
  RECT place() const {
    long left = 0;
    long top = 0;
    long width = 0;
    long height = 0;
    object_->accLocation(&left, &top, &width, &height, childId(CHILDID_SELF));
    return {left, top, left + width, top + height};
  }
  long childCount() const {
    long count = 0;
    object_->get_accChildCount(&count);
    return count;
  }
  Node child(LONG id) const {
    ComPtr<IDispatch> found;
    object_->get_accChild(childId(id), found.put());
    return Node(found.as<IAccessible>());
  }
  Node parent() const {
    ComPtr<IDispatch> found;
    object_->get_accParent(found.put());
    return Node(found.as<IAccessible>());
  }
  Node focus() const {
    VARIANT found;
    object_->get_accFocus(&found);
    return taken(found);
  }
  Node at(POINT screen) const {
    VARIANT found;
    object_->accHitTest(screen.x, screen.y, &found);
    return found.vt == VT_I4 ? *this : taken(found);
  }

 private:
  using TextOf = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);
  using NumberOf = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, VARIANT*);

  std::string text(TextOf member) const {
    windows::Bstr told;
    (object_.get()->*member)(childId(CHILDID_SELF), told.put());
    return told.toUtf8();
  }
  LONG number(NumberOf member) const {
    VARIANT told;
    VariantInit(&told);
    (object_.get()->*member)(childId(CHILDID_SELF), &told);
    return told.vt == VT_I4 ? told.lVal : -1;
  }
  static Node taken(const VARIANT& found) {
    if (found.vt != VT_DISPATCH) return Node(nullptr);
    return Node(ComPtr<IDispatch>::adopt(found.pdispVal).as<IAccessible>());
  }

  ComPtr<IAccessible> object_;
};

class AccessibilityTest : public OpenWindowTest {
 protected:
  Node node(const char* control) const { return Node::of(reader().control(control).window); }
  static Node shownPage() {
    HWND page = nullptr;
    while ((page = FindWindowExW(shownForm(), page, L"kebu.page", nullptr)) != nullptr) {
      if (IsWindowVisible(page)) return Node::of(page);
    }
    return Node(nullptr);
  }
};

/// A node with all that it contains, but for rows after the first few.
void walk(const Node& node, int depth, const std::function<void(const Node&)>& visit) {
  constexpr int deepest = 8;
  constexpr long most = 120;
  if (!node || depth > deepest) return;
  visit(node);
  for (long i = 1; i <= std::min(node.childCount(), most); ++i) {
    walk(node.child(i), depth + 1, visit);
  }
}

/// Collects the boxes, lists and grids that are in sight.
BOOL CALLBACK collectFields(HWND window, LPARAM context) {
  const std::wstring kind = workbench::classOf(window);
  const bool isField = kind == L"Edit" || kind == L"ComboBox" || kind == L"kebu.grid";
  if (isField && IsWindowVisible(window)) {
    reinterpret_cast<std::vector<HWND>*>(context)->push_back(window);
  }
  return TRUE;
}

constexpr const char* pages[] = {"1", "2", "3", "6", "7", "10", "11", "12"};

TEST_F(AccessibilityTest, EveryControlHasANameAndARole) {
  open();
  for (const char* page : pages) {
    openPage(shownForm(), page);
    std::multiset<std::string> found;
    int focusable = 0;
    walk(shownPage(), 0, [&](const Node& each) {
      found.insert(each.name());
      EXPECT_GT(each.role(), 0) << page << ": " << each.name();
      if (!each.is(STATE_SYSTEM_FOCUSABLE)) return;
      ++focusable;
      EXPECT_NE(each.name(), "") << "on page " << page << ", with the value " << each.value();
      EXPECT_TRUE(each.parent()) << each.name();
    });
    EXPECT_GT(focusable, 0) << page;
    // Whatever stands on the page is found there.
    std::vector<HWND> windows;
    EnumChildWindows(shownForm(), collectFields, reinterpret_cast<LPARAM>(&windows));
    EXPECT_FALSE(windows.empty()) << page;
    for (HWND window : windows) {
      const std::string name = Node::of(window).name();
      EXPECT_TRUE(found.contains(name)) << "\"" << name << "\" on page " << page;
    }
  }
}

TEST_F(AccessibilityTest, FieldsTellTheirStateAndTheirGroup) {
  open();
  const Node id = node("TXT_GM03_IDDISPOSITIVO");
  EXPECT_EQ(id.role(), ROLE_SYSTEM_TEXT);
  EXPECT_EQ(id.name(), "Identificativo");
  EXPECT_EQ(id.value(), reader().value("TXT_GM03_IDDISPOSITIVO"));
  EXPECT_TRUE(id.is(STATE_SYSTEM_READONLY));
  EXPECT_EQ(id.parent().name(), "Profilo di collegamento");
  EXPECT_EQ(id.parent().role(), ROLE_SYSTEM_GROUPING);

  const Node code = node("TXT_GM04_CODDOCWEB_MG36");
  EXPECT_FALSE(code.is(STATE_SYSTEM_READONLY));
  EXPECT_NE(code.description(), "") << "the description of the code";
  const auto lookup = reader().find(Inspected::Lookup, "TXT_GM04_CODDOCWEB_MG36", {}).value();
  const Node button = Node::of(lookup.window);
  EXPECT_EQ(button.role(), ROLE_SYSTEM_PUSHBUTTON);
  EXPECT_EQ(button.name(), "Elenco: " + code.name());
  EXPECT_EQ(button.shortcut(), "F4");

  const Node combo = node("CMB_GM04_INDTIPOGIACENZA");
  EXPECT_EQ(combo.role(), ROLE_SYSTEM_COMBOBOX);
  EXPECT_NE(combo.value(), "");

  const Node password = node("TXT_GM04_FTPPWD");
  EXPECT_TRUE(password.is(STATE_SYSTEM_PROTECTED));
  EXPECT_EQ(password.value(), "");

  const auto confirm = reader().find(Inspected::Item, "INAV_PAR", {"Conferma", 0, 0}).value();
  const Node pressed = Node::of(confirm.window);
  EXPECT_EQ(pressed.name(), "Conferma");
  EXPECT_EQ(pressed.shortcut(), "F10");
  EXPECT_TRUE(pressed.is(STATE_SYSTEM_UNAVAILABLE)) << "nothing was changed";
  typeInto("TXT_GM03_NOTE", L"cambiata");
  EXPECT_FALSE(pressed.is(STATE_SYSTEM_UNAVAILABLE));
}

TEST_F(AccessibilityTest, LinksAreItemsOfAList) {
  open();
  const Node links = node("SBAR_MAIN");
  EXPECT_EQ(links.role(), ROLE_SYSTEM_LIST);
  ASSERT_EQ(links.childCount(), 10);
  const Node second = links.child(2);
  EXPECT_EQ(second.name(), "Listini");
  EXPECT_EQ(second.shortcut(), "Ctrl+2");
  EXPECT_FALSE(second.is(STATE_SYSTEM_SELECTED));
  second->accDoDefaultAction(childId(CHILDID_SELF));
  pumpWaiting();
  EXPECT_TRUE(second.is(STATE_SYSTEM_SELECTED));
  EXPECT_TRUE(reader().control("GRPMAIN_LISTINI").visible);
  const RECT place = second.place();
  EXPECT_EQ(links.at({place.left + 5, place.top + 5}).name(), "Listini");
}

TEST_F(AccessibilityTest, GridsTellRowsCellsAndTicks) {
  open();
  openPage(shownForm(), "3");
  const windows::Inspection shown = reader().control("QGRID_DEP");
  const Node grid = node("QGRID_DEP");
  EXPECT_EQ(grid.role(), ROLE_SYSTEM_TABLE);
  EXPECT_EQ(grid.childCount(), shown.count + 1) << "the heads, and the rows";
  const Node heads = grid.child(1);
  EXPECT_EQ(heads.childCount(), shown.columns);
  EXPECT_EQ(heads.child(1).role(), ROLE_SYSTEM_COLUMNHEADER);
  EXPECT_EQ(heads.child(1).name(), "Codice");
  const Node row = grid.child(2 + 1);
  EXPECT_EQ(row.role(), ROLE_SYSTEM_ROW);
  EXPECT_EQ(row.childCount(), shown.columns);
  const Node code = row.child(1);
  EXPECT_EQ(code.role(), ROLE_SYSTEM_CELL);
  EXPECT_EQ(code.name(), "Codice");
  EXPECT_EQ(code.value(),
            textOf(reader().find(Inspected::Cell, "QGRID_DEP", {"MG58_CODDEP", 0, 2}).value()));
  EXPECT_EQ(code.parent().name(), row.name());
  EXPECT_EQ(row.parent().role(), ROLE_SYSTEM_TABLE);

  const Node tick = row.child(3);
  EXPECT_EQ(tick.role(), ROLE_SYSTEM_CHECKBUTTON);
  EXPECT_EQ(tick.name(), "Attivo");
  const bool was = tick.is(STATE_SYSTEM_CHECKED);
  tick->accDoDefaultAction(childId(CHILDID_SELF));
  pumpWaiting();
  EXPECT_NE(tick.is(STATE_SYSTEM_CHECKED), was);
  EXPECT_TRUE(tick.is(STATE_SYSTEM_FOCUSED));
  EXPECT_EQ(grid.focus().name(), "Attivo");
  const RECT place = code.place();
  EXPECT_EQ(grid.at({place.left + 3, place.top + 3}).value(), code.value());

  // What a mark before a row means.
  openPage(shownForm(), "2");
  std::set<std::string> states;
  const Node prices = node("QGRID_LISTINI");
  for (long i = 2; i <= prices.childCount(); ++i) states.insert(prices.child(i).description());
  EXPECT_TRUE(states.contains("riga completa"));

  // The box in which a cell is edited.
  HWND const cells = reader().control("QGRID_LISTINI").window;
  SetFocus(cells);
  workbench::pressKey(cells, VK_HOME);
  workbench::pressKey(
      cells, VK_RIGHT,
      reader().find(Inspected::Column, "QGRID_LISTINI", {"GM57_NUMLIST_LI10", 0, 0}).value().index);
  workbench::pressKey(cells, VK_F2);
  pumpWaiting();
  EXPECT_EQ(Node::of(GetFocus()).name(), "Listino anagrafico");
  EXPECT_EQ(Node::of(GetFocus()).role(), ROLE_SYSTEM_TEXT);
  workbench::pressKey(GetFocus(), VK_ESCAPE);
  pumpWaiting();

  // A client may hold an object for longer than the window lives.
  const Node late = prices.child(2).child(1);
  (*host)->close();
  host.reset();
  windows::Bstr told;
  EXPECT_EQ(late->get_accName(childId(CHILDID_SELF), told.put()), CO_E_OBJNOTCONNECTED);
}

struct Told {
  DWORD event;
  HWND window;
  LONG child;
};
std::vector<Told> events;

void CALLBACK remember(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD,
                       DWORD) {
  if (object == OBJID_CLIENT) events.push_back({event, window, child});
}

TEST_F(AccessibilityTest, EventsTellOfEachMoveInAGrid) {
  open();
  openPage(shownForm(), "3");
  HWND const grid = reader().control("QGRID_DEP").window;
  SetFocus(grid);
  pumpWaiting();
  HWINEVENTHOOK hook =
      SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_VALUECHANGE, nullptr, remember,
                      GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT);
  ASSERT_NE(hook, nullptr);
  events.clear();
  const auto toldOf = [](DWORD event) {
    std::string names;
    for (const Told& told : events) {
      if (told.event != event) continue;
      const Node node = Node::child(told.window, told.child);
      names += node ? node.name() + " " + node.value() + ";" : "?;";
    }
    events.clear();
    return names;
  };
  workbench::pressKey(grid, VK_DOWN);
  pumpWaiting();
  const std::string second =
      textOf(reader().find(Inspected::Cell, "QGRID_DEP", {"MG58_CODDEP", 0, 2}).value());
  EXPECT_EQ(toldOf(EVENT_OBJECT_FOCUS), "Codice " + second + ";");
  workbench::pressKey(grid, VK_RIGHT, 2);
  pumpWaiting();
  EXPECT_NE(toldOf(EVENT_OBJECT_FOCUS).find("Attivo"), std::string::npos);
  workbench::pressKey(grid, VK_SPACE);
  pumpWaiting();
  EXPECT_NE(toldOf(EVENT_OBJECT_STATECHANGE).find("Attivo"), std::string::npos);
  UnhookWinEvent(hook);
}

TEST_F(AccessibilityTest, ListsOfCodesAreTables) {
  open();
  std::string name;
  std::string first;
  long rows = 0;
  LONG role = 0;
  soon([&] {
    HWND const list = FindWindowW(L"kebu.lookup", nullptr);
    const Node grid = Node::of(FindWindowExW(list, nullptr, L"kebu.grid", nullptr));
    role = grid.role();
    name = grid.name();
    rows = grid.childCount() - 1;
    first = grid.child(2).child(1).value();
    PostMessageW(list, WM_CLOSE, 0, 0);
  });
  SetFocus(reader().control("TXT_GM04_CODDOCWEB_MG36").window);
  workbench::pressKey(GetFocus(), VK_F4);
  pumpWaiting();
  EXPECT_EQ(role, ROLE_SYSTEM_TABLE);
  EXPECT_NE(name, "");
  EXPECT_GT(rows, 3);
  EXPECT_NE(first, "");
}

}  // namespace

}  // namespace kebu::tests
