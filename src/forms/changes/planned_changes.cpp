#include "forms/changes/planned_changes.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "common/nulls.h"

namespace kebu::forms {

namespace {

bool isNothing(const Value& value) {
  return RTrimN(value).empty();
}

}  // namespace

bool readsTheSame(const Value& a, const Value& b) {
  if (isNothing(a) || isNothing(b)) return isNothing(a) && isNothing(b);
  if (a.isText() || b.isText()) return RTrimN(a) == RTrimN(b);
  return equalAsVariants(a, b);
}

void PlannedChanges::add(const std::string& row, const std::optional<ReadRow>& before,
                         const std::optional<ReadRow>& after) {
  if (before && after) {
    update(row, *before, *after);
  } else if (after) {
    addWhole(ChangeKind::Insert, row, *after);
  } else if (before) {
    addWhole(ChangeKind::Delete, row, *before);
  }
}

void PlannedChanges::addWhole(ChangeKind kind, const std::string& row, const ReadRow& content) {
  count(kind);
  const std::size_t linesBefore = lines_.size();
  for (const ReadColumn& column : content) {
    if (isNothing(column.value)) continue;
    PlannedChange line{kind, row, column.caption, "", ""};
    (kind == ChangeKind::Insert ? line.after : line.before) = column.text;
    lines_.push_back(std::move(line));
  }
  if (lines_.size() == linesBefore) lines_.push_back({kind, row, "", "", ""});
}

void PlannedChanges::update(const std::string& row, const ReadRow& before, const ReadRow& after) {
  const std::size_t linesBefore = lines_.size();
  for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
    if (readsTheSame(before[i].value, after[i].value)) continue;
    lines_.push_back({ChangeKind::Update, row, after[i].caption, before[i].text, after[i].text});
  }
  if (lines_.size() > linesBefore) count(ChangeKind::Update);
}

}  // namespace kebu::forms
