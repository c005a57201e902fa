#include <QApplication>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTest>
#include <QUrlQuery>

#include "platform/signature/signaturetext.h"
#include "tests/platform/websign/signaturepages.h"
#include "tests/platform/websign/websignfixture.h"

namespace {

using namespace std::chrono_literals;

const QByteArray PlainText = "Content-Type: text/plain; charset=utf-8\r\n";

/// Answers each box of a page with its default button and keeps the texts. `wait` runs while the box is open.
class BoxReader : public QObject {
  public:
    explicit BoxReader(std::function<void()> wait) : wait_(std::move(wait)) { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (auto* box = qobject_cast<QMessageBox*>(watched); box != nullptr && event->type() == QEvent::Show) {
            texts << box->text();
            wait_();
            QMetaObject::invokeMethod(box, &QDialog::accept, Qt::QueuedConnection);
        }
        return false;
    }

    QStringList texts;

  private:
    std::function<void()> wait_;
};

void moveWithTheButtonDown(QWidget* widget, QPoint to) {
    QMouseEvent move(QEvent::MouseMove, to, widget->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &move);
}

void drawALine(QWidget* widget) {
    QTest::mousePress(widget, Qt::LeftButton, {}, QPoint(50, 100));
    for (int x = 60; x <= 200; x += 20)
        moveWithTheButtonDown(widget, QPoint(x, 120));
    QTest::mouseRelease(widget, Qt::LeftButton, {}, QPoint(200, 120));
}

}  // namespace

TEST_F(WebSignature, APageIsLoadedAndItsTextIsRead) {
    service.page(QStringLiteral("/sign"),
                 "<body>PLEASE sign <b>h&eacute;re</b><p style='display:none'>unseen</p></body>");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    EXPECT_EQ(completed(), service.address(QStringLiteral("/sign")));
    EXPECT_EQ(bodyText(), QStringLiteral("PLEASE sign h\u00e9re"));
    EXPECT_TRUE(isSilent());
}

TEST_F(WebSignature, APageIsPaintedWithoutAGraphicsCard) {
    service.page(QStringLiteral("/sign"), "<body style='background:#4080c0'></body>");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return surface->grab().toImage().pixelColor(100, 100) == QColor(0x40, 0x80, 0xc0); }, 60000));
}

TEST_F(WebSignature, ADrawnSignatureIsSavedByTheButtonOfThePage) {
    service.page(QStringLiteral("/sign"), SigningPage);
    service.page(QStringLiteral("/svsign"), SignedPage);
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    // The browser takes the pointer only once it has painted the page.
    EXPECT_TRUE(QTest::qWaitFor(
        [this] {
            drawALine(page());
            return bodyText().contains(QLatin1String("points"));
        },
        60000));
    surface->ClickInputs(QStringLiteral("Save Signature"));
    const QString signedAt = completed();
    EXPECT_TRUE(signedAt.startsWith(service.address(QStringLiteral("/svsign?points=")))) << signedAt.toStdString();
    const QString text = bodyText();
    const auto signature = ReadSignature(text, {});
    ASSERT_TRUE(signature) << text.toStdString();
    EXPECT_EQ(signature->PointCount(), QUrlQuery(QUrl(signedAt)).queryItemValue(QStringLiteral("points")).toInt());
    EXPECT_FALSE(service.asked().contains(QStringLiteral("/help"))) << "Only inputs with that value are clicked.";
}

TEST_F(WebSignature, ASignatureKeepsItsBlanksAndItsForeignLetters) {
    const QString text = QStringLiteral("O'Brien; \"x\" <b> \\ 3|4\n\n  \u00e4 \U0001F58A\n");
    service.status(QStringLiteral("/svsign"), "200 OK", PlainText, text.toUtf8());
    surface->Navigate(service.address(QStringLiteral("/svsign")));
    completed();
    EXPECT_EQ(bodyText(), text);
}

