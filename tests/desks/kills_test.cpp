#include <algorithm>

#include "tests/desks/barefile.h"
#include "tests/desks/deskfixture.h"

using db::Sql;

namespace {

constexpr int SeriesLength = 6;

/// A change in the midst of which the program is killed, as by a power cut.
struct Step {
    const char* operation;
    const char* table;
};

/// A desk that is killed in the middle of what it writes, and the one that is started after it, for the same user.
class Kills : public DeskFixture {
  protected:
    Kills() {
        for (const char* statement :
             {"Insert Into patient_info (id, last_name, first_name, archive) Values ('10018', 'Lee', 'Bo', 0)",
              "Insert Into Groups (GroupName, Leader, activestatus) Values ('Anger', 'REED', 1)",
              "Insert Into GroupMembers (GroupID, PatientID, startDate) Values (1, '10017', '2026/01/01')",
              "Insert Into GroupMembers (GroupID, PatientID, startDate) Values (1, '10018', '2026/01/01')"})
            connection.Execute(QString::fromLatin1(statement));
    }

    void SetUp() override {
        if (database.isOnServer())
            GTEST_SKIP() << "The file is what a kill might tear.";
    }
    void start() {
        desk = std::make_unique<Desk>(folder.path(), QStringLiteral("REED"), day, QString(), config.path());
    }
    /// Kills the desk within the change, once `command` has begun it.
    void killAt(const Step& step, const QString& when, const char* command, const QString& argument) {
        const QString table = QString::fromLatin1(step.table);
        bare.stopAt(QString::fromLatin1(step.operation), table, when);
        desk->tellLast(command, argument);
        bare.awaitAnothersWrite();
        desk->kill();
        desk.reset();
        bare.goOn();
    }
    void killAt(const Step& step, const char* command, const QString& argument) {
        killAt(step, QStringLiteral("1 = 1"), command, argument);
    }
    void open(const char* command, const char* form) {
        desk->tell("trigger", QString::fromLatin1(command));
        desk->await(form);
    }
    QString bookWithRoom(const QString& text = QStringLiteral("O'Brien, Anna")) {
        const QString key = add(540, 590, text);
        connection.Execute(Sql(
            "Insert Into roomschedule (nStartTime, nEndTime, nApptDate, croomtext, croomid, apptid) Values(540, 590, '{}', 'Reed', 1, {})",
            day, db::Raw{key}));
        return key;
    }
    /// A group with its room and two members.
    QString bookGroup() {
        const QString key = bookWithRoom(QStringLiteral("Anger"));
        connection.Execute(
            Sql("Update appointments Set ncolor = 12632064, CapptNote = '||||' Where nkeyid = {}", db::Raw{key}));
        for (const char* patient : {"10017", "10018"})
            connection.Execute(Sql(
                "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientName, Kept, GroupId) Values ({}, '{}', '{}', 0, 1)",
                db::Raw{key}, patient, patient));
        return key;
    }
    void empty() {
        for (const char* table : {"appointments", "roomschedule", "AppointmentsGroup", "AppointmentsEvents"})
            connection.Execute(Sql("Delete from {}", db::Raw{QString::fromLatin1(table)}));
    }
    qint64 count(const char* table) {
        return number(Sql("Select Count(*) from {}", db::Raw{QString::fromLatin1(table)}));
    }
    /// Rows that hang on nothing, and appointments that lack what they came with.
    qint64 torn() {
        return number(QStringLiteral(
                   "Select Count(*) from roomschedule Where apptid <> 0 AND apptid Not In (Select nkeyid from appointments)")) +
               number(QStringLiteral(
                   "Select Count(*) from AppointmentsGroup Where nKeyId Not In (Select nkeyid from appointments)")) +
               number(QStringLiteral(
                   "Select Count(*) from appointments Where nkeyid Not In (Select apptid from roomschedule)")) +
               number(QStringLiteral(
                   "Select Count(*) from appointments Where ncolor = 12632064 AND nkeyid Not In (Select nKeyId from AppointmentsGroup)"));
    }
    /// Opens the series dialog on the appointment, up to the question for the room, which is not answered yet.
    void beginSeries(const QString& key) {
        desk->tell("select", key);
        open("mnuARepeat", "frmRecurAppt");
        desk->tell("replace", QStringLiteral("txtRecrMaxEvents"), QString::number(SeriesLength));
        desk->tell("click", QStringLiteral("cmdRecur0"));
        desk->await("box");
    }
    QString notice() {
        return desk->tell("shows", QStringLiteral("noticeText")) == QLatin1String("yes")
                   ? desk->tell("text", QStringLiteral("noticeText"))
                   : QString();
    }
    void pressNotice() {
        desk->tell("click", QStringLiteral("cmdNotice"));
        for (int tries = 0; tries < 2000 && notice().contains(QStringLiteral("cut off")); ++tries)
            desk->tell("focus");
    }

