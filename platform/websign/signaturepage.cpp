#include "platform/websign/signaturepage.h"

#include <QAuthenticator>
#include <QScopedValueRollback>
#include <QWebEngineCertificateError>
#include <QWebEngineSettings>

namespace {

constexpr int LongestQuestion = 1000;

}  // namespace

SignaturePage::SignaturePage(QWebEngineProfile* profile, QObject* parent) : QWebEnginePage(profile, parent) {
    settings()->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
    settings()->setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
    settings()->setAttribute(QWebEngineSettings::PdfViewerEnabled, false);
    settings()->setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);
    settings()->setAttribute(QWebEngineSettings::HyperlinkAuditingEnabled, false);
    settings()->setAttribute(QWebEngineSettings::NavigateOnDropEnabled, false);
    // The page is meant to fill its panel. One that is larger still moves by wheel and keys.
    settings()->setAttribute(QWebEngineSettings::ShowScrollBars, false);
    connect(this, &QWebEnginePage::certificateError, this,
            [](QWebEngineCertificateError error) { error.rejectCertificate(); });
    // Nobody is asked for a password in a signature. The empty answer ends the browser's tries.
    connect(this, &QWebEnginePage::authenticationRequired, this,
            [](const QUrl&, QAuthenticator* answer) { *answer = QAuthenticator(); });
    connect(this, &QWebEnginePage::proxyAuthenticationRequired, this,
            [](const QUrl&, QAuthenticator* answer) { *answer = QAuthenticator(); });
}

bool SignaturePage::IsAllowed(const QUrl& address) {
    const bool isWeb = address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https");
    return (isWeb && !address.host().isEmpty()) || address == QUrl(QStringLiteral("about:blank"));
}

QWebEnginePage* SignaturePage::createWindow(WebWindowType) {
    return nullptr;
}

bool SignaturePage::acceptNavigationRequest(const QUrl& address, NavigationType, bool isMainFrame) {
    // A frame inside the page may hold a picture or a text of the page's own; a mail address would start the mail
    // program.
    const bool isPart = address.scheme() == QLatin1String("about") || address.scheme() == QLatin1String("data") ||
                        address.scheme() == QLatin1String("blob");
    return IsAllowed(address) || (isPart && !isMainFrame);
}

QStringList SignaturePage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) {
    return {};
}

void SignaturePage::javaScriptAlert(const QUrl& origin, const QString& text) {
    const QScopedValueRollback<int> asks(asking_, asking_ + 1);
    QWebEnginePage::javaScriptAlert(origin, text.left(LongestQuestion));
}

bool SignaturePage::javaScriptConfirm(const QUrl& origin, const QString& text) {
    const QScopedValueRollback<int> asks(asking_, asking_ + 1);
    return QWebEnginePage::javaScriptConfirm(origin, text.left(LongestQuestion));
}

bool SignaturePage::javaScriptPrompt(const QUrl& origin, const QString& text, const QString& proposal,
                                     QString* answer) {
    const QScopedValueRollback<int> asks(asking_, asking_ + 1);
    return QWebEnginePage::javaScriptPrompt(origin, text.left(LongestQuestion), proposal.left(LongestQuestion), answer);
}

void SignaturePage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) {
    // What the page tells its own developer may hold a patient's data and belongs into nobody's log.
}
