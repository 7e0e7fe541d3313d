#include "common/event.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

namespace kebu {
namespace {

TEST(Event, CallsHandlersInOrderOfConnectionAndPassesReferences) {
  Event<const std::string&, bool&> event;
  std::string calls;
  event.on([&](const std::string& text, bool&) { calls += "a" + text; });
  const Subscription second = event.connect([&](const std::string& text, bool& cancel) {
    calls += "b" + text;
    cancel = true;
  });
  event.on([&](const std::string&, bool& cancel) { calls += cancel ? "c!" : "c"; });
  bool cancel = false;
  event.raise("1", cancel);
  EXPECT_EQ(calls, "a1b1c!");
  EXPECT_TRUE(cancel);
}

TEST(Event, SubscriptionsDisconnectWhenTheyEndAndFreeTheHandler) {
  Event<> event;
  const auto count = std::make_shared<int>(0);
  Subscription kept;
  {
    Subscription moved = event.connect([count] { ++*count; });
    kept = std::move(moved);
  }
  event.raise();
  EXPECT_EQ(*count, 1);
  kept.disconnect();
  event.raise();
  EXPECT_EQ(*count, 1);
  EXPECT_EQ(count.use_count(), 1);
  EXPECT_FALSE(event.hasHandlers());
  event.on([&] { *count = 10; });
  event.raise();
  EXPECT_EQ(*count, 10);
}

TEST(Event, SubscriptionMayOutliveTheEvent) {
  Subscription subscription;
  {
    Event<> event;
    subscription = event.connect([] {});
  }
  subscription.disconnect();
}

TEST(Event, HandlersMayChangeTheListWhileItIsRaised) {
  Event<> event;
  std::string calls;
  Subscription victim;
  event.on([&] {
    calls += "a";
    event.on([&] { calls += "n"; });
    victim.disconnect();
  });
  victim = event.connect([&] { calls += "v"; });
  event.raise();
  EXPECT_EQ(calls, "a");
  event.raise();
  EXPECT_EQ(calls, "aan");
}

TEST(Event, ClearingWhileRaisedStopsTheHandlersThatAreStillToCome) {
  Event<> event;
  std::string calls;
  event.on([&, own = std::string("a")] {
    event.clear();
    calls += own;  // the handler itself lives until it returns
  });
  const Subscription subscribed = event.connect([&] { calls += "s"; });
  event.on([&] { calls += "b"; });
  event.raise();
  event.raise();
  EXPECT_EQ(calls, "a");
}

TEST(Event, AHandlerMayEndTheEvent) {
  std::optional<Event<>> event(std::in_place);
  int calls = 0;
  event->on([&] {
    ++calls;
    event.reset();
  });
  event->on([&] { ++calls; });
  event->raise();
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace kebu
