#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <QTemporaryDir>

#include "platform/calendar/ctmday.h"
#include "platform/controls/ctlist.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"
#include "tests/views/fakemainwindow.h"
#include "views/frmsched.h"

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

/// A therapist, REED, looks at Wednesday, March 11, 2026, on a real database.
class DayFixture : public testing::Test {
  protected:
    DayFixture();
    ~DayFixture() override;

    qint64 add(const AppointmentRow& row);
    void run(const QString& statement);
    /// Opens the view on the date of the main window, 1000 by 700 pixels.
    CalendarView& open();
    /// Which view it is; the day view unless a test is about another.
    [[nodiscard]] virtual std::unique_ptr<CalendarView> makeView() { return std::make_unique<frmsched>(main); }
    [[nodiscard]] frmsched& day() { return dynamic_cast<frmsched&>(*view_); }

    [[nodiscard]] ctMDay& calendar();
    [[nodiscard]] const CalendarItem& item(const char* text);
    [[nodiscard]] QStringList itemTexts();
    /// The rows of the details, "label;value".
    [[nodiscard]] QStringList info();
    /// Selects the item with that text.
    void select(const char* text);
    [[nodiscard]] QAction& command(const char* name);

    QTemporaryDir folder_;
    TestDatabase database_;
    ScriptedDesk desk;
    FakeMainWindow main{QDate(2026, 3, 11)};
    std::unique_ptr<CalendarView> view_;
};
