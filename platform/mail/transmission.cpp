#include "platform/mail/transmission.h"

#include <curl/curl.h>
#include <sys/socket.h>
#include <algorithm>
#include <cstring>
#include <memory>
#include <QDateTime>
#include <QUuid>

#include "platform/mail/failure.h"
#include "platform/mail/smtplog.h"
#include "platform/mail/transcript.h"

namespace mail {

namespace {

using std::chrono::steady_clock;

template <auto Free>
struct FreedBy {
    template <typename Handle>
    void operator()(Handle* handle) const {
        Free(handle);
    }
};

using Easy = std::unique_ptr<CURL, FreedBy<curl_easy_cleanup>>;
using Url = std::unique_ptr<CURLU, FreedBy<curl_url_cleanup>>;
using List = std::unique_ptr<curl_slist, FreedBy<curl_slist_free_all>>;

void prepareLibrary() {
    static const CURLcode prepared = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(prepared);
}

/// Returns the server's address, or null where it is none.
Url urlOf(const Server& server) {
    Url url(curl_url());
    const bool isIpv6 = server.host.contains(u':') && !server.host.startsWith(u'[');
    const QByteArray host = (isIpv6 ? u'[' + server.host + u']' : server.host).toUtf8();
    const char* scheme = server.encryption == Encryption::Implicit ? "smtps" : "smtp";
    const bool isValid =
        server.port >= 1 && server.port <= 65'535 &&
        curl_url_set(url.get(), CURLUPART_SCHEME, scheme, 0) == CURLUE_OK &&
        curl_url_set(url.get(), CURLUPART_HOST, host.constData(), 0) == CURLUE_OK &&
        curl_url_set(url.get(), CURLUPART_PORT, QByteArray::number(server.port).constData(), 0) == CURLUE_OK;
    return isValid ? std::move(url) : nullptr;
}

long encryptionOption(Encryption encryption) {
    return encryption == Encryption::WhereOffered ? CURLUSESSL_TRY : CURLUSESSL_ALL;
}

QByteArray newMessageId() {
    return QUuid::createUuid().toByteArray(QUuid::Id128);
}

/// One message on its way.
class Transmission {
  public:
    Transmission(const Server& server, const Message& message, const std::function<void(Step)>& progress,
                 const std::stop_token& stop)
        : server_(server),
          message_(message),
          progress_(progress),
          stop_(stop),
          text_(MessageText(message, QDateTime::currentDateTime(), newMessageId())) {}

    Outcome run();
    [[nodiscard]] const Transcript& transcript() const { return transcript_; }

  private:
    void setUp();
    void setUpAccount();
    void setUpEncryption();
    void setUpPatience();
    void setUpCallbacks();
    void addRecipients();
    [[nodiscard]] Outcome outcomeOf(CURLcode result) const;
    [[nodiscard]] bool isTooLate() const { return steady_clock::now() - lastSign_ > server_.patience; }
    void tellStep();
    void leave();

    // What the transfer library calls.
    static std::size_t giveText(char* buffer, std::size_t size, std::size_t count, void* self);
    static int takeDown(CURL* handle, curl_infotype kind, char* octets, std::size_t size, void* self);
    static int mayGoOn(void* self, curl_off_t, curl_off_t, curl_off_t, curl_off_t);

