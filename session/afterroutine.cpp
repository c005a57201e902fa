#include "session/afterroutine.h"

#include <QBasicTimer>
#include <QCoreApplication>
#include <QThread>
#include <QTimerEvent>
#include <utility>

namespace {

/// A timer of its own, since a posted call comes in the very first loop, and cannot be held back by who waits.
class Return final : public QObject {
  public:
    explicit Return(std::function<void()> step) : QObject(QCoreApplication::instance()), step_(std::move(step)) {
        timer_.start(0, this);
    }

  protected:
    void timerEvent(QTimerEvent* event) override {
        if (event->timerId() != timer_.timerId())
            return;
        if (thread()->loopLevel() > level_) {
            timer_.start(betweenLooks, this);
            return;
        }
        timer_.stop();
        deleteLater();
        step_();
    }

  private:
    static constexpr int betweenLooks = 20;  // Milliseconds: as long as the box stands.

    std::function<void()> step_;
    int level_ = QThread::currentThread()->loopLevel();
    QBasicTimer timer_;
};

}  // namespace

void AfterRoutine(std::function<void()> step) {
    if (QCoreApplication::instance() != nullptr)
        new Return(std::move(step));
}
