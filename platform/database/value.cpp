#include "platform/database/value.h"

#include <algorithm>
#include <cmath>

#include "platform/database/datetext.h"
#include "platform/database/overloaded.h"

namespace db {

double NumberAtStart(QStringView text) {
    const QStringView trimmed = text.trimmed();
    qsizetype length = 0;
    bool point = false;
    bool digits = false;
    if (length < trimmed.size() && (trimmed[length] == u'-' || trimmed[length] == u'+'))
        ++length;
    for (; length < trimmed.size(); ++length) {
        const char16_t c = trimmed[length].unicode();
        if (c == u'.' && !point)
            point = true;
        else if (c >= u'0' && c <= u'9')
            digits = true;
        else
            break;
    }
    return digits ? trimmed.first(length).toDouble() : 0;
}

qint64 WholeNumber(double number) {
    constexpr double limit = 9.2e18;
    return std::isfinite(number) ? static_cast<qint64>(std::clamp(number, -limit, limit)) : 0;
}

QString NumberText(double number) {
    return QString::number(number, 'g', 15);
}

Value::Value(QDate v) {
    if (v.isValid())
        data_ = QDateTime(v, QTime(0, 0), Qt::UTC);
}

Value::Value(QDateTime v) {
    if (!v.isValid())
        return;
    v = QDateTime(v.date(), v.time(), Qt::UTC);
    data_ = std::move(v);
}

QString Value::text() const {
    return std::visit(Overloaded{[](std::monostate) { return QString(); }, [](qint64 v) { return QString::number(v); },
                                 [](double v) { return NumberText(v); }, [](const QString& v) { return v; },
                                 [](const QDateTime& v) { return v.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")); },
                                 [](bool v) { return v ? QStringLiteral("1") : QStringLiteral("0"); }},
                      data_);
}

qint64 Value::integer() const {
    return std::visit(Overloaded{[](std::monostate) { return qint64{0}; }, [](qint64 v) { return v; },
                                 [](double v) { return WholeNumber(v); },
                                 [](const QString& v) {
                                     bool whole = false;
                                     const qint64 number = v.toLongLong(&whole);
                                     return whole ? number : WholeNumber(NumberAtStart(v));
                                 },
                                 [](const QDateTime&) { return qint64{0}; }, [](bool v) { return qint64{v}; }},
                      data_);
}

double Value::real() const {
    if (const auto* number = std::get_if<double>(&data_))
        return *number;
    if (const auto* text = std::get_if<QString>(&data_))
        return NumberAtStart(*text);
    return static_cast<double>(integer());
}

bool Value::boolean() const {
    if (const auto* text = std::get_if<QString>(&data_); text && text->compare(u"true", Qt::CaseInsensitive) == 0)
        return true;
    return real() != 0;
}

QDate Value::date() const {
    return dateTime().date();
}

QDateTime Value::dateTime() const {
    if (const auto* moment = std::get_if<QDateTime>(&data_))
        return *moment;
    const auto* text = std::get_if<QString>(&data_);
    if (!text || text->trimmed().isEmpty())
        return {};
    const auto read = ReadDateTime(text->toUtf8());
    return read ? ToDateTime(*read) : QDateTime();
}

}  // namespace db
