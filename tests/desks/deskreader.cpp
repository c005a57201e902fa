#include "tests/desks/deskreader.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QProcessEnvironment>

/// Names an object of a program on the bus.
struct SpokenObject {
    QString service;
    QDBusObjectPath path;
};
Q_DECLARE_METATYPE(SpokenObject)

namespace {

const QString Name = QStringLiteral("screen reader");
const QString Accessible = QStringLiteral("org.a11y.atspi.Accessible");
constexpr qsizetype MostChildren = 120;
constexpr uint LabelledBy = 2;
/// Bits of the states of AT-SPI.
enum State { Focusable = 11, Focused = 12, Showing = 25 };

const QDBusArgument& operator>>(const QDBusArgument& argument, SpokenObject& object) {
    argument.beginStructure();
    argument >> object.service >> object.path;
    argument.endStructure();
    return argument;
}

QVariant asked(const QDBusConnection& bus, const SpokenObject& object, const QString& interface, const QString& method,
               const QVariantList& arguments = {}) {
    QDBusMessage question = QDBusMessage::createMethodCall(object.service, object.path.path(), interface, method);
    question.setArguments(arguments);
    const QDBusMessage answer = bus.call(question);
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0) : QVariant();
}

QString property(const QDBusConnection& bus, const SpokenObject& object, const char* name) {
    const QVariant answer = asked(bus, object, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                                  {Accessible, QString::fromLatin1(name)});
    return answer.value<QDBusVariant>().variant().toString();
}

std::vector<SpokenObject> childrenOf(const QDBusConnection& bus, const SpokenObject& object) {
    std::vector<SpokenObject> children;
    const auto list = asked(bus, object, Accessible, QStringLiteral("GetChildren")).value<QDBusArgument>();
    if (list.currentType() != QDBusArgument::ArrayType)
        return children;
    for (list.beginArray(); !list.atEnd();) {
        SpokenObject child;
        list >> child;
        children.push_back(child);
    }
    list.endArray();
    return children;
}

quint64 statesOf(const QDBusConnection& bus, const SpokenObject& object) {
    const auto list = asked(bus, object, Accessible, QStringLiteral("GetState")).value<QDBusArgument>();
    if (list.currentType() != QDBusArgument::ArrayType)
        return 0;
    QList<uint> words;
    list >> words;
    return words.value(0) | quint64{words.value(1)} << 32;
}

/// What a relation of AT-SPI leads to, by its number.
QString related(const QDBusConnection& bus, const SpokenObject& object, uint relation) {
    const auto list = asked(bus, object, Accessible, QStringLiteral("GetRelationSet")).value<QDBusArgument>();
    if (list.currentType() != QDBusArgument::ArrayType)
        return {};
    QString name;
    for (list.beginArray(); !list.atEnd(); list.endStructure()) {
        uint kind = 0;
        list.beginStructure();
        list >> kind;
        for (list.beginArray(); !list.atEnd();) {
            SpokenObject target;
            list >> target;
            if (kind == relation)
                name = property(bus, target, "Name");
        }
        list.endArray();
    }
    return name;
}

bool has(quint64 states, State state) {
    return (states >> state & 1) != 0;
}

void hear(const QDBusConnection& bus, const SpokenObject& object, std::vector<Heard>& heard) {
    const quint64 states = statesOf(bus, object);
    if (!has(states, Showing))
        return;
    heard.push_back({asked(bus, object, Accessible, QStringLiteral("GetRoleName")).toString(),
                     property(bus, object, "Name"), property(bus, object, "Description"),
                     related(bus, object, LabelledBy), has(states, Focusable), has(states, Focused)});
    qsizetype left = MostChildren;
    for (const SpokenObject& child : childrenOf(bus, object))
        if (left-- > 0)
            hear(bus, child, heard);
}

/// Starts a session bus, which starts the accessibility bus when somebody asks for it. Returns the session's address.
QString startedSession(QProcess& daemon, const QString& runtime) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    daemon.setProcessEnvironment(environment);
    daemon.setStandardErrorFile(QProcess::nullDevice());
    daemon.start(QStringLiteral("dbus-daemon"),
                 {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    daemon.waitForStarted();
    daemon.waitForReadyRead();
    return QString::fromLatin1(daemon.readLine()).trimmed();
}

QString accessibilityAddress(const QString& session) {
    const QString name = QStringLiteral("session of the reader");
    const QDBusConnection bus = QDBusConnection::connectToBus(session, name);
    const QString address =
        asked(bus, {QStringLiteral("org.a11y.Bus"), QDBusObjectPath(QStringLiteral("/org/a11y/bus"))},
              QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"))
            .toString();
    QDBusConnection::disconnectFromBus(name);
    return address;
}

}  // namespace

DeskReader::DeskReader() : bus_(Name) {
    const QString session = startedSession(session_, runtime_.path());
    qputenv("DBUS_SESSION_BUS_ADDRESS", session.toLatin1());
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    bus_ = QDBusConnection::connectToBus(accessibilityAddress(session), Name);
    EXPECT_TRUE(bus_.isConnected()) << "There is no accessibility bus.";
}

DeskReader::~DeskReader() {
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON");
    QDBusConnection::disconnectFromBus(Name);
    session_.kill();  // The accessibility bus ends with it.
    session_.waitForFinished();
}

std::vector<Heard> DeskReader::Window(const QString& title) const {
    std::vector<Heard> heard;
    const SpokenObject registry{QStringLiteral("org.a11y.atspi.Registry"),
                                QDBusObjectPath(QStringLiteral("/org/a11y/atspi/accessible/root"))};
    for (const SpokenObject& program : childrenOf(bus_, registry))
        for (const SpokenObject& window : childrenOf(bus_, program))
            if (property(bus_, window, "Name").startsWith(title))
                hear(bus_, window, heard);
    return heard;
}
