#include <gtest/gtest.h>

#include <unistd.h>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QWidget>

#include "platform/signature/websurfaceplugin.h"
#include "tests/platform/websign/websignfixture.h"
#include "tests/support/files.h"

namespace {

class PaperSurface : public WebSurface {
  public:
    using WebSurface::WebSurface;
    void Navigate(const QString& address) override { Q_EMIT DocumentComplete(address); }
    void Refresh() override {}
    void SetBodyAttribute(const QString&, const QString&) override {}
    void ReadBodyText(std::function<void(const QString&)> callback) override { callback({}); }
    void ClickInputs(const QString&) override {}
};

}  // namespace

TEST(WebSurfaceLoader, WithoutTheBrowserItSaysSo) {
    QWidget panel;
    QString why;
    // The program's own folder: beside a test lies no browser.
    EXPECT_EQ(LoadWebSurface(&panel, &why), nullptr);
    EXPECT_EQ(why, QStringLiteral("The web signature is not installed on this computer."));
    EXPECT_TRUE(panel.children().isEmpty());
}

TEST(WebSurfaceLoader, ABrowserThatDoesNotLoadSaysSo) {
    const QTemporaryDir folder;
    PutFile(folder.filePath(QStringLiteral("websign.so")), "not a library");
    QWidget panel;
    QString why;
    EXPECT_EQ(LoadWebSurfacePlugin(folder.path(), {}, &panel, &why), nullptr);
    EXPECT_EQ(
        why, QStringLiteral("The web signature could not be loaded. It may belong to another version of SVScheduler."));
}

TEST(WebSurfaceLoader, RootIsToldThatTheBrowserIsNotForRoot) {
    if (geteuid() != 0)
        GTEST_SKIP() << "This is about root.";
    if (!IsBrowserBuilt())
        GTEST_SKIP() << "The web signature is not built.";
    const QByteArray before = qgetenv("QTWEBENGINE_DISABLE_SANDBOX");
    qunsetenv("QTWEBENGINE_DISABLE_SANDBOX");
    const auto restored = qScopeGuard([&before] { qputenv("QTWEBENGINE_DISABLE_SANDBOX", before); });
    QWidget panel;
    QString why;
    EXPECT_EQ(LoadWebSurfacePlugin(PluginFolder(), {}, &panel, &why), nullptr);
    EXPECT_EQ(why, QStringLiteral("The web signature does not work for the system user root."));
}

TEST(WebSurfaceLoader, ATestPutsItsOwnSurfaceInThePlaceOfTheBrowser) {
    const auto restored = qScopeGuard([before = MakeWebSurface()] { MakeWebSurface() = before; });
    MakeWebSurface() = [](QWidget* parent, QString*) { return new PaperSurface(parent); };
    QWidget panel;
    QString why;
    WebSurface* surface = LoadWebSurface(&panel, &why);
    ASSERT_NE(surface, nullptr);
    QSignalSpy complete(surface, &WebSurface::DocumentComplete);
    surface->Navigate(QStringLiteral("about:blank"));
    EXPECT_EQ(complete.size(), 1);
}
