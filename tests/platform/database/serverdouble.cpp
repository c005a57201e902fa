#include "serverdouble.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QtEndian>

namespace {

constexpr int headerSize = 8;
constexpr char preloginRequest = 0x12;
constexpr char loginRequest = 0x10;
constexpr char procedureRequest = 0x03;

template <typename T>
QByteArray little(T number) {
    QByteArray bytes(sizeof(T), '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

QByteArray utf16(const QString& text) {
    QByteArray bytes;
    for (const QChar c : text)
        bytes += little(static_cast<quint16>(c.unicode()));
    return bytes;
}

QByteArray reply(const QByteArray& body) {
    QByteArray packet("\x04\x01", 2);
    packet += QByteArray(6, '\0');
    qToBigEndian(static_cast<quint16>(body.size() + headerSize), packet.data() + 2);
    return packet + body;
}

/// Version, and that nothing is encrypted here.
QByteArray preloginReply() {
    return reply(QByteArray("\x00\x00\x0b\x00\x06\x01\x00\x11\x00\x01\xff\x0f\x00\x00\x00\x00\x00\x02", 18));
}

QByteArray byteText(const QString& text) {
    return QByteArray(1, static_cast<char>(text.size())) + utf16(text);
}

QByteArray done(char mark, quint16 status, quint64 rows) {
    return QByteArray(1, mark) + little(status) + little(quint16{0xC1}) + little(rows);
}

/// What ends a reply that tells a number of rows; a procedure's ends once more.
QByteArray counted(bool ofProcedure, quint64 rows) {
    constexpr quint16 hasCount = 0x10;
    if (!ofProcedure)
        return done('\xfd', hasCount, rows);
    return done('\xff', hasCount | 1, rows) + QByteArray("\x79\x00\x00\x00\x00", 5) + done('\xfe', 0, 0);
}

QByteArray welcome() {
    const QByteArray body =
        QByteArray("\x01\x74\x00\x00\x04", 5) + byteText("Microsoft SQL Server") + QByteArray("\x0f\x00\x07\xd0", 4);
    return reply('\xad' + little(static_cast<quint16>(body.size())) + body + done('\xfd', 0, 0));
}

/// One row, each column an nvarchar(4000).
QByteArray oneRow(const QStringList& texts, bool ofProcedure) {
    const QByteArray column("\x00\x00\x00\x00\x09\x00\xe7\x40\x1f\x09\x04\xd0\x00\x34", 14);
    QByteArray body = '\x81' + little(static_cast<quint16>(texts.size()));
    for (qsizetype i = 0; i < texts.size(); ++i)
        body += column + byteText("cell");
    body += '\xd1';
    for (const QString& text : texts) {
        const QByteArray letters = utf16(text);
        body += little(static_cast<quint16>(letters.size())) + letters;
    }
    return reply(body + counted(ofProcedure, 1));
}

QByteArray refusal(const std::vector<ServerDouble::Message>& messages) {
    QByteArray body;
    for (const ServerDouble::Message& message : messages) {
        QByteArray error = little(static_cast<quint32>(message.number)) + QByteArray("\x01\x0e", 2);
        error += little(static_cast<quint16>(message.text.size())) + utf16(message.text);
        error += QByteArray(2, '\0') + little(quint32{1});
        body += '\xaa' + little(static_cast<quint16>(error.size())) + error;
    }
    body += done('\xfd', 2, 0);
    return reply(body);
}

QByteArray receive(int socket, qsizetype count) {
    QByteArray bytes(count, '\0');
    qsizetype received = 0;
    while (received < count) {
        const auto more = recv(socket, bytes.data() + received, static_cast<std::size_t>(count - received), 0);
        if (more <= 0)
            return {};
        received += more;
    }
    return bytes;
}

/// The text that the pair of place and length at `at` tells of.
QByteArray loginField(const QByteArray& login, int at) {
    const auto place = qFromLittleEndian<quint16>(login.constData() + at);
    const auto length = qFromLittleEndian<quint16>(login.constData() + at + 2);
    return login.mid(place, qsizetype{length} * 2);
}

QString fromUtf16(const QByteArray& bytes) {
    QString text;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
        text += QChar(qFromLittleEndian<quint16>(bytes.constData() + i));
    return text;
}

}  // namespace

ServerDouble::ServerDouble(std::vector<Message> messages, const QString& answer, int port)
    : messages_(std::move(messages)), answer_(answer) {
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    const int again = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &again, sizeof(again));
    sockaddr_in address{};
    address.sin_port = htons(static_cast<in_port_t>(port));
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, plain, size) != 0 || listen(listener_, 4) != 0 || getsockname(listener_, plain, &size) != 0)
        qFatal("No port for the server double.");
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { serve(); });
}

