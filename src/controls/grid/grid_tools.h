#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/event.h"
#include "common/setting_store.h"
#include "controls/control.h"
#include "controls/grid/delimited_text.h"
#include "controls/grid/grid_rows.h"
#include "controls/grid/grid_settings.h"
#include "controls/grid/row_search.h"
#include "controls/grid/row_sort.h"

namespace kebu::controls {

/// What the user does with the rows of a grid beside editing them: sorting, finding, copying, and
/// arranging columns. All of it works on rows that have been read.
///
/// The order is a matter of the view. A row keeps its number; the number that the user counts on
/// the screen is its place.
///
/// What may take long is done in slices: while isBusy(), work() is to be called again and again, or
/// cancel(). The first slice is done at once, and so is all work on a short list.
class GridTools {
 public:
  /// `name` tells the settings of grids apart; without a store nothing is kept.
  GridTools(GridRows& rows, std::string name, SettingStore* store, Translator translator);
  GridTools(const GridTools&) = delete;
  GridTools& operator=(const GridTools&) = delete;
  ~GridTools();

  // For the grid.

  /// Other rows or columns are shown. The order that the user wants is made again.
  void rowsChanged();
  /// Cells of the same rows may have changed: what was found may not be there any more.
  void cellsChanged();

  // The order.

  /// The row at a place, and the place of a row. Both count from 1; 0 stands for none.
  std::int32_t rowAt(std::int32_t place) const;
  std::int32_t placeOf(std::int32_t row) const;
  /// Whether rows are shown in another order than they were read in.
  bool isReordered() const { return !order_.empty(); }
  const std::optional<SortedBy>& sortedBy() const { return settings_.sort; }
  /// The gesture on a column's head: sorted upwards, downwards, as read. GestureRefused for a
  /// column that is not shown.
  void sortBy(std::size_t column);

  // Finding a text.

  /// Goes to the first row from the current one on that contains the text, beginning again at the
  /// end; in one column, or in all that are shown. As long as the user only types on, it is looked
  /// for from the row where that began, and without a hit that row is the current one again.
  void find(const std::string& text, std::optional<std::size_t> column);
  void findNext() { goToFound(1); }
  void findPrevious() { goToFound(-1); }
  const std::string& soughtText() const { return sought_; }

  // Copying and exporting.

  /// A cell at a place as it is copied alone.
  std::string copiedCell(std::int32_t place, std::size_t column) const {
    return rows_.writtenText(rowAt(place), column);
  }
  /// The rows from place `first` to `last` as text, with heads; handed over when it is complete.
  void copyRows(std::int32_t first, std::int32_t last, std::function<void(std::string text)> take);
  /// All rows as CSV, in pieces; `ended` is told whether all was written.
  void exportRows(std::function<void(std::string_view piece)> write,
                  std::function<void(bool complete)> ended);

  // Arranging columns.

  /// The width that the user gave a column, in 96ths of an inch; nothing for none.
  std::optional<std::int32_t> width(std::size_t column) const;
  void setWidth(std::size_t column, std::int32_t width);

  // Long work.

  bool isBusy() const { return task_ != nullptr; }
  /// Does a slice. What fails ends the work and is raised.
  void work();
  /// Does all that is left.
  void finish();
  void cancel();
  /// What the grid's foot says: the number of rows, what was found, or how far the work is and how
  /// long it will still take.
  std::string status() const;

  std::string translated(const std::string& text) const { return translator_(text); }

  /// The order or what is found has changed, or work began that is to be gone on with, or ended.
  Event<> changed;
  /// The current row is another one or at another place.
  Event<> moved;

 private:
  /// New rows are looked at from the top: only a sort of the user's own leads to the current row.
  enum class Sort { ByTheUser, OfNewRows };

  struct Task {
    std::shared_ptr<GridTask> task;
    const char* name;  ///< in Italian
    std::function<void(bool complete)> ended;
    std::optional<Sort> sort = std::nullopt;
    TimeLeft timeLeft = TimeLeft();
  };

  void start(Task task);
  void startSort(Sort kind);
  void startSearch();
  void forgetOrder();
  /// Ends the work where it is.
  void stop();
  /// Goes to the next row that contains the text; `step` is 1 or -1, 0 to stay if the current one
  /// does.
  void goToFound(int step);
  /// Goes there as soon as it is known which row that is.
  void takeStep();
  void goToPlace(std::int32_t place);
  void loadSettings();
  void keepSettings();
  std::string settingName() const;

  GridRows& rows_;
  std::string name_;
  SettingStore* store_;
  Translator translator_;
  std::string loadedName_;  ///< of the settings that apply now
  GridSettings settings_;
  std::vector<std::int32_t> order_;  ///< rows by place; empty for the order in which they were read
  std::vector<std::int32_t> places_;  ///< places by row
  std::string sought_;
  std::optional<std::size_t> soughtIn_;
  std::shared_ptr<RowSearch> search_;
  std::optional<int> step_;     ///< a step to a found row that is not done yet
  std::int32_t origin_ = 0;     ///< the row from which the text is looked for
  std::int32_t landedOn_ = 0;   ///< the row to which the last find or step led; 0 for none
  std::int32_t checkedTo_ = 0;  ///< up to here there is none to go to, during the search
  std::unique_ptr<Task> task_;
};

}  // namespace kebu::controls
