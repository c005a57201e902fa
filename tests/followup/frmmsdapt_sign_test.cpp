#include <functional>
#include <QApplication>
#include <QDateTime>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "followup/frmesign.h"
#include "followup/signaturekey.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/notefield.h"
#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"
#include "platform/signature/sigplus.h"
#include "session/session.h"
#include "tests/followup/missednotefixture.h"

using db::Sql;

namespace {

const QString Solvane = QStringLiteral("Solvane");
const QString Invalid = QStringLiteral("Signature is invalid! Cause: Note modified.");
const QString Line = QStringLiteral("Electronically signed by Anna Reed on Mar 11, 2026 03:06 pm");
const QString Deleted = QStringLiteral("Another user has deleted this note.");
const QString Nothing = QStringLiteral("-");

class MissedNoteSign : public MissedNoteFixture {
  protected:
    /// The next dialog is that of the signature; `act` plays the user on it.
    void expectSigning(const std::function<void(frmesign&)>& act) {
        desk.expectForm("frmesign", [act](QDialog& dialog) { act(dynamic_cast<frmesign&>(dialog)); });
    }
    void expectCancelledSigning() {
        expectSigning([](frmesign& dialog) { dialog.reject(); });
    }
    static void typePassword(frmesign& dialog) {
        QTest::keyClicks(dialog.txtuserid, QStringLiteral("reed"));
        QTest::keyClicks(dialog.txtpw, QStringLiteral("secret"));
        QTest::mouseClick(dialog.cmdSign, Qt::LeftButton);
    }
    static void draw(frmesign& dialog) {
        SigPlus* pad = dialog.SigPlus1;
        QTest::mousePress(pad, Qt::LeftButton, {}, {20, 20});
        QTest::mouseMove(pad, {80, 50});
        QTest::mouseRelease(pad, Qt::LeftButton, {}, {140, 30});
        QTest::mouseClick(dialog.cmdsign2, Qt::LeftButton);
    }
    void click(SignatureWay way) { QTest::mouseClick(form->btnsign[static_cast<std::size_t>(way)], Qt::LeftButton); }
    /// The note is unsigned in both tables, and can be signed again.
    void expectTakenAway() {
        EXPECT_EQ(shown(form->lblsignstatus), Invalid);
        EXPECT_TRUE(maySign());
        for (const char* column :
             {"SignatureDate", "SignatureName", "SignatureDateSuper", "SignatureNameSuper", "Signature"})
            EXPECT_EQ(newest(column, "sessions"), QString()) << column;
        EXPECT_EQ(rowCount("SessionSignatures"), 0);
    }
};

}  // namespace

// What is shown of a signature.

TEST_F(MissedNoteSign, AnUnsignedNoteCanBeSigned) {
    addNote();
    open();
    EXPECT_TRUE(maySign());
    EXPECT_EQ(shown(form->pnlSig), Nothing);
    EXPECT_EQ(shown(form->lblsignstatus), Nothing);
}

TEST_F(MissedNoteSign, ASignatureByPasswordIsALineAndNothingToSignAgain) {
    stamp(addNote());
    open();
    EXPECT_EQ(shown(form->pnlSig), Line);
    EXPECT_FALSE(form->SigPlus1->isVisible());
    EXPECT_EQ(shown(form->lblsignstatus), Nothing);
    EXPECT_FALSE(maySign());
}

TEST_F(MissedNoteSign, ASignatureByPasswordOutlivesAChange) {
    stamp(addNote());
    open();
    type(QStringLiteral("Ill"));
    ok();
    open();
    EXPECT_EQ(shown(form->pnlSig), Line);
    EXPECT_FALSE(maySign());
}

TEST_F(MissedNoteSign, ADrawnSignatureIsShownWithItsLine) {
    signOnPad(addNote());
    open();
    EXPECT_TRUE(form->SigPlus1->isVisible());
    EXPECT_TRUE(form->SigPlus1->IsReadOnly());
    EXPECT_GT(form->SigPlus1->PointCount(), 0);
    EXPECT_EQ(form->SigPlus1->size(), form->pnlSig->contentsRect().size());
    EXPECT_EQ(shown(form->lblsignstatus), Line);
    EXPECT_FALSE(maySign());
}

