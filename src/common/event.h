#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace kebu {

/// Keeps a handler connected and disconnects it when it is destroyed. May outlive
/// the event.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::shared_ptr<void> handler) : handler_(std::move(handler)) {}
  Subscription(Subscription&&) = default;
  Subscription& operator=(Subscription&&) = default;
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  ~Subscription() = default;

  void disconnect() { handler_.reset(); }

 private:
  std::shared_ptr<void> handler_;
};

/// Something that happens and that others want to hear of. Handlers are called
/// in the order in which they were connected. A handler may connect and
/// disconnect others, clear the event or destroy it: those connected while it is
/// raised are called from the next time on, those disconnected are not called.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  Event() = default;
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;
  ~Event() = default;

  /// Connects for as long as the subscription lives.
  [[nodiscard]] Subscription connect(Handler handler) {
    auto subscribed = std::make_shared<Handler>(std::move(handler));
    add({subscribed, nullptr});
    return Subscription(std::move(subscribed));
  }
  /// Connects for the event's life.
  void on(Handler handler) {
    auto own = std::make_shared<Handler>(std::move(handler));
    add({own, own});
  }

  void raise(Args... args) const {
    if (!slots_) return;
    // A handler may change the list, clear the event or destroy it: the calls go by a copy, and
    // this object is not used any more.
    const std::weak_ptr<Slots> current = slots_;
    const Slots called = *slots_;
    for (const Slot& slot : called) {
      if (current.expired()) return;
      if (const auto handler = slot.handler.lock()) (*handler)(args...);
    }
  }

  bool hasHandlers() const {
    return slots_ && std::any_of(slots_->begin(), slots_->end(),
                                 [](const Slot& slot) { return !slot.handler.expired(); });
  }

  /// Disconnects all handlers.
  void clear() { slots_.reset(); }

 private:
  struct Slot {
    std::weak_ptr<Handler> handler;
    std::shared_ptr<Handler> own;  ///< keeps the handler, unless a subscription does
  };
  using Slots = std::vector<Slot>;

  void add(Slot slot) {
    if (!slots_) slots_ = std::make_shared<Slots>();
    std::erase_if(*slots_, [](const Slot& old) { return old.handler.expired(); });
    slots_->push_back(std::move(slot));
  }

  std::shared_ptr<Slots> slots_;  ///< nothing until somebody connects
};

}  // namespace kebu
