// Signing on the page of a web signature service.

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "followup/signaturekey.h"
#include "platform/signature/signaturetext.h"
#include "platform/signature/sigplus.h"
#include "session/preferences.h"
#include "tests/followup/scriptedsurface.h"
#include "tests/followup/signaturefixture.h"
#include "tests/support/files.h"

namespace {

const QString Address = QStringLiteral("https://sign.test.example/start");
const QString Finished = QStringLiteral("https://sign.test.example/SvSign?done=1");
const QString NoSignature = QStringLiteral("No signature detected.");
const QString Loading = QStringLiteral("Signature surface loading...");
const QString Solvane = QStringLiteral("Solvane");

QString signatureText() {
    return WriteSignature({QSize(4800, 1600), {{{800, 480}, {1440, 800}, {2000, 300}}}}, SignaturePacking::Numbers, {});
}

class SigningOnTheWeb : public SignatureFixture {
  protected:
    SigningOnTheWeb() {
        SetPreference(Address, QStringLiteral("SignURL"), QStringLiteral("Notes"), QLatin1String(AllUsers));
        MakeWebSurface() = [this](QWidget* parent, QString*) { return page = new ScriptedSurface(parent); };
        open();
    }
    ~SigningOnTheWeb() override {
        form.reset();
        MakeWebSurface() = WebSurfacePluginMaker();
    }

    void open() {
        form = std::make_unique<frmesign>(request(SignatureWay::Web));
        form->show();
    }
    [[nodiscard]] QString waiting() const {
        return form->pnlwait->isVisible() ? form->pnlwait->text() : QStringLiteral("(page)");
    }
    [[nodiscard]] bool leavesNoFile() const {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).filter(QStringLiteral("my.sig")).isEmpty();
    }

    ScriptedSurface* page = nullptr;
    std::unique_ptr<frmesign> form;
};

}  // namespace

TEST_F(SigningOnTheWeb, LoadsThePageOfThePracticesService) {
    EXPECT_EQ(page->asked, QStringList{QStringLiteral("navigate ") + Address});
    EXPECT_EQ(waiting(), Loading);
    EXPECT_FALSE(form->cmdSign3->isEnabled());
    EXPECT_EQ(form->pnlname3->text(), QStringLiteral("Anna O'Reed"));
    EXPECT_EQ(form->pnldate3->text(), QStringLiteral("Mar 11, 2026"));
    EXPECT_EQ(form->lblmessage3->text(), request(SignatureWay::Web).Message);
    EXPECT_FALSE(form->pnlpassword->isVisible() || form->pnlpad->isVisible());
}

TEST_F(SigningOnTheWeb, AUsersOwnAddressIsNotAsked) {
    SetPreference(QStringLiteral("https://elsewhere.example"), QStringLiteral("SignURL"), QStringLiteral("Notes"));
    open();
    EXPECT_EQ(page->asked, QStringList{QStringLiteral("navigate ") + Address});
}

TEST_F(SigningOnTheWeb, ALoadedPageIsShownWithoutScrollBars) {
    page->load(Address);
    EXPECT_EQ(page->asked.last(), QStringLiteral("attribute scroll=no"));
    EXPECT_TRUE(form->webMain->isVisible());
    EXPECT_FALSE(form->pnlwait->isVisible());
    EXPECT_TRUE(form->cmdSign3->isEnabled());
}

TEST_F(SigningOnTheWeb, SignPressesThePagesOwnButtonAndClearRefreshesIt) {
    page->load(Address);
    form->cmdSign3->click();
    EXPECT_EQ(page->asked.last(), QStringLiteral("click Save Signature"));
    EXPECT_TRUE(form->isVisible());
    form->cmdClearPic->click();
    EXPECT_EQ(page->asked.last(), QStringLiteral("refresh"));
    EXPECT_EQ(waiting(), Loading);
    page->load(Address);
    EXPECT_TRUE(form->webMain->isVisible());
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningOnTheWeb, AFinishedPageSignsTheNote) {
    page->load(Address);
    page->load(Finished, signatureText());
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(stamped("SignatureName"), QStringLiteral("Anna O'Reed"));
    EXPECT_EQ(stamped("SignatureNameSuper"), QStringLiteral("Anna O'Reed"));
    EXPECT_EQ(stored("provider_id"), QStringLiteral("REED"));
    EXPECT_EQ(drawings(), 1);
    const auto kept = ReadSignature(stored("signature"), SealingKey(SignatureKey(note)));
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->PointCount(), 3);
    EXPECT_TRUE(leavesNoFile());
}

