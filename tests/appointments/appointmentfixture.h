#pragma once

#include <gtest/gtest.h>

#include <QDate>
#include <QString>
#include <QTemporaryDir>

#include "platform/database/error.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

/// A practice whose rows a test makes: the session is connected to an empty database, and `database` is a second desk
/// beside it.
class AppointmentFixture : public testing::Test {
  protected:
    AppointmentFixture();
    ~AppointmentFixture() override;

    /// What a new row of `appointments` holds; the defaults are Reed's hour with Mary Jones.
    struct Row {
        int start = 540;
        int end = 600;
        QString text = QStringLiteral("Jones, Mary");
        QString provider = QStringLiteral("REED");
        QString patient = QStringLiteral("10017");
        int kind = 0;  ///< appttype
        QDate date = QDate(2026, 3, 11);
    };
    /// Both give the key of the new row.
    int appointment(const Row& row);
    int booking(int room, int start, int end, const QString& text, int appointmentKey = 0);
    void provider(const QString& id, const QString& lastName);
    int room(const QString& name);
    void patient(const QString& id, const QString& lastName);

    /// The database says this of every statement from now on; returns its description.
    QString loseDatabase();

    QDate day{2026, 3, 11};
    QTemporaryDir userFolder{TestFolderTemplate()};  ///< What the program keeps for its user.
    TestDatabase database;
    ScriptedDesk desk;
};
