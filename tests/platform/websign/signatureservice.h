#pragma once

#include <functional>
#include <map>
#include <memory>
#include <QByteArray>
#include <QStringList>
#include <QTcpServer>

class QTcpSocket;

/// A small web service on this computer, as a practice's signature service would be one. Each path is answered as the
/// test says; a path that the test did not tell is answered with 404.
class SignatureService {
  public:
    SignatureService();

    /// Speaks HTTPS from now on, with this certificate and key (PEM files).
    void secure(const QString& certificate, const QString& key);
    /// Answers this path with a page of HTML.
    void page(const QString& path, const QByteArray& html);
    /// Answers this path with exactly these bytes, and then closes the connection.
    void bytes(const QString& path, const QByteArray& raw);
    /// Answers this path with a status and headers ("302 Found", "Location: /b\r\n").
    void status(const QString& path, const QByteArray& line, const QByteArray& headers = {},
                const QByteArray& body = {});
    /// Takes the request for this path and never answers.
    void silence(const QString& path);

    /// The address of a path: "http://127.0.0.1:PORT/path", or https where it is secure.
    [[nodiscard]] QString address(const QString& path) const;
    /// The paths asked for, with their queries, in order; without the icon that every browser asks for.
    [[nodiscard]] const QStringList& asked() const { return asked_; }
    /// Whether any request brought a cookie.
    [[nodiscard]] bool sawCookie() const { return sawCookie_; }
    /// Takes no more connections.
    void stop() { server_->close(); }

  private:
    void listen(std::unique_ptr<QTcpServer> server);
    void serve(QTcpSocket* connection);
    void answer(QTcpSocket* connection, const QByteArray& request);

    std::unique_ptr<QTcpServer> server_;
    QString scheme_ = QStringLiteral("http");
    std::map<QString, std::function<void(QTcpSocket*)>> answers_;
    QStringList asked_;
    bool sawCookie_ = false;
};
