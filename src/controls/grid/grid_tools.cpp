#include "controls/grid/grid_tools.h"

#include <algorithm>
#include <utility>

namespace kebu::controls {

namespace {

constexpr std::int32_t shortList = 4096;  // rows

}  // namespace

GridTools::GridTools(GridRows& rows, std::string name, SettingStore* store, Translator translator)
    : rows_(rows), name_(std::move(name)), store_(store), translator_(std::move(translator)) {}

GridTools::~GridTools() = default;

// ---- settings

// A grid may show other columns at another time, such as customers and articles. The first column
// tells them apart.
std::string GridTools::settingName() const {
  return rows_.columnCount() == 0 ? std::string() : name_ + '.' + rows_.field(0);
}

void GridTools::loadSettings() {
  const std::string name = settingName();
  if (name == loadedName_) return;
  loadedName_ = name;
  settings_ = {};
  if (store_ && !name.empty()) settings_ = GridSettings::fromText(store_->setting(name), rows_);
}

void GridTools::keepSettings() {
  if (store_ && !loadedName_.empty()) store_->keepSetting(loadedName_, settings_.toText(rows_));
}

std::optional<std::int32_t> GridTools::width(std::size_t column) const {
  const auto at = settings_.widths.find(column);
  return at == settings_.widths.end() ? std::nullopt : std::optional(at->second);
}

void GridTools::setWidth(std::size_t column, std::int32_t width) {
  loadSettings();
  settings_.widths[column] = width;
  keepSettings();
}

// ---- the order

std::int32_t GridTools::rowAt(std::int32_t place) const {
  const auto index = static_cast<std::size_t>(place) - 1;
  return index < order_.size() ? order_[index] : place;
}

std::int32_t GridTools::placeOf(std::int32_t row) const {
  const auto index = static_cast<std::size_t>(row) - 1;
  return index < places_.size() ? places_[index] : row;
}

void GridTools::forgetOrder() {
  order_.clear();
  places_.clear();
}

void GridTools::rowsChanged() {
  stop();
  loadSettings();
  forgetOrder();
  search_.reset();
  landedOn_ = 0;
  if (settings_.sort && rows_.rowCount() > 0) startSort(Sort::OfNewRows);
}

void GridTools::cellsChanged() {
  const auto count = static_cast<std::size_t>(rows_.rowCount());
  if (!order_.empty() && order_.size() != count) {
    rowsChanged();
  } else if (!isBusy()) {
    search_.reset();
  }
}

void GridTools::sortBy(std::size_t column) {
  loadSettings();
  if (column >= rows_.columnCount() || !rows_.isShown(column)) {
    throw GestureRefused(name_ + " does not show that column");
  }
  stop();
  const bool isSame = settings_.sort && settings_.sort->column == column;
  if (isSame && settings_.sort->isDescending) {
    settings_.sort.reset();
  } else {
    settings_.sort = SortedBy{column, isSame};
  }
  keepSettings();
  if (settings_.sort) {
    startSort(Sort::ByTheUser);
    return;
  }
  forgetOrder();
  changed.raise();
  moved.raise();
}

void GridTools::startSort(Sort kind) {
  const SortedBy by = *settings_.sort;
  auto sort = std::make_shared<RowSort>(rows_, by.column, by.isDescending);
  start({sort, "Ordinamento",
         [this, sort = sort.get()](bool complete) {
           if (!complete) return;
           order_ = sort->takeOrder();
           places_.resize(order_.size());
           for (std::size_t i = 0; i < order_.size(); ++i) {
             places_[static_cast<std::size_t>(order_[i] - 1)] = static_cast<std::int32_t>(i) + 1;
           }
         },
         kind});
}

// ---- finding

void GridTools::find(const std::string& text, std::optional<std::size_t> column) {
  // While the user types on, each longer text is looked for from where the typing began.
  if (rows_.currentRow() != landedOn_) origin_ = rows_.currentRow();
  sought_ = text;
  soughtIn_ = column;
  search_.reset();
  cancel();
  if (text.empty()) {
    changed.raise();
    return;
  }
  step_ = 0;
  checkedTo_ = 0;
  startSearch();
}

void GridTools::startSearch() {
  search_ = std::make_shared<RowSearch>(rows_, sought_, soughtIn_);
  start({search_, "Ricerca", [this](bool complete) {
           if (complete) return;
           search_.reset();
           step_.reset();
         }});
}

void GridTools::goToFound(int step) {
  if (sought_.empty()) return;
  step_ = step;
  checkedTo_ = 0;
  if (search_) {
    takeStep();
  } else {
    cancel();
    step_ = step;
    startSearch();
  }
}

void GridTools::takeStep() {
  if (!step_ || !search_) return;
  const std::int32_t count = rows_.rowCount();
  const std::int32_t row = *step_ == 0 ? origin_ : rows_.currentRow();
  const std::int32_t from = placeOf(std::max(row, 1));
  const bool isComplete = search_->progress().isComplete();
  if (!isComplete) {
    // Rows are read from the first one on: in that order alone the next one is known early.
    if (isReordered() || *step_ < 0) return;
    std::int32_t place = std::max(from + *step_, checkedTo_ + 1);
    for (; place <= search_->readRows(); ++place) {
      if (search_->isFound(place)) return goToPlace(place);
    }
    checkedTo_ = search_->readRows();
    return;
  }
  const int direction = *step_ < 0 ? -1 : 1;
  std::int32_t place = from + *step_;
  for (std::int32_t i = 0; i < count; ++i, place += direction) {
    if (place > count) place = 1;
    if (place < 1) place = count;
    if (search_->isFound(rowAt(place))) return goToPlace(place);
  }
  if (*step_ == 0 && count > 0) return goToPlace(from);
  step_.reset();
}

void GridTools::goToPlace(std::int32_t place) {
  const std::int32_t row = rowAt(place);
  if (*step_ != 0) origin_ = row;
  step_.reset();
  landedOn_ = row;
  rows_.selectRow(row);
  moved.raise();
}

// ---- copying and exporting

void GridTools::copyRows(std::int32_t first, std::int32_t last,
                         std::function<void(std::string text)> take) {
  std::vector<std::int32_t> rows;
  for (std::int32_t place = std::max(first, 1); place <= std::min(last, rows_.rowCount());
       ++place) {
    rows.push_back(rowAt(place));
  }
  cancel();
  auto text = std::make_shared<std::string>();
  auto writing = std::make_shared<RowsAsText>(rows_, std::move(rows), clipboardFormat,
                                              [text](std::string_view piece) { *text += piece; });
  start({writing, "Copia", [text, take = std::move(take)](bool complete) {
           if (complete) take(std::move(*text));
         }});
}

void GridTools::exportRows(std::function<void(std::string_view piece)> write,
                           std::function<void(bool complete)> ended) {
  std::vector<std::int32_t> rows;
  for (std::int32_t place = 1; place <= rows_.rowCount(); ++place) rows.push_back(rowAt(place));
  cancel();
  start({std::make_shared<RowsAsText>(rows_, std::move(rows), csvFormat, std::move(write)),
         "Esportazione", std::move(ended)});
}

// ---- long work

void GridTools::start(Task task) {
  task_ = std::make_unique<Task>(std::move(task));
  work();
  if (rows_.rowCount() <= shortList) finish();
  if (isBusy()) changed.raise();
}

void GridTools::work() {
  if (!task_) return;
  bool isDone = false;
  try {
    isDone = task_->task->work();
    if (task_ && task_->task == search_) takeStep();
  } catch (...) {
    cancel();
    throw;
  }
  if (!isDone || !task_) return;
  const std::unique_ptr<Task> ended = std::move(task_);
  ended->ended(true);
  if (ended->task == search_) takeStep();
  changed.raise();
  if (ended->sort == Sort::ByTheUser) moved.raise();
}

void GridTools::finish() {
  while (isBusy()) work();
}

void GridTools::stop() {
  if (!task_) return;
  const std::unique_ptr<Task> ended = std::move(task_);
  ended->ended(false);
}

void GridTools::cancel() {
  if (!task_) return;
  const bool wasSorting = task_->sort.has_value();
  stop();
  if (wasSorting) {
    // A column's head must not claim an order that was not made.
    settings_.sort.reset();
    keepSettings();
    forgetOrder();
  }
  changed.raise();
}

std::string GridTools::status() const {
  if (task_) {
    const Progress progress = task_->task->progress();
    return translated(task_->name) + "... " +
           progressText(progress, task_->timeLeft.estimate(progress), translator_);
  }
  const std::int32_t count = rows_.rowCount();
  std::string all = groupedNumber(count) + ' ' + translated(count == 1 ? "riga" : "righe");
  if (!search_) return all;
  if (search_->foundRows() == 0) return all + ", " + translated("nessuna corrisponde");
  return all + ", " + translated("trovate: ") + groupedNumber(search_->foundRows());
}

}  // namespace kebu::controls
