#include <QFile>

#include "tests/desks/deskfront.h"

using db::Sql;

namespace {

/// A practice with a companion, in which Lane (column 1) and Reed (column 2) have their schedules, and a front desk
/// that shows it. The test itself is the companion's own program, which works on the same rows.
class CompanionDesk : public FrontDesk {
  protected:
    CompanionDesk() {
        for (
            const char* statement :
            {"Insert Into Providers (ProvLastName, ProvFirstName) Values ('Reed', 'Ada')",
             "Insert Into Providers (ProvLastName, ProvFirstName) Values ('Lane', 'Ben')",
             "Insert Into TransactionCodes (TranName, TranDescription, TranType) Values ('90834', 'Psychotherapy', 'C')",
             "Insert Into Clients (ClntLastName, ClntFirstName, TranIDQuickCharge) Values ('O''Brien', 'Anna', 1)",
             "Insert Into DefaultFieldValues (DfltFieldName, DfltValue) Values ('DBID', 'FH-1')"})
            there(QString::fromLatin1(statement));
        connection.Execute(Sql("Update settings Set FHServer = '{}', FHDatabaseName = '{}', UseFHSchedView = 1",
                               companion.source(), companion.catalog()));
        for (
            const char* statement :
            {"Insert into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values (1, 'FH-1', 1, 'REED')",
             "Insert into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values (4, 'FH-1', 1, '10017')",
             "Insert Into NoteTypes (NoteType, applyauths) Values ('Progress Note', 1)"})
            connection.Execute(QString::fromLatin1(statement));
        notesProgram();
        // The link is made at the start.
        person.reset();
        desk.reset();
        desk = openDesk(display.name());
        person = std::make_unique<Person>(*desk, display.name());
        person->turnTo("mdisched");
        // The practice has its programs begin with the companion's schedule; a key leads back to it.
        awaitView("frmFHAppts");
        person->press({QStringLiteral("ctrl+1")});
        awaitView("frmsched");
        person->press({QStringLiteral("ctrl+6")});
        awaitView("frmFHAppts");
    }

    void notesProgram() {
        const QString path = folder.filePath(QStringLiteral("solvaned.exe"));
        PutFile(path, "#!/bin/sh\nprintf '%s\\n' \"$1\" >> \"${0%/*}/started.txt\"\n");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QStringList started() {
        QFile file(folder.filePath(QStringLiteral("started.txt")));
        return file.open(QIODevice::ReadOnly)
                   ? QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)
                   : QStringList();
    }
    void there(const QString& statement) { companion.connection().Execute(statement); }
    /// An appointment of Reed's, as the companion's own program makes it.
    QString book(int hour) {
        there(Sql(
            "Insert Into ClientTransactions (ClntId, TranId, ProvId, CtrnDate, CtrnTime, CtrnDuration, CtrnStatus, RecurTranId) Values (1, 1, 1, '{}', '{} {}:00', 50, 'S', 0)",
            day, day, hour));
        return QString::number(companion.connection().LastIdentity());
    }
    QString stored(const QString& key, const char* column) {
        return companion.text(Sql("Select {} from ClientTransactions Where CtrnId = {}",
                                  db::Raw{QString::fromLatin1(column)}, db::Raw{key}));
    }
    /// "2026-03-11 10:00 50 1": day, time, length and provider of a row.
    QString place(const QString& key) {
        const db::Recordset row(
            Sql("Select CtrnDate, CtrnTime, CtrnDuration, ProvId from ClientTransactions Where CtrnId = {}",
                db::Raw{key}),
            companion.connection());
        return row.Eof() ? QStringLiteral("(none)")
                         : QStringLiteral("%1 %2 %3 %4")
                               .arg(row[0].dateTime().toString(QStringLiteral("yyyy-MM-dd")),
                                    row[1].dateTime().toString(QStringLiteral("HH:mm")), row[2].text(), row[3].text());
    }
    bool comesTo(const QString& key, const QString& wanted) {
        return soon([&] { return place(key) == wanted; });
    }
    bool showsItem(const QString& key, const QString& times) {
        return soon([&] { return desk->tell("items").contains(key + QLatin1Char(' ') + times); });
    }
    QString newest() { return companion.text(QStringLiteral("Select Max(CtrnId) from ClientTransactions")); }
    void answerQuestion(const char* key) {
        person->turnTo("box");
        person->press({QString::fromLatin1(key)});
        person->turnTo("mdisched");
        // The desk answers when it is idle, so what the answer set off has been done.
        desk->tell("items");
    }

    TestDatabase companion{SchemaScript::Companion};
};

}  // namespace