    QTemporaryDir config;
    BareFile bare{database.file()};
    std::unique_ptr<Desk> desk;
};

}  // namespace

TEST_F(Kills, ABookingThatIsCutOffIsNotThereWithoutItsRoom) {
    for (const Step& step : {Step{"INSERT", "appointments"}, Step{"INSERT", "roomschedule"}}) {
        start();
        desk->tell("range", QStringLiteral("540"), QStringLiteral("590"));
        open("mnuANPat", "frmnore");
        desk->tell("type", QStringLiteral("txtpatients"), QStringLiteral("O'B"));
        desk->tell("choose", QStringLiteral("cborooms"), QStringLiteral("Blue room"));
        killAt(step, "click", QStringLiteral("cmdOk"));
        EXPECT_EQ(count("appointments") + count("roomschedule"), 0) << step.table;
    }
}

TEST_F(Kills, AChangeThatIsCutOffLeavesAppointmentAndRoomAsTheyWere) {
    const QString key = bookWithRoom();
    for (const Step& step :
         {Step{"DELETE", "roomschedule"}, Step{"UPDATE", "appointments"}, Step{"INSERT", "roomschedule"}}) {
        start();
        desk->tell("select", key);
        open("mnuAEdit", "frmnore");
        desk->tell("replace", QStringLiteral("ctend"), QStringLiteral("11:00 AM"));
        killAt(step, "click", QStringLiteral("cmdOk"));
        EXPECT_EQ(times(key), QStringLiteral("540-590")) << step.operation << step.table;
        EXPECT_EQ(number(QStringLiteral("Select nEndTime from roomschedule")), 590) << step.operation << step.table;
        EXPECT_EQ(torn(), 0) << step.operation << step.table;
    }
}

TEST_F(Kills, ADragThatIsCutOffLeavesAppointmentAndRoomAsTheyWere) {
    const QString key = bookWithRoom();
    for (const Step& step : {Step{"UPDATE", "appointments"}, Step{"UPDATE", "roomschedule"}}) {
        start();
        bare.stopAt(QString::fromLatin1(step.operation), QString::fromLatin1(step.table));
        desk->tellLast("drag", key + QStringLiteral("\t60"));
        bare.awaitAnothersWrite();
        desk->kill();
        desk.reset();
        bare.goOn();
        EXPECT_EQ(times(key), QStringLiteral("540-590")) << step.table;
        EXPECT_EQ(number(QStringLiteral("Select nStartTime from roomschedule")), 540) << step.table;
    }
}

TEST_F(Kills, AGroupThatIsCutOffIsNotThereWithoutRoomOrMembers) {
    for (const Step& step :
         {Step{"INSERT", "appointments"}, Step{"INSERT", "roomschedule"}, Step{"INSERT", "AppointmentsGroup"}}) {
        start();
        desk->tell("range", QStringLiteral("540"), QStringLiteral("590"));
        open("mnuASGroup", "frmgrptx");
        desk->tell("choose", QStringLiteral("cbogroup"), QStringLiteral("Anger"));
        desk->tell("choose", QStringLiteral("cborooms"), QStringLiteral("Blue room"));
        killAt(step, "click", QStringLiteral("cmdOk"));
        EXPECT_EQ(count("appointments") + count("roomschedule") + count("AppointmentsGroup"), 0) << step.table;
    }
}

