#include "appointments/frmdeleteevent.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "appointments/appointmentdelete.h"
#include "platform/controls/formparts.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"

frmDeleteEvent::frmDeleteEvent(int key, const QString& attendee, QWidget* parent)
    : QDialog(parent), key_(key), attendee_(attendee) {
    setObjectName(QStringLiteral("frmDeleteEvent"));
    setWindowTitle(QStringLiteral("Delete Activity/Event"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->setSizeConstraint(QLayout::SetFixedSize);
    auto* heading = new QLabel(QStringLiteral("Delete Selected Appointment"), this);
    heading->setFont(HeadingFont());
    column->addWidget(heading);
    const QString choices[] = {QStringLiteral("Delete for Selected atendee only"),
                               QStringLiteral("Delete for All attendees"),
                               QStringLiteral("Delete for Specific attendees")};
    for (std::size_t i = 0; i < optdelete.size(); ++i) {
        optdelete[i] = new QRadioButton(choices[i], this);
        optdelete[i]->setObjectName(QStringLiteral("optdelete%1").arg(i));
        column->addWidget(optdelete[i]);
    }
    optdelete[0]->setChecked(true);

    auto* ok = new QPushButton(QStringLiteral("&OK"), this);
    ok->setObjectName(QStringLiteral("Command1"));
    ok->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cancel->setObjectName(QStringLiteral("Command2"));
    auto* buttons = ButtonRow({ok, cancel});
    column->addLayout(buttons);
    optdelete[0]->setFocus();
    connect(ok, &QPushButton::clicked, this, &frmDeleteEvent::deleteChosen);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmDeleteEvent::deleteChosen() {
    if (optdelete[2]->isChecked()) {
        wantsSpecificAttendees_ = true;
        return accept();
    }
    const WriteOutcome deleted = optdelete[0]->isChecked() ? DeleteAttendance(key_, attendee_) : DeleteActivity(key_);
    if (deleted.failure)
        TellError(QStringLiteral("Error deleting appointment. "), *deleted.failure);
    else
        accept();
}
