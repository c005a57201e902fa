#include "appointments/attendeepanel.h"

#include <algorithm>
#include <QLabel>
#include <QVBoxLayout>

#include "appointments/attendeelist.h"
#include "platform/controls/formparts.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"
#include "session/formheading.h"

namespace {

constexpr int ListCharacters = 26;
constexpr int ListLines = 8;
constexpr int SummaryLines = 2;
constexpr int MostNames = 4;

}  // namespace

void HeadByAttendees(FormHeading& heading, const ctDEdit& day, const AttendeeList& attendees) {
    const auto show = [&heading, &attendees] {
        const QStringList names = attendees.SelectedNames();
        heading.SetWhom(names.size() > 2 ? AttendeePanel::tr("%1 providers").arg(names.size())
                                         : names.join(AttendeePanel::tr(" and ")));
    };
    heading.FollowDay(day);
    QObject::connect(&attendees, &QListWidget::itemSelectionChanged, &heading, show);
    show();
}

AttendeePanel::AttendeePanel(QWidget* parent) : QWidget(parent) {
    List1 = Named(new AttendeeList(this), "List1");
    List1->setAccessibleName(tr("Attendees"));
    List1->setMinimumSize(fontMetrics().averageCharWidth() * ListCharacters, fontMetrics().height() * ListLines);
    lblattendees = Named(new QLabel(this), "lblattendees");
    lblattendees->setTextFormat(Qt::PlainText);
    lblattendees->setWordWrap(true);
    lblattendees->setAlignment(Qt::AlignTop);
    // The form and its list keep their size, whoever is named.
    lblattendees->setFixedHeight(fontMetrics().lineSpacing() * SummaryLines);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(4));
    column->addWidget(FieldLabel(tr("&Attendees:"), List1));
    column->addWidget(List1, 1);
    column->addWidget(lblattendees);
    connect(List1, &QListWidget::itemSelectionChanged, this, &AttendeePanel::showAttendees);
    showAttendees();
}

void AttendeePanel::showAttendees() {
    const QStringList names = List1->SelectedNames();
    int named = std::min(MostNames, static_cast<int>(names.size()));
    while (named > 1 && !fits(summary(names, named)))
        --named;
    lblattendees->setText(summary(names, named));
    lblattendees->setToolTip(TipText(names.join(QLatin1Char('\n'))));
}

QString AttendeePanel::summary(const QStringList& names, int named) {
    const int count = static_cast<int>(names.size());
    if (count == 0)
        return tr("Nobody attends yet");
    const QString number = count == 1 ? tr("1 attendee") : tr("%1 attendees").arg(count);
    // Names that are written last name first are not parted by what stands within them.
    const bool lastNameFirst = names.join(QString()).contains(QLatin1Char(','));
    QString who = names.first(named).join(lastNameFirst ? QStringLiteral("; ") : QStringLiteral(", "));
    if (count > named)
        who += tr(" and %1 more").arg(count - named);
    return QStringLiteral("%1: %2").arg(number, who);
}

bool AttendeePanel::fits(const QString& text) const {
    const QFontMetrics metrics = lblattendees->fontMetrics();
    const QRect room(0, 0, std::max(List1->width(), List1->minimumWidth()), metrics.lineSpacing() * SummaryLines);
    return metrics.boundingRect(room, Qt::TextWordWrap, text).height() <= room.height();
}
