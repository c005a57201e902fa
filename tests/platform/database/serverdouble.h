#pragma once

#include <atomic>
#include <mutex>
#include <optional>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <thread>
#include <vector>

/// Stands for a SQL Server at a port of this computer: speaks just enough of the wire protocol to read a login and to
/// refuse it, to answer every Select with one row of one text, or never to answer at all. It has one caller at a time.
class ServerDouble {
  public:
    struct Message {
        int number;
        QString text;
    };
    static ServerDouble silent() { return ServerDouble({}, {}); }
    static ServerDouble refusing(std::vector<Message> messages) { return ServerDouble(std::move(messages), {}); }
    static ServerDouble answering(const QString& text, int port = 0) { return ServerDouble({}, text, port); }
    ~ServerDouble();
    ServerDouble(const ServerDouble&) = delete;
    ServerDouble& operator=(const ServerDouble&) = delete;

    [[nodiscard]] int port() const { return port_; }
    // What the last login told; to be read once it is over.
    [[nodiscard]] const QString& user() const { return user_; }
    [[nodiscard]] const QString& password() const { return password_; }
    [[nodiscard]] const QString& database() const { return database_; }
    /// Whether a request held this text, letter for letter.
    [[nodiscard]] bool received(const QString& text) const { return timesReceived(text) > 0; }
    [[nodiscard]] int timesReceived(const QString& text) const;
    [[nodiscard]] int logins() const { return logins_; }

    /// From now on a request that holds this text is refused, cuts the connection off, or is never answered.
    void refuse(const QString& text, const Message& message) { set(text, {Rule::Refuse, message, {}}); }
    void cutAt(const QString& text) { set(text, {Rule::Cut, {}, {}}); }
    void keepSilentAt(const QString& text) { set(text, {Rule::KeepSilent, {}, {}}); }
    /// From now on such a request is answered with one row of these texts.
    void answer(const QString& text, const QStringList& row) { set(text, {Rule::Answer, {}, row}); }
    /// Cuts off whoever is connected, as a server does that is started anew.
    void cutAll();

  private:
    struct Rule {
        enum Kind { Refuse, Cut, KeepSilent, Answer } kind;
        Message message;
        QStringList row;
    };
    ServerDouble(std::vector<Message> messages, const QString& answer, int port = 0);
    void set(const QString& text, const Rule& rule);
    [[nodiscard]] std::optional<Rule> ruleFor(const QByteArray& body) const;
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
    std::vector<std::pair<QByteArray, Rule>> rules_;
    int caller_ = -1;
    std::atomic<int> logins_{0};
    std::atomic<bool> ending_{false};
    std::thread thread_;
};
