#include "tests/platform/websign/websignfixture.h"

#include <unistd.h>
#include <QFileInfo>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// Far more than the browser needs on a busy machine; a test that works never waits so long.
constexpr int Enough = 60000;

}  // namespace

QString PluginFolder() {
    return QStringLiteral(SVS_PLUGINS);
}

bool IsBrowserBuilt() {
    return QFileInfo::exists(PluginFolder() + QStringLiteral("/websign.so"));
}

WebSignature::WebSignature() {
    // The browser's sandbox does not work for root, as whom tests often run.
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    panel.resize(600, 400);
    new QVBoxLayout(&panel);
}

void WebSignature::SetUp() {
    if (!IsBrowserBuilt())
        GTEST_SKIP() << "The web signature is not built: qt6-webengine-dev is not installed, or sanitizers are on.";
    open({});
}

void WebSignature::open(const WebSurfaceLimits& limits) {
    delete surface;
    QString why;
    surface = LoadWebSurfacePlugin(PluginFolder(), limits, &panel, &why);
    ASSERT_NE(surface, nullptr) << why.toStdString();
    panel.layout()->addWidget(surface);
    complete = std::make_unique<QSignalSpy>(surface, &WebSurface::DocumentComplete);
    failed = std::make_unique<QSignalSpy>(surface, &WebSurface::LoadFailed);
    panel.show();
}

QString WebSignature::completed() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !complete->isEmpty() || !failed->isEmpty(); }, Enough));
    EXPECT_TRUE(failed->isEmpty()) << failed->value(0).value(0).toString().toStdString();
    return complete->isEmpty() ? QString() : complete->takeFirst().value(0).toString();
}

QString WebSignature::failure() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !complete->isEmpty() || !failed->isEmpty(); }, Enough));
    EXPECT_TRUE(complete->isEmpty()) << complete->value(0).value(0).toString().toStdString();
    return failed->isEmpty() ? QString() : failed->takeFirst().value(0).toString();
}

QString WebSignature::bodyText() {
    std::optional<QString> read;
    surface->ReadBodyText([&read](const QString& text) { read = text; });
    EXPECT_TRUE(QTest::qWaitFor([&read] { return read.has_value(); }, Enough));
    return read.value_or(QString());
}

bool WebSignature::isWaiting() const {
    return surface->findChild<QTimer*>(QStringLiteral("patience"))->isActive();
}

void WebSignature::endPatience() {
    ASSERT_TRUE(isWaiting());
    surface->findChild<QTimer*>(QStringLiteral("patience"))->start(0);
}

bool WebSignature::isSilent() {
    bodyText();
    return complete->isEmpty() && failed->isEmpty();
}

QWidget* WebSignature::page() const {
    QWidget* widget = surface;
    while (widget->focusProxy() != nullptr)
        widget = widget->focusProxy();
    return widget;
}
