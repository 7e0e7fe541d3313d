#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <stdexcept>
#include <utility>
#include <vector>

#include "common/value.h"

namespace kebu {

/// The values of a row, in the order of its fields, read-only. Copies share the
/// storage and keep it alive.
class RowValues {
 public:
  RowValues() = default;
  explicit RowValues(std::vector<Value> values) {
    auto own = std::make_shared<const std::vector<Value>>(std::move(values));
    values_ = *own;
    owner_ = std::move(own);
  }
  /// Values that `owner` holds and does not change.
  RowValues(std::span<const Value> values, std::shared_ptr<const void> owner)
      : values_(values), owner_(std::move(owner)) {}

  std::size_t size() const { return values_.size(); }
  auto begin() const { return values_.begin(); }
  auto end() const { return values_.end(); }
  const Value& operator[](std::size_t field) const { return values_[field]; }
  const Value& front() const { return values_.front(); }
  /// std::out_of_range when there is no such field.
  const Value& at(std::size_t field) const {
    if (field >= size()) throw std::out_of_range("the row has no such field");
    return values_[field];
  }

 private:
  std::span<const Value> values_;
  std::shared_ptr<const void> owner_;
};

}  // namespace kebu
