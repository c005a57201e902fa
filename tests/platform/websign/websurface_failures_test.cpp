#include <csignal>
#include <QDesktopServices>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "tests/platform/websign/websignfixture.h"

namespace {

using namespace std::chrono_literals;

constexpr auto Unreachable = "The signature service cannot be reached.";
constexpr auto NoPage = "The signature service does not answer with a web page.";

/// Takes the place of the desktop's mail program.
class MailProgram : public QObject {
    Q_OBJECT

  public:
    MailProgram() { QDesktopServices::setUrlHandler(QStringLiteral("mailto"), this, "start"); }
    ~MailProgram() override { QDesktopServices::unsetUrlHandler(QStringLiteral("mailto")); }

    Q_INVOKABLE void start(const QUrl& address) { started << address; }

    QList<QUrl> started;
};

/// The number of the process that runs the page's scripts.
qint64 processOf(const WebSurface& surface) {
    for (const QObject* child : surface.findChildren<QObject*>())
        if (child->inherits("QWebEnginePage"))
            return child->property("renderProcessPid").toLongLong();
    return 0;
}

}  // namespace

TEST_F(WebSignature, AServiceThatFailsIsTold) {
    service.status(QStringLiteral("/sign"), "500 Oops", "Content-Type: text/html\r\n", "<body>It broke.</body>");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    EXPECT_EQ(failure(), QStringLiteral("The signature service answered with error 500."));
    surface->Navigate(service.address(QStringLiteral("/nowhere")));
    EXPECT_EQ(failure(), QStringLiteral("The signature service answered with error 404."));
    service.status(QStringLiteral("/sign"), "401 Who", "WWW-Authenticate: Basic realm=\"x\"\r\n");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    EXPECT_EQ(failure(), QStringLiteral("The signature service answered with error 401."));
    EXPECT_TRUE(complete->isEmpty() && failed->isEmpty());
}

TEST_F(WebSignature, AServiceThatIsNotThereIsTold) {
    const QString address = service.address(QStringLiteral("/sign"));
    service.stop();
    surface->Navigate(address);
    EXPECT_EQ(failure(), QString::fromLatin1(Unreachable));
    surface->Refresh();
    EXPECT_EQ(failure(), QString::fromLatin1(Unreachable));
}

TEST_F(WebSignature, ANameThatNobodyKnowsIsTold) {
    surface->Navigate(QStringLiteral("http://signature.invalid/"));
    EXPECT_EQ(failure(), QString::fromLatin1(Unreachable));
}

TEST_F(WebSignature, AConnectionThatIsClosedAtOnceIsTold) {
    service.bytes(QStringLiteral("/sign"), {});
    surface->Navigate(service.address(QStringLiteral("/sign")));
    EXPECT_EQ(failure(), QString::fromLatin1(NoPage));
}

TEST_F(WebSignature, AConnectionThatIsClosedInTheMiddleOfThePageIsTold) {
    service.bytes(QStringLiteral("/sign"),
                  "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 5000\r\n\r\n<body>PLEASE");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    EXPECT_EQ(failure(), QString::fromLatin1(NoPage));
}

TEST_F(WebSignature, AnAnswerThatIsNoAnswerIsTold) {
    service.bytes(QStringLiteral("/sign"), QByteArray("\0\xff\x01garbage\r\n\r\n\r\n", 17));
    surface->Navigate(service.address(QStringLiteral("/sign")));
    EXPECT_EQ(failure(), QString::fromLatin1(NoPage));
}

TEST_F(WebSignature, AServiceThatDoesNotAnswerIsToldWhenPatienceEnds) {
    open({.patience = 300ms});
    service.silence(QStringLiteral("/sign"));
    surface->Navigate(service.address(QStringLiteral("/sign")));
    EXPECT_EQ(failure(), QStringLiteral("The signature service does not answer."));
}

