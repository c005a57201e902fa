#include "platform/theme/desktopmode.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QSignalSpy>

namespace {

/// A message bus of its own for this program, gone with the object.
class PrivateBus {
  public:
    PrivateBus() {
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        daemon_.waitForStarted();
        daemon_.waitForReadyRead();
        address_ = QString::fromLatin1(daemon_.readLine()).trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address_.toLatin1());
    }
    ~PrivateBus() {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        daemon_.kill();
        daemon_.waitForFinished();
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    [[nodiscard]] const QString& address() const { return address_; }

  private:
    QProcess daemon_;
    QString address_;
};

/// The settings portal of a desktop: answers Read with the scheme, wrapped twice as real ones do.
class Portal : public QDBusVirtualObject {
  public:
    explicit Portal(const QString& address) : bus_(QDBusConnection::connectToBus(address, QStringLiteral("portal"))) {
        bus_.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/desktop"), this);
        bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~Portal() override { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }
    Q_DISABLE_COPY(Portal)

    [[nodiscard]] bool isConnected() const { return bus_.isConnected(); }
    void change(const char* group, const char* key, uint value) {
        scheme = value;
        QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
                                                         QStringLiteral("org.freedesktop.portal.Settings"),
                                                         QStringLiteral("SettingChanged"));
        signal << QString::fromLatin1(group) << QString::fromLatin1(key) << QVariant::fromValue(QDBusVariant(value));
        bus_.send(signal);
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (message.member() != QLatin1String("Read"))
            return false;
        const QDBusVariant inner(scheme);
        return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
    }

    uint scheme = 1;

  private:
    QDBusConnection bus_;
};

}  // namespace

TEST(DesktopModeTest, TheDesktopsModeIsHeardAtTheStartAndAtEachChange) {
    const PrivateBus bus;
    Portal portal(bus.address());
    ASSERT_TRUE(portal.isConnected());
    DesktopMode desktop;
    QSignalSpy told(&desktop, &DesktopMode::told);
    desktop.watch();
    ASSERT_TRUE(told.wait());
    EXPECT_EQ(told.takeFirst()[0].value<ThemeMode>(), ThemeMode::Dark);

    portal.change("org.freedesktop.appearance", "contrast", 1);
    portal.change("org.freedesktop.appearance", "color-scheme", 0);
    portal.change("org.freedesktop.appearance", "color-scheme", 2);
    ASSERT_TRUE(told.wait());
    ASSERT_EQ(told.count(), 1);
    EXPECT_EQ(told[0][0].value<ThemeMode>(), ThemeMode::Light);
}

TEST(DesktopModeTest, WithoutASessionBusNobodyIsAsked) {
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    DesktopMode desktop;
    desktop.watch();
    EXPECT_TRUE(desktop.children().isEmpty());
}
