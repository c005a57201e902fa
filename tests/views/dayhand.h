#pragma once

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTest>

#include "tests/views/dayfixture.h"

/// A day view with a hand on its calendar, and another desk that works on the same database.
class DayHand : public DayFixture {
  protected:
    void openByHand() {
        open();
        view_->activateWindow();
        calendar().setFocus();
        settle();
    }
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// What the rows of appointments and of everything else hold, as the other desk reads it.
    [[nodiscard]] QString stored(qint64 key, const char* column) {
        return database_.text(QStringLiteral("Select %1 from appointments Where nkeyid = %2")
                                  .arg(QLatin1String(column), QString::number(key)));
    }
    void otherDesk(const QString& statement) { database_.connection().Execute(statement); }
    /// "{what} Where nkeyid = {key}" on appointments.
    void otherDeskSets(qint64 key, const QString& what) {
        otherDesk(QStringLiteral("Update appointments Set %1 Where nkeyid = %2").arg(what).arg(key));
    }
    void otherDeskDeletes(qint64 key) {
        otherDesk(QStringLiteral("Delete from appointments Where nkeyid = %1").arg(key));
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&calendar(), key, modifiers);
        settle();
    }
    [[nodiscard]] QLineEdit* editor() { return calendar().findChild<QLineEdit*>(); }
    /// Selects the item, presses F2 and puts the text into the place that opens.
    void beginTyping(const char* item, const QString& text) {
        select(item);
        key(Qt::Key_F2);
        ASSERT_NE(editor(), nullptr) << "The text of " << item << " is locked.";
        editor()->selectAll();
        if (text.isEmpty())
            QTest::keyClick(editor(), Qt::Key_Delete);
        else
            editor()->insert(text);
    }
    void type(const char* item, const QString& text) {
        beginTyping(item, text);
        if (editor() != nullptr)
            QTest::keyClick(editor(), Qt::Key_Return);
        settle();
    }

    [[nodiscard]] QRect rectOf(const char* text) {
        return calendar().ItemRect(calendar().IndexOfKey(item(text).ItemKey));
    }
    [[nodiscard]] int yOf(int minute) { return calendar().CellRect(1, minute).top(); }
    void mouseDrag(QPoint from, QPoint to) {
        QTest::mousePress(&calendar(), Qt::LeftButton, {}, from);
        for (const QPoint& at : {(from + to) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, at, calendar().mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(&calendar(), &move);
        }
        QTest::mouseRelease(&calendar(), Qt::LeftButton, {}, to);
        settle();
    }
    /// Drags the item so that it starts at the minute.
    void moveTo(const char* text, int minute) {
        const QPoint from = rectOf(text).center();
        mouseDrag(from, from + QPoint(0, yOf(minute) - yOf(item(text).ItemStart)));
    }
    /// Drags the item's lower edge to the minute.
    void sizeTo(const char* text, int minute) {
        select(text);
        const QPoint edge(rectOf(text).center().x(), rectOf(text).bottom() - 1);
        mouseDrag(edge, {edge.x(), yOf(minute)});
    }
    void doubleClick(QPoint at) {
        QTest::mouseClick(&calendar(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(&calendar(), Qt::LeftButton, {}, at);
        settle();
    }
    void rightClick(QPoint at) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, calendar().mapToGlobal(at));
        QCoreApplication::sendEvent(&calendar(), &event);
        settle();
    }
};
