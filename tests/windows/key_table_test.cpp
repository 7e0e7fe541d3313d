// The table of keys against the window: whether each key of the table does something, and whether
// the table names every key that something is done by.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "common/convert.h"
#include "controls/key_table.h"
#include "tests/windows/held_keys.h"
#include "tests/windows/window_fixture.h"
#include "windows/views/window/keyboard.h"
#include "windows/views/window/window_text.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/window_reader.h"

namespace kebu::tests {

namespace {

using windows::Inspected;
using workbench::textOf;
using workbench::WindowReader;

/// A key with those that are held.
struct Chord {
  int key = 0;
  bool control = false;
  bool shift = false;
  bool alt = false;

  auto operator<=>(const Chord&) const = default;
  std::vector<int> held() const {
    std::vector<int> keys;
    if (control) keys.push_back(VK_CONTROL);
    if (shift) keys.push_back(VK_SHIFT);
    return keys;
  }
};

std::ostream& operator<<(std::ostream& out, const Chord& chord) {
  return out << (chord.control ? "Ctrl+" : "") << (chord.shift ? "Shift+" : "")
             << (chord.alt ? "Alt+" : "") << "key " << chord.key;
}

const std::map<std::string, int> keyNames = {
    {"Invio", VK_RETURN}, {"Spazio", VK_SPACE}, {"Canc", VK_DELETE}, {"Esc", VK_ESCAPE},
    {"Tab", VK_TAB},      {"Su", VK_UP},        {"Giù", VK_DOWN},    {"Sinistra", VK_LEFT},
    {"Destra", VK_RIGHT}, {"Inizio", VK_HOME},  {"Fine", VK_END},    {"Pag su", VK_PRIOR},
    {"Pag giù", VK_NEXT},
};

/// std::invalid_argument for a key of no known name.
Chord chordOf(std::string name) {
  Chord chord;
  const auto take = [&](const std::string& prefix, bool& flag) {
    if (!name.starts_with(prefix)) return;
    name.erase(0, prefix.size());
    flag = true;
  };
  take("Ctrl+", chord.control);
  take("Alt+", chord.alt);
  take("Maiusc+", chord.shift);
  if (const auto known = keyNames.find(name); known != keyNames.end()) {
    chord.key = known->second;
  } else if (name.size() == 1) {
    chord.key = static_cast<unsigned char>(name[0]);
  } else if (name.starts_with('F')) {
    chord.key = VK_F1 + std::stoi(name.substr(1)) - 1;
  } else {
    throw std::invalid_argument("a key of no known name: " + name);
  }
  return chord;
}

/// The keys of an entry.
std::vector<Chord> chordsOf(const controls::KeyEntry& entry) {
  std::vector<Chord> chords;
  std::istringstream parts(replaceAll(std::string(entry.keys), ", ", "\n"));
  for (std::string part; std::getline(parts, part);) {
    const std::string between = " … ";
    const std::size_t at = part.find(between);
    if (at == std::string::npos) {
      chords.push_back(chordOf(part));
      continue;
    }
    Chord chord = chordOf(part.substr(0, at));
    const Chord last = chordOf(part.substr(at + between.size()));
    for (; chord.key <= last.key; ++chord.key) chords.push_back(chord);
  }
  return chords;
}

constexpr std::string_view mnemonics = "Alt+lettera sottolineata";

class KeyTableTest : public OpenWindowTest {
 protected:
  void open(const std::string& page) {
    OpenWindowTest::open();
    openPage(shownForm(), page);
  }

  void focus(HWND window) {
    SetFocus(window);
    pumpWaiting();
  }

  /// A field with a look-up, one of several lines, grids, the bars: wherever keys may differ.
  void inEveryPlace(const std::function<void()>& act) {
    open("1");
    for (const char* control : {"TXT_GM04_CODDOCWEB_MG36", "TXT_GM03_NOTE", "SBAR_MAIN"}) {
      focus(windowOf(control));
      act();
    }
    focus(reader().find(Inspected::Item, "INAV_PAR", {"Elimina", 0, 0}).value().window);
    act();
    open("3");
    for (const char* field : {"FLG_ATTIVO", "MG58_CODDEP"}) {
      atCell("QGRID_DEP", field, 2);
      act();
    }
    open("2");
    for (const char* field : {"GM57_INDTIPO", "GM57_NUMLIST_LI10"}) {
      atCell("QGRID_LISTINI", field, 1);
      act();
    }
    inSummary([&] {
      focus(windowOf("SHEET_RIEPILOGO"));
      act();
    });
  }

