#include "workbench/host/error_log.h"

namespace kebu::workbench {

void ErrorLog::SetError(std::int32_t number, const std::string& description,
                        const std::string& source) {
  number_ = number;
  description_ = description;
  source_ = source;
  connectionErrors_.clear();
}

void ErrorLog::SetConnectionErrors(const ado::ErrorSource& connection) {
  connectionErrors_ = connection.errors();
}

std::int16_t ErrorLog::ShowError(const std::string& application, const std::string& caption,
                                 const std::string& procedure, std::int32_t style) {
  std::string text = "Errore n. " + std::to_string(number_) + " in " + procedure + "\r\n" +
                     description_ + "\r\nOrigine: " + source_;
  for (const ado::Error& error : connectionErrors_) {
    text += "\r\n" + error.source + " [" + error.sqlState + ", " +
            std::to_string(error.nativeError) + "]: " + error.description;
  }
  return static_cast<std::int16_t>(user_.answer({application + " - " + caption, text, style}));
}

}  // namespace kebu::workbench
