#include "forms/changes/record_changes.h"

#include <algorithm>

#include "common/convert.h"
#include "common/nulls.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"

namespace kebu::forms {

namespace {

const controls::BoundControl* controlOf(const controls::RecordFrame& frame,
                                        const std::string& column) {
  const auto& controls = frame.boundControls();
  const auto at = std::ranges::find_if(controls, [&](const controls::BoundControl* control) {
    return equalsIgnoringCase(control->DBField(), column);
  });
  return at == controls.end() ? nullptr : *at;
}

const CompletedValue* completedOf(const CompletedValues& completed, const std::string& column) {
  const auto at = std::ranges::find_if(completed, [&](const CompletedValue& value) {
    return equalsIgnoringCase(value.column, column);
  });
  return at == completed.end() ? nullptr : &*at;
}

/// A value as a control shows it.
std::string shownText(const controls::BoundControl& control, const Value& value) {
  std::string text = RTrimN(value);
  if (text.empty()) return text;
  if (const auto* const combo = controls::as<controls::ComboBox>(control)) {
    const std::string caption = combo->captionOf(value);
    return caption.empty() ? text : caption;
  }
  const auto* const box = controls::as<controls::EditBox>(control);
  return box && box->isMasked() ? "••••••••" : text;
}

}  // namespace

ReadColumn readFlag(const PageContext& context, const std::string& caption, const Value& value) {
  const bool isSet = toBoolean(CDecN(value));
  return {caption, std::int16_t{isSet}, context.translate(isSet ? "Sì" : "No")};
}

ReadColumn readColumn(const PageContext& context, const controls::BoundControl& control,
                      const std::string& caption, const Value& value) {
  if (controls::as<controls::CheckBox>(control)) return readFlag(context, caption, value);
  return {caption, value, shownText(control, value)};
}

bool isStored(const controls::RecordFrame& frame) {
  if (!frame.hasRecord()) return false;
  const ado::Recordset& rows = *frame.dataSource();
  return rows.editMode() != ado::EditMode::Add &&
         !RTrimN(rows.originalValue(rows.fields().front().name)).empty();
}

void addRecord(PlannedChanges& changes, const PageContext& context, const std::string& row,
               const controls::RecordFrame& frame, const CompletedValues& completed) {
  if (!frame.isRead()) return;
  const ado::Recordset& rows = *frame.dataSource();
  const bool wasStored = isStored(frame);
  ReadRow before;
  ReadRow after;
  for (std::size_t i = 1; i < rows.fields().size(); ++i) {
    const std::string& column = rows.fields()[i].name;
    const controls::BoundControl* const control = controlOf(frame, column);
    const CompletedValue* const set = completedOf(completed, column);
    std::string caption = set ? set->caption : "";
    if (caption.empty()) caption = control ? control->caption() : column;
    const auto read = [&](const Value& value) {
      return control ? readColumn(context, *control, caption, value)
                     : ReadColumn{caption, value, RTrimN(value)};
    };
    if (wasStored) before.push_back(read(rows.originalValue(column)));
    after.push_back(read(set ? set->value : frame.field(column)));
  }
  changes.add(row, wasStored ? std::optional(std::move(before)) : std::nullopt, std::move(after));
}

}  // namespace kebu::forms
