#pragma once

#include <algorithm>
#include <functional>
#include <list>
#include <memory>
#include <utility>

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
  ~Event() { clear(); }

  /// Connects for as long as the subscription lives.
  [[nodiscard]] Subscription connect(Handler handler) {
    auto subscribed = std::make_shared<Handler>(std::move(handler));
    add({nullptr, subscribed});
    return Subscription(std::move(subscribed));
  }
  /// Connects for the event's life.
  void on(Handler handler) { add({std::move(handler), {}}); }

  void raise(Args... args) const {
    if (!slots_) return;
    const auto slots = slots_;  // a handler may clear the event, or end it
    auto left = slots->others.size();
    slots->first.call(args...);
    for (auto slot = slots->others.begin(); left > 0 && !slots->cleared; ++slot, --left) {
      slot->call(args...);
    }
  }

  bool hasHandlers() const {
    return slots_ && (!slots_->first.isGone() ||
                      std::any_of(slots_->others.begin(), slots_->others.end(),
                                  [](const Slot& slot) { return !slot.isGone(); }));
  }

  void clear() {
    if (!slots_) return;
    slots_->cleared = true;
    slots_.reset();
  }

 private:
  struct Slot {
    Handler own;
    std::weak_ptr<Handler> subscribed;  ///< when it is not the event's own

    bool isGone() const { return !own && subscribed.expired(); }
    void call(Args... args) const {
      if (own) {
        own(args...);
      } else if (const auto handler = subscribed.lock()) {
        (*handler)(args...);
      }
    }
  };
  /// The first lies with the rest, since most events have no other. The others
  /// are a list, whose elements stay where they are while handlers add to it.
  struct Slots {
    explicit Slots(Slot slot) : first(std::move(slot)) {}

    Slot first;
    std::list<Slot> others;
    bool cleared = false;
  };

  void add(Slot slot) {
    if (!slots_) {
      slots_ = std::make_shared<Slots>(std::move(slot));
      return;
    }
    const bool isRaised = slots_.use_count() > 1;
    if (!isRaised) slots_->others.remove_if([](const Slot& other) { return other.isGone(); });
    slots_->others.push_back(std::move(slot));
  }

  std::shared_ptr<Slots> slots_;
};

}  // namespace kebu
