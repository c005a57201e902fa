#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>

#include "platform/calendar/ctmday.h"
#include "platform/controls/noticebar.h"
#include "session/session.h"
#include "tests/shell/fakemainwindow.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

/// One row of `appointments` as a test describes it: anAppointment("Anna").at(9, 0).until(9, 50).status(ncolor::Kept).
struct AppointmentRow {
    QString text;
    int start = 540;
    int end = 590;
    QDate date = QDate(2026, 3, 11);
    int code = 0xFF0000;
    QString clinician = QStringLiteral("REED");
    QString extraColumns;  ///< ", NoteID"
    QString extraValues;   ///< ", 7"

    AppointmentRow& at(int hour, int minute) {
        end += hour * 60 + minute - start;
        start = hour * 60 + minute;
        return *this;
    }
    AppointmentRow& until(int hour, int minute) {
        end = hour * 60 + minute;
        return *this;
    }
    AppointmentRow& on(QDate day) {
        date = day;
        return *this;
    }
    AppointmentRow& status(int ncolorCode) {
        code = ncolorCode;
        return *this;
    }
    AppointmentRow& of(const char* provider) {
        clinician = QString::fromLatin1(provider);
        return *this;
    }
    /// A further column with its value as SQL.
    AppointmentRow& with(const char* column, const QString& value) {
        extraColumns += QStringLiteral(", ") + QString::fromLatin1(column);
        extraValues += QStringLiteral(", ") + value;
        return *this;
    }
};

inline AppointmentRow anAppointment(const char* text) {
    AppointmentRow row;
    row.text = QString::fromUtf8(text);
    return row;
}

/// A therapist, REED, at Wednesday, March 11, 2026, before a view on a real database, with a hand on its calendar and
/// another desk that works on the same database.
class PracticeFixture : public testing::Test {
  protected:
    PracticeFixture();
    ~PracticeFixture() override { ResetSession(); }

    /// The view that is open.
    [[nodiscard]] virtual QWidget& openView() = 0;

    qint64 add(const AppointmentRow& row);
    void run(const QString& statement);
    void otherDesk(const QString& statement) { database_.connection().Execute(statement); }
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// The calendar that the hand works on.
    [[nodiscard]] virtual ctMDay& calendar() { return *openView().findChild<ctMDay*>(); }
    [[nodiscard]] const CalendarItem& item(const char* text);
    [[nodiscard]] QStringList itemTexts();
    /// Selects the item with that text.
    void select(const char* text);
    [[nodiscard]] QAction& command(const char* name);

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

    /// Presses the first button of the newest notice.
    static void takeNotice(const NoticeBar& bar) {
        auto* button = bar.findChild<QAbstractButton*>(QStringLiteral("cmdNotice"));
        ASSERT_NE(button, nullptr);
        button->click();
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

    QTemporaryDir folder_;
    TestDatabase database_;
    ScriptedDesk desk;
    FakeMainWindow main{QDate(2026, 3, 11)};
};
