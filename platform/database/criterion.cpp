#include "platform/database/criterion.h"

#include <QRegularExpression>

#include "platform/database/error.h"

namespace db {

namespace {

DatabaseError unreadable() {
    return {3001,
            QStringLiteral(
                "Arguments are of the wrong type, are out of acceptable range, or are in conflict with one another.")};
}

/// Blanks at the end do not count, as on the server.
QStringView withoutTrailingBlanks(QStringView text) {
    while (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    return text;
}

template <typename T>
int orderOf(const T& left, const T& right) {
    return left < right ? -1 : (right < left ? 1 : 0);
}

/// Returns null for digits that are no number, such as 1.2.3.
Value numberOf(const QString& text) {
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber ? Value(number) : Value();
}

/// Matches the pattern of Like: % any letters, _ one letter.
bool isLike(QStringView text, QStringView pattern) {
    while (!pattern.isEmpty() && pattern.front() != QLatin1Char('%')) {
        if (text.isEmpty())
            return false;
        if (pattern.front() != QLatin1Char('_') && text.first(1).compare(pattern.first(1), Qt::CaseInsensitive) != 0)
            return false;
        text = text.sliced(1);
        pattern = pattern.sliced(1);
    }
    if (pattern.isEmpty())
        return text.isEmpty();
    pattern = pattern.sliced(1);
    for (qsizetype skipped = 0; skipped <= text.size(); ++skipped) {
        if (isLike(text.sliced(skipped), pattern))
            return true;
    }
    return false;
}

}  // namespace

Criterion::Criterion(const QString& text) {
    static const QRegularExpression grammar(
        QStringLiteral(
            R"(^\s*(?:\[(?<bracketed>[^\]]+)\]|(?<bare>[\w.]+))\s*(?<operator><=|>=|<>|=|<|>|\blike\b)\s*(?:'(?<text>(?:[^']|'')*)'|#(?<date>[^#]*)#|(?<null>null)|(?<number>[-+]?[\d.]+))\s*$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    static const QMap<QString, Operator> operators{
        {QStringLiteral("="), Operator::Equal},   {QStringLiteral("<>"), Operator::NotEqual},
        {QStringLiteral("<"), Operator::Less},    {QStringLiteral("<="), Operator::LessOrEqual},
        {QStringLiteral(">"), Operator::Greater}, {QStringLiteral(">="), Operator::GreaterOrEqual},
        {QStringLiteral("like"), Operator::Like},
    };
    const QRegularExpressionMatch match = grammar.match(text);
    if (!match.hasMatch())
        throw unreadable();
    column_ = match.captured(QStringLiteral("bracketed")) + match.captured(QStringLiteral("bare"));
    operator_ = operators.value(match.captured(QStringLiteral("operator")).toLower());
    if (match.capturedStart(QStringLiteral("text")) >= 0)
        value_ = match.captured(QStringLiteral("text")).replace(QLatin1String("''"), QLatin1String("'"));
    else if (match.capturedStart(QStringLiteral("date")) >= 0)
        value_ = Value(match.captured(QStringLiteral("date"))).dateTime();
    else if (match.capturedStart(QStringLiteral("number")) >= 0)
        value_ = numberOf(match.captured(QStringLiteral("number")));
    if (value_.isNull() && match.capturedStart(QStringLiteral("null")) < 0)
        throw unreadable();
}

bool Criterion::isMetBy(const Field& field, ColumnType type) const {
    if (value_.isNull())
        return (operator_ == Operator::Equal && field.isNull()) || (operator_ == Operator::NotEqual && !field.isNull());
    if (field.isNull())
        return false;
    if (operator_ == Operator::Like)
        return isLike(withoutTrailingBlanks(field.text()), value_.text());
    switch (type) {
        case ColumnType::Text:
            return holds(
                withoutTrailingBlanks(field.text()).compare(withoutTrailingBlanks(value_.text()), Qt::CaseInsensitive));
        case ColumnType::DateTime:
            return value_.dateTime().isValid() && holds(orderOf(field.dateTime(), value_.dateTime()));
        case ColumnType::Boolean:
            return holds(orderOf(field.boolean(), value_.boolean()));
        case ColumnType::Integer:
        case ColumnType::Real:
            break;
    }
    return holds(orderOf(field.real(), value_.real()));
}

bool Criterion::holds(int order) const {
    switch (operator_) {
        case Operator::Equal:
        case Operator::Like:
            return order == 0;
        case Operator::NotEqual:
            return order != 0;
        case Operator::Less:
            return order < 0;
        case Operator::LessOrEqual:
            return order <= 0;
        case Operator::Greater:
            return order > 0;
        case Operator::GreaterOrEqual:
            return order >= 0;
    }
    return false;
}

}  // namespace db