ServerDouble::~ServerDouble() {
    ending_ = true;
    shutdown(listener_, SHUT_RDWR);
    cutAll();
    thread_.join();
    close(listener_);
}

void ServerDouble::serve() {
    std::vector<int> silent;
    while (!ending_) {
        const int caller = accept(listener_, nullptr, nullptr);
        if (caller < 0)
            break;
        if (messages_.empty() && answer_.isNull()) {
            silent.push_back(caller);
            continue;
        }
        {
            const std::lock_guard lock(mutex_);
            caller_ = caller;
        }
        converse(caller);
        const std::lock_guard lock(mutex_);
        caller_ = -1;
        close(caller);
    }
    for (const int caller : silent)
        close(caller);
}

void ServerDouble::converse(int caller) {
    for (;;) {
        const QByteArray header = receive(caller, headerSize);
        if (header.isEmpty())
            return;
        const auto length = qFromBigEndian<quint16>(header.constData() + 2);
        const QByteArray packet = replyTo(header[0], receive(caller, length - headerSize));
        if (packet.isNull())
            return;
        send(caller, packet.constData(), static_cast<std::size_t>(packet.size()), MSG_NOSIGNAL);
    }
}

QByteArray ServerDouble::replyTo(char type, const QByteArray& body) {
    const std::lock_guard lock(mutex_);
    if (type == preloginRequest)
        return preloginReply();
    if (type == loginRequest) {
        readLogin(body);
        ++logins_;
        return messages_.empty() ? welcome() : refusal(messages_);
    }
    received_ += body;
    const bool ofProcedure = type == procedureRequest;
    if (const auto rule = ruleFor(body)) {
        if (rule->kind == Rule::Refuse)
            return refusal({rule->message});
        if (rule->kind == Rule::Answer)
            return oneRow(rule->row, ofProcedure);
        return rule->kind == Rule::Cut ? QByteArray() : QByteArray("");
    }
    return body.contains(utf16("Select")) ? oneRow({answer_}, ofProcedure) : reply(counted(ofProcedure, 1));
}

int ServerDouble::timesReceived(const QString& text) const {
    const std::lock_guard lock(mutex_);
    return static_cast<int>(received_.count(utf16(text)));
}

void ServerDouble::set(const QString& text, const Rule& rule) {
    const std::lock_guard lock(mutex_);
    rules_.emplace_back(utf16(text), rule);
}

std::optional<ServerDouble::Rule> ServerDouble::ruleFor(const QByteArray& body) const {
    for (const auto& [text, rule] : rules_)
        if (body.contains(text))
            return rule;
    return std::nullopt;
}

void ServerDouble::cutAll() {
    const std::lock_guard lock(mutex_);
    if (caller_ >= 0)
        shutdown(caller_, SHUT_RDWR);
}

void ServerDouble::readLogin(const QByteArray& login) {
    constexpr int userField = 40;
    constexpr int passwordField = 44;
    constexpr int databaseField = 68;
    user_ = fromUtf16(loginField(login, userField));
    database_ = fromUtf16(loginField(login, databaseField));
    QByteArray password = loginField(login, passwordField);
    for (char& c : password) {
        const auto plain = static_cast<unsigned char>(static_cast<unsigned char>(c) ^ 0xA5U);
        c = static_cast<char>((plain << 4U) | (plain >> 4U));
    }
    password_ = fromUtf16(password);
}