TEST_F(WebSignature, APageWithoutEndIsToldWhenPatienceEnds) {
    service.page(QStringLiteral("/sign"), "<body>PLEASE sign<script>while (true) ;</script></body>");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !service.asked().isEmpty(); }, 60000));
    endPatience();
    EXPECT_EQ(failure(), QStringLiteral("The signature service does not answer."));
    service.page(QStringLiteral("/sign"), "PLEASE sign");
    surface->Refresh();
    EXPECT_EQ(completed(), service.address(QStringLiteral("/sign"))) << "Another try has a page of its own.";
}

TEST_F(WebSignature, APageThatHangsWhenItIsAskedIsTold) {
    service.page(QStringLiteral("/sign"),
                 "<body>PLEASE<input type='button' value='Save Signature' onclick='while (true) ;'></body>");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    surface->ClickInputs(QStringLiteral("Save Signature"));
    endPatience();
    EXPECT_EQ(failure(), QStringLiteral("The signature page does not answer any more."));
    service.page(QStringLiteral("/sign"), "PLEASE sign");
    surface->Refresh();
    EXPECT_EQ(completed(), service.address(QStringLiteral("/sign"))) << "The next try is not held up by the last one.";
    EXPECT_EQ(bodyText(), QStringLiteral("PLEASE sign"));
}

TEST_F(WebSignature, ATextThatIsTooLongIsToldAndNotRead) {
    service.page(QStringLiteral("/svsign"), QByteArray(2000, 'x'));
    open({.characters = 1999});
    surface->Navigate(service.address(QStringLiteral("/svsign")));
    completed();
    surface->ReadBodyText([](const QString&) { FAIL() << "The text is too long."; });
    EXPECT_EQ(failure(), QStringLiteral("The text of the signature page is too long for a signature."));
    open({.characters = 2000});
    surface->Navigate(service.address(QStringLiteral("/svsign")));
    completed();
    EXPECT_EQ(bodyText().size(), 2000);
}

TEST_F(WebSignature, MegabytesAreToldAndNotRead) {
    service.page(QStringLiteral("/svsign"), QByteArray("0123456789 abcdef\n").repeated(200'000));
    surface->Navigate(service.address(QStringLiteral("/svsign")));
    completed();
    surface->ReadBodyText([](const QString&) { FAIL() << "The text is too long."; });
    EXPECT_EQ(failure(), QStringLiteral("The text of the signature page is too long for a signature."));
}

TEST_F(WebSignature, ARedirectionInACircleIsTold) {
    service.status(QStringLiteral("/a"), "302 Found", "Location: /b\r\n");
    service.status(QStringLiteral("/b"), "302 Found", "Location: /a\r\n");
    surface->Navigate(service.address(QStringLiteral("/a")));
    EXPECT_EQ(failure(),
              QStringLiteral("The signature service sends its page from one address to the next without end."));
}

TEST_F(WebSignature, PagesThatSendEachOtherOnWithoutEndAreTold) {
    service.page(QStringLiteral("/a"), "PLEASE<script>setTimeout(() => { location.href = '/b'; }, 1)</script>");
    service.page(QStringLiteral("/b"), "PLEASE<script>setTimeout(() => { location.href = '/a'; }, 1)</script>");
    surface->Navigate(service.address(QStringLiteral("/a")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !failed->isEmpty(); }, 60000));
    EXPECT_EQ(failed->value(0).value(0).toString(),
              QStringLiteral("The signature page goes from one page to the next without end."));
}

TEST_F(WebSignature, AnAddressThatIsNoWebPageIsTold) {
    surface->Navigate(QString());
    EXPECT_TRUE(failed->isEmpty()) << "Nothing is told before the call returns.";
    EXPECT_EQ(failure(), QStringLiteral("No address of a signature page is set."));
    for (const char* address : {"file:///etc/passwd", "/etc/passwd", "javascript:alert(1)", "ftp://example.test/",
                                "http://", "data:text/html,SVSIGN", "chrome://crash", "O'Brien; \"sign\""}) {
        surface->Navigate(QString::fromLatin1(address));
        EXPECT_EQ(failure(), QStringLiteral("The address of the signature page is not the address of a web page."))
            << address;
    }
}

TEST_F(WebSignature, AFailureIsNotToldOnceAnotherPageIsAskedFor) {
    service.page(QStringLiteral("/sign"), "PLEASE sign");
    surface->Navigate(QString());
    surface->Navigate(service.address(QStringLiteral("/sign")));
    EXPECT_EQ(completed(), service.address(QStringLiteral("/sign")));
    EXPECT_TRUE(isSilent());
}

TEST_F(WebSignature, APageCannotLeaveTheWeb) {
    MailProgram mail;
    service.page(QStringLiteral("/sign"), R"~(<body style="margin:0"><a href="mailto:me@example.test"
style="display:block;height:200px" onclick="document.getElementById('hint').textContent = 'PLEASE, clicked'"></a>
<p id="hint">PLEASE</p><iframe srcdoc="a part"></iframe><script>location.href = 'file:///etc/passwd';</script></body>)~");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    // The browser takes the pointer only once it has painted the page.
    EXPECT_TRUE(QTest::qWaitFor(
        [this] {
            QTest::mouseClick(page(), Qt::LeftButton, {}, QPoint(50, 100));
            return bodyText().trimmed() == QLatin1String("PLEASE, clicked");
        },
        60000));
    EXPECT_TRUE(isSilent());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isWaiting(); })) << "Nothing comes any more.";
    EXPECT_EQ(mail.started, QList<QUrl>());
}

