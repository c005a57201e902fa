#include "session/afterroutine.h"

#include <QBasicTimer>
#include <QCoreApplication>
#include <QThread>
#include <QTimerEvent>
#include <utility>

namespace {

/// Runs a step by a timer of its own, because a posted call would run in the very first event loop and could not be
/// held back during a wait.
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
    static constexpr int betweenLooks = 20;  // Milliseconds between two checks while a box is open.

    std::function<void()> step_;
    int level_ = QThread::currentThread()->loopLevel();
    QBasicTimer timer_;
};

}  // namespace

void AfterRoutine(std::function<void()> step) {
    if (QCoreApplication::instance() != nullptr)
        new Return(std::move(step));
}
