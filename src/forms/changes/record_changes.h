#pragma once

#include <string>
#include <vector>

#include "controls/record_frame.h"
#include "forms/changes/planned_changes.h"
#include "forms/page_context.h"

namespace kebu::forms {

/// A column that a save sets itself, whatever the user entered.
struct CompletedValue {
  std::string column;
  Value value;
  std::string caption = {};  ///< where no control that shows the column has one
};
using CompletedValues = std::vector<CompletedValue>;

/// Whether the frame's record is one that is stored.
bool isStored(const controls::RecordFrame& frame);

/// Adds what a save would do to the record of a frame: what the user entered, and on top of it what
/// the save sets itself. The first column of the record is its key, which is not listed.
void addRecord(PlannedChanges& changes, const PageContext& context, const std::string& row,
               const controls::RecordFrame& frame, const CompletedValues& completed);

/// A value as a control shows it.
ReadColumn readColumn(const PageContext& context, const controls::BoundControl& control,
                      const std::string& caption, const Value& value);

/// A flag as a check box shows it: nothing is not ticked.
ReadColumn readFlag(const PageContext& context, const std::string& caption, const Value& value);

}  // namespace kebu::forms
