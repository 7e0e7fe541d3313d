#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ado/recordset.h"
#include "controls/control.h"
#include "controls/control_host.h"
#include "controls/rights.h"

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
  /// The value shown, as the column would store it.
  virtual Value value() const = 0;
  /// Whether a value is required and none is entered.
  virtual bool isMissing() const { return false; }
  /// Shows a stored value; empty when there is no record.
  virtual void show(const Value& stored) = 0;
  /// Shows the column's value of the current record.
  void refreshFromRecord() { show(recordValue()); }

 protected:
  /// The column's value; empty when there is no record.
  Value recordValue() const;
  /// Writes to the column. When the column cannot take the value, tells the user and
  /// returns false; nothing is changed.
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
  SetByProcedure = 8  ///< only as previous status: a procedure changed the record
};

/// The status as an English word, for logs and scenarios.
std::string nameOf(FrameStatus status);

/// The record that a page shows: its bound controls, its child frames, its
/// pending changes, and the events around saving, deleting and undoing.
///
/// A child frame holds the one row that belongs to its parent's record, in a batch
/// recordset. It is changed, saved and undone with its parent.
class RecordFrame : public OfKind<ControlKind::RecordFrame> {
 public:
  RecordFrame(std::string name, ControlHost& host);

  void addChild(RecordFrame& child);
  /// The record's rows; shows the current one in the bound controls.
  void setDataSource(const Ref<ado::Recordset>& rows);
  const Ref<ado::Recordset>& dataSource() const { return rows_; }
  /// The controls that show and edit columns of the record.
  const std::vector<BoundControl*>& boundControls() const { return controls_; }

  /// Goes to Browsing, which raises ChangeStatus: pages show the current record.
  void showRecord() { setStatus(FrameStatus::Browsing); }

  FrameStatus status() const { return status_; }
  /// Whether there are rows to show, be it none.
  bool isRead() const { return rows_ && rows_->isOpen(); }
  bool hasRecord() const { return rows_ && rows_->isOpen() && !rows_->BOF() && !rows_->EOF_(); }
  /// The current record's column; empty when there is no record.
  Value field(std::string_view name) const { return hasRecord() ? rows_->value(name) : Value(); }
  /// Writes it without a trap; a child without a row gets one first.
  void setField(std::string_view name, const Value& value);
  /// What is deleted with the record, told in the question before.
  void setDeletedWith(const std::string& text) { deletedWith_ = text; }
  const std::string& deletedWith() const { return deletedWith_; }
  /// By default everything is allowed.
  void setRights(const Rights& rights);
  /// Whether the user's rights allow a change of the record, or without one a new record.
  bool mayChange() const;
  /// Whether they do, and MaySave does not refuse.
  bool maySave() const;
  /// Whether the record, or anything saved with it, has unsaved changes.
  bool hasPendingChanges();
  /// Whether this frame's own row has unsaved changes.
  bool isRecordChanged() const;

  /// Call before a change: an existing record goes to Editing; when there is none,
  /// a new one is begun. Does nothing without the right to it.
  void beginEdit();
  /// Call when something outside the record was changed that is saved with it.
  void markModified();
  /// Discards what is being edited, without an event; for a record that is read anew.
  void discardChanges();
  /// Tells the user that somebody else changed or deleted the record meanwhile.
  void tellConflict();

  /// The user's actions. Nothing is done when a right or a value is missing or a handler refuses.
  void New();
  void Update();
  void Delete();
  void Undo();
  /// Asks whether to save pending changes (with Cancel when `cancellable`), and
  /// saves or discards them.
  void ConcludiModifiche(bool cancellable);

  Event<bool&> BeforeUpdate;
  Event<> AfterUpdate;
  Event<bool&> BeforeDelete;
  Event<> AfterDelete;
  /// A deletion was refused or failed; some of what it deletes may be gone.
  Event<> DeleteBrokenOff;
  /// A save was refused because of the value in this control.
  Event<BoundControl&> Refused;
  /// Somebody else changed or deleted the record meanwhile; it was not written.
  Event<> Conflict;
  Event<> AfterUndo;
  /// The rows of a child are about to be sent; the flag keeps them from it.
  Event<bool&> UpdateBatchAll;
  /// New and previous status.
  Event<FrameStatus, FrameStatus> ChangeStatus;
  Event<bool&> IsRecordChanged;
  /// Whether the record could be saved now; a handler clears the flag.
  Event<bool&> MaySave;
  /// The status or the pending changes may have changed.
  Event<> stateChanged;

 private:
  friend class BoundControl;

  void setStatus(FrameStatus status);
  void refreshControls();
  /// Takes what the user entered in a control; false when the user was told why not.
  bool take(const BoundControl& control, const Value& value);
  /// A child without a row gets one before it is edited or saved.
  void ensureRow() {
    if (!hasRecord()) rows_->AddNew();
  }
  /// Tells the user of the first required value that is missing.
  bool isComplete();
  /// Asks the before events of the children and of this frame; false when one refuses.
  bool approveUpdate();
  bool write();
  /// Sends a row; false when somebody else changed or deleted it meanwhile.
  template <class Statement>
  static bool send(Steps& step, Statement&& statement);
  void discardEdits();

  ControlHost& host_;
  RecordFrame* parent_ = nullptr;
  std::vector<RecordFrame*> children_;
  std::vector<BoundControl*> controls_;
  Ref<ado::Recordset> rows_;
  Rights rights_{true, true, true};
  std::string deletedWith_;
  FrameStatus status_ = FrameStatus::Browsing;
};

}  // namespace kebu::controls
