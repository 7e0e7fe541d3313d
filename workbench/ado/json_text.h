#pragma once

#include <string>
#include <string_view>

namespace kebu::workbench {

/// The text as a JSON string with its quotes. Bytes that are no UTF-8 become
/// replacement characters, so that the line can be read whatever was in it.
std::string jsonString(std::string_view text);

}  // namespace kebu::workbench
