#pragma once

#include <string>
#include <string_view>

namespace kebu::sql {

/// A statement written line by line.
class Script {
 public:
  Script& line(std::string_view text) {
    text_ += text;
    text_ += "\r\n";
    return *this;
  }
  /// The pieces of a table; an empty one ends them.
  template <class Pieces>
  Script& lines(const Pieces& pieces) {
    for (const std::string_view piece : pieces) {
      if (!piece.empty()) line(piece);
    }
    return *this;
  }
  /// Pieces with commas between.
  template <class Pieces>
  Script& list(const Pieces& pieces) {
    for (std::size_t i = 0; i < pieces.size() && !pieces[i].empty(); ++i) {
      const bool last = i + 1 == pieces.size() || pieces[i + 1].empty();
      text_ += pieces[i];
      line(last ? "" : ",");
    }
    return *this;
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace kebu::sql