  /// Opens the summary and leaves it.
  void inSummary(const std::function<void()>& act) {
    open("1");
    soon([&] {
      act();
      PostMessageW(shownForm(), WM_CLOSE, 0, 0);
    });
    workbench::pressKey(GetFocus(), VK_F11);
    pumpWaiting();
  }

  /// Goes to a cell of the page that is shown, and leaves it as it is.
  void atCell(const char* grid, const char* field, std::int32_t row) {
    focus(windowOf(grid));
    const auto column = reader().find(Inspected::Column, grid, {field, 0, 0}).value();
    {
      const HeldKeys control({VK_CONTROL});
      workbench::pressKey(windowOf(grid), VK_HOME);
      pumpWaiting();
    }
    workbench::pressKey(windowOf(grid), VK_DOWN, row - 1);
    workbench::pressKey(windowOf(grid), VK_HOME);
    workbench::pressKey(windowOf(grid), VK_RIGHT, column.index);
    pumpWaiting();
  }

  /// Whether the window takes the key from the control with the focus. The key is not acted on.
  static bool isTaken(const Chord& chord) {
    const HeldKeys held(chord.held());
    const bool isSystem = chord.alt || (chord.key == VK_F10 && !chord.control);
    PostMessageW(GetFocus(), isSystem ? WM_SYSKEYDOWN : WM_KEYDOWN, static_cast<WPARAM>(chord.key),
                 chord.alt ? 1 | (KF_ALTDOWN << 16) : 1);
    bool taken = false;
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (message.message == windows::KeyboardHook::message) {
        taken = true;
      } else if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) {
        DispatchMessageW(&message);
      }
    }
    return taken;
  }
};

TEST_F(KeyTableTest, NamesEveryKeyThatTheWindowActsOn) {
  std::set<Chord> named;
  for (const controls::KeyEntry& entry : controls::keyTable) {
    if (entry.keys == mnemonics) continue;
    for (const Chord& chord : chordsOf(entry)) named.insert(chord);
  }
  std::vector<int> keys = {VK_RETURN, VK_SPACE, VK_DELETE, VK_INSERT, VK_ESCAPE, VK_TAB,
                           VK_BACK,   VK_UP,    VK_DOWN,   VK_LEFT,   VK_RIGHT,  VK_HOME,
                           VK_END,    VK_PRIOR, VK_NEXT,   VK_APPS};
  for (int key = VK_F1; key <= VK_F24; ++key) keys.push_back(key);
  for (int key = '0'; key <= '9'; ++key) keys.push_back(key);
  for (int key = 'A'; key <= 'Z'; ++key) keys.push_back(key);
  std::set<Chord> taken;
  inEveryPlace([&] {
    for (const int key : keys) {
      for (const bool control : {false, true}) {
        for (const bool shift : {false, true}) {
          const Chord chord{key, control, shift, false};
          if (!taken.contains(chord) && isTaken(chord)) taken.insert(chord);
        }
      }
    }
  });
  EXPECT_GT(taken.size(), 20U);
  for (const Chord& chord : taken) EXPECT_TRUE(named.contains(chord)) << chord;
}