    const Server& server_;
    const Message& message_;
    const std::function<void(Step)>& progress_;
    const std::stop_token& stop_;
    QByteArray text_;
    qsizetype given_ = 0;      ///< The octets of the text that the library has taken.
    bool handedOver_ = false;  ///< Whether it has taken the end of the text.
    bool unfit_ = false;       ///< Whether the server cannot take the message's addresses.
    Step told_ = Step::Connecting;
    steady_clock::time_point lastSign_ = steady_clock::now();
    Transcript transcript_;
    char detail_[CURL_ERROR_SIZE] = {};
    // The library asks these to stay until the handle is freed.
    Url url_;
    List recipients_;
    Easy easy_;
};

Outcome Transmission::run() {
    prepareLibrary();
    url_ = urlOf(server_);
    if (!url_)
        return FailureOf(CURLE_URL_MALFORMAT, {}, server_, transcript_, false);
    easy_.reset(curl_easy_init());
    setUp();
    progress_(told_);
    const Outcome outcome = outcomeOf(curl_easy_perform(easy_.get()));
    leave();
    return outcome;
}

void Transmission::setUp() {
    CURL* easy = easy_.get();
    curl_easy_setopt(easy, CURLOPT_CURLU, url_.get());
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
    curl_easy_setopt(easy, CURLOPT_PROXY, "");
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, detail_);
    curl_easy_setopt(easy, CURLOPT_MAIL_FROM, message_.from.address().toUtf8().constData());
    addRecipients();
    curl_easy_setopt(easy, CURLOPT_UPLOAD, 1L);
    setUpAccount();
    setUpEncryption();
    setUpPatience();
    setUpCallbacks();
}

void Transmission::setUpAccount() {
    if (server_.user.isEmpty())
        return;
    curl_easy_setopt(easy_.get(), CURLOPT_USERNAME, server_.user.toUtf8().constData());
    curl_easy_setopt(easy_.get(), CURLOPT_PASSWORD, server_.password.toUtf8().constData());
}

// Without a verified certificate an encrypted connection still hides the message from whoever only listens, and where
// the server offers none it would not be encrypted at all.
void Transmission::setUpEncryption() {
    const bool verified = server_.encryption != Encryption::WhereOffered;
    curl_easy_setopt(easy_.get(), CURLOPT_USE_SSL, encryptionOption(server_.encryption));
    curl_easy_setopt(easy_.get(), CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    curl_easy_setopt(easy_.get(), CURLOPT_SSL_VERIFYPEER, verified ? 1L : 0L);
    curl_easy_setopt(easy_.get(), CURLOPT_SSL_VERIFYHOST, verified ? 2L : 0L);
    if (const QByteArray authorities = qgetenv("SSL_CERT_FILE"); !authorities.isEmpty())
        curl_easy_setopt(easy_.get(), CURLOPT_CAINFO, authorities.constData());
}

void Transmission::setUpPatience() {
    const long milli = static_cast<long>(server_.patience.count());
    curl_easy_setopt(easy_.get(), CURLOPT_CONNECTTIMEOUT_MS, milli);
    curl_easy_setopt(easy_.get(), CURLOPT_SERVER_RESPONSE_TIMEOUT, milli / 1'000 + 1);
    // A name server that does not answer would otherwise hold up a sending that has ended.
    curl_easy_setopt(easy_.get(), CURLOPT_QUICK_EXIT, 1L);
}

void Transmission::setUpCallbacks() {
    CURL* easy = easy_.get();
    curl_easy_setopt(easy, CURLOPT_READFUNCTION, &Transmission::giveText);
    curl_easy_setopt(easy, CURLOPT_READDATA, this);
    curl_easy_setopt(easy, CURLOPT_VERBOSE, 1L);
    curl_easy_setopt(easy, CURLOPT_DEBUGFUNCTION, &Transmission::takeDown);
    curl_easy_setopt(easy, CURLOPT_DEBUGDATA, this);
    curl_easy_setopt(easy, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(easy, CURLOPT_XFERINFOFUNCTION, &Transmission::mayGoOn);
    curl_easy_setopt(easy, CURLOPT_XFERINFODATA, this);
}

void Transmission::addRecipients() {
    for (const Address& recipient : Recipients(message_))
        recipients_.reset(curl_slist_append(recipients_.release(), recipient.address().toUtf8().constData()));
    curl_easy_setopt(easy_.get(), CURLOPT_MAIL_RCPT, recipients_.get());
}

Outcome Transmission::outcomeOf(CURLcode result) const {
    if (unfit_)
        return {static_cast<int>(result),
                QStringLiteral("The mail server cannot deliver to an address with such letters: %1. Nothing was sent.")
                    .arg(InternationalAddress(message_)->address())};
    if (result == CURLE_OK)
        return {};
    if (result == CURLE_ABORTED_BY_CALLBACK && stop_.stop_requested())
        return CancelledOutcome(handedOver_);
    if (result == CURLE_ABORTED_BY_CALLBACK)
        result = CURLE_OPERATION_TIMEDOUT;
    const QString detail = QString::fromUtf8(detail_[0] != 0 ? detail_ : curl_easy_strerror(result));
    return FailureOf(result, detail, server_, transcript_, handedOver_);
}

void Transmission::tellStep() {
    const Step step = handedOver_ ? Step::Confirming : transcript_.step();
    if (step != told_)
        progress_(step);
    told_ = step;
}

// The server is told that the program leaves, but its answer is not waited for.
void Transmission::leave() {
    curl_socket_t socket = CURL_SOCKET_BAD;
    if (curl_easy_getinfo(easy_.get(), CURLINFO_ACTIVESOCKET, &socket) == CURLE_OK && socket != CURL_SOCKET_BAD)
        shutdown(socket, SHUT_RD);
    easy_.reset();
}

std::size_t Transmission::giveText(char* buffer, std::size_t size, std::size_t count, void* self) {
    auto& mine = *static_cast<Transmission*>(self);
    mine.unfit_ = InternationalAddress(mine.message_) != nullptr && !mine.transcript_.offersUtf8();
    if (mine.unfit_)
        return CURL_READFUNC_ABORT;
    const qsizetype length = std::min(mine.text_.size() - mine.given_, static_cast<qsizetype>(size * count));
    std::memcpy(buffer, mine.text_.constData() + mine.given_, static_cast<std::size_t>(length));
    mine.given_ += length;
    mine.handedOver_ = length == 0;
    return static_cast<std::size_t>(length);
}

int Transmission::takeDown(CURL* /*handle*/, curl_infotype kind, char* octets, std::size_t size, void* self) {
    auto& mine = *static_cast<Transmission*>(self);
    mine.lastSign_ = steady_clock::now();
    if (kind == CURLINFO_HEADER_IN)
        mine.transcript_.heard(QByteArray(octets, static_cast<qsizetype>(size)));
    else if (kind == CURLINFO_HEADER_OUT)
        mine.transcript_.said(QByteArray(octets, static_cast<qsizetype>(size)));
    return 0;
}

// A sending is given up only here: the library then closes the connection without the mark at the end of a message, and
// a server throws away a message without it.
int Transmission::mayGoOn(void* self, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    auto& mine = *static_cast<Transmission*>(self);
    mine.tellStep();
    return mine.stop_.stop_requested() || mine.isTooLate() ? 1 : 0;
}

QByteArray headingOf(const Server& server) {
    static const char* const encryptions[] = {"encrypted where offered", "STARTTLS", "TLS"};
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss ")).toLatin1() +
           server.host.toUtf8() + ':' + QByteArray::number(server.port) + ' ' +
           encryptions[static_cast<int>(server.encryption)] + '\n';
}

QByteArray endingOf(const Outcome& outcome) {
    return outcome.isSent() ? QByteArray("= sent\n")
                            : "= " + QByteArray::number(outcome.number) + ' ' + outcome.description.toUtf8() + '\n';
}

}  // namespace

Outcome Transmit(const Server& server, const Message& message, const std::function<void(Step)>& progress,
                 const std::stop_token& stop) {
    Transmission transmission(server, message, progress, stop);
    const QByteArray heading = headingOf(server);
    const Outcome outcome = transmission.run();
    AddToLog(server.logFile, heading + transmission.transcript().text() + endingOf(outcome));
    return outcome;
}

}  // namespace mail
