#include "controls/record_frame.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "common/platform.h"
#include "controls/row_editing.h"
#include "controls/typed_value.h"

namespace kebu::controls {

void BoundControl::bind(RecordFrame& frame, std::string dbField) {
  frame_ = &frame;
  dbField_ = std::move(dbField);
  frame.controls_.push_back(this);
}

Value BoundControl::recordValue() const {
  return frame_ ? frame_->field(dbField_) : Value();
}

bool BoundControl::writeToRecord(const Value& value) {
  if (!frame_) return true;
  return trap(frame_->host_, Name(), [&](Steps& step) {
    step([&] { frame_->beginEdit(); });
    return step([&] { return frame_->take(*this, value); });
  });
}

std::string nameOf(FrameStatus status) {
  switch (status) {
    case FrameStatus::Editing:
      return "editing";
    case FrameStatus::New:
      return "new";
    case FrameStatus::Saving:
      return "saving";
    default:
      return "browsing";
  }
}

RecordFrame::RecordFrame(std::string name, ControlHost& host)
    : OfKind(std::move(name)), host_(host) {}

void RecordFrame::addChild(RecordFrame& child) {
  child.parent_ = this;
  children_.push_back(&child);
}

void RecordFrame::setDataSource(const Ref<ado::Recordset>& rows) {
  rows_ = rows;
  refreshControls();
  stateChanged.raise();
}

void RecordFrame::setField(std::string_view name, const Value& value) {
  ensureRow();
  controls::setField(*rows_, name, value);
}

bool RecordFrame::take(const BoundControl& control, const Value& value) {
  ensureRow();
  const auto& fields = rows_->fields();
  const ado::Field& field = fields[ado::requireIndex(fields, control.DBField())];
  try {
    if (!isLossy(host_, field, value)) {
      setField(control.DBField(), value);
      return true;
    }
  } catch (const RuntimeError& error) {
    if (!error.isValueError()) throw;
  }
  tellRefused(host_, control.caption(), field, value);
  return false;
}

bool RecordFrame::isRecordChanged() const {
  return rows_ && rows_->isOpen() &&
         (rows_->editMode() != ado::EditMode::None || rows_->hasPendingBatch());
}

bool RecordFrame::hasPendingChanges() {
  bool pending =
      status_ == FrameStatus::Editing || status_ == FrameStatus::New || isRecordChanged();
  IsRecordChanged.raise(pending);
  return pending;
}

void RecordFrame::setRights(const Rights& rights) {
  rights_ = rights;
  stateChanged.raise();
}

bool RecordFrame::mayChange() const {
  const bool exists = hasRecord() && status_ != FrameStatus::New;
  return exists ? rights_.canUpdate : rights_.canInsert;
}

bool RecordFrame::maySave() const {
  bool may = mayChange();
  if (may) MaySave.raise(may);
  return may;
}

void RecordFrame::beginEdit() {
  if (!parent_ && !mayChange()) return;
  if (parent_) {
    parent_->beginEdit();
    ensureRow();
  } else if (status_ == FrameStatus::Browsing) {
    if (hasRecord()) {
      setStatus(FrameStatus::Editing);
    } else {
      New();
    }
  }
}

void RecordFrame::markModified() {
  beginEdit();
  stateChanged.raise();
}

void RecordFrame::setStatus(FrameStatus status) {
  const FrameStatus previous = std::exchange(status_, status);
  for (RecordFrame* child : children_) child->ChangeStatus.raise(status, previous);
  ChangeStatus.raise(status, previous);
  stateChanged.raise();
}

void RecordFrame::refreshControls() {
  const bool isThere = hasRecord();
  for (BoundControl* control : controls_) {
    control->show(isThere ? rows_->value(control->DBField()) : Value());
  }
  for (RecordFrame* child : children_) child->refreshControls();
}

void RecordFrame::New() {
  if (!rights_.canInsert) return;
  trap(host_, Name(), [&](Steps& step) {
    step([&] { rows_->AddNew(); });
    setStatus(FrameStatus::New);
    refreshControls();
  });
}

void RecordFrame::Update() {
  if (!hasRecord()) return;
  if (!maySave()) {
    host_.message(mayChange() ? "Prima di salvare ricaricare i dati che non sono stati letti."
                              : "Manca il diritto di salvare il record.",
                  msgbox::exclamation);
    return;
  }
  if (!approveUpdate()) return;

  const FrameStatus before = status_;
  setStatus(FrameStatus::Saving);
  if (!write()) {
    // The record itself may be stored by now even if its children are not.
    setStatus(isRecordChanged() ? before : FrameStatus::Editing);
    return;
  }
  AfterUpdate.raise();
  // A statement that the user chose to skip leaves its change pending.
  setStatus(isRecordChanged() ? before : FrameStatus::Browsing);
  refreshControls();
}

bool RecordFrame::isComplete() {
  for (BoundControl* control : controls_) {
    if (!control->isMissing()) continue;
    host_.message(host_.translated("Indicare un valore per ") + "\"" + control->caption() + "\".",
                  msgbox::exclamation);
    Refused.raise(*control);
    return false;
  }
  return std::ranges::all_of(children_, &RecordFrame::isComplete);
}

bool RecordFrame::approveUpdate() {
  return trap(host_, Name(), [&](Steps& step) {
    if (!isComplete()) return false;
    bool cancel = false;
    for (RecordFrame* child : children_) {
      step([&] { child->ensureRow(); });
      child->BeforeUpdate.raise(cancel);
      if (cancel) return false;
    }
    BeforeUpdate.raise(cancel);
    return !cancel;
  });
}

namespace {

constexpr const char* changedMeanwhile =
    "Un altro utente ha modificato o eliminato questi dati nel frattempo. Non sono stati "
    "sovrascritti.";
/// The first attempt may have stored the row, and only its answer was lost.
constexpr const char* changedAtSecondAttempt =
    "Al secondo tentativo questi dati risultano modificati: può essere riuscito il primo, oppure "
    "un altro utente li ha modificati o eliminati nel frattempo. Non sono stati sovrascritti.";

void raiseConflict(const char* text, ControlHost& host, RecordFrame& frame) {
  host.message(text, msgbox::exclamation);
  frame.Conflict.raise();
}

}  // namespace

template <class Statement>
bool RecordFrame::send(Steps& step, Statement&& statement) {
  bool found = true;
  step([&] {
    try {
      statement();
    } catch (const RuntimeError& error) {
      if (!error.isConflict()) throw;
      found = false;
    }
  });
  return found;
}

bool RecordFrame::write() {
  bool found = true;
  bool isRepeated = false;  // the last row was sent before, and that failed
  const bool written = trap(host_, Name(), [&](Steps& step) {
    const auto sendRow = [&](auto&& statement) {
      isRepeated = false;
      return send(step, [&] {
        try {
          statement();
        } catch (const RuntimeError& error) {
          isRepeated = isRepeated || !error.isConflict();
          throw;
        }
      });
    };
    const bool isNew = rows_->editMode() == ado::EditMode::Add;
    found = sendRow([&] { rows_->Update(); });
    // ADO reads no defaults of a new row, and takes for its identity the one made last, which may
    // be that of a trigger's table.
    if (found && isNew && !isRecordChanged()) step([&] { rows_->Requery(); });
    for (RecordFrame* child : children_) {
      if (!found) break;
      found = sendRow([&] { child->rows_->Update(); });
      bool cancel = false;
      if (found) child->UpdateBatchAll.raise(cancel);
      if (cancel) return false;
      found = found && sendRow([&] { child->rows_->UpdateBatch(); });
    }
    return true;
  });
  if (!found && isRepeated) {
    raiseConflict(changedAtSecondAttempt, host_, parent_ ? *parent_ : *this);
  } else if (!found) {
    tellConflict();
  }
  return written && found;
}

void RecordFrame::tellConflict() {
  raiseConflict(changedMeanwhile, host_, parent_ ? *parent_ : *this);
}

void RecordFrame::discardChanges() {
  ignoringErrors([&] { discardEdits(); });
}

void RecordFrame::Undo() {
  const bool undone = trap(host_, Name(), [&](Steps& step) {
    step([&] { discardEdits(); });
    return true;
  });
  if (!undone) return;
  setStatus(FrameStatus::Browsing);
  refreshControls();
  AfterUndo.raise();
}

void RecordFrame::Delete() {
  if (!hasRecord() || !rights_.canDelete) return;
  bool cancel = false;
  BeforeDelete.raise(cancel);
  const bool deleted = !cancel && trap(host_, Name(), [&](Steps& step) {
    step([&] { discardEdits(); });
    step([&] {
      rows_->Delete();
      rows_->MoveNext();
    });
    return true;
  });
  if (!deleted) {
    DeleteBrokenOff.raise();
    return;
  }
  AfterDelete.raise();
  setStatus(FrameStatus::Browsing);
  refreshControls();
}

void RecordFrame::discardEdits() {
  if (rows_ && rows_->isOpen() && rows_->editMode() != ado::EditMode::None) rows_->CancelUpdate();
  for (RecordFrame* child : children_) {
    if (!child->isRecordChanged()) continue;
    if (child->rows_->editMode() != ado::EditMode::None) child->rows_->CancelUpdate();
    child->rows_->CancelBatch();
  }
}

void RecordFrame::ConcludiModifiche(bool cancellable) {
  if (!hasPendingChanges()) return;
  const std::int32_t style = (cancellable ? msgbox::yesNoCancel : msgbox::yesNo) | msgbox::question;
  switch (host_.message("Salvare le modifiche apportate?", style)) {
    case msgbox::yes:
      Update();
      break;
    case msgbox::no:
      Undo();
      break;
    default:
      break;
  }
}

}  // namespace kebu::controls