TEST_F(MissedNoteSign, OkOnASignedNoteKeepsItsSignature) {
    signOnPad(addNote());
    open();
    ok();
    EXPECT_FALSE(isOpen());
    open();
    EXPECT_EQ(shown(form->lblsignstatus), Line);
    EXPECT_EQ(rowCount("SessionSignatures"), 1);
}

TEST_F(MissedNoteSign, AChangeOfAnySortTakesADrawnSignatureAway) {
    const std::function<void()> changes[] = {[this] { type(QStringLiteral("Ill")); },
                                             [this] { form->ctdate->setDate(QDate(2026, 3, 9)); },
                                             [this] { form->cboprovider->SetText(QStringLiteral("O'Brien")); },
                                             [this] { form->txtreason->appendPlainText(QString()); }};
    for (const std::function<void()>& change : changes) {
        run(QStringLiteral("Delete from sessions"));
        run(QStringLiteral("Delete from MissedAppt"));
        const int note = addNote();
        // Signed within this very minute, which the key alone could not tell from the minute of the change.
        run(QStringLiteral("Update sessions Set ModifiedDate = GetDate()"));
        signOnPad(note);
        open();
        change();
        ok();
        EXPECT_EQ(rowCount("SessionSignatures"), 1);
        open();
        expectTakenAway();
        open();
        EXPECT_EQ(shown(form->lblsignstatus), Nothing);
    }
}

TEST_F(MissedNoteSign, ATextThatIsNoSignatureOfThisNoteIsTakenAway) {
    const int note = addNote();
    const QString drawn = strokeUnder(SignatureKey(note));
    QString altered = drawn;
    altered[altered.size() / 2] = altered[altered.size() / 2] == QLatin1Char('A') ? QLatin1Char('B') : QLatin1Char('A');
    const QString texts[] = {drawn.left(drawn.size() / 2),
                             drawn.mid(1),
                             altered,
                             drawn + QLatin1Char('A'),
                             drawn + drawn,
                             strokeUnder(QStringLiteral("2026/03/11 03:04 pm")),
                             QStringLiteral(" "),
                             QStringLiteral("no signature; | ''at'' all \U0001F600"),
                             QStringLiteral("0").repeated(300000)};
    for (const QString& text : texts) {
        stamp(note);
        storeSignature(note, text);
        open();
        expectTakenAway();
    }
}

TEST_F(MissedNoteSign, TheNewestSignatureCountsAndNotTheColumnOfTheSession) {
    const int note = addNote();
    storeSignature(note, QStringLiteral("an old one"), QStringLiteral("2026/03/11 14:00"));
    signOnPad(note);
    storeSignature(note, QStringLiteral("an older one"), QStringLiteral("2026/03/11 13:00"));
    storeSignature(note, QStringLiteral("of no time"), QStringLiteral("1900/01/01"));
    run(QStringLiteral("Update SessionSignatures Set signature_date = null Where signature_date < '2000/01/01'"));
    run(QStringLiteral("Update sessions Set Signature = 'elsewhere'"));
    open();
    EXPECT_EQ(shown(form->lblsignstatus), Line);
    EXPECT_EQ(rowCount("SessionSignatures"), 4);
    run(QStringLiteral("Delete from SessionSignatures"));
    open();
    EXPECT_EQ(shown(form->pnlSig), Line) << "The column of the session makes no drawn signature.";
    EXPECT_EQ(shown(form->lblsignstatus), Nothing);
}

TEST_F(MissedNoteSign, OfTwoSignaturesOfTheSameMomentTheOneThatWasAddedLastCounts) {
    const int note = addNote();
    storeSignature(note, QStringLiteral("of another key"));
    signOnPad(note);
    open();
    EXPECT_EQ(shown(form->lblsignstatus), Line);
    storeSignature(note, QStringLiteral("of another key"));
    open();
    expectTakenAway();
}

