#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

#include "platform/calendar/ctmday.h"

/// A day calendar from 8:00 to 18:00 in rows of 15 minutes on Wednesday, March 11, 2026, shown, with a hand to use it.
class CalendarUnderHand {
  public:
    CalendarUnderHand() {
        calendar.setDate(day);
        calendar.setNow(QDateTime(day.addDays(-7), QTime(10, 0)));
        calendar.setFirstTime(480);
        calendar.setLastTime(1079);
        calendar.setPrimeStart(480);
        calendar.setPrimeEnd(1080);
        calendar.setTimeInterval(15);
        calendar.resize(600, 800);
        calendar.show();
        calendar.activateWindow();
        calendar.setFocus();
        settle();
    }

    int add(int start, int end, const QString& text = QStringLiteral("Anna O'Brien")) {
        return calendar.AddItem(start, end, day, text, QString::number(calendar.ItemCount() + 100));
    }

    /// The pixel where the minute begins, beside the items at the column's free right end.
    [[nodiscard]] QPoint freeAt(int minute, int column = 1) const {
        const QRect cell = calendar.CellRect(column, minute);
        return {cell.right() - 2, cell.top() + 1};
    }
    [[nodiscard]] QPoint middleOf(int index) const { return calendar.ItemRect(index).center(); }
    [[nodiscard]] int rowHeight() const { return calendar.CellRect(1, 555).top() - calendar.CellRect(1, 540).top(); }

    void press(QPoint at, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(&calendar, button, keys, at);
    }
    void moveTo(QPoint at) {
        QMouseEvent event(QEvent::MouseMove, at, calendar.mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&calendar, &event);
    }
    /// Moves the pointer without a button.
    void hover(QPoint at) {
        QMouseEvent event(QEvent::MouseMove, at, calendar.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&calendar, &event);
    }
    void release(QPoint at) { QTest::mouseRelease(&calendar, Qt::LeftButton, {}, at); }
    void click(QPoint at, Qt::KeyboardModifiers keys = {}) {
        press(at, Qt::LeftButton, keys);
        release(at);
    }
    void doubleClick(QPoint at) {
        click(at);
        QTest::mouseDClick(&calendar, Qt::LeftButton, {}, at);
        settle();
    }
    void drag(QPoint from, QPoint to) {
        press(from);
        moveTo((from + to) / 2);
        moveTo(to);
        release(to);
        settle();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
        QTest::keyClick(&calendar, key, keys);
        settle();
    }
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    const QDate day{2026, 3, 11};
    ctMDay calendar;
};
