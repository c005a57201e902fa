#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <QString>
#include <QStringList>

#include "companion/frmfhappt.h"
#include "companion/frmfhclients.h"
#include "platform/controls/noticebar.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"
#include "tests/support/triplog.h"

/// The statement among those sent that begins like this; empty where there is none.
QString SentLike(const TripLog& log, const QString& beginning);

/// A practice that is linked to the companion "FH-1". Today is March 11, 2026.
///
/// The companion has the providers Reed, Anna (paired with REED) and Young, Bo (paired with nobody), the charge types
/// "90834 Session", "90837 Long session" and "PMT Payment", and the clients Stone, Mary (paired with P1, standard
/// charge 90837) and O'Brien, Ian (paired with nobody, no standard charge). The user is Reed with the right to all
/// schedules.
class CompanionEditorFixture : public testing::Test {
  protected:
    static constexpr int Reed = 1, Young = 2;
    static constexpr int Session45 = 1, Session60 = 2, Payment = 3;
    static constexpr int Mary = 1, Ian = 2;

    CompanionEditorFixture();
    ~CompanionEditorFixture() override;

    void run(const QString& statement) { companion.connection().Execute(statement); }
    void runMain(const QString& statement) { main.connection().Execute(statement); }
    void pair(int list, int fhValue, const QString& svValue, const QString& database = QStringLiteral("FH-1"));
    void addPatient(const QString& id, const QString& last, const QString& first, const QString& provider);
    void addAlert(const QString& patient, const QString& type, const QString& text);
    /// The next form must be the alert with this text; the user reads it.
    void expectAlert(const QString& text);
    /// Makes the companion one that cannot link appointments to notes.
    void dropSessionColumn();

    /// Adds an appointment of Mary with Reed on March 12, 2026 at 9:00 for 45 minutes; gives its CtrnId.
    int addAppointment();
    /// One column of the only appointment, "" for null.
    QString stored(const QString& column);
    qint64 appointments() { return companion.number(QStringLiteral("Select Count(*) From ClientTransactions")); }

    /// A new appointment of Mary with Reed on March 12, 2026 from 10:00 to 10:50.
    [[nodiscard]] static CompanionAppointmentRequest newRequest();
    frmFHAppt& open(const CompanionAppointmentRequest& request);
    frmFHAppt& openNew() { return open(newRequest()); }
    frmFHAppt& openRow(int CtrnKey) { return open({.CtrnKey = CtrnKey, .ClientName = {}, .date = {}}); }
    frmFHClients& openClients(int ProvId = Reed);
    /// What the list shows, after the rest has been read.
    static QStringList namesOf(const frmFHClients& form);

    TestDatabase main;
    TestDatabase companion{SchemaScript::Companion};
    ScriptedDesk desk;
    NoticeBar bar;

  private:
    std::unique_ptr<QDialog> form_;
};
