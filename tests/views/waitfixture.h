#pragma once

#include <QAction>
#include <QTest>

#include "appointments/frmnore.h"
#include "appointments/waitbar.h"
#include "data/codes.h"
#include "platform/controls/ctlist.h"
#include "platform/database/sql.h"
#include "tests/views/dayhand.h"

/// Reed's Wednesday at eight, with Anna at ten, and the bar of the wait list above it.
class WaitOffers : public DayHand {
  protected:
    WaitOffers() {
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(8, 0)));
        run("Insert Into provider_info (id, prov_lastname, archive) Values('REED', 'Reed', 0)");
        run("Insert Into provider_info (id, prov_lastname, archive) Values('LANE', 'Lane', 0)");
        for (const char* name : {"Jones", "Miller", "Novak"})
            person(name);
        run("Insert Into incident_hx (patient_id, incident_nbr) Select id, 1 From patient_info");
        anna = add(patientRow("Anna", "P9").at(10, 0).until(10, 50));
    }

    void person(const char* lastName) {
        run(db::Sql("Insert Into patient_info (id, last_name, first_name, archive) Values('{}', '{}', 'Eva', 0)",
                    QString::fromLatin1(lastName).left(1), lastName));
    }
    static AppointmentRow patientRow(const char* text, const char* id) {
        return anAppointment(text)
            .status(ncolor::Pending)
            .with("patientid", QStringLiteral("'%1'").arg(QLatin1String(id)))
            .with("CapptNote", QStringLiteral("'90834|'"));
    }
    /// Who waits, by the first letter of the name; `more` are further columns and values.
    int waits(const char* id, int minutes, const QString& columns = {}, const QString& values = {}) {
        run(QStringLiteral("Insert Into WaitList (PatientId, PatientName, Minutes, createddate%1) Values('%2', '%2', "
                           "%3, '2026/03/0%4'%5)")
                .arg(columns, QLatin1String(id))
                .arg(minutes)
                .arg(++waiting_)
                .arg(values));
        return static_cast<int>(database_.number("Select Max(WaitId) from WaitList"));
    }
    /// Opens the view, and the bar before it as the program does.
    void start() {
        bar_ = std::make_unique<WaitBar>(main);
        openByHand();
    }
    void choose(const char* item, const char* name) {
        select(item);
        command(name).trigger();
        look();
    }
    void look() {
        settle();
        settle();
    }
    /// The patients who are offered the hour, in their order; "-" without the bar.
    [[nodiscard]] QString offered() {
        look();
        if (!bar_->isVisible())
            return QStringLiteral("-");
        QStringList names;
        for (int row = 0; row < bar_->lstoffers->RowCount(); ++row)
            names << bar_->lstoffers->Cell(row, 3).section(u',', 0, 0);
        return names.join(u' ');
    }
    void press(Qt::Key key) {
        QTest::keyClick(bar_->lstoffers, key);
        look();
    }
    void remove(const char* item) {
        desk.expectBox("Are you sure you want to delete this appointment?", "Delete Appointment", Answer::Yes);
        select(item);
        command("mnuADelete").trigger();
        look();
    }
    frmnore& theEditor(QDialog& form) { return dynamic_cast<frmnore&>(form); }
    [[nodiscard]] QString entry(int id) {
        return database_.text(db::Sql("Select Closed From WaitList Where WaitId = {}", id)) + u' ' +
               database_.text(db::Sql("Select nkeyid From WaitList Where WaitId = {}", id));
    }

    qint64 anna = 0;
    std::unique_ptr<WaitBar> bar_;

  private:
    int waiting_ = 0;
};
