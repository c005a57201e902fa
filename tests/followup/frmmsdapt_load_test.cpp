#include <functional>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "data/codes.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/notefield.h"
#include "platform/spelling/dictionary.h"
#include "platform/spelling/vsspell.h"
#include "session/hiddennames.h"
#include "session/session.h"
#include "tests/followup/missednotefixture.h"
#include "tests/support/files.h"
#include "tests/support/triplog.h"

using db::Sql;

using MissedNoteLoad = MissedNoteFixture;

TEST_F(MissedNoteLoad, ANewNoteShowsThePatientTheDateAndTheCurrentProvider) {
    open();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Missed Appointment Note"));
    EXPECT_EQ(form->Label1->text(), QStringLiteral("Client:"));
    EXPECT_EQ(form->lblpatient->text(), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(form->ctdate->Date(), day);
    EXPECT_EQ(form->cboprovider->Text(), QStringLiteral("Reed"));
    EXPECT_EQ(form->List1->item(form->cboprovider->ListIndex())->text(), QStringLiteral("REED"));
    EXPECT_EQ(form->txtreason->toPlainText(), QString());
    EXPECT_TRUE(form->txtreason->hasFocus());
    EXPECT_EQ(shown(form->pnlSig), QStringLiteral("-"));
    EXPECT_EQ(shown(form->lblsignstatus), QStringLiteral("-"));
    EXPECT_TRUE(maySign());
    EXPECT_FALSE(form->NoteSaved());
    EXPECT_EQ(auditLines(), QStringList());
}

TEST_F(MissedNoteLoad, TheTypeComesFromTheAppointmentsColour) {
    const std::pair<int, const char*> types[] = {{ncolor::Missed, "Missed"},
                                                 {ncolor::PatientCancelled, "Patient Cancel"},
                                                 {ncolor::TherapistCancelled, "Therapist Cancel"},
                                                 {ncolor::Kept, ""}};
    for (const auto& [colour, words] : types) {
        request.ItemColor = colour;
        EXPECT_EQ(open().lbltype->text(), QString::fromLatin1(words));
    }
}

TEST_F(MissedNoteLoad, ArchivedProvidersAreNotOfferedAndNamesakesAreToldApart) {
    run(QStringLiteral("Insert Into provider_info (id, prov_lastname) Values ('REED2', 'Reed')"));
    open();
    QStringList offered;
    for (int row = 0; row < form->cboprovider->count(); ++row)
        offered << form->cboprovider->itemText(row);
    EXPECT_EQ(offered,
              (QStringList{QStringLiteral("O'Brien"), QStringLiteral("Reed (REED)"), QStringLiteral("Reed (REED2)")}));
    EXPECT_EQ(form->cboprovider->Text(), QStringLiteral("Reed (REED)"));
}

TEST_F(MissedNoteLoad, ACurrentProviderWhoIsNotListedLeavesTheChoiceOpen) {
    Session().ProviderId = QStringLiteral("STONE");
    EXPECT_EQ(open().cboprovider->ListIndex(), -1);
}

TEST_F(MissedNoteLoad, ANoteIsShownAsItIsStoredAndTheLookIsLogged) {
    addNote(QStringLiteral("Called at 8\r\nno answer"));
    run(QStringLiteral(
        "Update sessions Set stype = 8, Patient = 'Jones, Mary Ann', DateMarker = '2026/03/09', providerid = 'obrien'"));
    request.ItemColor = ncolor::Missed;
    open();
    EXPECT_EQ(form->ctdate->Date(), QDate(2026, 3, 9));
    EXPECT_EQ(form->txtreason->toPlainText(), QStringLiteral("Called at 8\nno answer"));
    EXPECT_EQ(form->lbltype->text(), QStringLiteral("Therapist Cancel"));
    EXPECT_EQ(form->cboprovider->Text(), QStringLiteral("O'Brien"));
    EXPECT_EQ(form->lblpatient->text(), QStringLiteral("Jones, Mary Ann"));
    EXPECT_FALSE(form->IsChanged());
    EXPECT_EQ(
        auditLines(),
        QStringList{QStringLiteral("View: Viewed Missed Appointment Note of 03/09/2026 for patient, Jones, Mary Ann")});
}

TEST_F(MissedNoteLoad, ANoteWithoutAProviderShowsTheCurrentOneAndStaysWithoutOne) {
    const int note = addNote();
    run(QStringLiteral("Update sessions Set providerid = null, stype = null"));
    open();
    EXPECT_EQ(form->cboprovider->Text(), QStringLiteral("Reed"));
    EXPECT_EQ(form->lbltype->text(), QStringLiteral("Missed"));
    ok();
    EXPECT_EQ(newest("providerid", "sessions"), QString());
    EXPECT_EQ(modified(note), QStringLiteral("2026-03-11 15:05"));
}

TEST_F(MissedNoteLoad, ANoteOfAProviderWhoHasLeftKeepsThem) {
    addNote();
    run(QStringLiteral("Update sessions Set providerid = 'STONE'"));
    open();
    EXPECT_EQ(form->cboprovider->Text(), QStringLiteral("Stone (no longer on the list)"));
    type(QStringLiteral("Came too late"));
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(newest("providerid", "sessions"), QStringLiteral("STONE"));
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Came too late"));
}

TEST_F(MissedNoteLoad, ANoteThatAnotherUserDeletedIsToldAtOnce) {
    for (const char* table : {"sessions", "MissedAppt"}) {
        addNote();
        run(Sql("Delete from {}", db::Raw{QString::fromLatin1(table)}));
        desk.expectBox(QStringLiteral("Another user has deleted this note."), QStringLiteral("Solvane"));
        open();
        EXPECT_TRUE(form->cmdOk->hasFocus()) << table;
        EXPECT_EQ(auditLines(), QStringList()) << table;
    }
}

TEST_F(MissedNoteLoad, AnAppointmentThatAnotherUserDeletedLeavesTheNameEmpty) {
    run(QStringLiteral("Delete from appointments"));
    EXPECT_EQ(open().lblpatient->text(), QString());
}

TEST_F(MissedNoteLoad, ANoteThatCannotBeReadIsToldQuietlyAndCannotBeChanged) {
    addNote();
    loseDatabase();
    open();
    EXPECT_EQ(bar->Texts().size(), 3);
    EXPECT_TRUE(bar->Texts().first().startsWith(QStringLiteral("The note could not be read. ")));
    EXPECT_TRUE(form->txtreason->isReadOnly());
    EXPECT_FALSE(form->cboprovider->isEnabled());
    EXPECT_FALSE(maySign());
    EXPECT_EQ(shown(form->lblhint),
              QStringLiteral("The note could not be read. Close this window and open the note again."));
    Session().Connection.Open(database.connectionText());
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(form->NoteSaved());
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Car broke down"));
}

TEST_F(MissedNoteLoad, AReadOnlyNoteCanBeReadAndPrintedOnly) {
    const int note = addNote(QStringLiteral("Line\r\n").repeated(100));
    for (const int access : {3, 1, 0}) {
        request.ReadOnly = access == 3;
        Session().ScreenAccess = access;
        open();
        EXPECT_TRUE(form->txtreason->isReadOnly());
        for (const QWidget* field : {static_cast<QWidget*>(form->cboprovider), static_cast<QWidget*>(form->ctdate),
                                     static_cast<QWidget*>(form->btnspell), static_cast<QWidget*>(form->Command1)})
            EXPECT_FALSE(field->isEnabled()) << field->objectName().toStdString();
        EXPECT_FALSE(maySign());
        EXPECT_TRUE(form->cmdprint->isEnabled());
        ok();
        EXPECT_FALSE(isOpen());
        EXPECT_FALSE(form->NoteSaved());
        EXPECT_EQ(modified(note), QStringLiteral("2026-03-11 15:05"));
    }
}

TEST_F(MissedNoteLoad, ANoteThatIsToBeWrittenCannotBeBegunByWhoMayOnlyRead) {
    request.ReadOnly = true;
    open();
    EXPECT_TRUE(form->txtreason->isReadOnly());
    EXPECT_FALSE(form->cboprovider->isEnabled());
    EXPECT_FALSE(maySign());
    ok();
    EXPECT_EQ(rowCount("sessions"), 0);
}

TEST_F(MissedNoteLoad, OfAReadOnlyNoteWithoutATextNothingIsAsked) {
    addNote(QString());
    request.ReadOnly = true;
    open();
    EXPECT_FALSE(form->cmdprint->isEnabled());
    ok();
    EXPECT_FALSE(isOpen());
}

TEST_F(MissedNoteLoad, OpeningIsOneTripAndOneMoreForTheAuditLog) {
    addNote();
    open();  // The columns of the tables are looked up once a run.
    EXPECT_TRUE(TakesAtMost(2, [this] { const frmmsdApt note(request); }));
    Session().ALEnabled = false;
    EXPECT_TRUE(TakesAtMost(1, [this] { const frmmsdApt note(request); }));
}

TEST_F(MissedNoteLoad, AHiddenNameIsNotShownButStored) {
    SetNamesHidden(true);
    open();
    EXPECT_FALSE(form->lblpatient->text().contains(QStringLiteral("Jones")));
    SetNamesHidden(false);
    EXPECT_EQ(form->lblpatient->text(), QStringLiteral("Jones, Mary"));
    SetNamesHidden(true);
    EXPECT_FALSE(form->lblpatient->text().contains(QStringLiteral("Jones")));
    type(QStringLiteral("Ill"));
    ok();
    EXPECT_EQ(newest("Patient", "sessions"), QStringLiteral("Jones, Mary"));
}

TEST_F(MissedNoteLoad, ALineEndInAStoredNameDoesNotBreakTheHeading) {
    run(Sql("Update appointments Set cappttext = '{}'", QStringLiteral("Jones,\r\nMary & Tom")));
    EXPECT_EQ(open().lblpatient->text(), QStringLiteral("Jones, Mary & Tom"));
}

TEST_F(MissedNoteLoad, ALongNameDoesNotWidenTheForm) {
    const QSize usual = open().size();
    for (const QString& name : {QStringLiteral("W").repeated(255), QStringLiteral("Jones, Mary ").repeated(20)}) {
        run(Sql("Update appointments Set cappttext = '{}'", name));
        EXPECT_EQ(open().width(), usual.width());
        EXPECT_EQ(form->lblpatient->text(), name);
    }
}

TEST_F(MissedNoteLoad, EveryFieldIsReachedByTheKeyboardAndEveryLetterIsUsedOnce) {
    open();
    QStringList letters;
    for (const QAbstractButton* button : form->findChildren<QAbstractButton*>())
        if (const qsizetype at = button->text().indexOf(QLatin1Char('&')); at >= 0)
            letters << button->text().mid(at + 1, 1).toUpper();
    for (const QLabel* label : form->findChildren<QLabel*>())
        if (const qsizetype at = label->text().indexOf(QLatin1Char('&')); label->buddy() != nullptr && at >= 0)
            letters << label->text().mid(at + 1, 1).toUpper();
    EXPECT_EQ(letters.size(), 10);
    EXPECT_EQ(letters.removeDuplicates(), 0);
    QSet<QWidget*> reached;
    for (int tab = 0; tab < 20; ++tab) {
        reached << QApplication::focusWidget();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (QWidget* field : std::initializer_list<QWidget*>{
             form->ctdate, form->cboprovider, form->txtreason, form->btnspell, form->btnsign[0], form->btnsign[1],
             form->btnsign[2], form->Command1, form->cmdOk, form->cmdCancel})
        EXPECT_TRUE(reached.contains(field)) << field->objectName().toStdString();
    EXPECT_FALSE(reached.contains(form->cmdprint)) << "There is nothing to print yet.";
}

// Spelling.

TEST_F(MissedNoteLoad, AWrongWordIsFoundByButtonAndKeyAndCorrected) {
    open();
    for (const auto& check :
         std::initializer_list<std::function<void()>>{[this] { QTest::mouseClick(form->Command1, Qt::LeftButton); },
                                                      [this] { QTest::mouseClick(form->btnspell, Qt::LeftButton); },
                                                      [this] { QTest::keyClick(form->txtreason, Qt::Key_F7); }}) {
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        type(QStringLiteral("Nobody cald"));
        desk.expectForm("SpellingDialog", [](QDialog& dialog) {
            dialog.findChild<QLineEdit*>(QStringLiteral("txtchange"))->setText(QStringLiteral("called"));
            dialog.findChild<QPushButton*>(QStringLiteral("cmdchange"))->click();
        });
        desk.expectBox(QStringLiteral("The spelling check is complete."), QStringLiteral("Spelling"));
        check();
        EXPECT_EQ(form->txtreason->toPlainText(), QStringLiteral("Nobody called"));
    }
}

TEST_F(MissedNoteLoad, AnAddedWordIsKeptInTheUsersOwnList) {
    open();
    type(QStringLiteral("Buprenorphin"));
    desk.expectForm("SpellingDialog",
                    [](QDialog& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("cmdadd"))->click(); });
    desk.expectBox(QStringLiteral("The spelling check is complete."), QStringLiteral("Spelling"));
    QTest::mouseClick(form->Command1, Qt::LeftButton);
    EXPECT_EQ(FileBytes(folder.filePath(QStringLiteral("Custom.dct"))), QByteArray("Buprenorphin\n"));
    open();
    type(QStringLiteral("Buprenorphin"));
    desk.expectBox(QStringLiteral("The spelling check is complete."), QStringLiteral("Spelling"));
    QTest::mouseClick(form->Command1, Qt::LeftButton);
}

TEST_F(MissedNoteLoad, WithoutADictionaryTheFormSaysSo) {
    const QString before = std::exchange(DictionaryFolder(), folder.path());
    open();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form->VSSpell1->Hint().isEmpty(); }));
    type(QStringLiteral("Ill"));
    EXPECT_EQ(shown(form->lblhint), QStringLiteral("Spelling is not checked, because no dictionary is installed."));
    DictionaryFolder() = before;
}
