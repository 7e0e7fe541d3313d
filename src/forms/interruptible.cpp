#include "forms/interruptible.h"

namespace kebu::forms {

namespace {

/// While it lives, the bar offers to interrupt the work.
class Offer {
 public:
  explicit Offer(controls::ProgressBar& bar) : bar_(bar), wasRunning_(bar.isRunning()) {
    bar_.setInterruptible(true);
  }
  ~Offer() {
    bar_.setInterruptible(false);
    if (!wasRunning_) bar_.stop();
  }
  Offer(const Offer&) = delete;
  Offer& operator=(const Offer&) = delete;

 private:
  controls::ProgressBar& bar_;
  bool wasRunning_;
};

}  // namespace

bool runInterruptibly(const PageContext& context, controls::ProgressBar& bar, const char* text,
                      const std::function<void()>& statement) {
  const std::string shown = context.translate(text);
  const Offer offer(bar);
  const PaintedMeanwhile painted(context.connection, context.desktop(), [&bar, shown] {
    // Not before the first call, since a short statement shows no bar.
    if (!bar.isRunning()) {
      bar.setText(shown);
      bar.start();
    }
    return !bar.isInterrupted();
  });
  try {
    statement();
    return true;
  } catch (const RuntimeError& error) {
    if (!error.isCancelled()) throw;
    return false;
  }
}

}  // namespace kebu::forms