TEST_F(MissedNoteSign, ANewestSignatureThatDoesNotFitVoidsTheOthersToo) {
    const int note = addNote();
    signOnPad(note);
    storeSignature(note, QStringLiteral("torn"), QStringLiteral("2026/03/11 16:00"));
    open();
    expectTakenAway();
}

TEST_F(MissedNoteSign, AnEmptyTextIsASignatureByPassword) {
    const int note = addNote();
    stamp(note);
    storeSignature(note, QString());
    open();
    EXPECT_EQ(shown(form->pnlSig), Line);
    EXPECT_EQ(rowCount("SessionSignatures"), 1);
}

TEST_F(MissedNoteSign, ASignatureIsTakenAwayInBothTablesOrInNone) {
    const std::pair<const char*, const char*> steps[] = {{"Update", "sessions"}, {"Delete", "SessionSignatures"}};
    for (const auto& [operation, table] : steps) {
        run(QStringLiteral("Delete from sessions"));
        run(QStringLiteral("Delete from SessionSignatures"));
        const int note = addNote();
        stamp(note);
        storeSignature(note, QStringLiteral("torn"));
        const QString why = database.refuse(QString::fromLatin1(operation), QString::fromLatin1(table));
        open();
        EXPECT_EQ(shown(form->lblsignstatus), Invalid) << table;
        EXPECT_FALSE(maySign()) << table;
        EXPECT_EQ(bar->Texts().value(0), QStringLiteral("The invalid signature could not be taken away. ") + why);
        EXPECT_EQ(newest("SignatureName", "sessions"), QStringLiteral("Anna Reed")) << table;
        EXPECT_EQ(rowCount("SessionSignatures"), 1) << table;
        database.allow(QString::fromLatin1(operation), QString::fromLatin1(table));
        open();
        expectTakenAway();
    }
}

TEST_F(MissedNoteSign, ASignatureThatCannotBeCheckedIsNeitherShownNorTakenAway) {
    const int note = addNote();
    signOnPad(note);
    run(QStringLiteral("Update sessions Set ModifiedDate = null"));
    const QString why = database.refuse(QStringLiteral("Update"), QStringLiteral("sessions"));
    desk.expectBox(QStringLiteral("GetSessionTS failed! ") + why, QStringLiteral("Error"));
    open();
    EXPECT_EQ(shown(form->lblsignstatus), QStringLiteral("The signature could not be checked."));
    EXPECT_EQ(shown(form->pnlSig), Nothing);
    EXPECT_FALSE(maySign());
    EXPECT_EQ(rowCount("SessionSignatures"), 1);
    EXPECT_EQ(newest("SignatureName", "sessions"), QStringLiteral("Anna Reed"));
}

TEST_F(MissedNoteSign, ASignatureOfAReadOnlyNoteIsJudgedButNotRepeated) {
    const int note = addNote();
    stamp(note);
    storeSignature(note, QStringLiteral("torn"));
    request.ReadOnly = true;
    open();
    EXPECT_EQ(shown(form->lblsignstatus), Invalid);
    EXPECT_FALSE(maySign());
}

// Signing.

TEST_F(MissedNoteSign, SigningAsksForTheDateThenTheNoteThenTheProvider) {
    open();
    form->ctdate->setText(QStringLiteral("soon"));
    form->cboprovider->SetListIndex(-1);
    for (const SignatureWay way : {SignatureWay::Password, SignatureWay::Pad, SignatureWay::Web}) {
        desk.expectBox(QStringLiteral("Enter a valid date."), Solvane);
        click(way);
        EXPECT_TRUE(form->ctdate->hasFocus());
    }
    form->ctdate->setDate(day);
    desk.expectBox(QStringLiteral("Enter a note."), Solvane);
    click(SignatureWay::Password);
    EXPECT_TRUE(form->txtreason->hasFocus());
    type(QStringLiteral("Ill"));
    desk.expectBox(QStringLiteral("Enter who appointment was with."), QStringLiteral("Provider"));
    click(SignatureWay::Password);
    EXPECT_TRUE(form->cboprovider->hasFocus());
    EXPECT_EQ(rowCount("sessions"), 0);
}

