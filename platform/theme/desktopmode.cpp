#include "platform/theme/desktopmode.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace {

const QString Service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString Group = QStringLiteral("org.freedesktop.appearance");
const QString Key = QStringLiteral("color-scheme");
/// The name of a connection of our own, because the library's shared one stays dead once anybody has asked for it
/// without a bus.
const QString ConnectionName = QStringLiteral("svscheduler-look");
constexpr int AnswerWithinMilliseconds = 2000;

}  // namespace

std::optional<ThemeMode> ModeFromPortal(const QVariant& answer) {
    if (answer.canConvert<QDBusVariant>())
        return ModeFromPortal(answer.value<QDBusVariant>().variant());
    switch (answer.toUInt()) {
        case 1:
            return ThemeMode::Dark;
        case 2:
            return ThemeMode::Light;
        default:
            return std::nullopt;
    }
}

DesktopMode::~DesktopMode() {
    QDBusConnection::disconnectFromBus(ConnectionName);
}

void DesktopMode::watch() {
    // Without an address the client library would try to start a bus of its own.
    const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (address.isEmpty())
        return;
    // The slot is found by the type name of its parameter.
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    QDBusConnection bus = QDBusConnection::connectToBus(address, ConnectionName);
    bus.connect(Service, Path, Interface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(Service, Path, Interface, QStringLiteral("Read"));
    question << Group << Key;
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(question, AnswerWithinMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* call) {
        const QDBusPendingReply<QDBusVariant> reply = *call;
        if (reply.isValid())
            settingChanged(Group, Key, reply.value());
        call->deleteLater();
    });
}

void DesktopMode::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group != Group || key != Key)
        return;
    if (const std::optional<ThemeMode> mode = ModeFromPortal(value.variant()))
        Q_EMIT told(*mode);
}
