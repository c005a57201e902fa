#include "appointments/serieswork.h"

#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QToolButton>
#include <utility>

#include <sqlite3.h>

#include "appointments/frmdelrepeat.h"
#include "appointments/frmrecurappt.h"
#include "data/codes.h"
#include "platform/calendar/item.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/noticebar.h"
#include "platform/database/connectiontext.h"
#include "session/audit.h"
#include "tests/appointments/appointmentfixture.h"
#include "tests/support/fulldisk.h"

using db::Sql;

namespace {

const QString Error = QStringLiteral("Error");
const QString AddingFailed = QStringLiteral("Error adding appointment. ");
const QString DeletingFailed = QStringLiteral("Error deleting appointment. ");

/// O'Brien's appointment, which has the blue room.
class SeriesBooking : public AppointmentFixture {
  protected:
    SeriesBooking() {
        Session().ProviderId = QStringLiteral("REED");
        Session().ScreenAccess = 3;
        Session().ConnectionString = database.connectionText();
        desk.setNow(QDateTime(day, QTime(8, 0)));
        blue = room(QStringLiteral("Blue"));
        key = appointment({.text = QStringLiteral("O'Brien, Anna")});
        run(Sql("Update appointments Set ncolor = 16711681, CapptNote = '|' Where nkeyid = {}", key));
        booking(blue, 540, 600, QStringLiteral("Reed"), key);
    }

    ~SeriesBooking() override {
        if (database.isOnServer())
            for (const QString& trigger : std::as_const(triggers_))
                run(QStringLiteral("Drop Trigger ") + trigger);
    }

    /// As the view shows it.
    [[nodiscard]] CalendarItem shown() const {
        CalendarItem item;
        item.ItemKey = QString::number(key);
        item.ItemDay = day;
        item.ItemStart = 540;
        item.ItemEnd = 600;
        item.ItemText = QStringLiteral("O'Brien, Anna");
        item.ItemNote = QStringLiteral("||10017|A-17");
        return item;
    }

    void run(const QString& statement) { database.connection().Execute(statement); }
    /// Books eleven weekly appointments more, each with the room; where the database refuses one it says `failure`.
    void repeat(const QString& failure = {}) {
        frmRecurAppt form(shown(), {QStringLiteral("REED"), QString()}, [this] { ++reloads; });
        form.txtRecrMaxEvents->setValue(12);
        desk.expectBox(
            QStringLiteral(
                "This appointment is associated with a Room. Do you want the room to be associated with all recurring appointments?"),
            QStringLiteral("Recurring Appointment"), Answer::Yes);
        if (!failure.isEmpty())
            desk.expectBox(AddingFailed + failure, Error);
        form.cmdRecur[0]->click();
    }
    /// The database refuses the changes after which `when`, an SQL condition, would hold; gives what it says.
    QString refuseWhen(const QString& when, const QString& operation, const QString& table) {
        const QString reason =
            QStringLiteral("The %1 statement conflicted with a CHECK constraint.").arg(operation.toUpper());
        if (database.isOnServer())
            run(Sql(
                "Create Trigger part{}{} On {} After {} As If {} Begin RaisError('{}', 16, 1) Rollback Transaction End",
                db::Raw{operation}, db::Raw{table}, db::Raw{table}, db::Raw{operation}, db::Raw{when}, reason));
        else
            runInFile(QStringLiteral(
                          "Create Trigger part%1%2 After %1 On %2 When %3 Begin Select Raise(Abort, 'Refused'); End")
                          .arg(operation, table, when));
        triggers_ << QLatin1String("part") + operation + table;
        return reason;
    }
    /// Takes that back.
    void allow(const QString& operation, const QString& table) {
        const QString trigger = QLatin1String("part") + operation + table;
        const QString statement = QStringLiteral("Drop Trigger ") + trigger;
        if (database.isOnServer())
            run(statement);
        else
            runInFile(statement);
        triggers_.removeOne(trigger);
    }
    /// The database takes no more than so many rows in the table; gives what it says.
    QString refuseAfter(int rows, const char* table) {
        const QString name = QString::fromLatin1(table);
        return refuseWhen(QStringLiteral("(Select Count(*) From %1) > %2").arg(name).arg(rows),
                          QStringLiteral("Insert"), name);
    }
    void allowAppointments() { allow(QStringLiteral("Insert"), QStringLiteral("appointments")); }
    qint64 appointments() { return database.number(QStringLiteral("Select Count(*) from appointments")); }
    qint64 rooms() { return database.number(QStringLiteral("Select Count(*) from roomschedule")); }
    qint64 roomsWithoutAppointment() {
        return database.number(QStringLiteral(
            "Select Count(*) from roomschedule Where apptid > 0 AND apptid Not In (Select nkeyid from appointments)"));
    }
    QStringList marks() { return QDir(userFolder.path()).entryList({QStringLiteral("series-*.json")}, QDir::Files); }
    void press(const char* name) {
        auto* button = bar.findChild<QAbstractButton*>(QString::fromLatin1(name));
        ASSERT_NE(button, nullptr);
        button->click();
        QApplication::processEvents();
    }
    /// As the next start of the program does, when the one before is dead.
    void startAnew() {
        bar.Clear();
        OfferCutOffSeries([this] { ++reloads; });
    }
    static QString bookedOf(int done) {
        return QStringLiteral("The series of 3/11/2026 at 9:00 AM was cut off: %1 of 11 appointments are booked.")
            .arg(done);
    }