TEST_F(MissedNoteSign, ANewNoteIsSavedFirstAndThenSigned) {
    open();
    type(QStringLiteral("Ill"));
    expectSigning([this](frmesign& dialog) {
        EXPECT_EQ(rowCount("sessions"), 1) << "It is saved by now.";
        EXPECT_EQ(dialog.lblusername->text(), QStringLiteral("REED"));
        EXPECT_EQ(
            dialog.lblmessage1->text(),
            QStringLiteral(
                "By clicking SIGN, you hereby confirm that you have reviewed and verified the contents of the data entered in this document on Mar 11, 2026 3:05 pm"));
        typePassword(dialog);
    });
    click(SignatureWay::Password);
    EXPECT_TRUE(form->NoteSaved());
    EXPECT_FALSE(form->IsChanged());
    EXPECT_EQ(newest("SignatureName", "sessions"), QStringLiteral("Anna Reed"));
    EXPECT_EQ(number(QStringLiteral("Select NoteID from appointments")), form->NoteId());
    EXPECT_TRUE(shown(form->pnlSig).startsWith(QStringLiteral("Electronically signed by Anna Reed on ")));
    EXPECT_FALSE(maySign());
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(
        auditLines(),
        QStringList{QStringLiteral("Add: Added new Missed Appointment Note of 03/11/2026 for patient, Jones, Mary")});
    ok();
    EXPECT_EQ(rowCount("sessions"), 1);
}

TEST_F(MissedNoteSign, AChangedNoteIsSavedBeforeItIsSignedOnThePad) {
    const int note = addNote();
    open();
    type(QStringLiteral("Ill"));
    expectSigning([](frmesign& dialog) { draw(dialog); });
    click(SignatureWay::Pad);
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Ill"));
    EXPECT_TRUE(form->SigPlus1->isVisible());
    EXPECT_TRUE(shown(form->lblsignstatus).startsWith(QStringLiteral("Electronically signed by Anna Reed on ")));
    EXPECT_FALSE(maySign());
    const QString key = SignatureKey(note);
    ok();
    EXPECT_EQ(SignatureKey(note), key) << "OK has nothing to save any more.";
    open();
    EXPECT_GT(form->SigPlus1->PointCount(), 0);
}

TEST_F(MissedNoteSign, ANewNoteSignedOnThePadKeepsItsSignature) {
    open();
    type(QStringLiteral("Ill"));
    expectSigning([](frmesign& dialog) { draw(dialog); });
    click(SignatureWay::Pad);
    ok();
    request.NoteId = form->NoteId();
    open();
    EXPECT_GT(form->SigPlus1->PointCount(), 0);
    EXPECT_FALSE(maySign());
}

TEST_F(MissedNoteSign, ASignatureFindsItsPlaceInTheOpenForm) {
    open();
    type(QStringLiteral("Ill"));
    const QSize before = form->size();
    expectSigning([](frmesign& dialog) { draw(dialog); });
    click(SignatureWay::Pad);
    QApplication::processEvents();
    EXPECT_EQ(form->size(), before);
    for (const QWidget* seen : {static_cast<QWidget*>(form->SigPlus1), static_cast<QWidget*>(form->lblsignstatus),
                                static_cast<QWidget*>(form->btnsign[2])})
        EXPECT_EQ(seen->visibleRegion().boundingRect(), seen->rect()) << seen->objectName().toStdString();
}

TEST_F(MissedNoteSign, ACancelledSigningLeavesASavedNote) {
    open();
    type(QStringLiteral("Ill"));
    expectCancelledSigning();
    click(SignatureWay::Pad);
    EXPECT_TRUE(maySign());
    EXPECT_EQ(shown(form->lblsignstatus), Nothing);
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
    EXPECT_TRUE(form->NoteSaved()) << "The view shows the icon of the note that was saved.";
    EXPECT_EQ(rowCount("MissedAppt"), 1);
}

