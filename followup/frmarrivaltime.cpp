#include "followup/frmarrivaltime.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "appointments/appointmentrows.h"
#include "appointments/appointmentwrites.h"
#include "followup/checkintime.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/datefield.h"
#include "platform/controls/formparts.h"
#include "platform/database/recordset.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;

namespace {

constexpr int LastMinute = 1439;

int minuteOfNow() {
    return Now().time().hour() * 60 + Now().time().minute();
}

}  // namespace

frmarrivalTime::frmarrivalTime(int CheckInKey, QWidget* parent) : QDialog(parent), checkInKey_(CheckInKey) {
    setObjectName(QStringLiteral("frmarrivalTime"));
    setWindowTitle(QStringLiteral("Arrival Time"));
    buildForm();
    LoadCheckedinStatus();
    connect(ctstart, &ctDEdit::Change, lblproblem, &QLabel::clear);
    connect(cmdOk, &QPushButton::clicked, this, &frmarrivalTime::cmdOk_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &frmarrivalTime::reject);
}

void frmarrivalTime::buildForm() {
    ctstart = new ctDEdit(ctDEdit::Kind::Time, this);
    ctstart->setObjectName(QStringLiteral("ctstart"));
    ctstart->setTwentyFourHour(Session().MilitaryTime);
    ctstart->setRange(0, LastMinute);
    auto* label = new QLabel(tr("&Arrival time:"), this);
    label->setBuddy(ctstart);
    lblproblem = new QLabel(this);
    lblproblem->setObjectName(QStringLiteral("lblproblem"));
    lblproblem->setWordWrap(true);
    // The line always keeps its height, so that the form does not jump when it is filled.
    lblproblem->setMinimumHeight(fontMetrics().height() * 2);
    lblproblem->setAlignment(Qt::AlignTop);
    cmdOk = FormButton(tr("&OK"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdcancel = FormButton(tr("&Cancel"), "cmdcancel", this);

    auto* buttons = ButtonRow({cmdOk, cmdcancel});
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    grid->setHorizontalSpacing(Space(8));
    grid->setVerticalSpacing(Space(12));
    grid->addWidget(label, 0, 0);
    grid->addWidget(ctstart, 0, 1, Qt::AlignLeft);
    grid->addWidget(lblproblem, 1, 0, 1, 2);
    grid->addLayout(buttons, 2, 0, 1, 2);
    setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    ctstart->setFocus();
}

void frmarrivalTime::LoadCheckedinStatus() {
    int minutes = -1;
    if (checksIn()) {
        try {
            const Recordset row(ArrivalStatement(checkInKey_), Session().Connection);
            if (!row.Eof())
                minutes = MinutesOfCheckIn(row["CheckInTime"].text());
        } catch (const db::DatabaseError& error) {
            TellError(QStringLiteral("Error reading arrival time. "), error);
        }
    }
    ctstart->setTime(minutes >= 0 ? minutes : minuteOfNow());
}

void frmarrivalTime::SetArrival(int minutes) {
    ctstart->setTime(minutes);
}

int frmarrivalTime::Arrival() const {
    const int minutes = ctstart->Time();
    return minutes > LastMinute ? -1 : minutes;
}

void frmarrivalTime::cmdOk_Click() {
    const bool understood = Arrival() >= 0 || (!checksIn() && ctstart->IsEmpty());
    if (!understood) {
        lblproblem->setText(tr("Enter the time of arrival, for example 9:05."));
        ctstart->setFocus();
        return;
    }
    if (!checksIn() || SaveCheckedIn())
        accept();
}

// A missing row is reported by the view, which saves the whole row next.
bool frmarrivalTime::SaveCheckedIn() {
    const WriteOutcome outcome = CheckIn(
        checkInKey_,
        CheckInTimeText(Today(), Arrival(), static_cast<DateOrder>(Session().DateOrder) == DateOrder::DayFirst));
    if (outcome.failure)
        TellError(QStringLiteral("Error saving arrival time. "), *outcome.failure);
    return !outcome.failure;
}
