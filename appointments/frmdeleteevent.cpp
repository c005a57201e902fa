#include "appointments/frmdeleteevent.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Sql;

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
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    column->addLayout(buttons);
    optdelete[0]->setFocus();
    connect(ok, &QPushButton::clicked, this, &frmDeleteEvent::deleteChosen);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmDeleteEvent::deleteChosen() {
    if (optdelete[2]->isChecked()) {
        Tag = QString::fromLatin1(SelectedTag);
        return accept();
    }
    try {
        db::InTransaction(Session().Connection, [this] {
            if (optdelete[0]->isChecked())
                deleteForAttendee();
            else
                deleteForAll();
        });
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error deleting appointment. "), error);
        return;
    }
    accept();
}

void frmDeleteEvent::deleteForAttendee() const {
    Session().Connection.Execute(
        Sql("Delete from AppointmentsEvents Where nkeyid ={} AND Clinicianid = '{}'", key_, attendee_));
    if (NbrAttendesForEvent(key_) == 0)
        deleteAppointment();
}

void frmDeleteEvent::deleteForAll() const {
    Session().Connection.Execute(Sql("Delete from AppointmentsEvents Where nkeyid ={}", key_));
    deleteAppointment();
}

void frmDeleteEvent::deleteAppointment() const {
    Session().Connection.Execute(Sql("Delete  from Appointments Where nkeyid ={}", key_));
    Session().Connection.Execute(Sql("Delete from roomschedule Where apptid = {}", key_));
}

int NbrAttendesForEvent(int key) {
    return db::Recordset(Sql("SELECT * From AppointmentsEvents Where nkeyid ={}", key), Session().Connection)
        .RecordCount();
}