TEST_F(MissedNoteSign, TheChosenProviderSignsAndNotTheCurrentOne) {
    addNote();
    open();
    form->cboprovider->SetText(QStringLiteral("O'Brien"));
    expectSigning([](frmesign& dialog) {
        EXPECT_EQ(dialog.pnlSigName->text(), QStringLiteral("O'Brien")) << "They have no first name.";
        dialog.reject();
    });
    click(SignatureWay::Pad);
}

TEST_F(MissedNoteSign, AProviderWithoutAFullNameSignsByTheLastName) {
    run(QStringLiteral("Insert Into provider_info (id, prov_lastname) Values ('OBRIEN2', 'O''Brien')"));
    for (const char* id : {"OBRIEN", "STONE"}) {
        run(QStringLiteral("Delete from sessions"));
        addNote();
        run(Sql("Update sessions Set providerid = '{}'", QString::fromLatin1(id)));
        open();
        expectSigning([id](frmesign& dialog) {
            EXPECT_EQ(dialog.pnlSigName->text(), *id == 'O' ? QStringLiteral("O'Brien") : QStringLiteral("Stone"));
            dialog.reject();
        });
        click(SignatureWay::Pad);
        run(QStringLiteral("Delete from MissedAppt"));
    }
}

TEST_F(MissedNoteSign, ANoteWithoutAProviderGetsTheOneWhoSigns) {
    addNote();
    run(QStringLiteral("Update sessions Set providerid = null"));
    open();
    expectSigning(typePassword);
    click(SignatureWay::Password);
    EXPECT_EQ(newest("providerid", "sessions"), QStringLiteral("REED"));
    EXPECT_FALSE(maySign());
    EXPECT_FALSE(form->IsChanged());
}

TEST_F(MissedNoteSign, ANoteThatCannotBeSavedIsNotSigned) {
    addNote();
    open();
    type(QStringLiteral("Ill"));
    const QString why = database.refuse(QStringLiteral("Update"), QStringLiteral("MissedAppt"));
    desk.expectBox(QStringLiteral("Error saving note. ") + why, QStringLiteral("Error Saving"));
    click(SignatureWay::Password);
    EXPECT_EQ(form->txtreason->toPlainText(), QStringLiteral("Ill"));
    EXPECT_TRUE(form->IsChanged());
    EXPECT_EQ(newest("SignatureDate", "sessions"), QString());
}

TEST_F(MissedNoteSign, AProviderWhoCannotBeReadIsTold) {
    addNote();
    open();
    DropTable(database.connection(), QStringLiteral("passwords"));
    desk.expectBox(QStringLiteral("Error reading provider. ") +
                       FailureOf(Session().Connection, QStringLiteral("select pswd_user_id from passwords")),
                   QStringLiteral("Error"));
    click(SignatureWay::Password);
    EXPECT_TRUE(maySign());
}

// Another desk.

TEST_F(MissedNoteSign, ANoteThatAnotherUserDeletedIsNotSigned) {
    addNote();
    open();
    run(QStringLiteral("Delete from MissedAppt"));
    desk.expectBox(Deleted, QStringLiteral("Note Deleted"));
    desk.expectBox(QStringLiteral("Do you want to save it as a new note?"), QStringLiteral("Note Deleted"), Answer::No);
    click(SignatureWay::Password);
    EXPECT_TRUE(isOpen());
}

TEST_F(MissedNoteSign, ANoteThatIsDeletedWhileItIsSignedIsTold) {
    addNote();
    open();
    expectSigning([this](frmesign& dialog) {
        run(QStringLiteral("Delete from sessions"));
        run(QStringLiteral("Delete from MissedAppt"));
        typePassword(dialog);
    });
    desk.expectBox(Deleted, Solvane);
    click(SignatureWay::Password);
    EXPECT_TRUE(isOpen());
}