TEST_F(KeyTableTest, EveryKeyDoesSomething) {
  std::set<Chord> left;
  for (const controls::KeyEntry& entry : controls::keyTable) {
    if (entry.keys == mnemonics) continue;
    for (const Chord& chord : chordsOf(entry)) left.insert(chord);
  }
  inEveryPlace([&] { std::erase_if(left, [](const Chord& chord) { return isTaken(chord); }); });

  // Others are acted on by the control with the focus: what it shows differs afterwards.
  const auto press = [&](const Chord& chord) {
    const HeldKeys held(chord.held());
    workbench::pressKey(GetFocus(), static_cast<WPARAM>(chord.key));
    pumpWaiting();
  };
  const auto state = [&](const char* grid, const char* field) {
    const windows::Inspection shown = reader().control(grid);
    std::string text = std::to_string(shown.current) + "," + std::to_string(shown.index);
    for (std::int32_t row = 1; row <= shown.count; ++row) {
      text += textOf(reader().find(Inspected::Cell, grid, {field, 0, row}).value());
    }
    return std::pair(text, GetFocus());
  };
  const auto tryAt = [&](const char* page, const char* grid, const char* field, std::int32_t row) {
    open(page);
    std::erase_if(left, [&](const Chord& chord) {
      atCell(grid, field, row);
      const auto before = state(grid, field);
      press(chord);
      const bool acts = state(grid, field) != before;
      workbench::pressKey(GetFocus(), VK_ESCAPE);  // ends the editing of a cell
      pumpWaiting();
      return acts;
    });
  };
  tryAt("3", "QGRID_DEP", "FLG_ATTIVO", 2);
  tryAt("2", "QGRID_LISTINI", "GM57_NUMLIST_LI10", 1);

  // In the box for what to find.
  focus(windowOf("QGRID_LISTINI"));
  press(chordOf("Ctrl+F"));
  workbench::typeText(GetFocus(), L"a");
  pumpWaiting();
  std::erase_if(left, [](const Chord& chord) { return isTaken(chord); });
  press(chordOf("Esc"));

  // With a rule of discounts.
  open("12");
  chooseRow("CMB_LISTINISCONTO", 1);
  pumpWaiting();
  focus(windowOf("QGRID_SCONTOSUPREZZO"));
  std::erase_if(left, [](const Chord& chord) { return isTaken(chord); });

  open("1");
  focus(windowOf("TXT_GM03_NOTE"));
  const Chord newLine = chordOf("Ctrl+Invio");
  EXPECT_TRUE(left.contains(newLine));
  {
    const HeldKeys held(newLine.held());
    PostMessageW(GetFocus(), WM_CHAR, L'\n', 1);  // as Windows makes it of the keys
    pumpWaiting();
  }
  EXPECT_NE(windows::windowText(GetFocus()).find(L'\n'), std::wstring::npos);
  left.erase(newLine);

  for (const Chord& chord : left) ADD_FAILURE() << chord << " does nothing";
}

TEST_F(KeyTableTest, TheSummaryIsCopiedAndSaved) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "riepilogo.txt";
  std::filesystem::remove(file);
  std::string copied;
  inSummary([&] {
    const HeldKeys held({VK_CONTROL});
    workbench::pressKey(GetFocus(), 'C');
    pumpWaiting();
    copied = workbench::clipboardText();
    soon([&] {
      HWND const dialog = GetAncestor(GetFocus(), GA_ROOT);
      if (!workbench::takeFileDialog(dialog, file.wstring())) PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    workbench::pressKey(GetFocus(), 'S');
    pumpWaiting();
  });
  EXPECT_NE(copied.find("Articoli"), std::string::npos) << copied;
  std::ifstream saved(file, std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(saved)), {});
  EXPECT_NE(text.find("Articoli"), std::string::npos) << text;
  saved.close();
  std::filesystem::remove(file);
}

TEST_F(KeyTableTest, IsShownInAList) {
  open("1");
  std::int32_t lines = 0;
  std::string first;
  soon([&] {
    HWND const list = FindWindowW(L"kebu.lookup", nullptr);
    const WindowReader keys(list);
    lines = keys.find(Inspected::Control, "", {}).value().count;
    first = textOf(keys.find(Inspected::Cell, "", {"", 1, 1}).value());
    PostMessageW(list, WM_CLOSE, 0, 0);
  });
  focus(windowOf("TXT_GM03_NOTE"));
  const HeldKeys held({VK_CONTROL});
  workbench::pressKey(GetFocus(), VK_F1);
  pumpWaiting();
  EXPECT_EQ(lines, static_cast<std::int32_t>(std::size(controls::keyTable)));
  EXPECT_EQ(first, controls::keyTable[0].action);
}

}  // namespace

}  // namespace kebu::tests
