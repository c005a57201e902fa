#include "appointments/appointmentconflict.h"

#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QToolTip>
#include <QVBoxLayout>

#include "appointments/notice.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formparts.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"
#include "session/hiddennames.h"

namespace {

constexpr int PlaceColumn = 5;
constexpr int DateCharacters = 16;
constexpr int TimeCharacters = 12;
constexpr int PlaceCharacters = 20;
constexpr int FewestCharacters = 90;  // Of the list, so that a name can be read in what the other columns leave.
constexpr int FewestLines = 8;

}  // namespace

AppointmentConflict::AppointmentConflict(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("AppointmentConflict"));
    setWindowTitle(QStringLiteral("Appointment Conflict"));
    buildControls();
    layOutForm();
    cmdreschedule->setFocus();
    connect(ctList1, &ctList::SelectionChanged, this, &AppointmentConflict::tellLength);
    ctList1->viewport()->installEventFilter(this);
    FollowHiddenNames(ctList1);
    FollowHiddenNames(this, [this](bool) { tellLength(); });
    connect(cmdaccept, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdreschedule, &QPushButton::clicked, this, &QDialog::reject);
}

void AppointmentConflict::tellLength() {
    const int row = ctList1->SelectedRow();
    const QString text = ctList1->ShownCell(row, TextColumn);
    const QString who = (text.isEmpty() ? ctList1->ShownCell(row, PlaceColumn) : text).simplified();
    QString told = QStringLiteral("%1: %2").arg(who, ctList1->ItemText(row));
    if (const QString status = statuses_.value(row); !status.isEmpty())
        told += tr(" Status: %1.").arg(status);
    lbllength->setText(row < 0 ? QString() : told);
}

void AppointmentConflict::SetStatus(int row, const QString& status) {
    while (statuses_.size() <= row)
        statuses_ << QString();
    statuses_[row] = status;
    tellLength();
}

QString AppointmentConflict::TipOf(int row) const {
    if (row < 0 || row >= ctList1->RowCount())
        return {};
    QStringList lines;
    for (const int column : {TextColumn, PlaceColumn})
        lines << ctList1->ShownCell(row, column);
    lines << ctList1->ShownCell(row, 2) + QStringLiteral(" - ") + ctList1->ShownCell(row, 3);
    if (const QString status = statuses_.value(row); !status.isEmpty())
        lines << tr("Status: %1").arg(status);
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

bool AppointmentConflict::eventFilter(QObject* watched, QEvent* event) {
    if (watched != ctList1->viewport() || event->type() != QEvent::ToolTip)
        return QDialog::eventFilter(watched, event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString tip = TipOf(ctList1->indexAt(help->pos()).row());
    QToolTip::showText(help->globalPos(), tip.isEmpty() ? QString() : TipText(tip), ctList1);
    return true;
}

void AppointmentConflict::ShowAsRoomConflict() {
    setWindowTitle(QStringLiteral("Room Conflict"));
    ctList1->SetHeader(PlaceColumn, QStringLiteral("Room"));
    lblmessage->setText(QStringLiteral(
        "The appointment being scheduled conflicts with an existing appointment in the room listed below. You can accept the conflict or change the current appointment room, date or time."));
}

QSize AppointmentConflict::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 122, fontMetrics().height() * 22};
}

void AppointmentConflict::showEvent(QShowEvent* event) {
    if (ctList1->SelectedRow() < 0)
        ctList1->SelectRow(0);
    QDialog::showEvent(event);
}

void AppointmentConflict::buildControls() {
    lblmessage = NoticeLabel(
        QStringLiteral("lblmessage"),
        QStringLiteral(
            "The appointment being scheduled conflicts with an existing appointment(s) listed below. You can accept the conflict or change the date and/or time of the new appointment."),
        this);
    ctList1 = new ctList(this);
    ctList1->setObjectName(QStringLiteral("ctList1"));
    ctList1->setAccessibleName(QStringLiteral("Conflicts"));
    ctList1->SetColumns({{QStringLiteral("Date"), ListColumn::Kind::Text, DateCharacters},
                         {QStringLiteral("Start"), ListColumn::Kind::Text, TimeCharacters},
                         {QStringLiteral("End"), ListColumn::Kind::Text, TimeCharacters},
                         {QStringLiteral("Apt.")},
                         {QStringLiteral("Provider"), ListColumn::Kind::Text, PlaceCharacters}});
    ctList1->setMinimumSize(fontMetrics().averageCharWidth() * FewestCharacters, fontMetrics().height() * FewestLines);
    lbllength = NoticeLabel(QStringLiteral("lbllength"), {}, this);
    cmdaccept = new QPushButton(QStringLiteral("&Accept Conflict"), this);
    cmdaccept->setObjectName(QStringLiteral("cmdaccept"));
    cmdaccept->setAutoDefault(false);
    cmdreschedule = new QPushButton(QStringLiteral("&Reschedule"), this);
    cmdreschedule->setObjectName(QStringLiteral("cmdreschedule"));
    cmdreschedule->setDefault(true);
}

void AppointmentConflict::layOutForm() {
    auto* heading = new QLabel(QStringLiteral("&Conflicts with:"), this);
    heading->setFont(HeadingFont());
    heading->setBuddy(ctList1);
    auto* text = new QVBoxLayout;
    text->setSpacing(Space(4));
    text->addWidget(heading);
    text->addWidget(lblmessage);
    auto* buttons = ButtonRow({cmdaccept, cmdreschedule});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addLayout(NoticeLayout(text, this));
    column->addWidget(ctList1, 1);
    column->addWidget(lbllength);
    column->addLayout(buttons);
}
