#pragma once

#include <atomic>
#include <QString>
#include <thread>
#include <utility>
#include <vector>

/// A server at a port of this computer that speaks just enough of the wire protocol to read a login and to refuse it,
/// or never answers at all.
class RefusingServer {
  public:
    struct Message {
        int number;
        QString text;
    };
    /// Without messages it takes the call and stays silent.
    explicit RefusingServer(std::vector<Message> messages);
    ~RefusingServer();
    RefusingServer(const RefusingServer&) = delete;
    RefusingServer& operator=(const RefusingServer&) = delete;

    [[nodiscard]] int port() const { return port_; }
    /// What the last login told; read it after the login has failed.
    [[nodiscard]] const QString& user() const { return user_; }
    [[nodiscard]] const QString& password() const { return password_; }
    [[nodiscard]] const QString& database() const { return database_; }

  private:
    void serve();
    void answer(int socket);
    void readLogin(const QByteArray& login);

    std::vector<Message> messages_;
    int listener_ = -1;
    int port_ = 0;
    QString user_, password_, database_;
    std::atomic<bool> ending_{false};
    std::thread thread_;
};
