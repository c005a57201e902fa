#pragma once

#include <QWebEnginePage>

/// The page of a signature service: scripts run in it, and it can neither open windows nor leave the web.
class SignaturePage : public QWebEnginePage {
    Q_OBJECT

  public:
    SignaturePage(QWebEngineProfile* profile, QObject* parent);

    /// Whether the page waits for the user's answer to a box of its own.
    [[nodiscard]] bool IsAsking() const { return asking_ > 0; }

    /// Whether a page at this address may be shown.
    [[nodiscard]] static bool IsAllowed(const QUrl& address);

  protected:
    QWebEnginePage* createWindow(WebWindowType type) override;
    bool acceptNavigationRequest(const QUrl& address, NavigationType type, bool isMainFrame) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& oldFiles, const QStringList& types) override;
    void javaScriptAlert(const QUrl& origin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& proposal, QString* answer) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;

  private:
    int asking_ = 0;
};