TEST_F(SigningOnTheWeb, ThePageMayBreakTheSignatureIntoLines) {
    QString text = signatureText();
    text.insert(20, QStringLiteral("\r\n")).append(QStringLiteral(" \n"));
    page->load(Finished, text);
    EXPECT_EQ(drawings(), 1);
}

TEST_F(SigningOnTheWeb, APageThatStillAsksNeitherSavesNorCloses) {
    for (const char* text : {"PLEASE sign here", "Please wait", "xpleasex"}) {
        page->load(Finished, QString::fromLatin1(text));
        EXPECT_TRUE(form->isVisible());
        EXPECT_TRUE(form->webMain->isVisible());
    }
    page->load(Finished, QStringLiteral("please ") + signatureText());
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningOnTheWeb, ASignatureAtAnotherAddressIsNotRead) {
    page->load(QStringLiteral("https://sign.test.example/other"), signatureText());
    EXPECT_FALSE(page->asked.contains(QStringLiteral("read")));
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningOnTheWeb, ASecondFinishedPageIsTakenAnew) {
    desk.expectBox(NoSignature, Solvane);
    page->load(Finished, QStringLiteral("not yet"));
    EXPECT_TRUE(leavesNoFile());
    EXPECT_TRUE(form->isVisible());
    page->load(Finished, signatureText());
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(drawings(), 1);
    EXPECT_TRUE(leavesNoFile());
}

TEST_F(SigningOnTheWeb, AFinishedPageWithoutASignatureIsToldAndCanBeBegunAgain) {
    for (const QString& text : {QString(), QStringLiteral("500 Internal Server Error"), QString(1000000, u'A'),
                                signatureText().chopped(1), signatureText() + signatureText()}) {
        desk.expectBox(NoSignature, Solvane);
        page->load(Finished, text);
        EXPECT_TRUE(form->isVisible());
        EXPECT_TRUE(form->SigPlus2->isVisible());
        EXPECT_TRUE(leavesNoFile());
        form->cmdClearPic->click();
        EXPECT_EQ(page->asked.last(), QStringLiteral("navigate ") + Address);
        EXPECT_EQ(waiting(), Loading);
    }
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningOnTheWeb, APageThatCannotBeLoadedIsToldInItsPlace) {
    page->fail(QStringLiteral("The service answered with error 500."));
    EXPECT_EQ(waiting(), QStringLiteral("The service answered with error 500. Choose Clear to try again."));
    EXPECT_FALSE(form->cmdSign3->isEnabled());
    form->cmdClearPic->click();
    EXPECT_EQ(page->asked.last(), QStringLiteral("refresh"));
    EXPECT_EQ(waiting(), Loading);
    page->load(Address);
    page->fail(QStringLiteral("The page has stopped working."));
    EXPECT_EQ(waiting(), QStringLiteral("The page has stopped working. Choose Clear to try again."));
    form->cmdCancel3->click();
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningOnTheWeb, APageThatHangsCanBeCancelled) {
    EXPECT_EQ(waiting(), Loading);
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningOnTheWeb, WhatAPageSaysAfterCancelIsNotHeard) {
    page->load(Finished);
    form->cmdCancel3->click();
    page->answer(signatureText());
    page->load(Finished, signatureText());
    EXPECT_EQ(form->result(), QDialog::Rejected);
    EXPECT_TRUE(nothingIsWritten());
    EXPECT_TRUE(leavesNoFile());
}

TEST_F(SigningOnTheWeb, APageThatFinishesTwiceSignsOnce) {
    page->load(Finished, signatureText());
    page->load(Finished, signatureText());
    EXPECT_EQ(drawings(), 1);
}

