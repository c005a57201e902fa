#pragma once

#include <functional>
#include <QElapsedTimer>
#include <QPointF>
#include <QTimer>

class QTouchEvent;

/// What a finger does to a calendar. Places are those of the calendar.
struct TouchActs {
    std::function<void(QPoint by)> scroll;     ///< Moves the content by so many pixels.
    std::function<void(QPoint at)> tap;        ///< A short touch.
    std::function<void(QPoint at)> doubleTap;  ///< The second short touch at a place, after its own tap.
    std::function<void(QPoint at)> take;       ///< The finger was held still: what is there is taken.
    std::function<void(QPoint to)> move;       ///< The finger moves with what it has taken.
    std::function<void(QPoint at)> drop;       ///< It lifts after it has moved.
    std::function<void(QPoint at)> letGo;      ///< It lifts where it was held.
    std::function<void()> cancel;              ///< What was taken is put back.
};

/// Reads one finger: moved at once it scrolls and lets the content glide, held still it takes what is under it. A
/// second finger ends what the first one does.
class TouchReader {
  public:
    explicit TouchReader(TouchActs acts);

    /// Reads a touch event of one screen contact.
    void read(const QTouchEvent& event);

  private:
    enum class State { Idle, Down, Scrolling, Holding, Moving, Ended };

    void begin(QPointF at);
    void update(QPointF at);
    void end(QPointF at);
    void stop();
    void scrollTo(QPointF at);
    void glide();

    TouchActs acts_;
    State state_ = State::Idle;
    QPointF start_;
    QPointF last_;
    QPointF scrolled_;  ///< Where the content stands, in whole pixels.
    QPointF speed_;     ///< Pixels per millisecond.
    QElapsedTimer since_;
    QElapsedTimer sinceTap_;
    QPointF tapped_;
    QTimer hold_;
    QTimer glide_;
};
