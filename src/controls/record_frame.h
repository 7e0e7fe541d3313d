#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ado/recordset.h"
#include "controls/control.h"
#include "controls/control_host.h"

namespace kebu::controls {

class RecordFrame;

/// A control that shows and edits one column of a frame's record.
class BoundControl : public Control {
 public:
  using Control::Control;

  static bool includes(ControlKind kind) {
    return kind == ControlKind::CheckBox || kind == ControlKind::ComboBox ||
           kind == ControlKind::EditBox;
  }

  void bind(RecordFrame& frame, std::string dbField);
  RecordFrame* frame() const { return frame_; }
  const std::string& DBField() const { return dbField_; }
  /// What the control holds, as the column would store it.
  virtual Value value() const = 0;
  /// Whether a value is required here and none is given.
  virtual bool isMissing() const { return false; }
  /// Shows a value as the column keeps it; empty without a record.
  virtual void show(const Value& stored) = 0;
  /// Shows the column's value of the current record.
  void refreshFromRecord() { show(recordValue()); }

 protected:
  /// The column's value; empty without a record.
  Value recordValue() const;
  /// Writes to the column. A value that the column cannot take is told to the
  /// user, changes nothing, and gives false.
  bool writeToRecord(const Value& value);

 private:
  RecordFrame* frame_ = nullptr;
  std::string dbField_;
};

enum class FrameStatus : std::int16_t {
  Browsing = 0,
  Editing = 1,  ///< an existing record is being changed
  New = 2,
  Saving = 7,
  SetByProcedure = 8  ///< as previous status only: a procedure changed the record itself
};

/// What the frame is doing, in a word for people who look on.
std::string nameOf(FrameStatus status);

/// The record that a page shows: its bound controls, its child frames, its
/// pending changes, and the events around saving, deleting and undoing.
///
/// A child frame holds the one row that depends on its parent's record over a
/// batch recordset; it is changed, saved and undone with its parent.
class RecordFrame : public Control {
 public:
  RecordFrame(std::string name, ControlHost& host);

  static bool includes(ControlKind kind) { return kind == ControlKind::RecordFrame; }
  ControlKind kind() const override { return ControlKind::RecordFrame; }

  void addChild(RecordFrame& child);
  /// The record's rows; shows the current one in the bound controls.
  void setDataSource(const Ref<ado::Recordset>& rows);
  const Ref<ado::Recordset>& dataSource() const { return rows_; }

  /// Tells everyone that the current record is shown from now on.
  void showRecord() { setStatus(FrameStatus::Browsing); }

  FrameStatus status() const { return status_; }
  bool hasRecord() const;
  /// The current record's column; empty when there is no record.
  Value field(std::string_view name) const;
  void setField(std::string_view name, const Value& value);
  /// Whether the record or what depends on it has changes that are not saved.
  bool hasPendingChanges();
  /// Whether this frame's own row has.
  bool isRecordChanged() const;

  /// A change is about to be made: an existing record becomes one being
  /// changed, and without a record a new one is begun.
  void beginEdit();
  /// Something that is saved with the record was changed outside of it.
  void markModified();

  /// The user's actions. False when it was refused or left.
  bool New();
  bool Update();
  bool Delete();
  bool Undo();
  /// Asks whether to save pending changes (with Cancel when `cancellable`), and
  /// saves or discards them.
  void ConcludiModifiche(bool cancellable);

  Event<bool&> BeforeUpdate;
  Event<> AfterUpdate;
  Event<bool&> BeforeDelete;
  Event<> AfterDelete;
  Event<> AfterUndo;
  Event<> UpdateBatchAll;
  /// New and previous status.
  Event<FrameStatus, FrameStatus> ChangeStatus;
  Event<bool&> IsRecordChanged;
  /// The status or the pending changes may differ from before.
  Event<> stateChanged;

 private:
  friend class BoundControl;

  void setStatus(FrameStatus status);
  void refreshControls();
  /// A child without a row gets one before it is edited or saved.
  void ensureRow();
  /// Tells the user of the first required value that is missing.
  bool isComplete() const;
  /// Asks the before events of the children and of this frame; false when one refuses.
  bool approveUpdate();
  bool write();
  void discardEdits();

  ControlHost& host_;
  RecordFrame* parent_ = nullptr;
  std::vector<RecordFrame*> children_;
  std::vector<BoundControl*> controls_;
  Ref<ado::Recordset> rows_;
  FrameStatus status_ = FrameStatus::Browsing;
};

}  // namespace kebu::controls
