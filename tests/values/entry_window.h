#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kebu::tests {

/// The plug-in's window as the place that values are entered in: on the models, or the real one of
/// the DLL. Whatever asks the user is answered with the way out.
class EntryWindow {
 public:
  virtual ~EntryWindow() = default;

  /// What became of a text that was entered.
  struct Outcome {
    std::string entered;  ///< the text as far as the control takes it while it is entered
    bool isTold = false;  ///< it was refused, or a message told the user
  };

  virtual void openPage(std::int32_t view) = 0;
  /// Reads again what the page shows.
  virtual void refresh() = 0;
  /// The boxes that a person could type into now.
  virtual std::vector<std::string> boxes() = 0;
  virtual std::string text(const std::string& box) = 0;
  virtual Outcome type(const std::string& box, const std::string& text) = 0;
  /// Whether the combo has an entry of that code.
  virtual bool choose(const std::string& combo, const std::string& code) = 0;
  /// These tell whether a message was shown.
  virtual bool press(const std::string& bar, const std::string& button) = 0;
  virtual bool click(const std::string& button) = 0;

  /// Row 1 is the first one. The value of a cell is the stored one.
  virtual Outcome edit(const std::string& grid, std::int32_t row, const std::string& field,
                       const std::string& text) = 0;
  virtual void chooseInCell(const std::string& grid, std::int32_t row, const std::string& field,
                            std::int16_t value) = 0;
  virtual void tickCell(const std::string& grid, std::int32_t row, const std::string& field) = 0;
  virtual std::string cell(const std::string& grid, std::int32_t row, const std::string& field) = 0;

  /// What the database has in the one row of a query, as people write it; "" for nothing.
  virtual std::string stored(const std::string& query) = 0;
};

}  // namespace kebu::tests