TEST_F(Kills, AChangedGroupThatIsCutOffKeepsRoomAndMembers) {
    const QString key = bookGroup();
    for (const Step& step :
         {Step{"DELETE", "roomschedule"}, Step{"UPDATE", "appointments"}, Step{"INSERT", "roomschedule"},
          Step{"DELETE", "AppointmentsGroup"}, Step{"INSERT", "AppointmentsGroup"}}) {
        start();
        desk->tell("select", key);
        open("mnuAEdit", "frmgrptx");
        desk->tell("replace", QStringLiteral("ctend"), QStringLiteral("11:00 AM"));
        killAt(step, "click", QStringLiteral("cmdOk"));
        EXPECT_EQ(times(key), QStringLiteral("540-590")) << step.operation << step.table;
        EXPECT_EQ(count("AppointmentsGroup"), 2) << step.operation << step.table;
        EXPECT_EQ(torn(), 0) << step.operation << step.table;
    }
}

TEST_F(Kills, ADeletionThatIsCutOffHasDeletedNothing) {
    for (const Step& step :
         {Step{"DELETE", "AppointmentsGroup"}, Step{"DELETE", "roomschedule"}, Step{"DELETE", "appointments"}}) {
        empty();
        const QString key = bookGroup();
        start();
        desk->tell("select", key);
        desk->tell("trigger", QStringLiteral("mnuADelete"));
        desk->await("box");
        killAt(step, "answer", QStringLiteral("Yes"));
        EXPECT_EQ(times(key), QStringLiteral("540-590")) << step.table;
        EXPECT_EQ(count("AppointmentsGroup"), 2) << step.table;
        EXPECT_EQ(torn(), 0) << step.table;
    }
}

TEST_F(Kills, ASeriesThatIsCutOffIsBookedToItsEndByTheNextStart) {
    for (int booked = 0; booked < SeriesLength - 1; booked += 2) {
        for (const char* table : {"appointments", "roomschedule"}) {
            empty();
            const QString key = bookWithRoom();
            start();
            beginSeries(key);
            const QString last =
                QStringLiteral("(SELECT Count(*) FROM %1) = %2").arg(QLatin1String(table)).arg(booked + 2);
            bare.stopAt(QStringLiteral("INSERT"), QString::fromLatin1(table), last);
            desk->tellLast("answer", QStringLiteral("Yes"));
            while (count("appointments") < booked + 1)
                continue;
            bare.awaitAnothersWrite();
            desk->kill();
            desk.reset();
            bare.goOn();
            EXPECT_EQ(torn(), 0) << booked << table;
            EXPECT_EQ(count("appointments"), count("roomschedule")) << booked << table;

            start();
            const QString told = QStringLiteral("%1 of %2 appointments are booked.")
                                     .arg(count("appointments") - 1)
                                     .arg(SeriesLength - 1);
            EXPECT_TRUE(notice().endsWith(told)) << notice().toStdString();
            pressNotice();
            EXPECT_EQ(count("appointments"), SeriesLength) << booked << table;
            EXPECT_EQ(count("roomschedule"), SeriesLength) << booked << table;
            EXPECT_EQ(number(QStringLiteral("Select Count(Distinct dapptdate) from appointments")), SeriesLength);
            EXPECT_EQ(torn(), 0) << booked << table;
            desk.reset();
        }
    }
}

TEST_F(Kills, ASeriesWhoseDeletionIsCutOffIsDeletedToItsEndByTheNextStart) {
    for (const char* table : {"appointments", "roomschedule"}) {
        for (int left = SeriesLength - 1; left > 0; left -= 2) {
            empty();
            const QString key = bookWithRoom();
            for (int copy = 1; copy < SeriesLength; ++copy)
                bookWithRoom();
            connection.Execute(Sql("Update appointments Set repeating = 1, repeating_ref = {}", db::Raw{key}));
            start();
            desk->tell("select", key);
            desk->tell("trigger", QStringLiteral("mnuADelete"));
            desk->answer("Yes");
            desk->await("frmdelrepeat");
            desk->tell("click", QStringLiteral("cmdselect0"));
            bare.stopAt(QStringLiteral("DELETE"), QString::fromLatin1(table),
                        QStringLiteral("(SELECT Count(*) FROM %1) = %2").arg(QLatin1String(table)).arg(left - 1));
            desk->tellLast("click", QStringLiteral("cmdOk"));
            while (count("appointments") > left)
                continue;
            bare.awaitAnothersWrite();
            desk->kill();
            desk.reset();
            bare.goOn();
            EXPECT_EQ(torn(), 0) << left << table;
            const qint64 standing = count("appointments");

            start();
            EXPECT_EQ(notice(), QStringLiteral("Deleting a series was cut off: %1 of %2 appointments are deleted.")
                                    .arg(SeriesLength - standing)
                                    .arg(SeriesLength));
            pressNotice();
            EXPECT_EQ(count("appointments") + count("roomschedule"), 0) << left << table;
            desk.reset();
        }
    }
}