TEST_F(SigningOnTheWeb, WithoutABrowserThePanelSaysSo) {
    MakeWebSurface() = [](QWidget*, QString* why) -> WebSurface* {
        *why = QStringLiteral("The web signature is not installed on this computer.");
        return nullptr;
    };
    open();
    EXPECT_EQ(waiting(), QStringLiteral("The web signature is not installed on this computer."));
    EXPECT_FALSE(form->cmdSign3->isEnabled() || form->cmdClearPic->isEnabled());
    form->cmdCancel3->click();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(SigningOnTheWeb, WithoutAnAddressThePanelSaysSo) {
    database.connection().Execute(QStringLiteral("Delete From User_Preferences"));
    open();
    EXPECT_EQ(waiting(),
              QStringLiteral("The practice has set no address of a web signature service, or it could not be read."));
    EXPECT_FALSE(form->cmdSign3->isEnabled() || form->cmdClearPic->isEnabled());
    EXPECT_TRUE(page->asked.isEmpty());
}

TEST_F(SigningOnTheWeb, TheFileOfTheSignatureIsForItsOwnerAloneAndNotWrittenThroughALink) {
    const QString elsewhere = folder.filePath(QStringLiteral("precious.txt"));
    PutFile(elsewhere, "precious");
    ASSERT_TRUE(QFile::link(elsewhere, folder.filePath(QStringLiteral("my.sig"))));
    page->load(Finished, signatureText());
    EXPECT_EQ(FileBytes(elsewhere), "precious");
    EXPECT_EQ(drawings(), 1);
    EXPECT_TRUE(leavesNoFile());
}

TEST_F(SigningOnTheWeb, AFileThatCannotBeWrittenIsToldInThePanel) {
    SetUserStoreFile(QStringLiteral("/proc/nowhere/store.ini"));
    page->load(Finished, signatureText());
    EXPECT_TRUE(waiting().startsWith(QStringLiteral("The signature could not be taken from the page.")));
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningOnTheWeb, ALostDatabaseLeavesTheSignatureForAnotherTry) {
    desk.expectBox(QStringLiteral("GetSessionTS failed! ") + loseDatabase(), QStringLiteral("Error"));
    page->load(Finished, signatureText());
    EXPECT_TRUE(form->SigPlus2->isVisible());
    EXPECT_TRUE(form->cmdSign3->isEnabled());
    Session().Connection.Open(database.connectionText());
    form->cmdSign3->click();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(drawings(), 1);
}

TEST_F(SigningOnTheWeb, APageThatMovesOnLeavesASignatureThatWaitsForAnotherTryOnTheScreen) {
    for (int time = 1; time <= 2; ++time) {
        desk.expectBox(QStringLiteral("GetSessionTS failed! ") + loseDatabase(), QStringLiteral("Error"));
        page->load(Finished, signatureText());
        page->load(QStringLiteral("https://sign.test.example/thanks"), QStringLiteral("Thank you"));
        EXPECT_TRUE(form->SigPlus2->isVisible());
        page->load(Finished, QStringLiteral("Please sign here"));
        EXPECT_TRUE(form->SigPlus2->isVisible());
        page->fail(QStringLiteral("The page has stopped working."));
        EXPECT_TRUE(form->SigPlus2->isVisible());
        EXPECT_TRUE(form->cmdSign3->isEnabled());
        EXPECT_EQ(form->SigPlus2->PointCount(), 3);
        Session().Connection.Open(database.connectionText());
        form->cmdSign3->click();
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(drawings(), time);
        open();
    }
}

TEST_F(SigningOnTheWeb, ClearGivesAWaitingSignatureUpForThePage) {
    desk.expectBox(QStringLiteral("GetSessionTS failed! ") + loseDatabase(), QStringLiteral("Error"));
    page->load(Finished, signatureText());
    form->cmdClearPic->click();
    EXPECT_EQ(waiting(), Loading);
    page->fail(QStringLiteral("The service answered with error 500."));
    EXPECT_EQ(waiting(), QStringLiteral("The service answered with error 500. Choose Clear to try again."));
    form->cmdClearPic->click();
    page->load(Address);
    EXPECT_TRUE(form->webMain->isVisible());
    Session().Connection.Open(database.connectionText());
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningOnTheWeb, AnotherFinishedPageTakesThePlaceOfAWaitingSignature) {
    desk.expectBox(QStringLiteral("GetSessionTS failed! ") + loseDatabase(), QStringLiteral("Error"));
    page->load(Finished, signatureText());
    Session().Connection.Open(database.connectionText());
    page->load(Finished, signatureText());
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(drawings(), 1);
}

TEST_F(SigningOnTheWeb, ForAnotherFormThePageIsShownAndNothingStored) {
    SignatureRequest asked = request(SignatureWay::Web);
    asked.CallerName = QStringLiteral("frmother");
    form = std::make_unique<frmesign>(asked);
    form->show();
    page->load(Finished, signatureText());
    EXPECT_TRUE(form->SigPlus2->isVisible());
    EXPECT_EQ(form->SigPlus2->PointCount(), 3);
    EXPECT_TRUE(nothingIsWritten());
}