    NoticeBar bar;
    int key = 0;
    int blue = 0;
    int reloads = 0;

  private:
    // The embedded dialect has no triggers: one is put into the file as any SQLite tool would.
    void runInFile(const QString& statement) {
        sqlite3* file = nullptr;
        const QString path = db::EmbeddedFile(db::ParseConnectionText(database.connectionText()));
        ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &file), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(file, statement.toUtf8().constData(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(file);
        sqlite3_close(file);
    }

    QStringList triggers_;  ///< That refuse something.
};

}  // namespace

TEST_F(SeriesBooking, ASeriesThatWentWellLeavesNoMark) {
    repeat();
    EXPECT_EQ(appointments(), 12);
    EXPECT_EQ(rooms(), 12);
    EXPECT_EQ(marks(), QStringList());
    EXPECT_EQ(bar.Texts(), QStringList(QStringLiteral("11 of 11 recurring appointments made.")));
}

TEST_F(SeriesBooking, ASeriesThatWasRefusedSaysHowManyAreBookedAndBooksTheRest) {
    repeat(refuseAfter(5, "appointments"));
    EXPECT_EQ(appointments(), 5);
    EXPECT_EQ(rooms(), 5);
    EXPECT_EQ(bar.Texts(), QStringList(bookedOf(4)));
    allowAppointments();
    press("cmdNotice");
    EXPECT_EQ(appointments(), 12);
    EXPECT_EQ(rooms(), 12);
    EXPECT_EQ(database.number(QStringLiteral("Select Count(Distinct dapptdate) from appointments")), 12);
    EXPECT_EQ(
        database.number(Sql("Select Count(*) from appointments Where patientid = '10017' AND repeating_ref = {}", key)),
        12);
    EXPECT_EQ(bar.Texts(),
              QStringList(QStringLiteral("The series of 3/11/2026 at 9:00 AM: 11 of 11 appointments are booked.")));
    EXPECT_EQ(marks(), QStringList());
    EXPECT_EQ(reloads, 1);
}

TEST_F(SeriesBooking, ACopyWhoseRoomIsRefusedIsNotThereEither) {
    repeat(refuseAfter(3, "roomschedule"));
    EXPECT_EQ(appointments(), 3);
    EXPECT_EQ(rooms(), 3);
    EXPECT_EQ(bar.Texts(), QStringList(bookedOf(2)));
    // It is refused once more: told once more, and offered once more.
    desk.expectBox(AddingFailed + QStringLiteral("The INSERT statement conflicted with a CHECK constraint."), Error);
    press("cmdNotice");
    EXPECT_EQ(bar.Texts(), QStringList(bookedOf(2)));
    EXPECT_NO_THROW(Session().Connection.BeginTrans());
}

TEST_F(SeriesBooking, TheNextStartOffersWhatAKilledProgramLeft) {
    repeat(refuseAfter(8, "appointments"));
    EXPECT_EQ(marks().size(), 1);
    startAnew();
    EXPECT_EQ(bar.Texts(), QStringList(bookedOf(7)));
    allowAppointments();
    press("cmdNotice");
    EXPECT_EQ(appointments(), 12);
    EXPECT_EQ(rooms(), 12);
    startAnew();
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(SeriesBooking, WhatWasBookedInTheMeantimeIsAskedForBeforeTheRestIsBooked) {
    repeat(refuseAfter(11, "appointments"));
    allowAppointments();
    appointment({.text = QStringLiteral("Somebody else"), .date = day.addDays(77)});
    desk.expectBox(
        QStringLiteral("You have another appointment on 5/27/2026 which conflicts with this one. Add anyway?"),
        QStringLiteral("Appointment Conflict"), Answer::No);
    press("cmdNotice");
    EXPECT_EQ(appointments(), 12);
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from appointments Where dapptdate = '2026/05/27'")), 1);
    EXPECT_EQ(bar.Texts(),
              QStringList(QStringLiteral("The series of 3/11/2026 at 9:00 AM: 10 of 11 appointments are booked.")));
}

TEST_F(SeriesBooking, ClosingTheNoticeGivesTheRestUp) {
    repeat(refuseAfter(5, "appointments"));
    press("cmdCloseNotice");
    EXPECT_EQ(marks(), QStringList());
    startAnew();
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(SeriesBooking, AnotherUsersOrPracticesMarkIsNobodyElses) {
    repeat(refuseAfter(5, "appointments"));
    Session().UID = QStringLiteral("BACK");
    startAnew();
    EXPECT_EQ(bar.Texts(), QStringList());
    EXPECT_EQ(marks().size(), 1);
}

TEST_F(SeriesBooking, AMarkThatAFullDiskCutsShortIsNotLeftBehind) {
    SeriesWork work;
    work.dates.assign(500, day);
    {
        const FullDisk disk(4'000);
        SeriesMark::Begin(work);
    }
    EXPECT_EQ(marks(), QStringList());
}

TEST_F(SeriesBooking, TheMarkNamesNobodyAndIsReadableByItsOwnerAlone) {
    repeat(refuseAfter(5, "appointments"));
    QFile mark(userFolder.filePath(marks().front()));
    ASSERT_TRUE(mark.open(QIODevice::ReadOnly));
    const QByteArray text = mark.readAll();
    EXPECT_FALSE(text.contains("Brien"));
    EXPECT_FALSE(text.contains("10017"));
    EXPECT_EQ(mark.permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
              QFile::Permissions());
}

namespace {

/// A series of four with rooms, two of them groups with members.
class SeriesDeletion : public SeriesBooking {
  protected:
    SeriesDeletion() {
        for (int week = 1; week < 4; ++week) {
            const int copy = appointment({.text = QStringLiteral("O'Brien, Anna"), .date = day.addDays(7 * week)});
            booking(blue, 540, 600, QStringLiteral("Reed"), copy);
        }
        run(Sql("Update appointments Set repeating = 1, repeating_ref = {}", key));
        run(Sql("Update appointments Set ncolor = {} Where nkeyid > {}", static_cast<int>(ncolor::Group), key + 1));
        run(QStringLiteral(
            "Insert Into AppointmentsGroup (nKeyId, PatientId, Kept) Select nkeyid, 'P1', 0 From appointments Where ncolor = 12632064"));
    }
    void deleteAll() {
        frmdelrepeat list([this] { ++reloads; });
        for (db::Recordset rows(QStringLiteral("Select * from appointments Order by nkeyid"), database.connection());
             !rows.Eof(); rows.MoveNext())
            list.AddAppointment({static_cast<int>(rows["nkeyid"].integer()), QStringLiteral("3/11/2026"),
                                 QStringLiteral("9:00 AM"), rows["cappttext"].text(),
                                 rows["ncolor"].integer() == ncolor::Group, true});
        list.cmdOk->click();
    }
    qint64 members() { return database.number(QStringLiteral("Select Count(*) from AppointmentsGroup")); }
};

}  // namespace

TEST_F(SeriesDeletion, ARowThatCannotBeDeletedWholeStaysWholeAndTheOthersGo) {
    const QString erase = QStringLiteral("Delete");
    const int last = static_cast<int>(database.number(QStringLiteral("Select Max(nkeyid) from appointments")));
    const std::pair<const char*, const char*> tables[] = {
        {"appointments", "nkeyid"}, {"roomschedule", "apptid"}, {"AppointmentsGroup", "nkeyid"}};
    for (const auto& [name, column] : tables) {
        const QString table = QString::fromLatin1(name);
        const QString why = refuseWhen(Sql("Not Exists (Select * From {} Where {} = {})", db::Raw{table},
                                           db::Raw{QString::fromLatin1(column)}, last),
                                       erase, table);
        desk.expectBox(DeletingFailed + why, Error);
        deleteAll();
        EXPECT_EQ(appointments(), 1) << name;
        EXPECT_EQ(rooms(), 1) << name;
        EXPECT_EQ(members(), 1) << name;
        EXPECT_EQ(roomsWithoutAppointment(), 0) << name;
        allow(erase, table);
        booking(blue, 540, 600, QStringLiteral("Reed"), appointment({}));
    }
}

TEST_F(SeriesDeletion, ADeletionThatWasCutOffSaysHowManyAreGoneAndDeletesTheRest) {
    const QString table = QStringLiteral("appointments");
    const QString why =
        refuseWhen(QStringLiteral("(Select Count(*) From appointments) < 2"), QStringLiteral("Delete"), table);
    desk.expectBox(DeletingFailed + why, Error);
    deleteAll();
    const QString cutOff = QStringLiteral("Deleting a series was cut off: 2 of 4 appointments are deleted.");
    EXPECT_EQ(bar.Texts(), QStringList(cutOff));
    startAnew();
    EXPECT_EQ(bar.Texts(), QStringList(cutOff));
    allow(QStringLiteral("Delete"), table);
    press("cmdNotice");
    EXPECT_EQ(appointments() + rooms() + members(), 0);
    EXPECT_EQ(marks(), QStringList());
    EXPECT_EQ(bar.Texts(), QStringList(QStringLiteral("4 of 4 appointments of the series are deleted.")));
}

TEST_F(SeriesDeletion, TheRestIsAuditedAsTheFirstRunIs) {
    Session().ALEnabled = true;
    Session().DateOrder = 1;
    const QString table = QStringLiteral("appointments");
    const QString why =
        refuseWhen(QStringLiteral("(Select Count(*) From appointments) < 4"), QStringLiteral("Delete"), table);
    desk.expectBox(DeletingFailed + why, Error);
    deleteAll();
    allow(QStringLiteral("Delete"), table);
    press("cmdNotice");
    EXPECT_EQ(
        database.number(Sql(
            "Select Count(*) from AuditLog Where LogDescription = 'Deleted appointment - O''Brien, Anna at 9:00 AM on {}'",
            db::Raw{AuditDate(day.addDays(7))})),
        1);
}
