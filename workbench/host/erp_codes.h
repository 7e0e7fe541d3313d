#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kebu::workbench {

/// The structure of an ERP table of codes.
struct ErpCodes {
  std::string_view table;                  ///< its prefix
  std::string_view name;                   ///< the whole name
  std::string_view title;                  ///< of its list
  std::string_view condition;              ///< beyond the company; "" for none
  std::span<const std::string_view> keys;  ///< the upper levels' columns, the code's own last
  std::string_view description;
};

/// RuntimeError 5 for a table that holds no codes.
const ErpCodes& erpCodes(std::string_view table);

/// What an empty value of a key stands for: itself, or any.
enum class EmptyValue { IsCompared, LeavesKeyOpen };
/// " WHERE …" for the company and the first of the table's keys, as many as there are values.
std::string whereKeys(const ErpCodes& codes, const std::string& company,
                      std::span<const std::string> values, EmptyValue empty);

}  // namespace kebu::workbench
