#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/query_editor.h"
#include "forms/page_context.h"
#include "host/services.h"

namespace kebu::forms {

struct FilterField;

/// The codes of the levels above a field, topmost first. For decoding, the code itself is the last.
using CodeKeys = std::vector<std::string>;

/// The statement that decodes the last of the keys.
using DecodeStatement = std::string (*)(const PageContext& context, const FilterField& field,
                                        const CodeKeys& keys);
/// The list from which a code is chosen.
using CodeList = host::LookupDefinition (*)(const PageContext& context, const FilterField& field,
                                            const CodeKeys& upperKeys);

std::string decodeFromTable(const PageContext& context, const FilterField& field,
                            const CodeKeys& keys);
host::LookupDefinition listOfTable(const PageContext& context, const FilterField& field,
                                   const CodeKeys& upperKeys);

/// Where the codes of a field are.
struct CodeTable {
  const char* table = nullptr;    ///< by the ERP's prefix; null for a field of plain texts
  const char* description = "";   ///< the column that a code is decoded to
  const char* decoder = nullptr;  ///< the decoding procedure; null for codes only looked up
};

/// A field by which customers or articles are filtered. One row says how it is declared to the
/// editors, and how its codes are decoded and listed.
struct FilterField {
  std::string_view caption;
  std::string_view dataField = {};  ///< empty for a field that no editor declares
  std::size_t length = 0;           ///< of a typed value
  bool isNumeric = false;
  // Options of the host's editor, which has no names for them but their places as arguments.
  bool option7 = true;
  bool option11 = false;

  CodeTable codes = {};
  std::array<std::string_view, 3> upper = {};  ///< data fields of the levels above, topmost first
  std::size_t longestCode = 0;                 ///< a longer one is not decoded; 0 for any
  DecodeStatement decode = decodeFromTable;
  CodeList list = listOfTable;

  bool hasCodes() const { return codes.table != nullptr; }
};

/// In the order in which they are declared.
std::span<const FilterField> customerFields();
std::span<const FilterField> articleFields();

/// The declarations for an editor, without the fields that no editor declares.
std::vector<controls::QueryField> declarationsOf(std::span<const FilterField> fields);

}  // namespace kebu::forms
