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

/// How the codes of a field are decoded and listed.
struct CodeField {
  using Keys = std::vector<std::string>;

  std::string_view caption;
  const char* decoder;      ///< the procedure; null for what is only looked up
  const char* table;        ///< the ERP's, by its prefix
  const char* description;  ///< the decoded column
  /// The statement that decodes the last of the keys.
  std::string (*statement)(const PageContext& context, const CodeField& field, const Keys& keys);
  host::LookupDefinition (*list)(const PageContext& context, const CodeField& field,
                                 const Keys& upperKeys);
  /// The data fields of the levels above, topmost first.
  std::array<std::string_view, 3> upper{};
  std::size_t longestCode = 0;  ///< a longer one is not looked for; 0 for any
};

std::span<const CodeField> customerCodes();
/// More than the editors of this system declare.
std::span<const CodeField> articleCodes();

}  // namespace kebu::forms