// What is past is not moved, so that the series lies in the days to come.
TEST_F(Kills, ARestOfASeriesWhoseMoveIsCutOffIsMovedToItsEndByTheNextStart) {
    const QDate coming = QDate::currentDate().addDays(14);
    const QString moved = QStringLiteral("Select Count(*) from appointments Where nStartTime = 600");
    const QString movedRooms = QStringLiteral("Select Count(*) from roomschedule Where nStartTime = 600");
    for (const char* table : {"appointments", "roomschedule"}) {
        empty();
        const QString key = bookWithRoom();
        for (int copy = 1; copy < SeriesLength; ++copy)
            bookWithRoom();
        connection.Execute(Sql("Update appointments Set repeating = 1, repeating_ref = {}", db::Raw{key}));
        for (int week = 0; week < SeriesLength; ++week) {
            const int row = key.toInt() + week;
            const QDate date = coming.addDays(7 * week);
            connection.Execute(Sql("Update appointments Set dapptdate = '{}' Where nkeyid = {}", date, row));
            connection.Execute(Sql("Update roomschedule Set nApptDate = '{}' Where apptid = {}", date, row));
        }
        desk = std::make_unique<Desk>(folder.path(), QStringLiteral("REED"), coming, QString(), config.path());
        desk->tell("select", key);
        open("mnuARest", "frmrest");
        desk->tell("click", QStringLiteral("radWhich2"));
        desk->tell("replace", QStringLiteral("txtminutes"), QStringLiteral("60"));
        bare.stopAt(QStringLiteral("UPDATE"), QString::fromLatin1(table),
                    QStringLiteral("(SELECT Count(*) FROM %1 WHERE nStartTime = 600) = 3").arg(QLatin1String(table)));
        desk->tellLast("click", QStringLiteral("cmdOk"));
        while (number(moved) < 2)
            continue;
        bare.awaitAnothersWrite();
        desk->kill();
        desk.reset();
        bare.goOn();
        EXPECT_EQ(torn(), 0) << table;
        EXPECT_EQ(number(moved), 2) << table;
        EXPECT_EQ(number(movedRooms), 2) << table;

        start();
        EXPECT_EQ(notice(), QStringLiteral("Changing a series was cut off: 2 of 6 appointments are changed."));
        pressNotice();
        EXPECT_EQ(number(moved), SeriesLength) << table;
        EXPECT_EQ(number(movedRooms), SeriesLength) << table;
        desk.reset();
    }
}

// At moments that nobody chose. SVS_KILLS tells how often, for who has the time.
TEST_F(Kills, AtWhateverMomentASeriesIsCutOffNothingIsTorn) {
    const int kills = std::max(6, qEnvironmentVariableIntValue("SVS_KILLS"));
    for (int kill = 0; kill < kills; ++kill) {
        empty();
        const QString key = bookWithRoom();
        start();
        beginSeries(key);
        desk->tellLast("answer", QStringLiteral("Yes"));
        const int rows = 2 + kill % (SeriesLength - 1);
        while (count("roomschedule") < rows)
            continue;
        desk->kill();
        desk.reset();
        EXPECT_EQ(torn(), 0) << kill;
        const qint64 standing = count("appointments");
        EXPECT_EQ(count("roomschedule"), standing) << kill;
        start();
        if (standing < SeriesLength)
            pressNotice();
        EXPECT_EQ(count("appointments"), SeriesLength) << kill;
        EXPECT_EQ(torn(), 0) << kill;
        desk.reset();
    }
}
