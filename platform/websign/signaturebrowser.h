#pragma once

#include <memory>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>

#include "platform/signature/websurfaceplugin.h"

class QWebEngineView;
class SignaturePage;

/// The web surface: a browser that remembers nothing once it is closed.
class SignatureBrowser : public WebSurface {
    Q_OBJECT

  public:
    SignatureBrowser(const WebSurfaceLimits& limits, QWidget* parent);
    ~SignatureBrowser() override;

    void Navigate(const QString& address) override;
    void Refresh() override;
    void SetBodyAttribute(const QString& name, const QString& value) override;
    void ReadBodyText(std::function<void(const QString& text)> callback) override;
    void ClickInputs(const QString& value) override;

  private:
    enum class Loading { Nothing, Asked, ByPage };
    using Answer = std::function<void(const QVariant&)>;

    void openPage();
    void expectLoad();
    void startsLoad();
    void changesLoad(const QWebEngineLoadingInfo& load);
    void breaksOffLoad();
    void runsOutOfPatience();
    [[nodiscard]] bool wandersAbout();
    void complete();
    void fail(const QString& reason);
    void endLoad();
    void tell(const std::function<void()>& outcome);
    void ask(const QString& script, const Answer& answer);
    void answered(const Answer& answer, const QVariant& value);

    const WebSurfaceLimits limits_;
    // The view goes first and the profile last, as the browser wants it.
    std::unique_ptr<QWebEngineProfile> profile_;
    std::unique_ptr<SignaturePage> page_;
    std::unique_ptr<QWebEngineView> view_;

    QString address_;        ///< What Navigate was given last.
    QTimer patience_{this};  ///< Runs while a load or an answer is waited for.
    int load_ = 0;  ///< Changes when a page is asked for and when it is there, so that what belongs to another is seen.
    int questions_ = 0;  ///< Scripts that the page has not answered.
    Loading loading_ = Loading::Nothing;
    bool failed_ = false;
    QElapsedTimer stay_;  ///< Since the page that is shown was complete; invalid once the user has done something.
    int steps_ = 0;       ///< Pages in a row that were left at once.
};
