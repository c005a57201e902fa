#include "tests/platform/websign/signatureservice.h"

#include <gtest/gtest.h>

#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTcpSocket>
#include <QUrl>

#include "tests/support/files.h"

namespace {

QByteArray response(const QByteArray& line, const QByteArray& headers, const QByteArray& body) {
    return "HTTP/1.1 " + line + "\r\nConnection: close\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" +
           headers + "\r\n" + body;
}

void sendAll(QTcpSocket* connection, const QByteArray& raw) {
    connection->write(raw);
    connection->disconnectFromHost();
}

}  // namespace

SignatureService::SignatureService() {
    listen(std::make_unique<QTcpServer>());
}

void SignatureService::secure(const QString& certificate, const QString& key) {
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificateChain(QSslCertificate::fromPath(certificate));
    configuration.setPrivateKey(QSslKey(FileBytes(key), QSsl::Ec));
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(configuration);
    scheme_ = QStringLiteral("https");
    listen(std::move(server));
}

void SignatureService::listen(std::unique_ptr<QTcpServer> server) {
    server_ = std::move(server);
    EXPECT_TRUE(server_->listen(QHostAddress::LocalHost));
    QObject::connect(server_.get(), &QTcpServer::pendingConnectionAvailable, server_.get(), [this] {
        while (QTcpSocket* connection = server_->nextPendingConnection())
            serve(connection);
    });
}

void SignatureService::page(const QString& path, const QByteArray& html) {
    status(path, "200 OK", "Content-Type: text/html; charset=utf-8\r\n", html);
}

void SignatureService::bytes(const QString& path, const QByteArray& raw) {
    answers_[path] = [raw](QTcpSocket* connection) { sendAll(connection, raw); };
}

void SignatureService::status(const QString& path, const QByteArray& line, const QByteArray& headers,
                              const QByteArray& body) {
    bytes(path, response(line, headers, body));
}

void SignatureService::silence(const QString& path) {
    answers_[path] = [](QTcpSocket*) {};
}

QString SignatureService::address(const QString& path) const {
    return QStringLiteral("%1://127.0.0.1:%2%3").arg(scheme_).arg(server_->serverPort()).arg(path);
}

void SignatureService::serve(QTcpSocket* connection) {
    QObject::connect(connection, &QTcpSocket::disconnected, connection, &QObject::deleteLater);
    auto request = std::make_shared<QByteArray>();
    QObject::connect(connection, &QTcpSocket::readyRead, connection, [this, connection, request] {
        *request += connection->readAll();
        if (request->contains("\r\n\r\n"))
            answer(connection, std::exchange(*request, {}));
    });
}

void SignatureService::answer(QTcpSocket* connection, const QByteArray& request) {
    const QUrl url(QString::fromLatin1(request.split(' ').value(1)));
    sawCookie_ = sawCookie_ || request.toLower().contains("\r\ncookie:");
    if (url.path() != QLatin1String("/favicon.ico"))
        asked_ << url.toString();
    if (const auto found = answers_.find(url.path()); found != answers_.end())
        found->second(connection);
    else
        sendAll(connection, response("404 Not Found", {}, "Not here."));
}
