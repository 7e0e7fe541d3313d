#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "windows/support/com_object.h"
#include "windows/support/variant.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// A listener and its cookie.
struct Connection {
  ComPtr<IUnknown> listener;
  DWORD cookie = 0;
};

inline void handOut(ComPtr<IConnectionPoint> item, IConnectionPoint*& target) {
  target = item.detach();
}
inline void handOut(Connection item, CONNECTDATA& target) {
  target = {item.listener.detach(), item.cookie};
}
inline void handOut(Variant item, VARIANT& target) {
  target = item.detach();
}

/// A COM enumerator over a list; `Handed` is the type in which it returns an item.
template <class Interface, class Item, class Handed>
class Enumerator final : public ComObject<Interface> {
 public:
  explicit Enumerator(std::vector<Item> items, std::size_t next = 0)
      : items_(std::move(items)), next_(next) {}

  STDMETHODIMP Next(ULONG count, Handed* targets, ULONG* fetched) override {
    if (!targets || (!fetched && count != 1)) return E_POINTER;
    ULONG given = 0;
    while (given < count && next_ < items_.size()) handOut(items_[next_++], targets[given++]);
    if (fetched) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override {
    const std::size_t skipped = std::min<std::size_t>(count, items_.size() - next_);
    next_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    next_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(Interface** copy) override {
    if (!copy) return E_POINTER;
    *copy = nullptr;
    return hresultOf([&] { *copy = new Enumerator(items_, next_); });
  }

 private:
  std::vector<Item> items_;
  std::size_t next_;
};

using ConnectionPoints =
    Enumerator<IEnumConnectionPoints, ComPtr<IConnectionPoint>, IConnectionPoint*>;
using Connections = Enumerator<IEnumConnections, Connection, CONNECTDATA>;
using Variants = Enumerator<IEnumVARIANT, Variant, VARIANT>;

}  // namespace kebu::windows
