#include "appointments/frmnore.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/controls/ctdedit.h"
#include "platform/controls/formarea.h"
#include "session/session.h"

frmnore::frmnore(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmnore"));
    setWindowTitle(QStringLiteral("New Appointment"));
    buildForm();
    connect(cmdOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    FitToScreen(*this);
}

void frmnore::SetSlot(const SelectedSlot& slot) {
    ctedate->setDate(slot.date);
    ctstart->setTime(slot.start);
    ctend->setTime(slot.end);
    dirty = true;
}

void frmnore::SetPatientTag(const QString& patientId) {
    patientTag_ = patientId;
}

void frmnore::PatientChosen() {}

void frmnore::showDuration() {}
