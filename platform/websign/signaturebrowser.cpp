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
            "(most => { const text = document.body?.outerText ?? ''; return text.length > most ? null : text; })(%1)")
            .arg(limits_.characters),
        [this, callback = std::move(callback)](const QVariant& text) {
            if (text.typeId() == QMetaType::QString)
                callback(text.toString());
            else
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

/// A load begins, by the form or by the page. The browser does not tell the beginning of one that replaces another.
void SignatureBrowser::expectLoad() {
    ++load_;
    loading_ = true;
    failed_ = false;
    questions_ = 0;
    patience_.start(limits_.patience);
}

void SignatureBrowser::startsLoad() {
    expectLoad();
    if (wandersAbout()) {
        fail(QStringLiteral("The signature page goes from one page to the next without end."));
        page_->triggerAction(QWebEnginePage::Stop);
    }
}

void SignatureBrowser::changesLoad(const QWebEngineLoadingInfo& load) {
    if (load.status() == QWebEngineLoadingInfo::LoadStartedStatus)
        startsLoad();
    else if (!loading_ || load.errorCode() == AbortedLoad)
        return;  // A load that was broken off was replaced, or has been told as failed.
    else if (load.status() == QWebEngineLoadingInfo::LoadSucceededStatus)
        complete();
    else
        fail(reasonOf(load));
}

void SignatureBrowser::runsOutOfPatience() {
    if (page_->IsAsking()) {
        patience_.start(limits_.patience);
        return;
    }
    const bool isLoad = questions_ == 0;
    fail(isLoad ? QStringLiteral("The signature service does not answer.")
                : QStringLiteral("The signature page does not answer any more."));
    openPage();
}

bool SignatureBrowser::wandersAbout() {
    const bool isHasty = stay_.isValid() && stay_.elapsed() < ShortStay;
    steps_ = isHasty ? steps_ + 1 : 0;
    return steps_ > MostSteps;
}

// Both outcomes are told from the event loop, so that a form may do what it likes about them, even close. An outcome is
// dropped when another load has begun by then.

void SignatureBrowser::complete() {
    loading_ = false;
    patience_.stop();
    stay_.start();
    QMetaObject::invokeMethod(
        this,
        [this, load = load_] {
            if (load == load_)
                Q_EMIT DocumentComplete(page_->url().toString());
        },
        Qt::QueuedConnection);
}

void SignatureBrowser::fail(const QString& reason) {
    loading_ = false;
    failed_ = true;
    questions_ = 0;
    ++load_;
    patience_.stop();
    QMetaObject::invokeMethod(
        this,
        [this, reason, load = load_] {
            if (load == load_)
                Q_EMIT LoadFailed(reason);
        },
        Qt::QueuedConnection);
}

void SignatureBrowser::ask(const QString& script, const Answer& answer) {
    ++questions_;
    if (!patience_.isActive())
        patience_.start(limits_.patience);
    page_->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                         [self = QPointer(this), load = load_, answer](const QVariant& value) {
                             if (self && load == self->load_)
                                 self->answered(answer, value);
                         });
}

void SignatureBrowser::answered(const Answer& answer, const QVariant& value) {
    if (--questions_ == 0 && !loading_)
        patience_.stop();
    answer(value);
}
