// How the plug-in's window looks: the resolution of its screen, colours and fonts of the system.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "controls/combo_box.h"
#include "controls/desktop.h"
#include "controls/edit_box.h"
#include "controls/form.h"
#include "controls/sheet.h"
#include "controls/simple_controls.h"
#include "tests/windows/import_patch.h"
#include "tests/windows/window_fixture.h"
#include "windows/support/handles.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/form/win32_desktop.h"
#include "windows/views/window/pointer_watch.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/settings_aside.h"
#include "workbench/windows/window_reader.h"
// After the headers that include Windows'.
#include <commctrl.h>

namespace kebu::tests {

namespace {

using workbench::WindowReader;

LONG heightOf(const windows::Inspection& part) {
  return part.bounds.bottom - part.bounds.top;
}
LONG widthOf(const windows::Inspection& part) {
  return part.bounds.right - part.bounds.left;
}

/// Moves the window to a screen of another resolution, as Windows reports it.
void changeResolution(int dpi) {
  RECT suggested{0, 0, MulDiv(1560, dpi, USER_DEFAULT_SCREEN_DPI),
                 MulDiv(820, dpi, USER_DEFAULT_SCREEN_DPI)};
  SendMessageW(shownForm(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
               reinterpret_cast<LPARAM>(&suggested));
  pumpWaiting();
}

TEST_F(WindowTest, FollowsTheResolutionOfItsScreen) {
  DllHost host(*library);
  host->open();
  pumpWaiting();
  const WindowReader reader(shownForm());
  const auto box = [&] { return reader.control("TXT_GM03_DESCRIZIONE"); };
  const windows::Inspection usual = box();
  changeResolution(2 * USER_DEFAULT_SCREEN_DPI);
  EXPECT_NEAR(static_cast<double>(heightOf(box())), 2.0 * static_cast<double>(heightOf(usual)), 4);
  changeResolution(USER_DEFAULT_SCREEN_DPI);
  EXPECT_EQ(heightOf(box()), heightOf(usual));
  EXPECT_EQ(widthOf(box()), widthOf(usual));
  host->close();
}

TEST_F(WindowTest, AllPricesAreInSightAtTheUsualSize) {
  const workbench::SettingsAside unarranged;
  DllHost host(*library);
  host->open();
  pumpWaiting();
  openPage(shownForm(), "2");
  HWND const grid = WindowReader(shownForm()).control("QGRID_LISTINI").window;
  EXPECT_FALSE(GetWindowLongPtrW(grid, GWL_STYLE) & WS_HSCROLL);
  // Of a smaller window not all of them are.
  SetWindowPos(shownForm(), nullptr, 0, 0, 900, 700, SWP_NOMOVE | SWP_NOZORDER);
  pumpWaiting();
  EXPECT_TRUE(GetWindowLongPtrW(grid, GWL_STYLE) & WS_HSCROLL);
  host->close();
}

/// The text of the tip that the window shows; "" for none.
std::wstring shownTip() {
  wchar_t text[512] = {};
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.hwnd = shownForm();
  tool.lpszText = text;
  HWND tip = nullptr;
  while ((tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
    if (!IsWindowVisible(tip) || GetWindow(tip, GW_OWNER) != shownForm()) continue;
    SendMessageW(tip, TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&tool));
    return text;
  }
  return {};
}

/// Lets the pointer rest on the middle of a part.
void restOn(const windows::Inspection& part) {
  POINT middle{(part.bounds.left + part.bounds.right) / 2,
               (part.bounds.top + part.bounds.bottom) / 2};
  ClientToScreen(part.window, &middle);
  SetCursorPos(middle.x, middle.y);
  SendMessageW(shownForm(), WM_SETCURSOR, reinterpret_cast<WPARAM>(part.window),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  constexpr int ticks = 5;
  for (int i = 0; i < ticks; ++i) {
    SendMessageW(shownForm(), WM_TIMER, windows::PointerWatch::timer, 0);
  }
}

TEST_F(WindowTest, ATipTellsWhatThePointerRestsOn) {
  POINT before{};
  GetCursorPos(&before);
  DllHost host(*library);
  host->open();
  pumpWaiting();
  const WindowReader reader(shownForm());
  restOn(reader.find(windows::Inspected::Lookup, "TXT_GM04_CODDOCWEB_MG36", {}).value());
  EXPECT_EQ(shownTip(), L"Elenco: Documento ordini web\r\nF4");
  const std::wstring words =
      L"una descrizione che non sta tutta nel suo campo " + std::wstring(80, L'x') + L" fine";
  HWND const box = reader.control("TXT_GM03_DESCRIZIONE").window;
  SetWindowTextW(box, words.c_str());
  restOn(reader.control("TXT_GM03_DESCRIZIONE"));
  EXPECT_NE(shownTip().find(L"fine"), std::wstring::npos);
  restOn(reader.control("TXT_GM03_CODICEDISPOSITIVO"));
  EXPECT_EQ(shownTip().find(L"fine"), std::wstring::npos);
  host->close();
  SetCursorPos(before.x, before.y);
}

/// Where the middle of the text is that a field or its caption shows, on the screen.
LONG middleOfText(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  COMBOBOXINFO combo{};
  combo.cbSize = sizeof combo;
  if (workbench::classOf(window) == L"ComboBox" && GetComboBoxInfo(window, &combo)) {
    area = combo.rcItem;
  }
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
  return (area.top + area.bottom) / 2;
}

LONG lineHeightOf(HWND window) {
  const windows::ScreenDc screen;
  auto* const font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
  const windows::Selected selected(screen.get(), font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(screen.get(), &metrics);
  return metrics.tmHeight;
}

TEST_F(WindowTest, TextsStandOnOneLineAtEveryResolution) {
  DllHost host(*library);
  host->open();
  pumpWaiting();
  const WindowReader reader(shownForm());
  for (const int dpi : {96, 120, 144, 192}) {
    changeResolution(dpi);
    for (const char* name :
         {"TXT_GM03_DESCRIZIONE", "TXT_GM03_IDDISPOSITIVO", "CMB_GM04_INDTIPOGIACENZA"}) {
      const windows::Inspection field = reader.control(name);
      HWND const caption = GetWindow(field.window, GW_HWNDPREV);
      ASSERT_EQ(workbench::classOf(caption), L"Static") << name;
      EXPECT_NEAR(static_cast<double>(middleOfText(field.window)),
                  static_cast<double>(middleOfText(caption)), 1)
          << name << " at " << dpi;
    }
    // An edit control puts its text at the top, so its client area is as high as a line.
    const windows::Inspection box = reader.control("TXT_GM03_DESCRIZIONE");
    EXPECT_EQ(heightOf(box), lineHeightOf(box.window)) << dpi;
  }
  changeResolution(USER_DEFAULT_SCREEN_DPI);
  host->close();
}

/// The functions that a test keeps from the plug-in.
int hidden = 0;

FARPROC WINAPI withoutResolutions(HMODULE module, LPCSTR name) {
  if (std::strstr(name, "Dpi") == nullptr) return GetProcAddress(module, name);
  ++hidden;
  return nullptr;
}

HMODULE plugin() {
  return GetModuleHandleW(L"KEBU_ANAGKELMORIA.dll");
}

TEST_F(WindowTest, WorksOnAWindowsWithoutResolutionsOfWindows) {
  LONG usual = 0;
  {
    DllHost host(*library);
    host->open();
    pumpWaiting();
    usual = heightOf(WindowReader(shownForm()).control("TXT_GM03_DESCRIZIONE"));
    host->close();
  }
  // Loaded anew, since a library asks for the functions once.
  ASSERT_TRUE(library->canUnload());
  library.reset();
  library = std::make_unique<workbench::PluginLibrary>(path());
  hidden = 0;
  const ImportPatch patch(plugin(), "GetProcAddress", withoutResolutions);
  DllHost host(*library);
  host->open();
  pumpWaiting();
  EXPECT_GT(hidden, 0);
  const WindowReader reader(shownForm());
  const auto box = [&] { return reader.control("TXT_GM03_DESCRIZIONE"); };
  EXPECT_EQ(heightOf(box()), usual);
  // A host that knows resolutions is told of them since Windows 8.1.
  changeResolution(2 * USER_DEFAULT_SCREEN_DPI);
  EXPECT_NEAR(static_cast<double>(heightOf(box())), 2.0 * static_cast<double>(usual), 4);
  changeResolution(USER_DEFAULT_SCREEN_DPI);
  typeInto("TXT_GM03_NOTE", L"cambiata");
  EXPECT_TRUE(reader.find(windows::Inspected::Item, "INAV_PAR", {"Conferma", 0, 0})->enabled);
  openPage(shownForm(), "2");
  EXPECT_TRUE(reader.control("QGRID_LISTINI").visible);
  host->close();
}

// ---- colours

constexpr COLORREF strange = RGB(10, 200, 30);

BOOL WINAPI highContrast(UINT action, UINT size, PVOID result, UINT flags) {
  const BOOL done = SystemParametersInfoW(action, size, result, flags);
  if (action == SPI_GETHIGHCONTRAST) {
    static_cast<HIGHCONTRASTW*>(result)->dwFlags |= HCF_HIGHCONTRASTON;
  }
  return done;
}

DWORD WINAPI strangeColours(int /*index*/) {
  return strange;
}

/// The colour of a window near its upper left corner, as it was painted.
COLORREF cornerOf(HWND window) {
  constexpr int inside = 3;
  UpdateWindow(window);
  HDC const dc = GetDC(window);
  const COLORREF colour = GetPixel(dc, inside, inside);
  ReleaseDC(window, dc);
  return colour;
}

TEST_F(WindowTest, FollowsTheColoursOfTheSystem) {
  for (const UINT message : {WM_SYSCOLORCHANGE, WM_THEMECHANGED}) {
    DllHost host(*library);
    host->open();
    pumpWaiting();
    HWND form = shownForm();
    const auto page = [&] { return FindWindowExW(form, nullptr, L"kebu.page", nullptr); };
    const auto list = [] { return FindWindowW(L"kebu.lookup", nullptr); };
    const COLORREF usual = cornerOf(page());
    EXPECT_NE(usual, strange);
    COLORREF ofList = 0;
    soon([&] {
      const ImportPatch contrast(plugin(), "SystemParametersInfoW", highContrast);
      const ImportPatch colours(plugin(), "GetSysColor", strangeColours);
      SendMessageW(list(), message, 0, 0);
      SendMessageW(form, message, 0, 0);
      ofList = cornerOf(list());
      PostMessageW(list(), WM_CLOSE, 0, 0);
    });
    const auto button =
        WindowReader(shownForm()).find(windows::Inspected::Lookup, "TXT_GM04_CODDOCWEB_MG36", {});
    workbench::clickOn(button.value().window, button->bounds);
    pumpWaiting();
    EXPECT_EQ(ofList, strange) << "message " << message;
    EXPECT_EQ(cornerOf(page()), strange) << "message " << message;
    SendMessageW(form, message, 0, 0);
    EXPECT_EQ(cornerOf(page()), usual) << "message " << message;
    host->close();
  }
}

// ---- a host that does not know resolutions

/// Runs this program for one test on a screen of another resolution; what it returns.
DWORD runAtResolution(DWORD dpi, const std::string& test) {
  constexpr const wchar_t* key = L"Control Panel\\Desktop";
  constexpr const wchar_t* value = L"LogPixels";
  RegSetKeyValueW(HKEY_CURRENT_USER, key, value, REG_DWORD, &dpi, sizeof dpi);
  std::wstring program(MAX_PATH, L'\0');
  program.resize(GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
  std::wstring command = L"\"" + program + L"\" --gtest_brief --gtest_filter=" +
                         windows::toWide(test) + L" \"" + windows::toWide(arguments().front()) +
                         L"\"";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  DWORD result = STILL_ACTIVE;
  if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                     &process)) {
    const windows::OwnedEvent thread(process.hThread);
    const windows::OwnedEvent running(process.hProcess);
    WaitForSingleObject(running.get(), INFINITE);
    GetExitCodeProcess(running.get(), &result);
  }
  RegDeleteKeyValueW(HKEY_CURRENT_USER, key, value);
  return result;
}

class SmallForm : public controls::Form {
 public:
  explicit SmallForm(controls::Desktop& desktop, bool isPage = false) : Form("FRM", desktop) {
    choice.addRow(std::int32_t{1}, "Una");
    group.addAll(first, second, choice);
    isPage ? addPage(group) : add(group);
    add(done);
  }

  controls::GroupBox group{"GRP", "Gruppo"};
  controls::Button done{"CMD_DONE", "Fatto"};
  controls::EditBox first{"TXT_FIRST", "Primo"};
  controls::EditBox second{"TXT_SECOND", "Secondo"};
  controls::ComboBox choice{"CMB_CHOICE", "Scelta"};
};

class FormWithPage : public SmallForm {
 public:
  explicit FormWithPage(controls::Desktop& desktop) : SmallForm(desktop, true) { add(title); }

  controls::TitleBar title{"TITLEBAR"};
};

/// A number that differs when a window is painted in another way.
std::size_t looksOf(HWND window) {
  UpdateWindow(window);
  RECT area{};
  GetClientRect(window, &area);
  HDC const dc = GetDC(window);
  std::string pixels;
  for (int y = 0; y < area.bottom; ++y) {
    for (int x = 0; x < area.right; ++x) pixels += std::to_string(GetPixel(dc, x, y)) + ' ';
  }
  ReleaseDC(window, dc);
  return std::hash<std::string>()(pixels);
}

class DrawnForm : public testing::Test {
 protected:
  template <class Shown>
  std::shared_ptr<Shown> show() {
    auto form = std::make_shared<Shown>(desktop);
    form->Show(false);
    pumpWaiting();
    return form;
  }

  windows::CommonControls commonControls{GetModuleHandleW(nullptr)};
  windows::Win32Desktop desktop{GetModuleHandleW(nullptr), commonControls};
};

// ---- light texts on dark

constexpr COLORREF inkOfText = RGB(250, 250, 240);
constexpr COLORREF inkOnChosen = RGB(2, 0, 1);

DWORD WINAPI darkColours(int index) {
  switch (index) {
    case COLOR_WINDOWTEXT:
      return inkOfText;
    case COLOR_HIGHLIGHT:
      return RGB(26, 235, 255);
    case COLOR_HIGHLIGHTTEXT:
      return inkOnChosen;
    default:
      return RGB(0, 0, 0);
  }
}

class FormWithSheet : public controls::Form {
 public:
  explicit FormWithSheet(controls::Desktop& desktop) : Form("FRM", desktop) {
    sheet.setLines({{.label = "MMMM", .value = "MMMM"}, {.label = "HHHH", .value = "HHHH"}});
    add(sheet);
  }

  controls::Sheet sheet{"SHEET", "Foglio"};
};

TEST_F(DrawnForm, AChosenLineHasTheColoursOfWhatIsChosen) {
  const ImportPatch colours(GetModuleHandleW(nullptr), "GetSysColor", darkColours);
  const auto form = show<FormWithSheet>();
  HWND const list = WindowReader(shownForm()).control("SHEET").window;
  SetFocus(list);
  UpdateWindow(list);
  HDC const dc = GetDC(list);
  for (const int line : {0, 1}) {
    RECT area{};
    SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&area));
    std::map<COLORREF, int> seen;
    for (LONG y = area.top; y < area.bottom; ++y) {
      for (LONG x = area.left; x < area.right; ++x) ++seen[GetPixel(dc, x, y)];
    }
    const bool isChosen = line == 0;
    EXPECT_EQ(seen.contains(inkOnChosen), isChosen) << line;
    EXPECT_EQ(seen.contains(inkOfText), !isChosen) << line;
  }
  ReleaseDC(list, dc);
  form->Unload();
}

TEST_F(DrawnForm, DisablesTheLooksOfItsButtonsWhileItWorks) {
  const auto form = show<SmallForm>();
  HWND const button = WindowReader(shownForm()).control("CMD_DONE").window;
  const std::size_t usual = looksOf(button);
  {
    const controls::Work work(desktop);
    desktop.repaint();
    EXPECT_NE(looksOf(button), usual);
    EXPECT_TRUE(IsWindowEnabled(button));
  }
  EXPECT_EQ(looksOf(button), usual);
  form->Unload();
}

TEST_F(DrawnForm, DoesNotShowAPageUnderTheTitleOfTheNext) {
  const auto form = show<FormWithPage>();
  HWND const page = GetParent(WindowReader(shownForm()).control("TXT_FIRST").window);
  const auto isSeen = [&] { return IsWindowVisible(page) != 0; };
  for (const bool isNew : {false, true}) {
    if (isNew) form->title.setCaption("Anteprima");
    {
      const controls::Work work(desktop);
      desktop.repaint();
      EXPECT_EQ(isSeen(), !isNew);
      form->choice.choose("1");  // a page that changes meanwhile stays hidden
      desktop.repaint();
      EXPECT_EQ(isSeen(), !isNew);
    }
    pumpWaiting();
    EXPECT_TRUE(isSeen());
  }
  // The title and the page are one again.
  const controls::Work work(desktop);
  desktop.repaint();
  EXPECT_TRUE(isSeen());
  form->Unload();
}

/// Where the second box is when the form is laid out by a host's thread of that kind, which calls
/// for it outside of any message.
RECT placeOfSecondBox(DPI_AWARENESS_CONTEXT hosts) {
  const windows::CommonControls commonControls(GetModuleHandleW(nullptr));
  windows::Win32Desktop desktop(GetModuleHandleW(nullptr), commonControls);
  const auto form = std::make_shared<SmallForm>(desktop);
  DPI_AWARENESS_CONTEXT const before = SetThreadDpiAwarenessContext(hosts);
  form->Show(false);
  pumpWaiting();
  form->first.setVisible(false);
  desktop.repaint();
  HWND box = WindowReader(shownForm()).control("TXT_SECOND").window;
  SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
  RECT place{};
  GetWindowRect(box, &place);
  SetThreadDpiAwarenessContext(before);
  form->Unload();
  return place;
}

LONG windowHeightOf(const char* control) {
  RECT place{};
  GetWindowRect(WindowReader(shownForm()).control(control).window, &place);
  return place.bottom - place.top;
}

TEST(HostWithoutResolutions, LaysOutAsAnyOther) {
  constexpr UINT high = 192;
  if (GetDpiForSystem() != high) {
    EXPECT_EQ(runAtResolution(high, "HostWithoutResolutions.LaysOutAsAnyOther"), 0U);
    return;
  }
  const RECT usual = placeOfSecondBox(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
  const RECT below = placeOfSecondBox(DPI_AWARENESS_CONTEXT_UNAWARE);
  EXPECT_GT(usual.right - usual.left, 0);
  {
    const windows::CommonControls commonControls(GetModuleHandleW(nullptr));
    windows::Win32Desktop desktop(GetModuleHandleW(nullptr), commonControls);
    const auto form = std::make_shared<SmallForm>(desktop);
    form->Show(false);
    pumpWaiting();
    EXPECT_EQ(windowHeightOf("CMB_CHOICE"), windowHeightOf("TXT_FIRST"));
    // Once it is used it is another window.
    SetFocus(WindowReader(shownForm()).control("CMB_CHOICE").window);
    EXPECT_EQ(windowHeightOf("CMB_CHOICE"), windowHeightOf("TXT_FIRST"));
    form->Unload();
  }
  EXPECT_EQ(below.right - below.left, usual.right - usual.left);
  EXPECT_EQ(below.bottom - below.top, usual.bottom - usual.top);
}

}  // namespace

}  // namespace kebu::tests