TEST_F(MissedNoteSign, WhatAnotherUserChangedIsReadBeforeItIsSigned) {
    addNote();
    open();
    run(QStringLiteral("Update MissedAppt Set reason = 'On holiday'"));
    desk.expectBox(QStringLiteral("Another user has changed this note. Read it again before you sign it."), Solvane);
    click(SignatureWay::Password);
    EXPECT_EQ(form->txtreason->toPlainText(), QStringLiteral("On holiday"));
    EXPECT_FALSE(form->IsChanged());
    expectSigning(typePassword);
    click(SignatureWay::Password);
    EXPECT_FALSE(maySign());
}

TEST_F(MissedNoteSign, AChangeWhileTheNoteIsBeingSignedVoidsTheSignature) {
    const std::pair<SignatureWay, void (*)(frmesign&)> ways[] = {{SignatureWay::Password, typePassword},
                                                                 {SignatureWay::Pad, draw}};
    for (const auto& [way, sign] : ways) {
        addNote();
        open();
        expectSigning([this, sign = sign](frmesign& dialog) {
            run(QStringLiteral("Update MissedAppt Set reason = 'On holiday'"));
            run(QStringLiteral("Update sessions Set ModifiedDate = '2026/03/11 16:00'"));
            sign(dialog);
        });
        click(way);
        EXPECT_EQ(form->txtreason->toPlainText(), QStringLiteral("On holiday"));
        expectTakenAway();
        run(QStringLiteral("Delete from sessions"));
    }
}

TEST_F(MissedNoteSign, AnotherUsersSignatureThatCameMeanwhileIsNotTakenAway) {
    const int note = addNote();
    const QString theirs = signOnPad(note);
    StoredSignature judged{QDateTime(day, QTime(15, 6), Qt::UTC), QStringLiteral("Anna Reed"), QStringLiteral("torn")};
    EXPECT_EQ(TakeSignatureAway(note, judged).end, WriteOutcome::End::Failed);
    EXPECT_EQ(rowCount("SessionSignatures"), 1);
    judged.drawn = theirs;
    EXPECT_TRUE(TakeSignatureAway(note, judged).IsDone());
    EXPECT_EQ(rowCount("SessionSignatures"), 0);
}

TEST_F(MissedNoteSign, AnotherUsersSignatureStaysWhereThisUserDoesNotSign) {
    const int note = addNote();
    open();
    expectSigning([this, note](frmesign& dialog) {
        run(QStringLiteral("Update MissedAppt Set reason = 'On holiday'"));
        run(QStringLiteral("Update sessions Set ModifiedDate = '2026/03/11 16:00'"));
        stamp(note);
        dialog.reject();
    });
    click(SignatureWay::Password);
    EXPECT_EQ(form->txtreason->toPlainText(), QStringLiteral("On holiday"));
    EXPECT_FALSE(maySign());
    EXPECT_NE(text(QStringLiteral("Select SignatureName from sessions")), QString());
}

TEST_F(MissedNoteSign, ANoteThatAnotherUserHasSignedIsNotSignedOver) {
    const int note = addNote();
    open();
    stamp(note);
    const QString theirs = text(QStringLiteral("Select SignatureName from sessions"));
    desk.expectBox(QStringLiteral("Another user has signed this note."), QStringLiteral("Solvane"));
    click(SignatureWay::Password);
    EXPECT_EQ(text(QStringLiteral("Select SignatureName from sessions")), theirs);
    EXPECT_FALSE(maySign());
}

TEST_F(MissedNoteSign, ADrawingThatTheSaveTearsIsGoneBeforeTheNewSignatureComes) {
    const int note = addNote();
    open();
    signOnPad(note);
    type(QStringLiteral("Ill"));
    expectSigning([this](frmesign& dialog) {
        EXPECT_EQ(rowCount("SessionSignatures"), 0);
        typePassword(dialog);
    });
    click(SignatureWay::Password);
    EXPECT_NE(text(QStringLiteral("Select SignatureName from sessions")), QString());
    EXPECT_FALSE(maySign());
}
