// Signing on the pad.

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "followup/signaturekey.h"
#include "platform/controls/textfield.h"
#include "platform/signature/sigplus.h"
#include "platform/signature/strokes.h"
#include "tests/followup/signaturefixture.h"

namespace {

const QString NoSignature = QStringLiteral("No signature detected.");
const QString Solvane = QStringLiteral("Solvane");

class SigningOnThePad : public SignatureFixture {
  protected:
    SigningOnThePad() { open(request(SignatureWay::Pad)); }

    void open(const SignatureRequest& asked) {
        form = std::make_unique<frmesign>(asked);
        form->show();
    }
    void draw() {
        QTest::mousePress(form->SigPlus1, Qt::LeftButton, {}, {30, 30});
        QTest::mouseMove(form->SigPlus1, {60, 50});
        QTest::mouseRelease(form->SigPlus1, Qt::LeftButton, {}, {90, 30});
    }
    void sign() { form->cmdsign2->click(); }
    /// The points of a stored text, as the note shows it.
    static int pointsOf(const QString& text, const QString& key) {
        SigPlus pad;
        pad.StartKey();
        pad.SetKeyText(key);
        pad.FinishKey();
        pad.SetEncryptionMode(2);
        pad.SetCompressionMode(1);
        pad.SetSignatureText(text);
        return pad.PointCount();
    }

    std::unique_ptr<frmesign> form;
};

}  // namespace

TEST_F(SigningOnThePad, ShowsWhoSignsWhenAndWhatIsConfirmed) {
    EXPECT_EQ(form->pnlSigName->text(), QStringLiteral("Anna O'Reed"));
    EXPECT_EQ(form->lblDateSigned->text(), QStringLiteral("Mar 11, 2026"));
    EXPECT_EQ(form->lblmessage2->text(), request(SignatureWay::Pad).Message);
    EXPECT_TRUE(form->pnlpad->isVisible());
    EXPECT_FALSE(form->pnlpassword->isVisible() || form->pnlweb->isVisible());
}

TEST_F(SigningOnThePad, StampsTheNoteAndStoresTheSignature) {
    draw();
    sign();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(stamped("SignatureName"), QStringLiteral("Anna O'Reed"));
    EXPECT_EQ(stamped("SignatureNameSuper"), QStringLiteral("Anna O'Reed"));
    EXPECT_TRUE(isStamped());
    EXPECT_EQ(stored("session_id"), QString::number(note));
    EXPECT_EQ(stored("signature_type"), QStringLiteral("1"));
    EXPECT_EQ(stored("signature_role"), QStringLiteral("Note Author"));
    EXPECT_EQ(stored("signature_name"), QStringLiteral("Anna O'Reed"));
    EXPECT_EQ(stored("signature_order"), QStringLiteral("1"));
    EXPECT_EQ(stored("provider_id"), QStringLiteral("REED"));
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from SessionSignatures Where DateDiff(minute, "
                                             "signature_date, GetDate()) Between 0 And 1")),
              1);
    EXPECT_EQ(drawings(), 1);
    EXPECT_TRUE(desk.sounds.isEmpty());
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(SigningOnThePad, TheStoredSignatureOpensUntilTheNoteIsChanged) {
    draw();
    const int points = form->SigPlus1->PointCount();
    sign();
    const QString text = stored("signature");
    EXPECT_EQ(pointsOf(text, SignatureKey(note)), points);
    change(QStringLiteral("2026/03/11 09:06"));
    EXPECT_EQ(pointsOf(text, SignatureKey(note)), 0);
    change(QStringLiteral("2026/03/11 21:05"));
    EXPECT_EQ(pointsOf(text, SignatureKey(note)), 0);
}

TEST_F(SigningOnThePad, TheSignatureOfANoteOfAnotherTimeDoesNotOpenHere) {
    const int other = addNote(QStringLiteral("'2026/03/11 10:00'"));
    draw();
    sign();
    EXPECT_EQ(pointsOf(stored("signature"), SignatureKey(other)), 0);
}

TEST_F(SigningOnThePad, AStoredTextThatWasCutOrChangedShowsNothing) {
    draw();
    sign();
    const QString key = SignatureKey(note);
    for (const char* change : {"Left(signature, Len(signature) - 1)", "''", "signature + 'A'",
                               "Replace(signature, 'SVSIG1.2.1.', 'SVSIG1.2.0.')",
                               "Left(signature, 20) + 'AAAA' + SubString(signature, 25, 8000)"}) {
        const QString text =
            database.text(db::Sql("Select {} from SessionSignatures", db::Raw{QString::fromLatin1(change)}));
        EXPECT_EQ(pointsOf(text, key), 0) << change;
    }
    EXPECT_GT(pointsOf(stored("signature"), key), 0);
}

