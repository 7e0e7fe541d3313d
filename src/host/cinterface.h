#pragma once

#include <cstdint>

#include "ado/connection.h"
#include "common/ref.h"
#include "common/value.h"
#include "host/cls_global.h"
#include "host/named_object.h"
#include "host/navigator.h"

namespace kebu::host {

/// The contract between the host and a plug-in, members in the contract's
/// order. No member raises an error.
class Cinterface : public Object {
 public:
  virtual void setClsGlobal(const Ref<host::ClsGlobal>& value) = 0;
  virtual Ref<host::ClsGlobal> ClsGlobal() = 0;
  virtual void setActiveFrame(const Ref<NamedObject>& value) = 0;
  /// The stored frame; without one the window's profile frame, or nothing.
  virtual Ref<NamedObject> ActiveFrame() = 0;
  virtual void setActiveNavigator(const Ref<Navigator>& value) = 0;
  virtual Ref<Navigator> ActiveNavigator() = 0;
  virtual void setActiveDll(const Ref<Cinterface>& value) = 0;
  virtual Ref<Cinterface> ActiveDll() = 0;
  virtual void setStatusBar(const Ref<host::StatusBar>& value) = 0;
  virtual Ref<host::StatusBar> StatusBar() = 0;
  virtual void setCanInsert(bool value) = 0;
  virtual bool CanInsert() = 0;
  virtual void setCanDelete(bool value) = 0;
  virtual bool CanDelete() = 0;
  virtual void setCanUpdate(bool value) = 0;
  virtual bool CanUpdate() = 0;
  virtual void setCanQbe(bool value) = 0;
  virtual bool CanQbe() = 0;
  /// Kept in 16 bits; a value beyond them leaves the stored one.
  virtual void setWindowState(std::int32_t value) = 0;
  virtual std::int32_t WindowState() = 0;
  virtual void setWindowModal(bool value) = 0;
  virtual bool WindowModal() = 0;
  /// As WindowState.
  virtual void setProgramMode(std::int32_t value) = 0;
  virtual std::int32_t ProgramMode() = 0;
  virtual void setMenuModulo(const Value& value) = 0;
  virtual Value MenuModulo() = 0;
  virtual void setMenuPadre(const Value& value) = 0;
  virtual Value MenuPadre() = 0;
  virtual void setMenuProg(const Value& value) = 0;
  virtual Value MenuProg() = 0;
  virtual void setCaption(const Value& value) = 0;
  virtual Value Caption() = 0;
  virtual void setHwndParent(std::int32_t value) = 0;
  virtual std::int32_t hwndParent() = 0;
  virtual void setConnection(const Ref<ado::Connection>& value) = 0;
  virtual Ref<ado::Connection> Connection() = 0;
  /// An empty slot of the contract: always no object.
  virtual Ref<NamedObject> Cwindow() = 0;
  /// Converted to a 32-bit integer; what cannot be leaves the stored one.
  virtual void setTop(const Value& value) = 0;
  virtual Value Top() = 0;
  virtual void setLeft(const Value& value) = 0;
  virtual Value Left() = 0;
  virtual void setClsVoceMenu(const Ref<Object>& value) = 0;
  virtual Ref<Object> ClsVoceMenu() = 0;
  virtual void setIsActive(bool value) = 0;
  virtual bool IsActive() = 0;
  virtual void setIsCalled(bool value) = 0;
  virtual bool IsCalled() = 0;
  /// Discards the value: a filter from the host is ignored, and reads back empty.
  virtual void setFiltro(const Value& value) = 0;
  virtual Value Filtro() = 0;

  virtual Value ShowForm() = 0;                       ///< always empty
  virtual Value CloseForm() = 0;                      ///< true when the window is gone
  virtual Value TransferData(const Value& data) = 0;  ///< always empty
};

}  // namespace kebu::host