TEST_F(CompanionDesk, AnAppointmentIsAddedEditedDraggedAndDeletedByMouseAndKey) {
    for (int time = 0; time < 2; ++time) {
        person->click(at(600, 2));
        if (time == 0)
            person->press({QStringLiteral("Insert")});
        else
            person->press({QStringLiteral("ctrl+n")});
        person->turnTo("frmFHClients");
        person->picture("companion-clients");
        person->type(QStringLiteral("o'b"));
        person->press({QStringLiteral("Return")});
        person->turnTo("frmFHAppt");
        person->picture("companion-appointment");
        person->press({QStringLiteral("Return")});
        person->turnTo("mdisched");
        const QString key = newest();
        EXPECT_TRUE(showsItem(key, QStringLiteral("600-")));

        // It stands selected: Enter edits it.
        person->press({QStringLiteral("Return")});
        person->turnTo("frmFHAppt");
        person->press({QStringLiteral("Escape")});
        person->turnTo("mdisched");

        there(Sql("Update ClientTransactions Set CtrnDuration = 50 Where CtrnId = {}", db::Raw{key}));
        person->press({QStringLiteral("F5")});
        EXPECT_TRUE(showsItem(key, QStringLiteral("600-650")));
        person->drag(itemOf(key), at(735, 1));
        EXPECT_TRUE(soon([&] { return place(key).endsWith(QLatin1String(" 50 2")); })) << place(key).toStdString();
        person->picture("companion-dragged");

        person->click(itemOf(key));
        person->press({QStringLiteral("Delete")});
        answerQuestion("Escape");
        EXPECT_NE(place(key), QStringLiteral("(none)"));
        person->click(itemOf(key), 3);
        person->turnTo("popup");
        person->picture("companion-popup");
        person->click(desk->tell("entryPlace", QStringLiteral("mnuDelete")));
        answerQuestion("alt+y");
        EXPECT_TRUE(comesTo(key, QStringLiteral("(none)")));
        EXPECT_TRUE(soon([&] { return desk->tell("items").isEmpty(); }));
    }
}

TEST_F(CompanionDesk, InTheWeekAnAppointmentIsDraggedToAnotherDayAndBack) {
    const QString key = book(9);
    person->press({QStringLiteral("F5")});
    EXPECT_TRUE(showsItem(key, QStringLiteral("540-590")));
    person->click(itemOf(key));
    person->press({QStringLiteral("ctrl+shift+w")});
    EXPECT_TRUE(soon([&] { return desk->tell("shows", QStringLiteral("pnlView")) == QLatin1String("yes"); }));
    person->drag(itemOf(key), at(765, 2));
    EXPECT_TRUE(soon([&] { return place(key).startsWith(QLatin1String("2026-03-12 ")); })) << place(key).toStdString();
    person->picture("companion-week");
    person->drag(itemOf(key), at(765, 1));
    EXPECT_TRUE(soon([&] { return place(key).startsWith(QLatin1String("2026-03-11 ")); })) << place(key).toStdString();
    EXPECT_EQ(stored(key, "CtrnDuration"), QStringLiteral("50"));
}

TEST_F(CompanionDesk, ANoteIsMadeAndOpenedByKeyAndByMouse) {
    for (const int hour : {9, 11}) {
        const QString key = book(hour);
        person->press({QStringLiteral("F5")});
        EXPECT_TRUE(showsItem(key, QString::number(hour * 60)));
        person->click(itemOf(key), hour == 9 ? 1 : 3);
        if (hour == 9) {
            person->press({QStringLiteral("ctrl+shift+s")});
        } else {
            person->turnTo("popup");
            person->click(desk->tell("entryPlace", QStringLiteral("mnuSessionNote")));
        }
        person->turnTo("frmSNoteType");
        person->press({QStringLiteral("Home"), QStringLiteral("Return")});
        person->turnTo("mdisched");
        EXPECT_TRUE(soon([&] { return desk->tell("noteIcon", key) == QLatin1String("yes"); }));
        const QString id = stored(key, "SVSessionID");
        person->press({QStringLiteral("ctrl+shift+s")});
        const QString opened = id + QStringLiteral("|REED|2|10017");
        EXPECT_TRUE(soon([&] { return started().contains(opened); }));
        EXPECT_TRUE(started().contains(id + QStringLiteral("|REED|1|10017")));
    }
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from sessions")), 2);
}

TEST_F(CompanionDesk, TwoDesksAndTheCompanionItselfWorkOnTheSameRows) {
    const auto other = openDesk();
    EXPECT_EQ(other->tell("shows", QStringLiteral("frmFHAppts")), QStringLiteral("yes"));
    for (int time = 0; time < 2; ++time) {
        const QString key = book(9);
        person->press({QStringLiteral("F5")});
        EXPECT_TRUE(showsItem(key, QStringLiteral("540-590")));
        other->tell("trigger", QStringLiteral("mnuVRefresh"));
        other->tell("drag", key, QStringLiteral("60"));
        EXPECT_TRUE(comesTo(key, QStringLiteral("2026-03-11 10:00 50 1")));

        // The first desk still shows it at nine. The last writer wins, and is told what it has replaced.
        person->drag(itemOf(key), at(735, 2));
        EXPECT_TRUE(soon([&] {
            return place(key).startsWith(QLatin1String("2026-03-11 12:")) ||
                   place(key).startsWith(QLatin1String("2026-03-11 11:"));
        })) << place(key).toStdString();
        EXPECT_TRUE(soon([&] { return desk->tell("items").contains(key); }));
        person->picture("companion-replaced");

        // The companion charges it, and neither desk can move or delete it any more.
        const QString before = place(key);
        there(Sql("Update ClientTransactions Set CtrnStatus = 'C' Where CtrnId = {}", db::Raw{key}));
        other->tell("drag", key, QStringLiteral("60"));
        EXPECT_EQ(other->answer("OK"),
                  QStringLiteral(
                      "This appointment has been charged. You cannot modify an appointment once it has been charged."));
        other->await("mdisched");
        person->click(itemOf(key));
        person->press({QStringLiteral("Delete")});
        answerQuestion("alt+y");
        EXPECT_EQ(place(key), before);
        there(QStringLiteral("Delete from ClientTransactions"));
        person->press({QStringLiteral("F5")});
        EXPECT_TRUE(soon([&] { return desk->tell("items").isEmpty(); }));
    }
}
