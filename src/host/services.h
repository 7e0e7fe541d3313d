#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ado/connection.h"
#include "common/ref.h"
#include "common/value.h"
#include "host/named_object.h"

// The host's services as the plug-in calls them. On Windows each member is
// called by late binding under the name that it has here; a list of keys goes
// as one argument each.
namespace kebu::host {

class Cinterface;

/// Translation and message boxes.
class MessageService {
 public:
  virtual ~MessageService() = default;
  virtual std::string Translate(const std::string& text) = 0;
  /// `buttons` and the answer use the message-box codes.
  virtual std::int32_t MsgBox(const Value& prompt, std::int32_t buttons, const Value& title,
                              const Value& context) = 0;
  /// The same with a message of the host's store, by its number.
  virtual std::int32_t MsgBoxFromId(std::int32_t id, std::int32_t buttons, const Value& title,
                                    const Value& context) = 0;
};

/// Records and shows run-time errors.
class LogService {
 public:
  virtual ~LogService() = default;
  virtual void SetError(std::int32_t number, const std::string& description,
                        const std::string& source) = 0;
  /// Hands over the error collection of the connection.
  virtual void SetConnectionErrors(const ado::ErrorSource& connection) = 0;
  /// Shows the error set before; the button pressed.
  virtual std::int16_t ShowError(const std::string& application, const std::string& caption,
                                 const std::string& procedure, std::int32_t style) = 0;
};

/// A service object that the window creates and initialises with the host interface.
class Service {
 public:
  virtual ~Service() = default;
  virtual void Initialize(const Ref<Cinterface>& host) = 0;
};

class ConnectionProvider {
 public:
  virtual ~ConnectionProvider() = default;
  virtual Ref<ado::Connection> NewConnection() = 0;
};

/// Installation paths by kind; 6 is the installation folder.
class EnvironmentService : public Service {
 public:
  virtual std::string GetPath(std::int32_t kind, const std::string& argument) = 0;
};

/// Statements that decode a code of an ERP table to its description.
class SqlDecodeService : public Service {
 public:
  /// The statement for the document type `code`; its description is column "MG36_DESCR".
  virtual std::string DocumentType(const std::string& company, const std::string& code) = 0;
  /// The statement for the customer `code`; its name is column "CG16_RAGSOANAG".
  virtual std::string Customer(const std::string& company, const std::string& code) = 0;
  /// The statement for a code of the ERP table with the prefix `table` ("MG54"). `keys` ends
  /// with the code itself, after the codes of the levels above it; the description is the
  /// table's own column.
  virtual std::string Code(const std::string& table, const std::string& company,
                           const std::vector<std::string>& keys) = 0;
};

/// What a look-up list shows: a statement whose first column is the code.
struct LookupDefinition {
  std::string title;
  std::string statement;
  std::vector<std::string> captions;
  /// The list's name, under which the host stores a user's layout of it; "" for a list of the
  /// host's own that nobody named.
  std::string key{};
};

/// The host's own look-up lists.
class LookupService : public Service {
 public:
  virtual LookupDefinition DocumentTypes(const std::string& company) = 0;
  virtual LookupDefinition Customers(const std::string& company) = 0;
  /// The configurator's variants ("Lkp_Configuratore"), by their numbers.
  virtual LookupDefinition Configurator(const std::string& company) = 0;
  /// The customers; the first column, which is taken, is the name.
  virtual LookupDefinition CustomerNames(const std::string& company) = 0;
  virtual LookupDefinition Suppliers(const std::string& company) = 0;
  /// The codes of the ERP table with the prefix `table`, restricted to the codes of the levels
  /// above when `upperKeys` has any. A field without a table of its own is named by its column
  /// ("PD18_INDTIPOPROD").
  virtual LookupDefinition Codes(const std::string& table, const std::string& company,
                                 const std::vector<std::string>& upperKeys) = 0;
};

/// The filters that users save by name under a storage key.
class SavedFilterService : public Service {
 public:
  /// The stored text; empty when there is none.
  virtual Value Load(const std::string& key, const std::string& name) = 0;
  virtual void Save(const std::string& key, const std::string& name, const std::string& text,
                    bool isDefault) = 0;
};

/// An object model, in which windows and frames are registered by name. Register
/// gives the object to use from then on.
class ObjectModel : public Service {
 public:
  virtual Ref<NamedObject> Register(const std::string& name, const Ref<NamedObject>& object,
                                    std::int32_t kind, const std::string& description) = 0;
};
using LayoutModel = ObjectModel;

class ScriptModel : public ObjectModel {
 public:
  /// Runs the user's script for an event such as "tsOpen"; may set `cancel`.
  virtual void RunEvent(const std::string& event, bool& cancel) = 0;
};

/// A field of the host's status bar.
class StatusBarPanel {
 public:
  virtual ~StatusBarPanel() = default;
  virtual void setText(const std::string& text) = 0;
};

/// The host's status bar.
class StatusBar {
 public:
  virtual ~StatusBar() = default;
  /// The item of the collection `Panels`; `item` counts from 1.
  virtual Ref<StatusBarPanel> Panels(std::int32_t item) = 0;
};

}  // namespace kebu::host
