#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace kebu {

/// Keeps a handler connected; disconnects it when it ends. May outlive the event.
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
/// disconnect others, clear the event or end it: those connected while it is
/// raised are called from the next time on, those disconnected are not called.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  Event() = default;
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  /// Connects for as long as the subscription lives.
  [[nodiscard]] Subscription connect(Handler handler) { return Subscription(add(handler)); }
  /// Connects for the event's life.
  void on(Handler handler) { kept_.push_back(add(handler)); }

  void raise(Args... args) const {
    const auto slots = slots_;  // handlers may change the list, or end the event
    for (const auto& weak : slots) {
      const auto slot = weak.lock();
      if (slot && slot->connected) slot->handler(args...);
    }
  }

  bool hasHandlers() const {
    return std::any_of(slots_.begin(), slots_.end(),
                       [](const auto& slot) { return !slot.expired(); });
  }

  void clear() {
    for (const auto& weak : slots_) {
      if (const auto slot = weak.lock()) slot->connected = false;
    }
    slots_.clear();
    kept_.clear();
  }

 private:
  struct Slot {
    Handler handler;
    bool connected = true;
  };

  std::shared_ptr<Slot> add(Handler& handler) {
    std::erase_if(slots_, [](const auto& slot) { return slot.expired(); });
    auto slot = std::make_shared<Slot>(Slot{std::move(handler)});
    slots_.push_back(slot);
    return slot;
  }

  std::vector<std::weak_ptr<Slot>> slots_;
  std::vector<std::shared_ptr<Slot>> kept_;
};

}  // namespace kebu
