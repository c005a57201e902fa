#include "platform/calendar/touch.h"

#include <QApplication>
#include <QStyleHints>
#include <QTouchEvent>
#include <utility>

namespace {

constexpr int FrameLength = 16;  ///< Milliseconds.
constexpr double SlowedBy = 0.94;
constexpr double LeastSpeed = 0.05;  ///< Pixels per millisecond.
/// A finger that rested this long before it lifted wants the content to stay. Milliseconds.
constexpr int Rest = 60;
/// A finger is less exact than a pointer.
constexpr int Finger = 2;

double far(QPointF one, QPointF other) {
    return (one - other).manhattanLength();
}

double threshold() {
    return QApplication::startDragDistance() * Finger;
}

}  // namespace

TouchReader::TouchReader(TouchActs acts) : acts_(std::move(acts)) {
    hold_.setSingleShot(true);
    glide_.setInterval(FrameLength);
    QObject::connect(&hold_, &QTimer::timeout, [this] {
        state_ = State::Holding;
        acts_.take(start_.toPoint());
    });
    QObject::connect(&glide_, &QTimer::timeout, [this] { glide(); });
}

void TouchReader::read(const QTouchEvent& event) {
    if (event.type() == QEvent::TouchCancel || event.points().size() != 1) {
        stop();
        state_ = event.type() == QEvent::TouchEnd || event.type() == QEvent::TouchCancel ? State::Idle : State::Ended;
        return;
    }
    const QPointF at = event.points().front().position();
    if (event.type() == QEvent::TouchBegin)
        begin(at);
    else if (event.type() == QEvent::TouchUpdate)
        update(at);
    else
        end(at);
}

void TouchReader::begin(QPointF at) {
    stop();
    state_ = State::Down;
    start_ = last_ = scrolled_ = at;
    speed_ = {};
    since_.start();
    hold_.start(QGuiApplication::styleHints()->mousePressAndHoldInterval());
}

void TouchReader::update(QPointF at) {
    const bool moved = far(at, start_) >= threshold();
    if (state_ == State::Down && moved) {
        hold_.stop();
        state_ = State::Scrolling;
    } else if (state_ == State::Holding && moved) {
        state_ = State::Moving;
    }
    if (state_ == State::Scrolling)
        scrollTo(at);
    else if (state_ == State::Moving)
        acts_.move(at.toPoint());
}

void TouchReader::scrollTo(QPointF at) {
    const qint64 passed = since_.restart();
    // Several reports of one moment tell nothing about the speed.
    if (passed > 0)
        speed_ = speed_ * 0.4 + (at - last_) / static_cast<double>(passed) * 0.6;
    last_ = at;
    const QPoint by = (at - scrolled_).toPoint();
    scrolled_ += by;
    acts_.scroll(by);
}

void TouchReader::end(QPointF at) {
    const State was = std::exchange(state_, State::Idle);
    hold_.stop();
    if (was == State::Scrolling && since_.elapsed() < Rest)
        glide_.start();
    else if (was == State::Moving)
        acts_.drop(at.toPoint());
    else if (was == State::Holding)
        acts_.letGo(start_.toPoint());
    if (was != State::Down)
        return;
    const bool again = sinceTap_.isValid() && sinceTap_.elapsed() < QApplication::doubleClickInterval() &&
                       far(at, tapped_) < 2 * threshold();
    tapped_ = at;
    if (again) {
        sinceTap_.invalidate();
        acts_.doubleTap(at.toPoint());
    } else {
        sinceTap_.start();
        acts_.tap(at.toPoint());
    }
}

void TouchReader::stop() {
    hold_.stop();
    glide_.stop();
    if (state_ == State::Holding || state_ == State::Moving)
        acts_.cancel();
}

void TouchReader::glide() {
    speed_ *= SlowedBy;
    scrolled_ += speed_ * FrameLength;
    const QPoint by = (scrolled_ - last_).toPoint();
    last_ += by;
    acts_.scroll(by);
    if (far(speed_, {}) < LeastSpeed)
        glide_.stop();
}
