#pragma once

#include <QAction>
#include <QPushButton>

#include "data/codes.h"
#include "platform/controls/ctdedit.h"
#include "tests/views/allfixture.h"
#include "views/shelfpanel.h"

/// A view beside its holding shelf, with the bar of the main window. The shelf is REED's.
template <class Base>
class WithShelf : public Base {
  protected:
    WithShelf() {
        Session().UID = QStringLiteral("REED");
        Session().ALEnabled = true;
        this->desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        this->run("Insert Into rooms (Room) Values('Blue')");
    }

    [[nodiscard]] ShelfPanel& shelf() { return *this->view_->template findChild<ShelfPanel*>(); }
    /// The rows of the shelf as a screen reader reads them.
    [[nodiscard]] QStringList rows() {
        QStringList texts;
        for (int row = 0; row < shelf().List().count(); ++row)
            texts << shelf().List().item(row)->data(Qt::AccessibleTextRole).toString();
        return texts;
    }
    void trigger(const char* name) {
        this->command(name).trigger();
        this->settle();
    }
    void shelve(const char* text) {
        this->select(text);
        trigger("mnuAShelve");
    }
    /// Goes to another day of the view.
    void goTo(QDate date) {
        this->main.SetDate(date);
        this->view_->Reload();
        this->settle();
    }
    [[nodiscard]] QString place(qint64 key) {
        return this->stored(key, "dapptdate").left(10) + QLatin1Char(' ') + this->stored(key, "nStartTime") +
               QLatin1Char('-') + this->stored(key, "nEndTime") + QLatin1Char(' ') + this->stored(key, "clinicianid");
    }
    [[nodiscard]] qint64 shelved() { return this->database_.number("Select Count(*) from HoldingShelf"); }
    void bookRoom(qint64 key, int start, int end, const char* date = "2026/03/11") {
        this->run(
            QStringLiteral(
                "Insert Into roomschedule (apptid, croomid, croomtext, nStartTime, nEndTime, nApptDate) Values(%1, 1, 'Reed', %2, %3, '%4')")
                .arg(key)
                .arg(start)
                .arg(end)
                .arg(QLatin1String(date)));
    }
    void press(QWidget& widget, Qt::Key key) {
        QTest::keyClick(&widget, key);
        this->settle();
    }
    /// Presses the button of the newest notice with this text.
    void take(const char* text) {
        for (auto* button : bar.findChildren<QAbstractButton*>(QStringLiteral("cmdNotice"))) {
            if (button->text() != QLatin1String(text))
                continue;
            button->click();
            this->settle();
            return;
        }
        ADD_FAILURE() << "no " << text;
    }
    /// Drags a row of the shelf by the mouse to a point of the calendar, and lets go there.
    void dragFromShelf(int row, QPoint to, bool drops = true) {
        ShelfList& list = shelf().List();
        QWidget& port = *list.viewport();
        const QPoint from = list.visualItemRect(list.item(row)).center();
        const QPoint there = port.mapFromGlobal(this->calendar().mapToGlobal(to));
        QTest::mousePress(&port, Qt::LeftButton, {}, from);
        for (const QPoint& at : {(from + there) / 2, there}) {
            QMouseEvent move(QEvent::MouseMove, at, port.mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(&port, &move);
        }
        if (drops)
            QTest::mouseRelease(&port, Qt::LeftButton, {}, there);
        this->settle();
    }

    NoticeBar bar;
};
