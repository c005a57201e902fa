#include <unistd.h>
#include <QFileInfo>
#include <QThread>

#include "tests/desks/desknotes.h"
#include "tests/platform/websign/signaturepages.h"
#include "tests/platform/websign/signatureservice.h"

namespace {

const QString NoSignature = QStringLiteral("No signature detected.");

/// A signature service that answers while the test waits for something else.
class RunningService {
  public:
    RunningService() {
        worker_.moveToThread(&thread_);
        thread_.start();
        inService([this] {
            service_ = std::make_unique<SignatureService>();
            service_->page(QStringLiteral("/sign"), SigningPage);
            service_->page(QStringLiteral("/svsign"), SignedPage);
        });
    }
    ~RunningService() {
        inService([this] { service_.reset(); });
        thread_.quit();
        thread_.wait();
    }
    RunningService(const RunningService&) = delete;
    RunningService& operator=(const RunningService&) = delete;

    QString address() {
        QString address;
        inService([&] { address = service_->address(QStringLiteral("/sign")); });
        return address;
    }
    /// How often this path was asked for.
    qsizetype times(const char* path) {
        qsizetype times = 0;
        inService([&] { times = service_->asked().count(QLatin1String(path)); });
        return times;
    }

  private:
    void inService(const std::function<void()>& step) {
        QMetaObject::invokeMethod(&worker_, step, Qt::BlockingQueuedConnection);
    }

    QThread thread_;
    QObject worker_;
    std::unique_ptr<SignatureService> service_;
};

/// Notes that Reed signs on the page of the practice's signature service.
class WebSignatures : public NoteDesk {
  protected:
    static void SetUpTestSuite() {
        // The browser's sandbox does not work for root, as whom tests often run.
        if (geteuid() == 0)
            qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    }
    void SetUp() override {
        if (!QFileInfo::exists(QFileInfo(QStringLiteral(SVS_PROGRAM)).path() + QStringLiteral("/plugins/websign.so")))
            GTEST_SKIP() << "The web signature is not built: qt6-webengine-dev is not installed, or sanitizers are on.";
        connection.Execute(db::Sql(
            "Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value) Values ('![ALL]!', 'Notes', 'SignURL', '{}')",
            service.address()));
    }

    /// Opens the page from the note, and waits until it is there.
    void openPage() {
        person->press({QStringLiteral("alt+b")});
        person->turnTo("frmesign");
        desk->awaitShown("webMain");
    }
    /// Draws on the page until it has noticed: the browser takes the pointer only once it has painted the page.
    void draw() {
        const QStringList middle = desk->tell("widgetPlace", QStringLiteral("webMain")).split(u' ');
        const auto beside = [&](int right, int down) {
            return QStringLiteral("%1 %2").arg(middle[0].toInt() + right).arg(middle[1].toInt() + down);
        };
        const qsizetype before = service.times("/drawn");
        for (int tries = 0; tries < 50; ++tries) {
            person->drag(beside(-150, -20), beside(-100, -50));
            if (soon([&] { return service.times("/drawn") > before; }))
                return;
        }
        ADD_FAILURE() << "The page does not take the pointer.";
    }
    /// Whether the note holds one drawn signature, sealed to its present state.
    bool isSealed() {
        return number(QStringLiteral("Select Count(*) from SessionSignatures")) == 1 &&
               value(QStringLiteral("Select signature from SessionSignatures"))
                   .startsWith(QLatin1String("SVSIG1.2.1."));
    }

    RunningService service;
};

}  // namespace

TEST_F(WebSignatures, ASignatureOnTheWebHoldsUntilTheNoteIsEditedAndIsGivenAgain) {
    missed(600);
    openNote();
    person->type(QStringLiteral("Car broke down"));
    openPage();
    draw();
    person->picture("web-drawn");
    person->press({QStringLiteral("alt+s")});
    person->turnTo("frmmsdApt");
    EXPECT_TRUE(shown("lblsignstatus").startsWith(SignedLine)) << shown("lblsignstatus").toStdString();
    EXPECT_TRUE(isSealed());
    person->picture("web-signed");
    closeNote();

    openNote();
    EXPECT_TRUE(shown("lblsignstatus").startsWith(SignedLine));
    person->press({QStringLiteral("ctrl+End")});
    person->type(QStringLiteral(" again"));
    closeNote();
    EXPECT_EQ(reason(), QStringLiteral("Car broke down again"));

    openNote();
    EXPECT_EQ(shown("lblsignstatus"), QStringLiteral("Signature is invalid! Cause: Note modified."));
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from SessionSignatures")), 0);
    openPage();
    draw();
    person->click(desk->tell("widgetPlace", QStringLiteral("cmdSign3")));
    person->turnTo("frmmsdApt");
    EXPECT_TRUE(shown("lblsignstatus").startsWith(SignedLine));
    EXPECT_TRUE(isSealed());
    closeNote();
}

TEST_F(WebSignatures, AnEmptyPageIsNoSignatureAndClearAndCancelWriteNothing) {
    missed(600);
    openNote();
    person->type(QStringLiteral("No call"));
    for (int time = 1; time <= 2; ++time) {
        openPage();
        person->press({QStringLiteral("alt+s")});
        EXPECT_EQ(desk->answer("Ok"), NoSignature);
        person->turnTo("frmesign");
        desk->awaitShown("SigPlus2");
        person->press({QStringLiteral("alt+l")});
        desk->awaitShown("webMain");
        draw();
        person->press({QStringLiteral("Escape")});
        person->turnTo("frmmsdApt");
        EXPECT_EQ(number(QStringLiteral("Select Count(*) from SessionSignatures")), 0);
    }
    EXPECT_EQ(service.times("/sign"), 4);
    openPage();
    draw();
    person->press({QStringLiteral("alt+s")});
    person->turnTo("frmmsdApt");
    EXPECT_TRUE(shown("lblsignstatus").startsWith(SignedLine));
    EXPECT_TRUE(isSealed());
}
