#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ado/recordset.h"
#include "controls/grid/grid_tools.h"

namespace kebu::controls {

/// A list from which the user takes a row: titled columns over a recordset. The
/// first column is the code that is taken.
class LookupList {
 public:
  /// Reads all of `rows`. What the user arranges is kept in `store`, which may be null.
  LookupList(std::string title, std::vector<std::string> captions, const Ref<ado::Recordset>& rows,
             SettingStore* store = nullptr, Translator translator = untranslated);
  LookupList(std::string title, std::vector<std::string> captions, std::vector<RowValues> rows,
             SettingStore* store = nullptr, Translator translator = untranslated);

  const std::string& title() const { return title_; }
  const std::vector<std::string>& captions() const { return captions_; }
  std::int32_t rowCount() const { return static_cast<std::int32_t>(rows_.size()); }
  /// As people read it; `row` from 1, `column` from 0.
  std::string cellText(std::int32_t row, std::size_t column) const;
  /// The rows that contain `typed` somewhere in a column, case aside; all rows for "".
  std::vector<std::int32_t> matching(const std::string& typed) const;
  /// The row on which the list opens: that of the code that is chosen now, else the first one; 0
  /// when there are no rows.
  std::int32_t current() const { return current_; }
  void setCurrent(const std::string& code);

  /// Shows the rows that contain `typed`. The current row becomes the first one that is shown,
  /// unless it is shown itself.
  void search(const std::string& typed);
  /// How many rows are shown, and the list's row at a place among them, from 1.
  std::int32_t shownCount() const { return static_cast<std::int32_t>(shown_.size()); }
  std::int32_t rowAt(std::int32_t place) const;
  /// The place of the current row; 0 for none.
  std::int32_t currentPlace() const;
  /// The gesture that goes to a place.
  void goTo(std::int32_t place) { current_ = rowAt(place); }
  /// Sorting and copying of the rows that are shown.
  GridTools& tools() { return tools_; }

  /// What the list's window says.
  struct Texts {
    std::string search = "Cerca";
    std::string take = "Scegli";  ///< "" for a list that is only read
    std::string leave = "Annulla";
    std::string nothingFound = "Nessun risultato";
  };
  const Texts& texts() const { return texts_; }
  void setTexts(Texts texts) { texts_ = std::move(texts); }

  /// The gesture; GestureRefused when there is no such row.
  void choose(std::int32_t row);
  /// The code of the chosen row; nothing when the list was left without choosing.
  std::optional<Value> chosen() const;

 private:
  static std::vector<RowValues> allOf(const Ref<ado::Recordset>& rows);
  static std::string untranslated(const std::string& text) { return text; }

  /// The rows that are shown, as the tools read them; a row's number is its place before sorting.
  class ShownRows final : public GridRows {
   public:
    explicit ShownRows(LookupList& list) : list_(list) {}
    std::int32_t rowCount() const override { return list_.shownCount(); }
    std::size_t columnCount() const override { return list_.captions_.size(); }
    std::string field(std::size_t column) const override { return std::to_string(column); }
    bool isShown(std::size_t /*column*/) const override { return true; }
    std::string head(std::size_t column) const override { return list_.captions_[column]; }
    std::vector<Value> cells(std::size_t column, std::int32_t first, std::int32_t count) override;
    std::string writtenText(std::int32_t row, std::size_t column) override;
    std::int32_t currentRow() const override;
    void selectRow(std::int32_t row) override { list_.current_ = list_.shown_.at(index(row)); }

   private:
    static std::size_t index(std::int32_t row) { return static_cast<std::size_t>(row) - 1; }

    LookupList& list_;
  };

  std::string title_;
  std::vector<std::string> captions_;
  std::vector<RowValues> rows_;
  Texts texts_;
  std::int32_t current_ = 0;
  std::int32_t chosen_ = 0;
  std::vector<std::int32_t> shown_;  ///< rows of the list, in its order
  ShownRows shownRows_{*this};
  GridTools tools_;
};

}  // namespace kebu::controls
