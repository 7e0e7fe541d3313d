#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "controls/control.h"

namespace kebu::controls {

/// A part of a whole, which is drawn as a bar.
struct Share {
  std::int64_t part = 0;
  std::int64_t whole = 0;

  /// How many of `units` stand for the part. None of them only when the part is nothing, and all of
  /// them only when it is the whole.
  std::int32_t of(std::int32_t units) const;

  bool operator==(const Share&) const = default;
};

/// A line of a sheet.
struct SheetLine {
  enum class Role : std::uint8_t {
    Heading,  ///< begins a section
    Entry,    ///< a label with its value
    Note,     ///< a sentence
    Warning   ///< a sentence that asks for something to be done
  };

  Role role = Role::Entry;
  std::string label;
  std::string value = {};
  std::optional<Share> share = {};

  bool operator==(const SheetLine&) const = default;
};

/// The line as it is read aloud: "Pubblicati: 225 di 260 (87 %)".
std::string readingOf(const SheetLine& line);

/// A text in lines that is read, copied and saved, but not edited.
class Sheet : public OfKind<ControlKind::Sheet> {
 public:
  using OfKind::OfKind;

  const std::vector<SheetLine>& lines() const { return lines_; }
  /// In the user's language.
  void setLines(const std::vector<SheetLine>& lines);

  /// The caption and the lines in columns, with bars made of signs. Lines end with CR and LF.
  std::string text() const;
  /// The same with the mark by which programs know that a file is UTF-8.
  std::string fileText() const;

  /// The gesture: copies the text.
  void copy() const;
  /// The gesture: saves the text in a file that the user names.
  void save() const;
  /// The view copies the text.
  Event<const std::string&> CopyWanted;
  /// The view asks for a file and writes the text into it. RuntimeError when that fails.
  Event<const std::string&> SaveWanted;

 private:
  std::vector<SheetLine> lines_;
};

}  // namespace kebu::controls