TEST_F(SigningOnThePad, ALongSignatureIsStoredWhole) {
    QTest::mousePress(form->SigPlus1, Qt::LeftButton, {}, {30, 30});
    for (int i = 0; i < 6000; ++i) {
        QMouseEvent move(QEvent::MouseMove, QPointF(30 + i * 37 % 200, 20 + i * 53 % 70), QPointF(), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(form->SigPlus1, &move);
    }
    QTest::mouseRelease(form->SigPlus1, Qt::LeftButton, {}, {90, 30});
    const int points = form->SigPlus1->PointCount();
    EXPECT_GT(points, 5000);
    sign();
    EXPECT_EQ(pointsOf(stored("signature"), SignatureKey(note)), points);
}

TEST_F(SigningOnThePad, AnEmptyPadIsTold) {
    desk.expectBox(NoSignature, Solvane);
    sign();
    EXPECT_TRUE(form->isVisible());
    draw();
    form->cmdClear->click();
    desk.expectBox(NoSignature, Solvane);
    sign();
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningOnThePad, AFingerAndAPenSignToo) {
    QPointingDevice* screen = QTest::createTouchDevice();
    QTest::touchEvent(form->SigPlus1, screen).press(1, {30, 30}, form->SigPlus1);
    QTest::touchEvent(form->SigPlus1, screen).release(1, {60, 40}, form->SigPlus1);
    const int points = form->SigPlus1->PointCount();
    EXPECT_EQ(points, 2);
    const QPointingDevice pen(QStringLiteral("pen"), 1, QInputDevice::DeviceType::Stylus,
                              QPointingDevice::PointerType::Pen, QInputDevice::Capability::Pressure, 1, 2);
    for (const auto type : {QEvent::TabletPress, QEvent::TabletRelease}) {
        QTabletEvent event(type, &pen, QPointF(90, 30), QPointF(), 0.5, 0, 0, 0, 0, 0, {}, Qt::LeftButton, {});
        QApplication::sendEvent(form->SigPlus1, &event);
    }
    sign();
    EXPECT_EQ(pointsOf(stored("signature"), SignatureKey(note)), points + 1);
}

TEST_F(SigningOnThePad, ThePinIsAskedForButNotTested) {
    EXPECT_TRUE(form->picPin->isVisible());
    EXPECT_EQ(form->picPin->findChild<QLabel*>()->text().remove(u'&'), QStringLiteral("Enter PIN to Sign:"));
    EXPECT_TRUE(form->txtpin->toolTip().startsWith(QStringLiteral("The PIN is not checked.")));
    EXPECT_EQ(form->txtpin->accessibleDescription(), form->txtpin->toolTip());
    QTest::keyClicks(form->txtpin, QStringLiteral("0000'"));
    draw();
    sign();
    EXPECT_TRUE(isStamped());
}

TEST_F(SigningOnThePad, CancellingWritesNothing) {
    draw();
    form->cmdcancel2->click();
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningOnThePad, CancellingLeavesANoteThatWasNeverChangedAsItIs) {
    note = addNote(QStringLiteral("Null"));
    open(request(SignatureWay::Pad));
    draw();
    form->reject();
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from sessions Where ModifiedDate Is Null")), 1);
}

TEST_F(SigningOnThePad, ANoteThatWasNeverChangedCanBeSigned) {
    note = addNote(QStringLiteral("Null"));
    open(request(SignatureWay::Pad));
    draw();
    sign();
    EXPECT_GT(pointsOf(stored("signature"), SignatureKey(note)), 0);
}

TEST_F(SigningOnThePad, AFailureLeavesNeitherStampNorSignatureAndIsToldInTheBar) {
    for (const auto& [operation, table] : {std::pair("Insert", "SessionSignatures"), std::pair("Update", "sessions")}) {
        open(request(SignatureWay::Pad));
        draw();
        const QString why = database.refuse(QString::fromLatin1(operation), QString::fromLatin1(table));
        sign();
        EXPECT_FALSE(form->isVisible());
        EXPECT_TRUE(nothingIsWritten()) << table;
        EXPECT_EQ(bar.Texts(), QStringList{QStringLiteral("The note is not signed. ") + why});
        EXPECT_TRUE(noTransactionIsOpen());
        database.allow(QString::fromLatin1(operation), QString::fromLatin1(table));
    }
}

TEST_F(SigningOnThePad, ALostDatabaseLeavesTheSignatureOnThePadForAnotherTry) {
    draw();
    const int points = form->SigPlus1->PointCount();
    desk.expectBox(QStringLiteral("GetSessionTS failed! ") + loseDatabase(), QStringLiteral("Error"));
    sign();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->SigPlus1->PointCount(), points);
    Session().Connection.Open(database.connectionText());
    sign();
    EXPECT_EQ(drawings(), 1);
}

TEST_F(SigningOnThePad, ANoteThatAnotherDeskDeletedIsToldAndNotSigned) {
    draw();
    removeNote();
    desk.expectBox(QStringLiteral("GetSessionTS failed!"), Solvane);
    sign();
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningOnThePad, ForAnotherFormNothingIsStored) {
    SignatureRequest asked = request(SignatureWay::Pad);
    asked.CallerName.clear();
    open(asked);
    draw();
    sign();
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(nothingIsWritten());
}
