#include "tests/support/triplog.h"

#include <QLoggingCategory>

#include "platform/database/connection.h"

namespace {

QStringList& lines() {
    static QStringList sent;
    return sent;
}

QtMessageHandler before = nullptr;

void keepTrips(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (qstrcmp(context.category, "svscheduler.trips") == 0)
        lines() << message;
    else if (before != nullptr)
        before(type, context, message);
}

}  // namespace

TripLog::TripLog() {
    lines().clear();
    QLoggingCategory::setFilterRules(QStringLiteral("svscheduler.trips.debug=true"));
    before = qInstallMessageHandler(keepTrips);
}

TripLog::~TripLog() {
    qInstallMessageHandler(before);
    QLoggingCategory::setFilterRules({});
}

const QStringList& TripLog::sent() const {
    return lines();
}

testing::AssertionResult TakesAtMost(int trips, const std::function<void()>& step) {
    const TripLog log;
    const qint64 before = db::Connection::Trips();
    step();
    const qint64 taken = db::Connection::Trips() - before;
    if (taken != log.sent().size())
        return testing::AssertionFailure() << taken << " trips, of which " << log.sent().size() << " were told";
    if (taken <= trips)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << taken << " trips instead of " << trips << ":\n"
                                       << log.sent().join(QLatin1Char('\n')).toStdString();
}
