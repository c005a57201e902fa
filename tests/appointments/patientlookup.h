#pragma once

#include <array>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

#include "appointments/matchlist.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "tests/appointments/editorfixture.h"

/// A new appointment in whose box a patient is looked up among some others.
class PatientLookUp : public EditorFixture {
  protected:
    PatientLookUp() {
        Session().AllProviders = true;
        person("10020", "Jordan", "Ed", "L");
        person("10021", "Smith", "Zed");
        run("Update patient_info Set defaultCPT = '90791', Other_Phone = '5550001111', Other_Phone_Type = 'Cell' Where id = '10017'");
    }
    void person(const char* id, const char* last, const char* first, const char* initial = "") {
        database.connection().Execute(
            db::Sql("Insert Into patient_info (id, last_name, first_name, middle_init) Values ('{}', '{}', '{}', '{}')",
                    id, last, first, initial));
    }
    void run(const char* statement) { database.connection().Execute(QString::fromUtf8(statement)); }
    /// Types into the patient box of a new patient appointment.
    QLineEdit& typed(const char* text) {
        QLineEdit& box = *openNew(1).txtpatients;
        box.setFocus();
        strike(box, QString::fromUtf8(text));
        return box;
    }
    /// Key by key, also the letters that no key of a plain keyboard gives.
    static void strike(QLineEdit& box, const QString& text) {
        for (const char32_t letter : text.toStdU32String()) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&letter, 1));
            QApplication::sendEvent(&box, &press);
        }
    }
    void alert(const char* patient, const char* text) {
        database.connection().Execute(db::Sql(
            "Insert Into Patient_Alerts (patient_id, alert_type, Status, alert) Values ('{}', 'Appointment', 1, '{}')",
            patient, text));
    }
    /// Three namesakes beside the others.
    void namesakes() {
        for (const auto& [id, born, account] :
             {std::array{"10041", "1950/01/02", "B-1"}, std::array{"10042", "1991/11/30", "B-2"},
              std::array{"10043", "2004/07/09", "B-3"}})
            database.connection().Execute(db::Sql(
                "Insert Into patient_info (id, last_name, first_name, birth_date, acctnbr, telephone_h) Values ('{}', 'Brown', 'Ann', '{}', '{}', '5552{}')",
                id, born, account, id));
    }
    [[nodiscard]] bool matchesAppear() const {
        return QTest::qWaitFor([this] { return form->pnlmatches->isVisible(); });
    }
    /// The list of those who fit, each row's cells joined by " | ".
    [[nodiscard]] QStringList matches() const {
        QStringList rows;
        for (int row = 0; row < form->pnlmatches->lstmatches->RowCount(); ++row)
            rows << form->pnlmatches->lstmatches->Cells(row).join(QLatin1String(" | "));
        return rows;
    }
    static void letQueuedWorkRun() { QApplication::processEvents(); }
    void leave() {
        form->ctstart->setFocus();
        letQueuedWorkRun();
    }
};
