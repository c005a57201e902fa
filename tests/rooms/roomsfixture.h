#pragma once

#include <QComboBox>
#include <QLabel>

#include "platform/controls/ctdedit.h"
#include "rooms/frmrooms.h"
#include "tests/shell/practicefixture.h"

/// The rooms Blue (1) and Green (2) on March 11, 2026.
class RoomScheduler : public PracticeFixture {
  protected:
    RoomScheduler() {
        Session().CurrentView = View::Rooms;
        Session().AllProviders = true;
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        run("Insert Into rooms (Room) Values('Blue')");
        run("Insert Into rooms (Room) Values('Green')");
    }
    frmrooms& open() {
        view_ = std::make_unique<frmrooms>(main);
        view_->resize(1000, 700);
        view_->show();
        view_->activateWindow();
        calendar().setFocus();
        settle();
        return *view_;
    }
    [[nodiscard]] QWidget& openView() override { return *view_; }

    int book(const char* text, int start = 540, int end = 600, int room = 1, int appt = 0,
             const char* date = "2026/03/11") {
        run(QStringLiteral(
                "Insert Into roomschedule (nStartTime, nEndTime, nApptDate, croomtext, croomid, apptid) Values(%1, %2, '%3', '%4', %5, %6)")
                .arg(start)
                .arg(end)
                .arg(QLatin1String(date), QString::fromUtf8(text).replace(QLatin1Char('\''), QStringLiteral("''")))
                .arg(room)
                .arg(appt));
        return database_.text(QStringLiteral("Select Max(nKeyId) from roomschedule")).toInt();
    }
    [[nodiscard]] QString stored(int key, const char* column) {
        return database_.text(
            QStringLiteral("Select %1 from roomschedule Where nKeyId = %2").arg(QLatin1String(column)).arg(key));
    }
    [[nodiscard]] int bookings() { return database_.text(QStringLiteral("Select Count(*) from roomschedule")).toInt(); }
    [[nodiscard]] QComboBox& rooms() { return *view_->findChild<QComboBox*>(QStringLiteral("cborooms")); }
    [[nodiscard]] ctDEdit& date() { return *view_->findChild<ctDEdit*>(QStringLiteral("txtdate")); }
    [[nodiscard]] QString hint() { return view_->findChild<QLabel*>(QStringLiteral("lblhint"))->text(); }
    void chooseTime(int start, int end) { calendar().selectRange(1, start, end); }
    void expectGone() {
        desk.expectBox(QStringLiteral("Error saving. Another user may have deleted this assignment."),
                       QStringLiteral("Error"));
    }
    void trigger(const char* name) {
        command(name).trigger();
        settle();
    }

    std::unique_ptr<frmrooms> view_;
};