TEST_F(WebSignature, AnAddressIsTakenWithoutItsScheme) {
    service.page(QStringLiteral("/sign"), "PLEASE sign");
    surface->Navigate(QStringLiteral(" ") + service.address(QStringLiteral("/sign")).mid(7));
    EXPECT_EQ(completed(), service.address(QStringLiteral("/sign")));
}

TEST_F(WebSignature, TheEmptyPageIsAPageToo) {
    surface->Navigate(QStringLiteral("about:blank"));
    EXPECT_EQ(completed(), QStringLiteral("about:blank"));
    EXPECT_EQ(bodyText(), QString());
}

TEST_F(WebSignature, ARedirectionEndsOnThePagesOwnAddress) {
    service.status(QStringLiteral("/old"), "302 Found", "Location: /sign\r\n");
    service.page(QStringLiteral("/sign"), "PLEASE sign");
    surface->Navigate(service.address(QStringLiteral("/old")));
    EXPECT_EQ(completed(), service.address(QStringLiteral("/sign")));
}

TEST_F(WebSignature, APageThatGoesOnByItselfIsToldOnceItIsThere) {
    service.page(QStringLiteral("/first"), "<script>location.replace('/second')</script>");
    service.page(QStringLiteral("/second"), "PLEASE sign");
    surface->Navigate(service.address(QStringLiteral("/first")));
    QString address = completed();
    if (address == service.address(QStringLiteral("/first")))
        address = completed();
    EXPECT_EQ(address, service.address(QStringLiteral("/second")));
    EXPECT_TRUE(isSilent());
}

TEST_F(WebSignature, ALoadThatTheNextOneReplacesIsNotTold) {
    service.silence(QStringLiteral("/slow"));
    service.page(QStringLiteral("/sign"), "PLEASE sign");
    surface->Navigate(service.address(QStringLiteral("/slow")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !service.asked().isEmpty(); }, 60000));
    surface->Navigate(service.address(QStringLiteral("/sign")));
    EXPECT_EQ(completed(), service.address(QStringLiteral("/sign")));
    EXPECT_TRUE(isSilent());
}

TEST_F(WebSignature, RefreshAsksTheServiceAgain) {
    service.page(QStringLiteral("/sign"), "PLEASE sign");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    service.page(QStringLiteral("/sign"), "PLEASE sign once more");
    surface->Refresh();
    EXPECT_EQ(completed(), service.address(QStringLiteral("/sign")));
    EXPECT_EQ(bodyText(), QStringLiteral("PLEASE sign once more"));
}

TEST_F(WebSignature, RefreshAfterAFailedSaveBeginsWithTheSigningPage) {
    service.page(QStringLiteral("/sign"), SigningPage);
    service.status(QStringLiteral("/svsign"), "503 Busy");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    surface->ClickInputs(QStringLiteral("Save Signature"));
    EXPECT_EQ(failure(), QStringLiteral("The signature service answered with error 503."));
    surface->Refresh();
    EXPECT_EQ(completed(), service.address(QStringLiteral("/sign")));
}

TEST_F(WebSignature, AnAttributeOfTheBodyReachesThePage) {
    service.page(QStringLiteral("/sign"),
                 "<style>body[scroll=\"n'o\"] p { display: none }</style><body>PLEASE<p>scroll</p></body>");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    surface->SetBodyAttribute(QStringLiteral("scroll"), QStringLiteral("n'o"));
    EXPECT_EQ(bodyText().trimmed(), QStringLiteral("PLEASE"));
}

