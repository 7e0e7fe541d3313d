#include "workbench/engine/values/sql_error.h"

#include <algorithm>
#include <array>

namespace kebu::engine {
namespace {

struct Severity {
  std::int32_t number;
  int severity;
};

constexpr int usual = 16;
constexpr std::array others{
    Severity{102, 15},  Severity{104, 15},  Severity{105, 15},  Severity{108, 15},
    Severity{109, 15},  Severity{110, 15},  Severity{113, 15},  Severity{120, 15},
    Severity{121, 15},  Severity{125, 15},  Severity{130, 15},  Severity{134, 15},
    Severity{137, 15},  Severity{144, 15},  Severity{145, 15},  Severity{147, 15},
    Severity{156, 15},  Severity{157, 15},  Severity{164, 15},  Severity{174, 15},
    Severity{178, 15},  Severity{191, 15},  Severity{195, 15},  Severity{264, 15},
    Severity{1007, 15}, Severity{1033, 15}, Severity{4145, 15}, Severity{701, 17},
    Severity{823, 24},  Severity{824, 24},  Severity{1101, 17}, Severity{2601, 14},
    Severity{2627, 14},
};

}  // namespace

int SqlError::severity() const {
  const auto* const found = std::find_if(others.begin(), others.end(), [&](const Severity& one) {
    return one.number == nativeError_;
  });
  return found == others.end() ? usual : found->severity;
}

void SqlError::setPlace(int line, const std::string& procedure) {
  if (line_ != 0) return;
  line_ = line;
  procedure_ = procedure;
}

}  // namespace kebu::engine
