#include "tests/values/entry_checks.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <string_view>
#include <utility>
#include <vector>

#include "common/convert.h"
#include "common/error.h"
#include "controls/query_editor.h"
#include "tests/values/nasty_values.h"

namespace kebu::tests {

namespace {

using Outcome = EntryWindow::Outcome;

/// The beginning of a text, for messages.
std::string shortened(const std::string& text) {
  constexpr std::size_t enough = 60;
  return '"' + text.substr(0, enough) + (text.size() > enough ? "..." : "") + '"';
}

/// Whether the value is kept; a failure when it is neither kept nor refused nor told.
bool isKept(const std::string& place, const Outcome& outcome, const std::string& before,
            const std::string& after) {
  if (isSameValue(outcome.entered, after)) return true;
  EXPECT_TRUE(outcome.isTold) << place << " shows " << shortened(after) << " for "
                              << shortened(outcome.entered);
  EXPECT_EQ(shortened(after), shortened(before)) << place;
  return false;
}

/// Types into each box; the texts of those that took the value, by name.
std::map<std::string, std::string> typeInto(EntryWindow& window,
                                            const std::vector<std::string>& boxes,
                                            const std::string& value) {
  std::map<std::string, std::string> taken;
  for (const std::string& box : boxes) {
    const std::string before = window.text(box);
    const Outcome outcome = window.type(box, value);
    const std::string after = window.text(box);
    if (isKept(box, outcome, before, after)) taken[box] = after;
  }
  return taken;
}

void expectStored(EntryWindow& window, const std::string& column, const std::string& shown,
                  const std::string& from) {
  const std::string kept = window.stored("SELECT " + column + " FROM " + from);
  EXPECT_TRUE(isSameValue(shown, kept))
      << column << " holds " << shortened(kept) << " for " << shortened(shown);
}

/// Whether one of a row of things is tried.
bool isTried(std::size_t number, Share share) {
  return share == Share::All || number % 3 == 0;
}

/// The values that a place gets, of which there are several.
std::vector<NastyValue> valuesFor(std::size_t place, Share share) {
  std::vector<NastyValue> values;
  for (const NastyValue& value : nastyValues()) {
    if (isTried(place++, share)) values.push_back(value);
  }
  return values;
}

}  // namespace

bool isSameValue(const std::string& given, const std::string& kept) {
  if (trimRight(given) == trimRight(kept)) return true;
  // A point that does not group three digits was meant for something else.
  static const std::regex number(R"(\s*[+-]?(\d+|\d{1,3}(\.\d{3})+)(,\d+)?([eE][+-]?\d+)?\s*)");
  constexpr std::size_t longest = 100;  // a longer text is no number, and too long for the regex
  if (given.size() > longest || kept.size() > longest) return false;
  if (!std::regex_match(given, number) || !std::regex_match(kept, number)) return false;
  try {
    return toDecimal(given) == toDecimal(kept);
  } catch (const RuntimeError&) {
    return false;  // larger than any column
  }
}

void enterInBoxesOfTheProfile(EntryWindow& window) {
  // Whatever is typed, the profile's code is 1.
  constexpr std::string_view forced = "GM03_CODICEDISPOSITIVO";
  // Choices that let every box be edited.
  const auto choose = [&] {
    window.choose("CMB_GM04_INDTIPODEPIMP", "1");
    window.choose("CBO_TIPOVALORIZZ", "16");
  };
  choose();
  const std::vector<std::string> boxes = window.boxes();
  EXPECT_GT(boxes.size(), 8U);
  for (const NastyValue& value : nastyValues()) {
    SCOPED_TRACE(value.name);
    const auto shown = typeInto(window, boxes, value.text);
    if (window.press("INAV_PAR", "Conferma")) {
      window.press("INAV_PAR", "Annulla");
      choose();
      continue;
    }
    for (const auto& [box, text] : shown) {
      const std::string named = box.substr(std::string_view("TXT_").size());
      const std::string column = named == "NUMLIST" ? "GM04_LISTCOSTOART_LI10" : named;
      if (column == forced) continue;
      const bool isProfile = column.starts_with("GM03_");
      expectStored(window, column, text,
                   isProfile ? "GM03_DISPOSITIVI WHERE GM03_IDDISPOSITIVO = 2"
                             : "GM04_PARAMETRITVRO WHERE GM04_IDDISPOSITIVO_GM03 = 2");
    }
  }
}

void enterInLevelsOfCategories(EntryWindow& window, Share share) {
  for (const std::int32_t view : {6, 7}) {
    window.openPage(view);
    const std::vector<std::string> boxes = window.boxes();
    EXPECT_GT(boxes.size(), 2U);
    for (const NastyValue& value : valuesFor(static_cast<std::size_t>(view), share)) {
      SCOPED_TRACE(value.name);
      const auto shown = typeInto(window, boxes, value.text);
      if (window.press("INAV_CATCLIART", "Conferma")) {
        window.press("INAV_CATCLIART", "Annulla");
        continue;
      }
      window.refresh();
      for (const auto& [box, text] : shown) {
        const std::string kept = window.text(box);
        EXPECT_TRUE(isSameValue(text, kept)) << box << " shows " << shortened(kept);
      }
    }
  }
}

void enterInConditionsOfFilters(EntryWindow& window, Share share) {
  using controls::QueryEditor;
  for (const auto& [view, editor] :
       {std::pair(11, "ENHQUERY_ART"), std::pair(10, "ENHQUERY_CLI")}) {
    window.openPage(view);
    std::size_t fields = 0;
    for (;; ++fields) {
      const std::string choice = QueryEditor::operatorName(editor, fields + 1);
      const std::string box = QueryEditor::valueName(editor, fields + 1, controls::RangeEnd::First);
      if (!window.choose(choice, "=")) break;
      std::vector<const char*> operators{"=", "contains", "in"};
      if (share == Share::Third) operators = {operators[fields % operators.size()]};
      for (const char* const op : operators) {
        if (!window.choose(choice, op)) continue;  // numbers lack some
        for (const NastyValue& value : valuesFor(fields, share)) {
          SCOPED_TRACE(choice + ' ' + op + ' ' + value.name);
          const std::string before = window.text(box);
          const Outcome outcome = window.type(box, value.text);
          isKept(box, outcome, before, window.text(box));
        }
        // The condition that is made of what was taken last is one that the database understands.
        EXPECT_FALSE(window.click(std::string(editor) + ".CONTA")) << choice << ' ' << op;
        window.choose(choice, "clear");
      }
    }
    EXPECT_GT(fields, 5U);
  }
}

void enterInCellsOfPriceLists(EntryWindow& window, Share share) {
  constexpr const char* grid = "QGRID_LISTINI";
  constexpr std::pair<const char*, std::int16_t> cells[] = {
      {"GM57_NUMLIST_LI10", 1},     {"GM57_CATEGORIA", 2}, {"GM57_CATEGORIA", 3},
      {"GM57_DEPGIACENZE_MG58", 4}, {"GM57_QUANTITA", 5},  {"GM57_CLIFOR_CG44", 6},
      {"GM57_INDTIPO", 0},          {"GM57_FLGATTIVO", 0},
  };
  window.openPage(2);
  std::int32_t slots = 0;
  for (const auto& [field, type] : cells) {
    window.chooseInCell(grid, ++slots, "GM57_INDTIPO", type);
  }
  std::size_t place = 0;
  for (const NastyValue& value : nastyValues()) {
    SCOPED_TRACE(value.name);
    std::map<std::int32_t, std::pair<std::string, std::string>> shown;
    std::int32_t row = 0;
    ++place;
    for (const auto& [field, type] : cells) {
      ++row;
      if (!isTried(place + static_cast<std::size_t>(row), share)) continue;
      const std::string before = window.cell(grid, row, field);
      const Outcome outcome = window.edit(grid, row, field, value.text);
      const std::string after = window.cell(grid, row, field);
      isKept(field, outcome, before, after);
      // Incomplete slots are switched off when they are saved.
      if (std::string_view(field) != "GM57_FLGATTIVO") shown[row] = {field, after};
    }
    if (window.press("INAV_PAR", "Conferma")) continue;
    for (const auto& [slot, cell] : shown) {
      expectStored(window, cell.first, cell.second,
                   "GM57_KBLISTINI WHERE GM57_IDDISPOSITIVO_GM03 = 2 AND GM57_CODPREZZO = " +
                       std::to_string(slot));
    }
  }
}

void enterInThePositionOfARule(EntryWindow& window) {
  constexpr const char* grid = "QGRID_SCONTOSUPREZZO";
  constexpr std::int32_t discounts = 12;
  window.openPage(discounts);
  window.choose("CMB_LISTINISCONTO", "4");
  if (window.cell(grid, 1, "GM61_ATTIVA") != "1") window.tickCell(grid, 1, "GM61_ATTIVA");
  for (const NastyValue& value : nastyValues()) {
    SCOPED_TRACE(value.name);
    const std::string before = window.cell(grid, 1, "GM61_POSIZIONE");
    const Outcome outcome = window.edit(grid, 1, "GM61_POSIZIONE", value.text);
    isKept(grid, outcome, before, window.cell(grid, 1, "GM61_POSIZIONE"));
  }
}

}  // namespace kebu::tests