TEST_F(WebSignature, AFileInsteadOfAPageIsToldAndNotSaved) {
    const QDir downloads(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    service.status(QStringLiteral("/sign"), "200 OK",
                   "Content-Type: application/octet-stream\r\nContent-Disposition: attachment; filename=svsign.sig\r\n",
                   "SIG");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    EXPECT_EQ(failure(), QStringLiteral("The signature service gave a file instead of a page."));
    EXPECT_FALSE(downloads.exists(QStringLiteral("svsign.sig")));
}

TEST_F(WebSignature, APageThatDiesIsToldAndCanBeAskedForAgain) {
    service.page(QStringLiteral("/sign"), "PLEASE sign");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    const qint64 process = processOf(*surface);
    ASSERT_GT(process, 1);
    kill(static_cast<pid_t>(process), SIGKILL);
    EXPECT_EQ(failure(), QStringLiteral("The signature page has stopped working."));
    surface->Refresh();
    EXPECT_EQ(completed(), service.address(QStringLiteral("/sign")));
    EXPECT_EQ(bodyText(), QStringLiteral("PLEASE sign"));
}

TEST_F(WebSignature, AServiceWhoseCertificateNobodyVouchesForIsNotShown) {
    const QTemporaryDir folder;
    const QString openssl = QStandardPaths::findExecutable(QStringLiteral("openssl"));
    if (openssl.isEmpty())
        GTEST_SKIP() << "There is no openssl to make a certificate with.";
    const QString key = folder.filePath(QStringLiteral("key.pem")),
                  certificate = folder.filePath(QStringLiteral("c.pem"));
    ASSERT_EQ(QProcess::execute(openssl, {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-nodes"),
                                          QStringLiteral("-newkey"), QStringLiteral("ec"), QStringLiteral("-pkeyopt"),
                                          QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-subj"),
                                          QStringLiteral("/CN=127.0.0.1"), QStringLiteral("-keyout"), key,
                                          QStringLiteral("-out"), certificate, QStringLiteral("-batch")}),
              0);
    service.secure(certificate, key);
    service.page(QStringLiteral("/sign"), "PLEASE sign");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    EXPECT_EQ(
        failure(),
        QStringLiteral("The signature page was not loaded, because the certificate of its service is not valid."));
    EXPECT_EQ(service.asked(), QStringList());
}

#include "websurface_failures_test.moc"
