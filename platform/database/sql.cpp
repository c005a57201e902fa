#include "platform/database/sql.h"

#include <stdexcept>

#include "platform/database/error.h"
#include "platform/database/overloaded.h"
#include "platform/database/value.h"

namespace db {

namespace {

QString numberText(qint64 number) {
    return QString::number(number);
}

QString numberText(double number) {
    return NumberText(number);
}

/// Returns the text as it stands between single quotes. A NUL is removed, because it would end the statement early and
/// is never shown.
QString quoted(QString text) {
    return text.replace(QLatin1Char('\''), QLatin1String("''")).remove(QChar::Null);
}

bool hasLoneQuote(const QString& text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != QLatin1Char('\''))
            continue;
        if (i + 1 >= text.size() || text[i + 1] != QLatin1Char('\''))
            return true;
        ++i;
    }
    return false;
}

}  // namespace

QString LikeText(const QString& text) {
    QString pattern;
    for (const QChar c : text)
        pattern += c == u'%' || c == u'_' || c == u'[' ? QStringLiteral("[%1]").arg(c) : QString(c);
    return pattern;
}

QString SqlDate(QDate date) {
    return date.toString(QStringLiteral("yyyy/MM/dd"));
}

QString Bracketed(QString name) {
    return QLatin1Char('[') + name.replace(QLatin1Char(']'), QLatin1String("]]")) + QLatin1Char(']');
}

QString FillSql(const QString& statement, std::initializer_list<SqlArgument> arguments) {
    const auto mistake = [&](const char* what) {
        return std::logic_error(std::string(what) + ": " + statement.toStdString());
    };
    QString filled;
    filled.reserve(statement.size() + 64);
    const SqlArgument* argument = arguments.begin();
    bool inQuotes = false;
    bool loneQuote = false;
    const auto appendNumber = [&](const QString& number) {
        // Two minus signs in a row would start a comment.
        if (number.startsWith(QLatin1Char('-')) && filled.endsWith(QLatin1Char('-')))
            filled += QLatin1Char(' ');
        filled += number;
    };
    const auto requireQuotes = [&] {
        if (!inQuotes)
            throw mistake("Text or a date outside quotes");
    };
    qsizetype from = 0;
    const auto appendUpTo = [&](qsizetype end) {
        const QStringView text = QStringView(statement).sliced(from, end - from);
        inQuotes = inQuotes != (text.count(u'\'') % 2 == 1);
        filled += text;
        from = end + 2;
    };
    for (qsizetype place = 0; (place = statement.indexOf(QLatin1String("{}"), from)) >= 0;) {
        appendUpTo(place);
        if (argument == arguments.end())
            throw mistake("More places than arguments");
        std::visit(Overloaded{[&](const Raw& raw) {
                                  loneQuote = loneQuote || (inQuotes && hasLoneQuote(raw.text));
                                  filled += raw.text;
                              },
                              [&](const QString& text) {
                                  requireQuotes();
                                  filled += quoted(text);
                              },
                              [&](QDate date) {
                                  requireQuotes();
                                  filled += SqlDate(date);
                              },
                              [&](auto number) { appendNumber(numberText(number)); }},
                   argument->data_);
        ++argument;
    }
    appendUpTo(statement.size());
    if (argument != arguments.end())
        throw mistake("More arguments than places");
    if (loneQuote) {
        const QString tail = filled.sliced(filled.lastIndexOf(QLatin1Char('\'')) + 1);
        throw DatabaseError(105, QStringLiteral("Unclosed quotation mark after the character string '%1'.").arg(tail),
                            filled, QStringLiteral("42000"));
    }
    return filled;
}

}  // namespace db
