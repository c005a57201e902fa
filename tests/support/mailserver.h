#pragma once

#include <QFile>
#include <QMap>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <vector>

/// The certificate of a mail server, made for one test.
class MailCertificate {
  public:
    /// A certificate for this name, a domain or an IP address.
    explicit MailCertificate(const QString& name);

    /// The words by which a MailServer shows it.
    [[nodiscard]] QStringList options() const;
    /// The certificate, for who trusts it.
    [[nodiscard]] QString file() const { return folder_.filePath(QStringLiteral("certificate.pem")); }

  private:
    [[nodiscard]] QString key() const { return folder_.filePath(QStringLiteral("key.pem")); }

    QTemporaryDir folder_;
};

/// While the object lives, this program trusts the certificate instead of the system's authorities.
class TrustedCertificate {
  public:
    explicit TrustedCertificate(const MailCertificate& certificate) {
        qputenv("SSL_CERT_FILE", QFile::encodeName(certificate.file()));
    }
    ~TrustedCertificate() { qunsetenv("SSL_CERT_FILE"); }
    TrustedCertificate(const TrustedCertificate&) = delete;
    TrustedCertificate& operator=(const TrustedCertificate&) = delete;
};

/// A mail server (aiosmtpd) on a free port of 127.0.0.1, for one test.
class MailServer {
  public:
    struct Delivered {
        QString from;
        QStringList to;
        QStringList options;  ///< Of the sender, such as SMTPUTF8.
        QByteArray text;
        /// What a mail program shows of it: its headers by their names, the "body", and its "defects".
        QMap<QString, QString> read;
        bool encrypted = false;
        QString user;
    };

    /// `options` are those of mailserver.py, such as "--account", "desk:secret".
    explicit MailServer(const QStringList& options = {});
    ~MailServer();
    MailServer(const MailServer&) = delete;
    MailServer& operator=(const MailServer&) = delete;

    [[nodiscard]] int port() const { return port_; }
    /// All messages that it has taken.
    [[nodiscard]] std::vector<Delivered> messages();
    /// Waits until it has reached the place where its options hang, close or stall a conversation.
    void awaitPlace() { ask("await"); }
    /// Lets a stalled conversation go on.
    void goOn() { ask("goon"); }
    /// Waits until every stalled conversation is over. Returns how many of them had the end of the message.
    [[nodiscard]] int wholeMessages();

  private:
    QByteArray answer();
    QByteArray ask(const QByteArray& words);

    QProcess process_;
    int port_ = 0;
};
