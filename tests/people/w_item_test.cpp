#include "people/w_item.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "platform/controls/ctdedit.h"
#include "tests/people/listfixture.h"

namespace {

class TaskDialog : public ListFixture {
  protected:
    TaskDialog() { Session().ProviderId = QStringLiteral("REED"); }
    void editing(const char* columns, const char* values) {
        run(QStringLiteral("Insert Into ToDo (ClinicianId, %1) Values ('REED', %2)")
                .arg(QLatin1String(columns), QLatin1String(values)));
        task = static_cast<int>(database.connection().LastIdentity());
    }

    int task = w_Item::NewTask;  ///< What the form is opened on.
};

}  // namespace

TEST_F(TaskDialog, ANewTaskIsStoredForTheProviderOfTheSchedule) {
    w_Item form(task);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("New To Do"));
    EXPECT_EQ(form.lbldate->text(), QStringLiteral("3/11/2026"));
    QTest::keyClicks(form.txtTaskDesc, QStringLiteral("Call O'Brien's school"));
    QTest::mouseClick(form.Option3, Qt::LeftButton);
    form.ctDEditComp->setText(QStringLiteral("3/20"));
    form.txtnotes->setPlainText(QStringLiteral("before noon"));
    form.btnOK->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(
        database.text(QStringLiteral(
            "Select ToDo + '/' + Notes + '/' + ClinicianId from ToDo Where Priority = 3 and datedue = '2026/03/20' and DateEntered = '2026/03/11'")),
        QStringLiteral("Call O'Brien's school/before noon/REED"));
    EXPECT_EQ(database.number(QStringLiteral("Select Completed from ToDo")), 0);
}

TEST_F(TaskDialog, WithoutATextNothingIsSaved) {
    w_Item form(task);
    QTest::keyClicks(form.txtTaskDesc, QStringLiteral("   "));
    desk.expectBox(QStringLiteral("No item entered!"), QStringLiteral("Warning"));
    form.btnOK->click();
    EXPECT_EQ(form.result(), 0);
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from ToDo")), 0);
}

TEST_F(TaskDialog, TheCharactersThatPartCellsAreLeftOut) {
    w_Item form(task);
    QTest::keyClicks(form.txtTaskDesc, QStringLiteral("a\"b*c;d|e"));
    EXPECT_EQ(form.txtTaskDesc->text(), QStringLiteral("abcde"));
}

TEST_F(TaskDialog, EachPriorityHasItsOption) {
    const std::pair<const char*, int> options[] = {{"Option4", 4}, {"Option3", 3}, {"Option2", 2}, {"option1", 1}};
    for (const auto& [name, priority] : options) {
        w_Item form(task);
        form.txtTaskDesc->setText(QString::fromLatin1(name));
        form.findChild<QRadioButton*>(QLatin1String(name))->setChecked(true);
        form.btnOK->click();
        EXPECT_EQ(database.number(db::Sql("Select Priority from ToDo Where ToDo = '{}'", name)), priority);
    }
}

TEST_F(TaskDialog, AnExistingTaskIsShownWithAllOfIt) {
    editing("ToDo, Priority, datedue, Notes, DateEntered", "'Call', 5, '2026/03/20', 'note', '2026/03/01'");
    const w_Item form(task);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Edit To Do"));
    EXPECT_EQ(form.txtTaskDesc->text(), QStringLiteral("Call"));
    EXPECT_TRUE(form.Option4->isChecked());
    EXPECT_EQ(form.ctDEditComp->Date(), QDate(2026, 3, 20));
    EXPECT_EQ(form.txtnotes->toPlainText(), QStringLiteral("note"));
    EXPECT_EQ(form.lbldate->text(), QStringLiteral("3/1/2026"));
}

TEST_F(TaskDialog, AClearedDateAndClearedNotesAreStoredEmpty) {
    editing("ToDo, Priority, datedue, Notes", "'Call', 2, '2026/03/20', 'note'");
    w_Item form(task);
    form.ctDEditComp->setText({});
    form.txtnotes->clear();
    form.btnOK->click();
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from ToDo Where datedue Is Null and Notes Is Null")), 1);
}

