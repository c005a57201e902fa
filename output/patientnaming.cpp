#include "output/patientnaming.h"

#include <algorithm>
#include <QStringList>
#include <QTextBoundaryFinder>

#include "session/preferences.h"
#include "session/session.h"

namespace {

const QString Category = QStringLiteral("Export");

QString keyOf(ExportFormat format) {
    switch (format) {
        case ExportFormat::StandardCalendar:
            return QStringLiteral("NamesInStandardCalendar");
        case ExportFormat::HtmlPage:
            return QStringLiteral("NamesInHTML");
        case ExportFormat::FixedCalendar:
            break;
    }
    return QStringLiteral("NamesInCalendar");
}

QString wordOf(PatientNaming naming) {
    switch (naming) {
        case PatientNaming::Initials:
            return QStringLiteral("Initials");
        case PatientNaming::PatientNumber:
            return QStringLiteral("Number");
        case PatientNaming::FullName:
            break;
    }
    return QStringLiteral("Full");
}

/// Returns the first letter or digit of a word, with its accents, or an empty text.
QString initialOf(const QString& word) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, word);
    for (qsizetype start = 0, end = finder.toNextBoundary(); end >= 0; start = end, end = finder.toNextBoundary()) {
        const QString letter = word.mid(start, end - start);
        const QList<uint> points = letter.toUcs4();
        if (std::any_of(points.begin(), points.end(), [](uint point) { return QChar::isLetterOrNumber(point); }))
            return letter.toUpper();
    }
    return {};
}

}  // namespace

PatientNaming NamingIn(ExportFormat format) {
    const QString chosen =
        GetPreference(Session().SchedulerIni, keyOf(format), Category, QString::fromLatin1(AllUsers));
    const auto* naming = std::find_if(AllPatientNamings.begin(), AllPatientNamings.end(),
                                      [&](PatientNaming one) { return wordOf(one) == chosen; });
    if (naming != AllPatientNamings.end())
        return *naming;
    return format == ExportFormat::StandardCalendar ? PatientNaming::Initials : PatientNaming::FullName;
}

bool KeepNaming(ExportFormat format, PatientNaming naming) {
    return SetPreference(wordOf(naming), keyOf(format), Category);
}

QString InitialsOf(const QString& name) {
    const QString surname = name.section(u',', 0, 0);
    const QString givenNames = name.section(u',', 1);
    QStringList initials;
    for (const QString& word : (givenNames + u' ' + surname).simplified().split(u' '))
        if (const QString initial = initialOf(word); !initial.isEmpty())
            initials << initial + u'.';
    return initials.join(u' ');
}