TEST_F(WebSignature, AnInputIsClickedByItsWholeValueWhateverIsInIt) {
    service.page(QStringLiteral("/sign"), R"(<body><p id="clicked"></p>
<input type="button" value="it's &quot;so&quot; \ </script> &#x1F58A;"><input type="button" value="it's"><input value="IT'S">
<script>for (const i of document.getElementsByTagName('input')) i.onclick = () => { clicked.textContent += '[' + i.value + ']'; };
</script></body>)");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    surface->ClickInputs(QStringLiteral("it's \"so\" \\ </script> \U0001F58A"));
    EXPECT_EQ(bodyText().trimmed(), QStringLiteral("[it's \"so\" \\ </script> \U0001F58A]"));
    surface->ClickInputs(QStringLiteral("it's"));
    EXPECT_TRUE(bodyText().trimmed().endsWith(QStringLiteral("\U0001F58A][it's]")));
}

TEST_F(WebSignature, AScriptOfThePageCannotPutWordsIntoItsMouth) {
    service.page(QStringLiteral("/sign"), R"(<body>PLEASE sign<script>
Object.defineProperty(HTMLElement.prototype, 'outerText', {get: () => 'signed'});
document.getElementsByTagName = () => []; Array.from = () => [];
</script></body>)");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    EXPECT_EQ(bodyText(), QStringLiteral("PLEASE sign"));
}

TEST_F(WebSignature, APageOpensNoWindowOfItsOwn) {
    service.page(QStringLiteral("/sign"), R"~(<body>PLEASE<input type="button" value="Save Signature"
onclick="window.open('/advert'); document.body.append(' go on')"><script>window.open('/advert')</script></body>)~");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    const auto windows = QApplication::topLevelWidgets().size();
    surface->ClickInputs(QStringLiteral("Save Signature"));
    EXPECT_EQ(bodyText().trimmed(), QStringLiteral("PLEASE go on"));
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windows);
    EXPECT_FALSE(service.asked().contains(QStringLiteral("/advert")));
}

TEST_F(WebSignature, WhatThePageTellsItsUserIsShownAndWaitsForThem) {
    service.page(QStringLiteral("/sign"), R"~(<body>PLEASE<input type="button" value="Save Signature"
onclick="alert('Draw &lt;b&gt;first&lt;/b&gt;')"></body>)~");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    BoxReader boxes([this] {
        endPatience();
        QCoreApplication::processEvents();
    });
    surface->ClickInputs(QStringLiteral("Save Signature"));
    EXPECT_EQ(bodyText().trimmed(), QStringLiteral("PLEASE"));
    EXPECT_EQ(boxes.texts, QStringList{QStringLiteral("Draw &lt;b&gt;first&lt;/b&gt;")}) << "No markup of the page's.";
    EXPECT_TRUE(isSilent());
}

TEST_F(WebSignature, NothingOfOneSignatureIsKeptForTheNext) {
    service.status(QStringLiteral("/sign"), "200 OK",
                   "Content-Type: text/html\r\nSet-Cookie: patient=1; Max-Age=9999\r\n", "PLEASE sign");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    surface->Refresh();
    completed();
    EXPECT_TRUE(service.sawCookie()) << "The page itself may have cookies.";
    SignatureService other;
    open({});
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    EXPECT_EQ(service.asked().size(), 3) << "Nothing comes from a cache.";
}

TEST_F(WebSignature, AFormMayCloseWhileThePageIsAskedAndOnItsAnswer) {
    service.page(QStringLiteral("/sign"), "PLEASE sign");
    surface->Navigate(service.address(QStringLiteral("/sign")));
    QObject::connect(surface, &WebSurface::DocumentComplete, surface, [this] {
        surface->ReadBodyText([](const QString&) { FAIL() << "The surface has gone."; });
        delete surface;
        surface = nullptr;
    });
    completed();
    EXPECT_EQ(surface, nullptr);
    open({});
    surface->Navigate(service.address(QStringLiteral("/sign")));
    completed();
    bool isRead = false;
    surface->ReadBodyText([this, &isRead](const QString&) {
        isRead = true;
        delete surface;
        surface = nullptr;
    });
    EXPECT_TRUE(QTest::qWaitFor([&isRead] { return isRead; }, 60000));
}
