#include "tests/walk/shown_page.h"

#include <algorithm>

#include "controls/visit.h"

namespace kebu::tests {

namespace {

using namespace controls;

void describe(std::vector<std::string>& lines, Control& control) {
  const std::string name = control.Name();
  visit(control,
        Overloaded{
            [&](GroupBox& group) {
              for (Control* child : group.children()) describe(lines, *child);
            },
            [&](QueryEditor& editor) {
              for (std::size_t i = 0; i < editor.fieldCount(); ++i) {
                const QueryEditor::Row& row = editor.row(i);
                lines.push_back(name + ": " + row.op.caption() + ' ' + row.op.text() + ' ' +
                                row.first.text() + ' ' + row.second.text());
              }
            },
            [&](EditBox& box) { lines.push_back(name + ": " + box.text()); },
            [&](ComboBox& combo) {
              // A level that nothing supplies has no entry or "Seleziona...".
              const bool isNone = name.find("_AZ(") != std::string::npos && combo.text() == "0";
              lines.push_back(name + ": " + (isNone ? "" : combo.text()));
            },
            [&](CheckBox& check) { lines.push_back(name + ": " + (check.isTicked() ? "1" : "0")); },
            [&](Label& label) { lines.push_back(name + ": " + label.caption()); },
            [&](QueryGrid& grid) {
              for (std::int32_t row = 1; row <= grid.rowCount(); ++row) {
                std::string line = name + ' ' + std::to_string(row) + ':';
                for (std::size_t i = 0; i < grid.columns().size(); ++i) {
                  line += ' ' + grid.cellText(row, i) + ';';
                }
                lines.push_back(line);
              }
            },
            [](const auto&) {},
        });
}

/// What is written beside a category level that nothing supplies is not stored.
void removeUnusedLevels(std::vector<std::string>& lines) {
  std::vector<std::string> unused;
  for (const std::string& line : lines) {
    const bool isLevel = line.starts_with("CBO_") && line.ends_with("): ");
    if (isLevel) unused.push_back(line.substr(line.find('_')));
  }
  std::erase_if(lines, [&](const std::string& line) {
    return std::ranges::any_of(unused, [&](const std::string& level) {
      return line.starts_with("TXT_COD" + level) || line.starts_with("TXT_DESC" + level);
    });
  });
}

}  // namespace

std::vector<std::string> shownIn(Control& page) {
  std::vector<std::string> lines;
  describe(lines, page);
  removeUnusedLevels(lines);
  return lines;
}

std::string firstDifference(const std::vector<std::string>& one,
                            const std::vector<std::string>& other) {
  const auto [at, found] = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
  if (at == one.end() && found == other.end()) return "";
  return (at == one.end() ? "nothing" : *at) + " | " + (found == other.end() ? "nothing" : *found);
}

}  // namespace kebu::tests
