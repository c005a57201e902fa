#include "session/formheading.h"

#include <QBoxLayout>
#include <QDialog>
#include <QLocale>

#include "platform/controls/ctdedit.h"
#include "platform/controls/formparts.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"

QString NamedDateText(QDate date) {
    static constexpr const char* formats[] = {"ddd, MMM d, yyyy", "ddd, d MMM yyyy", "yyyy MMM d, ddd"};
    return date.isValid() ? QLocale::c().toString(date, QLatin1String(formats[DateOrderOf(QLocale())])) : QString();
}

QString NamedDayText(QDate date) {
    static constexpr const char* formats[] = {"ddd, MMM d", "ddd, d MMM", "MMM d, ddd"};
    if (!date.isValid() || date.year() != Today().year())
        return NamedDateText(date);
    return QLocale::c().toString(date, QLatin1String(formats[DateOrderOf(QLocale())]));
}

FormHeading::FormHeading(QWidget* parent) : QLabel(parent) {
    setObjectName(QStringLiteral("lblheading"));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setFont(HeadingFont(1));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

FormHeading* FormHeading::Above(QDialog& form, const QString& what) {
    auto* heading = new FormHeading(&form);
    heading->SetWhat(what);
    static_cast<QBoxLayout*>(form.layout())->insertWidget(0, heading);
    return heading;
}

void FormHeading::SetWhat(const QString& what) {
    what_ = what;
    write();
}

void FormHeading::SetDay(QDate day) {
    day_ = NamedDateText(day);
    write();
}

void FormHeading::SetWhom(const QString& whom) {
    whom_ = whom;
    write();
}

void FormHeading::FollowDay(const ctDEdit& field) {
    SetDay(field.Date());
    connect(&field, &ctDEdit::Change, this, [this, day = &field] { SetDay(day->Date()); });
}

// A long name must not make the form wider than its screen.
QSize FormHeading::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 20, QLabel::minimumSizeHint().height()};
}

void FormHeading::write() {
    QStringList parts;
    for (const QString& part : {what_, day_, OneLine(whom_).trimmed()})
        if (!part.isEmpty())
            parts << part;
    setText(parts.join(QString::fromUtf8(" \u00b7 ")));
}
