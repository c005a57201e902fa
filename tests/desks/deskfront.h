#pragma once

#include <functional>
#include <memory>
#include <QDeadlineTimer>

#include "tests/desks/deskfixture.h"
#include "tests/desks/deskperson.h"

/// One front desk on a real display, worked by mouse and keyboard.
class FrontDesk : public DeskFixture {
  protected:
    FrontDesk() {
        for (
            const char* statement :
            {"Insert Into patient_info (id, last_name, first_name, archive, telephone_h, defaultCPT) Values ('10018', 'Åkesson', 'Bo', 0, '5551234567', '90834')",
             "Insert Into incident_hx (patient_id, incident_nbr) Values ('10017', 1)",
             "Insert Into session_types (sess_cpt_code, sess_cpt_name, sess_cpt_time) Values ('90834', 'Psychotherapy', 45)",
             "Insert Into Locations (Location) Values ('Main Office')",
             "Insert Into AptCategories (aptcategory, aptcategorycolor) Values ('Intake', 8438015)",
             "Insert Into Events (Event) Values ('Staff meeting')",
             "Insert Into availability (avail) Values ('Lunch')"})
            connection.Execute(QString::fromUtf8(statement));
        desk = openDesk(display.name());
        person = std::make_unique<Person>(*desk, display.name());
        person->turnTo("mdisched");
    }

    QString at(int minute, int column = 1) {
        return desk->tell("timePlace", QString::number(minute), QString::number(column));
    }
    /// A second session on a server takes its time on a busy machine.
    static constexpr int MostMilliseconds = 15000;

    /// Whether this comes true: what mouse and keys of the display bring about takes its time to reach the program.
    bool soon(const std::function<bool()>& holds) {
        const QDeadlineTimer patience(MostMilliseconds);
        while (!patience.hasExpired()) {
            if (holds())
                return true;
            desk->tell("focus");
        }
        return holds();
    }
    /// Waits until the view of this class is open.
    void awaitView(const char* view) {
        EXPECT_TRUE(soon([this, view] { return desk->tell("shows", QLatin1String(view)) == QLatin1String("yes"); }))
            << view << " has not come.";
    }
    /// When an appointment begins, in minutes; 0 where there is none.
    int startOf(const QString& key) { return times(key).section(QLatin1Char('-'), 0, 0).toInt(); }
    QString itemOf(const QString& key) { return desk->tell("itemPlace", key); }
    QString newestKey() { return value(QStringLiteral("Select Max(nkeyid) from appointments")); }
    qint64 status(const QString& key) {
        return number(db::Sql("Select ncolor from appointments Where nkeyid = {}", db::Raw{key}));
    }
    /// Books a patient by keyboard from the selected time on.
    void bookByKeyboard(const QString& letters) {
        person->turnTo("frmnore");
        person->type(letters);
        person->press({QStringLiteral("Return")});
    }

    Display display;
    std::unique_ptr<Desk> desk;
    std::unique_ptr<Person> person;
};
