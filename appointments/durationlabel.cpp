#include "appointments/durationlabel.h"

#include "platform/controls/fieldflag.h"

namespace {

constexpr int HourMinutes = 60;

QString durationText(int minutes) {
    const int hours = minutes / HourMinutes;
    if (hours == 0)
        return QStringLiteral("%1 min").arg(minutes);
    if (minutes % HourMinutes == 0)
        return QStringLiteral("%1 h").arg(hours);
    return QStringLiteral("%1 h %2 min").arg(hours).arg(minutes % HourMinutes);
}

}  // namespace

DurationLabel::DurationLabel(QWidget* parent) : QLabel(parent) {
    setObjectName(QStringLiteral("lblduration"));
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setForegroundRole(QPalette::PlaceholderText);
    // Room for the longest hint, so that the row stands still while times are typed.
    setMinimumWidth(fontMetrics().horizontalAdvance(tr("ends before it starts")));
}

void DurationLabel::ShowTimes(int start, int end) {
    const bool known = start >= 0 && end >= 0;
    const bool backwards = known && end <= start;
    QPalette palette = parentWidget() != nullptr ? parentWidget()->palette() : QPalette();
    if (backwards)
        palette.setColor(foregroundRole(), FieldFlag::Colour(palette));
    setPalette(palette);
    if (backwards)
        setText(tr("ends before it starts"));
    else
        setText(known ? durationText(end - start) : QString());
}
