#include "platform/desktop/localefacts.h"

int DateOrderOf(const QLocale& locale) {
    const QString format = locale.dateFormat(QLocale::ShortFormat);
    // Where no locale was chosen it is "C". Its short date names the month, "11 Mar 2026", and so does not say how
    // dates in figures are written.
    if (format == QLocale::c().dateFormat(QLocale::ShortFormat))
        return 0;
    for (const QChar c : format) {
        switch (c.unicode()) {
            case u'M':
                return 0;
            case u'd':
                return 1;
            case u'y':
                return 2;
            default:
                break;
        }
    }
    return 0;
}

QString LongDateText(QDate date) {
    static constexpr const char* formats[] = {"dddd, MMMM d, yyyy", "dddd, d MMMM yyyy", "yyyy MMMM d, dddd"};
    return QLocale::c().toString(date, QLatin1String(formats[DateOrderOf(QLocale())]));
}

QString ShortDateText(QDate date) {
    const QLocale locale;
    QString format = locale.dateFormat(QLocale::ShortFormat);
    if (!format.contains(QStringLiteral("yyyy")))
        format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    return locale.toString(date, format);
}
