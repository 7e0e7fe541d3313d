#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace kebu::workbench {

/// A table printed as text with aligned columns.
class TextTable {
 public:
  void add(std::vector<std::string> line) { lines_.push_back(std::move(line)); }
  void write(std::ostream& out, const std::string& indent = {}) const;

 private:
  std::vector<std::vector<std::string>> lines_;
};

}  // namespace kebu::workbench
