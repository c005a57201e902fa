#include "tests/support/mailserver.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

/// A busy machine may take its time to start Python.
constexpr int Patience = 60'000;
/// Debian's own Python, which has Debian's packages.
const QString Python = QStringLiteral("/usr/bin/python3");

QStringList texts(const QJsonValue& list) {
    QStringList all;
    for (const QJsonValue& one : list.toArray())
        all << one.toString();
    return all;
}

QMap<QString, QString> namedTexts(const QJsonValue& object) {
    QMap<QString, QString> all;
    const QJsonObject members = object.toObject();
    for (auto member = members.begin(); member != members.end(); ++member)
        all.insert(member.key(), member.value().toString());
    return all;
}

}  // namespace

MailCertificate::MailCertificate(const QString& name) {
    const QString kind = name.back().isDigit() ? QStringLiteral("IP:") : QStringLiteral("DNS:");
    QProcess openssl;
    openssl.setProcessChannelMode(QProcess::MergedChannels);
    openssl.start(QStringLiteral("openssl"),
                  {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"), QStringLiteral("ec"),
                   QStringLiteral("-pkeyopt"), QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes"),
                   QStringLiteral("-days"), QStringLiteral("2"), QStringLiteral("-subj"), QStringLiteral("/CN=") + name,
                   QStringLiteral("-addext"), QStringLiteral("subjectAltName=") + kind + name,
                   QStringLiteral("-keyout"), key(), QStringLiteral("-out"), file()});
    openssl.waitForFinished(Patience);
    EXPECT_TRUE(QFile::exists(file())) << openssl.readAll().toStdString();
}

QStringList MailCertificate::options() const {
    return {QStringLiteral("--certificate"), file(), QStringLiteral("--key"), key()};
}

MailServer::MailServer(const QStringList& options) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(Python, QStringList(QStringLiteral(SVS_MAIL_SERVER)) + options);
    port_ = answer().toInt();
    EXPECT_GT(port_, 0) << "The mail server of the test does not start.";
}

MailServer::~MailServer() {
    process_.kill();
    process_.waitForFinished(Patience);
}

std::vector<MailServer::Delivered> MailServer::messages() {
    std::vector<Delivered> all;
    for (const QJsonValue& one : QJsonDocument::fromJson(ask("messages")).array())
        all.push_back({one[QStringLiteral("from")].toString(), texts(one[QStringLiteral("to")]),
                       texts(one[QStringLiteral("options")]), one[QStringLiteral("text")].toString().toLatin1(),
                       namedTexts(one[QStringLiteral("read")]), one[QStringLiteral("encrypted")].toBool(),
                       one[QStringLiteral("user")].toString()});
    return all;
}

int MailServer::wholeMessages() {
    int whole = 0;
    for (const QJsonValue& ended : QJsonDocument::fromJson(ask("ended")).array())
        whole += ended.toBool() ? 1 : 0;
    return whole;
}

QByteArray MailServer::answer() {
    while (!process_.canReadLine())
        if (!process_.waitForReadyRead(Patience)) {
            ADD_FAILURE() << "The mail server of the test does not answer.";
            return {};
        }
    return process_.readLine();
}

QByteArray MailServer::ask(const QByteArray& words) {
    process_.write(words + '\n');
    return answer();
}
