#include <QCoreApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTouchEvent>

#include "platform/calendar/ctmday.h"

// A finger acts by the same events as a pointer, so that a touch can do nothing that a mouse could not.
void ctMDay::pointAs(QEvent::Type type, QPoint at) {
    const bool released = type == QEvent::MouseButtonRelease;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent mouse(type, at, mapToGlobal(at), button, released ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(this, &mouse);
}

TouchActs ctMDay::touchActs() {
    TouchActs acts;
    acts.scroll = [this](QPoint by) {
        arrange();
        scrollTo(grid().scrollX - by.x(), grid().scrollY - by.y());
    };
    acts.tap = [this](QPoint at) {
        setFocus(Qt::MouseFocusReason);
        pointAs(QEvent::MouseButtonPress, at);
        pointAs(QEvent::MouseButtonRelease, at);
        showHover(NothingHit{});  // A finger that has gone is over nothing.
    };
    acts.doubleTap = [this](QPoint at) {
        pointAs(QEvent::MouseButtonDblClick, at);
        pointAs(QEvent::MouseButtonRelease, at);
        showHover(NothingHit{});
    };
    acts.take = [this](QPoint at) { take(at); };
    acts.move = [this](QPoint to) { pointAs(QEvent::MouseMove, to); };
    acts.drop = [this](QPoint at) {
        pointAs(QEvent::MouseButtonRelease, at);
        showHover(NothingHit{});
    };
    acts.letGo = [this](QPoint at) {
        cancelGesture();
        rightClick(at, mapToGlobal(at));
        deliverReports();
    };
    acts.cancel = [this] { cancelGesture(); };
    return acts;
}

// The item shows at once that it can be moved now: it becomes the ghost of a drag that has not moved yet.
void ctMDay::take(QPoint at) {
    setFocus(Qt::MouseFocusReason);
    pointAs(QEvent::MouseButtonPress, at);
    if (!press_ || !std::holds_alternative<ItemHit>(press_->hit))
        return;
    // A finger covers the narrow edges that size an item. It always takes the whole.
    std::get<ItemHit>(press_->hit).zone = Zone::Body;
    if (beginDrag())
        dragTo(at);
    else if (press_)
        press_->refused = true;
}

// The scroll bars and the text that is edited in place stay their own: Qt makes mouse events for them of what is not
// accepted here.
bool ctMDay::readTouch(QTouchEvent& event) {
    if (event.type() == QEvent::TouchBegin && childAt(event.points().front().position().toPoint()) != nullptr) {
        event.ignore();
        return false;
    }
    touch_.read(event);
    event.accept();
    return true;
}