TEST_F(TaskDialog, AnImpossibleDateIsNotTakenForNone) {
    w_Item form(task);
    form.txtTaskDesc->setText(QStringLiteral("Call"));
    form.ctDEditComp->setText(QStringLiteral("2/30/2026"));
    desk.expectBox(QStringLiteral("Enter a valid date."), QStringLiteral("Warning"));
    form.btnOK->click();
    EXPECT_EQ(form.result(), 0);
}

TEST_F(TaskDialog, OneThatAnotherUserDeletedBeforeTheOpeningIsTold) {
    task = 4711;
    desk.expectBox(QStringLiteral("Unable to load Task. Another user may have deleted this task. "),
                   QStringLiteral("Error"));
    const w_Item form(task);
}

TEST_F(TaskDialog, OneThatAnotherUserDeletedMeanwhileIsToldAndKeepsTheText) {
    editing("ToDo, Priority", "'Call', 2");
    w_Item form(task);
    run(QStringLiteral("Delete from ToDo"));
    form.txtTaskDesc->setText(QStringLiteral("Call again"));
    desk.expectBox(QStringLiteral("Error saving task. Try again. "), QStringLiteral("Error"));
    form.btnOK->click();
    EXPECT_EQ(form.result(), 0);
    EXPECT_EQ(form.txtTaskDesc->text(), QStringLiteral("Call again"));
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from ToDo")), 0);
}

TEST_F(TaskDialog, AFailureWhileAddingIsToldAndKeepsTheText) {
    w_Item form(task);
    form.txtTaskDesc->setText(QStringLiteral("Call"));
    const QString why = refuseWrites("ToDo");
    desk.expectBox(QStringLiteral("Error adding task. Try again. ") + why, QStringLiteral("Error"));
    form.btnOK->click();
    EXPECT_EQ(form.result(), 0);
}

TEST_F(TaskDialog, ALongTaskIsKeptWhole) {
    w_Item form(task);
    form.txtTaskDesc->setText(QString(500, u'x'));
    form.txtnotes->setPlainText(QStringLiteral("a;b|c*d\"e\n'").repeated(100));
    form.btnOK->click();
    EXPECT_EQ(database.text(QStringLiteral("Select ToDo from ToDo")).size(), 500);
    EXPECT_EQ(database.text(QStringLiteral("Select Notes from ToDo")), QStringLiteral("a;b|c*d\"e\n'").repeated(100));
}

TEST_F(TaskDialog, TheTwentyNinthOfFebruaryIsADateInALeapYearOnly) {
    w_Item form(task);
    form.txtTaskDesc->setText(QStringLiteral("Call"));
    form.ctDEditComp->setText(QStringLiteral("2/29/2027"));
    desk.expectBox(QStringLiteral("Enter a valid date."), QStringLiteral("Warning"));
    form.btnOK->click();
    form.ctDEditComp->setText(QStringLiteral("2/29/2028"));
    form.btnOK->click();
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from ToDo Where datedue = '2028/02/29'")), 1);
}

TEST_F(TaskDialog, WhatWasTypedIsNotThrownAwayUnasked) {
    editing("ToDo, Priority, Notes", "'Call', 2, 'note'");
    w_Item form(task);
    form.show();
    form.txtnotes->setPlainText(QStringLiteral("before noon"));
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Edit To Do"),
                   Answer::No);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Edit To Do"),
                   Answer::Yes);
    form.close();
    EXPECT_FALSE(form.isVisible());

    w_Item unchanged(task);
    unchanged.show();
    QTest::keyClick(&unchanged, Qt::Key_Escape);
    EXPECT_FALSE(unchanged.isVisible());
}

TEST_F(TaskDialog, ControlCharactersOfANoteAreStoredAsBlanks) {
    w_Item form(task);
    form.txtTaskDesc->setText(QStringLiteral("Call"));
    form.txtnotes->setPlainText(QStringLiteral("one\ttwo\x01three\nfour"));
    form.btnOK->click();
    EXPECT_EQ(database.text(QStringLiteral("Select Notes from ToDo")), QStringLiteral("one two three\nfour"));
}
