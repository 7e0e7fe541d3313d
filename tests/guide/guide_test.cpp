// The user guide names all that the window shows: pages, fields, columns, choices and messages.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/key_table.h"
#include "controls/navigator_bar.h"
#include "controls/query_grid.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/frame/pages.h"
#include "tests/guide/source_texts.h"
#include "tests/support/test_workplace.h"

namespace kebu::guide {
namespace {

namespace fs = std::filesystem;
using controls::as;

const fs::path project = PROJECT_FOLDER;

/// Blanks in a row and line ends are one blank, capitals small letters, and marks of emphasis are
/// left out, as the reader sees the text.
std::string plain(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '*' || c == '`' || c == '\\') continue;
    const bool isBlank = c == ' ' || c == '\n' || c == '\t' || c == '\r';
    if (isBlank && (result.empty() || result.back() == ' ')) continue;
    result += isBlank ? ' ' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  while (!result.empty() && result.back() == ' ') result.pop_back();
  return result;
}

/// The columns of the ten prices are named by the first of them.
std::string firstOfMany(std::string text) {
  const std::size_t name = text.find_last_not_of("0123456789");
  if (name == std::string::npos || text[name] != ' ' || name + 1 == text.size()) return text;
  return text.substr(0, name + 1) + "1 … 10";
}

std::string guideText() {
  std::string text;
  for (const auto& entry : fs::directory_iterator(project / "docs/guida")) {
    if (entry.path().extension() == ".md") text += plain(readFile(entry.path())) + ' ';
  }
  return text;
}

/// What a person reads at a control itself; not its value.
std::vector<std::string> textsOf(controls::Control& control) {
  std::vector<std::string> texts;
  switch (control.kind()) {
    case controls::ControlKind::Button:
    case controls::ControlKind::CheckBox:
    case controls::ControlKind::ComboBox:
    case controls::ControlKind::EditBox:
    case controls::ControlKind::GroupBox:
      texts.push_back(control.caption());
      break;
    default:
      break;
  }
  if (const auto* const grid = as<controls::QueryGrid>(control)) {
    for (const auto& column : grid->columns()) {
      texts.push_back(column.caption);
      for (const auto& item : column.items) texts.push_back(item.second);
    }
  }
  if (const auto* const bar = as<controls::SideBar>(control)) {
    for (const auto& link : bar->links()) texts.push_back(link.text);
  }
  if (const auto* const bar = as<controls::NavigatorBar>(control)) {
    for (const auto& button : bar->buttons()) texts.push_back(button.caption);
  }
  return texts;
}

TEST(Guide, NamesEveryFieldOfTheWindow) {
  const std::string guide = guideText();
  tests::TestWorkplace workplace;
  workplace.open();
  std::set<std::string> missing;
  std::size_t seen = 0;
  const auto check = [&] {
    for (controls::Control* const control : workplace.desktop().front()->controls()) {
      for (const std::string& text : textsOf(*control)) {
        ++seen;
        if (guide.find(plain(text)) == std::string::npos &&
            guide.find(plain(firstOfMany(text))) == std::string::npos) {
          missing.insert(control->Name() + ": " + text);
        }
      }
    }
  };
  workplace.user().inModalWindow = [&](controls::Form& form) {
    check();
    workplace.hands().clickButton(form.find("CMD_OK") ? "CMD_OK" : "CMD_CHIUDI");
  };
  for (const auto& page : forms::pageTable) {
    if (!page.view) continue;
    workplace.hands().openPage(*page.view);
    check();
  }
  workplace.hands().openPage(forms::DiscountsPage::view);
  for (const char* listType : {"1", "2", "3", "4"}) {
    workplace.hands().choose("CMB_LISTINISCONTO", listType);
    check();
  }
  workplace.hands().clickButton("BTN_RIEPILOGO");
  workplace.hands().openPage(1);
  workplace.hands().type("TXT_GM03_NOTE", "nota");
  workplace.hands().askChanges("INAV_PAR");
  workplace.close();
  EXPECT_GT(seen, 200U);
  for (const std::string& text : missing) ADD_FAILURE() << "not in docs/guida: " << text;
}

TEST(Guide, HasTheTableOfKeys) {
  const std::string page = readFile(project / "docs/guida/tasti.md");
  for (const controls::KeyEntry& entry : controls::keyTable) {
    const std::string line =
        "| " + std::string(entry.keys) + " | " + std::string(entry.action) + " |\n";
    EXPECT_NE(page.find(line), std::string::npos) << line;
  }
}

TEST(Guide, HasAFileForEveryPage) {
  for (const auto& page : forms::pageTable) {
    if (!page.view) continue;
    const std::string name = "pagina-" + std::to_string(*page.view) + ".md";
    const fs::path file = project / "docs/guida" / name;
    ASSERT_TRUE(fs::exists(file)) << name << " is what F1 opens";
    EXPECT_EQ(plain(readFile(file)).rfind("# " + plain(std::string(page.link)), 0), 0U) << name;
  }
}

/// Sentences that only developers read: in errors of the program itself, and causes of notices,
/// which are keys.
bool isForDevelopers(const std::string& text) {
  static const std::set<std::string> known = {
#include "tests/guide/developer_texts.inc"
  };
  return known.contains(text);
}

TEST(Guide, NamesEveryMessageOfTheWindow) {
  const std::string guide = guideText();
  std::set<std::string> texts = sentencesBelow(project / "src/forms");
  texts.merge(sentencesBelow(project / "src/controls"));
  EXPECT_GT(texts.size(), 100U);
  for (const std::string& text : texts) {
    if (isForDevelopers(text) || guide.find(plain(text)) != std::string::npos) continue;
    ADD_FAILURE() << "neither in docs/guida nor in developer_texts.inc: " << text;
  }
}

}  // namespace
}  // namespace kebu::guide
