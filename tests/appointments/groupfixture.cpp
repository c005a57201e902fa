#include "tests/appointments/groupfixture.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTest>

#include "platform/controls/completingcombo.h"
#include "platform/controls/ctlist.h"

using db::Sql;

GroupFixture::GroupFixture() {
    for (const char* patient :
         {"'P1', 'Abel', 'Ann', 'A-1', '5551110001', '5552220001'", "'P2', 'Baker', 'Bo', 'A-2', '5551110002', null",
          "'P3', 'Cole', 'Cy', 'A-3', null, null", "'P4', 'Drew', 'Di', 'A-4', null, null"})
        run(QStringLiteral(
                "Insert Into patient_info (id, last_name, first_name, acctnbr, telephone_h, telephone_b) Values(%1)")
                .arg(QLatin1String(patient)));
    anger = group(QStringLiteral("Anger"));
    sleep = group(QStringLiteral("Sleep"));
    member(anger, QStringLiteral("P2"), QStringLiteral("2026/01/01"));
    member(anger, QStringLiteral("P1"), QStringLiteral("2026/01/01"), QStringLiteral("2026/03/11"));
    member(anger, QStringLiteral("P3"), QStringLiteral("2026/01/01"), QStringLiteral("2026/03/10"));
    member(anger, QStringLiteral("P4"), QStringLiteral("2026/03/12"));
    member(sleep, QStringLiteral("P4"), QStringLiteral("2026/03/11"));
}

int GroupFixture::group(const QString& name) {
    run(Sql("Insert Into Groups (GroupName, Leader, activestatus) Values('{}', 'REED', 1)", name));
    return static_cast<int>(database.connection().LastIdentity());
}

void GroupFixture::member(int group, const QString& patient, const QString& from, const QString& until) {
    if (until.isEmpty())
        run(Sql("Insert Into GroupMembers (GroupID, PatientID, startDate) Values({}, '{}', '{}')", group, patient,
                from));
    else
        run(Sql("Insert Into GroupMembers (GroupID, PatientID, startDate, enddate) Values({}, '{}', '{}', '{}')", group,
                patient, from, until));
}

frmgrptx& GroupFixture::openNewGroup() {
    return open(newEntry(1));
}

frmgrptx& GroupFixture::openNewGroup(const QString& group) {
    openNewGroup();
    pick(group);
    return *dialog;
}

frmgrptx& GroupFixture::openGroup(int key) {
    return open(entryOf(key, 1));
}

frmgrptx& GroupFixture::open(const EditorRequest& request) {
    dialog = std::make_unique<frmgrptx>(request);
    dialog->show();
    dialog->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    return *dialog;
}

int GroupFixture::groupAppointment() {
    const int key = appointment({.text = QStringLiteral("Anger"), .patient = QString()});
    run(Sql(
        "Update appointments Set ncolor = 12632064, CLOCATION = 'Annex', BLOCATEICO = 1, CapptNote = '|Bring chairs|||' Where nkeyid = {}",
        key));
    for (const char* row : {"'P2', 'A-2', 'Baker, Bo', 0", "'P1', 'A-1', 'Abel, Ann', 1"})
        run(Sql(
            "Insert Into AppointmentsGroup (nKeyId, GroupId, PatientId, PatientAcct, PatientName, Kept) Values({}, {}, {})",
            key, anger, db::Raw{QString::fromLatin1(row)}));
    return key;
}

void GroupFixture::pick(const QString& group) {
    const int index = dialog->cbogroup->FindExact(group);
    ASSERT_GE(index, 0) << group.toStdString();
    dialog->cbogroup->setFocus();
    dialog->cbogroup->SetText(group.left(group.size() - 1));
    QTest::keyClicks(dialog->cbogroup, group.right(1));
    QTest::keyClick(dialog->cbogroup, Qt::Key_Tab);
}

void GroupFixture::click(QPushButton* button) {
    QTest::mouseClick(button, Qt::LeftButton);
}

void GroupFixture::clickBox(const char* name, int column) {
    const ctList& list = *dialog->ctList1;
    const int row = rowOf(name);
    ASSERT_GE(row, 0) << name;
    const QRect cell = list.visualRect(list.model()->index(row, column - 1));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, cell.center());
}

int GroupFixture::rowOf(const char* name) const {
    for (int row = 0; row < dialog->ctList1->RowCount(); ++row)
        if (dialog->ctList1->Cell(row, 2) == QLatin1String(name))
            return row;
    return -1;
}

namespace {

QString line(bool scheduled, const QString& name, bool kept) {
    return (scheduled ? QStringLiteral("x ") : QStringLiteral("- ")) + name + (kept ? QStringLiteral(" k") : QString());
}

}  // namespace

QString GroupFixture::listed() const {
    const ctList& list = *dialog->ctList1;
    QStringList lines;
    for (int row = 0; row < list.RowCount(); ++row)
        lines << line(list.Checked(row, 1), list.Cell(row, 2), list.Checked(row, 3));
    return lines.join(QStringLiteral("; "));
}

QString GroupFixture::members(int key) {
    QStringList lines;
    for (db::Recordset rows(Sql("Select * from AppointmentsGroup Where nKeyId = {} Order by PatientName", key),
                            database.connection());
         !rows.Eof(); rows.MoveNext())
        lines << line(true, rows["PatientName"].text(), rows["Kept"].integer() == 1);
    return lines.join(QStringLiteral("; "));
}
