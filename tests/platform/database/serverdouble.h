#pragma once

#include <atomic>
#include <mutex>
#include <QByteArray>
#include <QString>
#include <thread>
#include <vector>

/// Stands for a SQL Server at a port of this computer: speaks just enough of the wire protocol to read a login and to
/// refuse it, to answer every Select with one row of one text, or never to answer at all.
class ServerDouble {
  public:
    struct Message {
        int number;
        QString text;
    };
    static ServerDouble silent() { return ServerDouble({}, {}); }
    static ServerDouble refusing(std::vector<Message> messages) { return ServerDouble(std::move(messages), {}); }
    static ServerDouble answering(const QString& text) { return ServerDouble({}, text); }
    ~ServerDouble();
    ServerDouble(const ServerDouble&) = delete;
    ServerDouble& operator=(const ServerDouble&) = delete;

    [[nodiscard]] int port() const { return port_; }
    // What the last login told; to be read once it is over.
    [[nodiscard]] const QString& user() const { return user_; }
    [[nodiscard]] const QString& password() const { return password_; }
    [[nodiscard]] const QString& database() const { return database_; }
    /// Whether a request held this text, letter for letter.
    [[nodiscard]] bool received(const QString& text) const;

  private:
    ServerDouble(std::vector<Message> messages, const QString& answer);
    void serve();
    void converse(int caller);
    [[nodiscard]] QByteArray replyTo(char type, const QByteArray& body);
    void readLogin(const QByteArray& login);

    std::vector<Message> messages_;
    QString answer_;
    int listener_ = -1;
    int port_ = 0;
    QString user_, password_, database_;
    mutable std::mutex mutex_;
    QByteArray received_;
    std::atomic<bool> ending_{false};
    std::thread thread_;
};
