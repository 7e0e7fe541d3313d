#include "windows/ado/field_table.h"

#include <algorithm>
#include <limits>

#include "common/convert.h"

namespace kebu::windows {

namespace {

/// Kinds that say the same to this system under another number.
struct SameType {
  std::int32_t number;
  ado::DataType type;
};
constexpr SameType sameTypes[] = {
    {6, ado::DataType::Numeric},        // currency
    {7, ado::DataType::DBTimeStamp},    // date
    {14, ado::DataType::Numeric},       // decimal
    {20, ado::DataType::Numeric},       // 64-bit integer
    {133, ado::DataType::DBTimeStamp},  // date alone
    {201, ado::DataType::VarChar},      // text without limit
    {203, ado::DataType::VarWChar},
};

ado::DataType typeOf(std::int32_t number) {
  const auto* const same =
      std::find_if(std::begin(sameTypes), std::end(sameTypes),
                   [&](const SameType& entry) { return entry.number == number; });
  return same == std::end(sameTypes) ? static_cast<ado::DataType>(number) : same->type;
}

/// Sizes of a gigabyte and more are the provider's way to say "without limit".
std::int32_t definedSize(std::int32_t size) {
  return size >= std::numeric_limits<std::int32_t>::max() / 2 ? -1 : size;
}

/// 255 is the provider's way to say that the type has none.
std::uint8_t digits(std::int32_t number) {
  return static_cast<std::uint8_t>(number >= 255 ? 0 : number);
}

}  // namespace

const Dispatch& FieldTable::collection(const Dispatch& recordset) {
  if (!collection_) collection_ = recordset.get(L"Fields");
  return collection_;
}

const Dispatch& FieldTable::named(const Dispatch& recordset, std::string_view name) {
  auto found = named_.find(name);
  if (found == named_.end()) {
    found = named_.emplace(name, collection(recordset).get(L"Item", {name})).first;
  }
  return found->second;
}

const std::vector<Dispatch>& FieldTable::columns(const Dispatch& recordset) {
  if (columns_.empty()) {
    const std::int32_t count = collection(recordset).number(L"Count");
    for (std::int32_t i = 0; i < count; ++i) {
      columns_.push_back(collection(recordset).get(L"Item", {i}));
      names_.push_back(columns_.back().text(L"Name"));
    }
  }
  return columns_;
}

std::size_t FieldTable::indexOf(const Dispatch& recordset, std::string_view name) {
  columns(recordset);
  auto found = std::find(names_.begin(), names_.end(), name);
  if (found == names_.end()) {
    found = std::find_if(names_.begin(), names_.end(), [&](const std::string& candidate) {
      return equalsIgnoringCase(candidate, name);
    });
  }
  if (found == names_.end()) {
    named(recordset, name);  // raises the error
    throw RuntimeError::invalidCall();
  }
  return static_cast<std::size_t>(found - names_.begin());
}

const std::vector<ado::Field>& FieldTable::descriptions(const Dispatch& recordset) {
  if (descriptions_.empty()) {
    const std::vector<Dispatch>& all = columns(recordset);
    for (std::size_t i = 0; i < all.size(); ++i) {
      const Dispatch& field = all[i];
      descriptions_.push_back(
          {names_[i], typeOf(field.number(L"Type")), definedSize(field.number(L"DefinedSize")),
           digits(field.number(L"Precision")), digits(field.number(L"NumericScale"))});
    }
  }
  return descriptions_;
}

}  // namespace kebu::windows
