#include "platform/websign/signaturebrowser.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QVBoxLayout>
#include <QWebEngineDownloadRequest>
#include <QWebEngineScript>
#include <QWebEngineView>

#include "platform/websign/signaturepage.h"

namespace {

// More pages than this in a row, each left within this many milliseconds without the user, would go on without end.
constexpr int MostSteps = 10;
constexpr qint64 ShortStay = 1000;

constexpr int AbortedLoad = -3;
constexpr int TooManyRedirects = -310;

/// The texts as the arguments of a script's function, quoted so that nothing in them is taken for script.
QString arguments(const QStringList& texts) {
    return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Compact));
}

QString reasonOf(const QWebEngineLoadingInfo& load) {
    if (load.errorCode() == TooManyRedirects)
        return QStringLiteral("The signature service sends its page from one address to the next without end.");
    switch (load.errorDomain()) {
        case QWebEngineLoadingInfo::HttpStatusCodeDomain:
            return QStringLiteral("The signature service answered with error %1.").arg(load.errorCode());
        case QWebEngineLoadingInfo::CertificateErrorDomain:
            return QStringLiteral(
                "The signature page was not loaded, because the certificate of its service is not valid.");
        case QWebEngineLoadingInfo::ConnectionErrorDomain:
        case QWebEngineLoadingInfo::DnsErrorDomain:
            return QStringLiteral("The signature service cannot be reached.");
        case QWebEngineLoadingInfo::HttpErrorDomain:
            return QStringLiteral("The signature service does not answer with a web page.");
        default:
            return QStringLiteral("The signature page could not be loaded.");
    }
}

}  // namespace

SignatureBrowser::SignatureBrowser(const WebSurfaceLimits& limits, QWidget* parent)
    : WebSurface(parent),
      limits_(limits),
      profile_(std::make_unique<QWebEngineProfile>()),
      view_(std::make_unique<QWebEngineView>(this)) {
    view_->setContextMenuPolicy(Qt::NoContextMenu);
    view_->setAcceptDrops(false);
    view_->setAccessibleName(QStringLiteral("Signature page"));
    openPage();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_.get());
    setFocusProxy(view_.get());

    patience_.setObjectName(QStringLiteral("patience"));
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this, &SignatureBrowser::runsOutOfPatience);
    connect(profile_.get(), &QWebEngineProfile::downloadRequested, this, [this](QWebEngineDownloadRequest* file) {
        file->cancel();
        fail(QStringLiteral("The signature service gave a file instead of a page."));
    });
}

/// Shows an empty page of its own process, in place of one that may not answer any more.
void SignatureBrowser::openPage() {
    auto page = std::make_unique<SignaturePage>(profile_.get(), this);
    connect(page.get(), &QWebEnginePage::loadingChanged, this, &SignatureBrowser::changesLoad);
    connect(page.get(), &QWebEnginePage::renderProcessTerminated, this,
            [this] { fail(QStringLiteral("The signature page has stopped working.")); });
    view_->setPage(page.get());
    std::swap(page_, page);
    if (page != nullptr)
        page->disconnect(this);
}

SignatureBrowser::~SignatureBrowser() {
    // Answers that still come while the page is taken down belong to no load any more.
    ++load_;
    disconnect(page_.get(), nullptr, this, nullptr);
}

void SignatureBrowser::Navigate(const QString& address) {
    address_ = address.trimmed();
    stay_.invalidate();
    expectLoad();
    const QUrl url = QUrl::fromUserInput(address_);
    if (address_.isEmpty())
        fail(QStringLiteral("No address of a signature page is set."));
    else if (!SignaturePage::IsAllowed(url))
        fail(QStringLiteral("The address of the signature page is not the address of a web page."));
    else
        page_->load(url);
}

void SignatureBrowser::Refresh() {
    if (failed_) {
        Navigate(address_);
        return;
    }
    stay_.invalidate();
    expectLoad();
    page_->triggerAction(QWebEnginePage::ReloadAndBypassCache);
}

void SignatureBrowser::SetBodyAttribute(const QString& name, const QString& value) {
    ask(QStringLiteral("(([name, value]) => { document.body?.setAttribute(name, value); })(%1)")
            .arg(arguments({name, value})),
        [](const QVariant&) {});
}

void SignatureBrowser::ReadBodyText(std::function<void(const QString& text)> callback) {
    ask(QStringLiteral(
            "(most => { const text = document.body?.outerText ?? ''; return text.length > most ? -1 : text; })(%1)")
            .arg(limits_.characters),
        [this, callback = std::move(callback)](const QVariant& text) {
            if (text.typeId() == QMetaType::QString)
                callback(text.toString());
            else if (text.isValid())
                fail(QStringLiteral("The text of the signature page is too long for a signature."));
        });
}

void SignatureBrowser::ClickInputs(const QString& value) {
    stay_.invalidate();
    ask(QStringLiteral("(([value]) => { for (const input of Array.from(document.getElementsByTagName('input'))) "
                       "if (input.value === value) input.click(); })(%1)")
            .arg(arguments({value})),
        [](const QVariant&) {});
}

/// The form has asked for a page. What was asked of the page before it, and what that has yet to tell, is dropped.
void SignatureBrowser::expectLoad() {
    ++load_;
    loading_ = Loading::Asked;
    questions_ = 0;
    patience_.start(limits_.patience);
}

/// The page goes to another one by itself. Until that is there, it is still the page that is shown.
void SignatureBrowser::startsLoad() {
    loading_ = Loading::ByPage;
    patience_.start(limits_.patience);
    if (wandersAbout()) {
        fail(QStringLiteral("The signature page goes from one page to the next without end."));
        page_->triggerAction(QWebEnginePage::Stop);
    }
}

void SignatureBrowser::changesLoad(const QWebEngineLoadingInfo& load) {
    if (load.status() == QWebEngineLoadingInfo::LoadStartedStatus) {
        if (loading_ == Loading::Nothing)
            startsLoad();
    } else if (loading_ == Loading::Nothing) {
        return;  // The load has been told as failed.
    } else if (load.errorCode() == AbortedLoad) {
        breaksOffLoad();
    } else if (load.status() == QWebEngineLoadingInfo::LoadSucceededStatus) {
        complete();
    } else {
        fail(reasonOf(load));
    }
}

/// A page that does not get away, as with an address that it may not go to, stays. A page that the form asked for and
/// that is broken off was replaced by another, or will have run out of patience.
void SignatureBrowser::breaksOffLoad() {
    if (loading_ != Loading::ByPage)
        return;
    loading_ = Loading::Nothing;
    if (questions_ == 0)
        patience_.stop();
}

void SignatureBrowser::runsOutOfPatience() {
    if (page_->IsAsking()) {
        patience_.start(limits_.patience);
        return;
    }
    fail(loading_ == Loading::Nothing ? QStringLiteral("The signature page does not answer any more.")
                                      : QStringLiteral("The signature service does not answer."));
    openPage();
}

bool SignatureBrowser::wandersAbout() {
    const bool isHasty = stay_.isValid() && stay_.elapsed() < ShortStay;
    steps_ = isHasty ? steps_ + 1 : 0;
    return steps_ > MostSteps;
}

void SignatureBrowser::complete() {
    endLoad();
    failed_ = false;
    stay_.start();
    tell([this, address = page_->url().toString()] { Q_EMIT DocumentComplete(address); });
}

void SignatureBrowser::fail(const QString& reason) {
    endLoad();
    failed_ = true;
    tell([this, reason] { Q_EMIT LoadFailed(reason); });
}

void SignatureBrowser::endLoad() {
    ++load_;
    loading_ = Loading::Nothing;
    questions_ = 0;
    patience_.stop();
}

/// Tells an outcome from the event loop, so that a form may do what it likes about it, even close. It is dropped when
/// the form has asked for another page by then.
void SignatureBrowser::tell(const std::function<void()>& outcome) {
    QMetaObject::invokeMethod(
        this,
        [this, outcome, load = load_] {
            if (load == load_)
                outcome();
        },
        Qt::QueuedConnection);
}

void SignatureBrowser::ask(const QString& script, const Answer& answer) {
    ++questions_;
    if (!patience_.isActive())
        patience_.start(limits_.patience);
    page_->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                         [self = QPointer(this), load = load_, answer](const QVariant& value) {
                             // The browser has finished with the answer before anybody acts on it.
                             if (self && load == self->load_)
                                 self->tell([self, answer, value] { self->answered(answer, value); });
                         });
}

void SignatureBrowser::answered(const Answer& answer, const QVariant& value) {
    if (--questions_ == 0 && loading_ == Loading::Nothing)
        patience_.stop();
    answer(value);
}
