#include "followup/frmmsdapt.h"

frmmsdApt::frmmsdApt(const MissedNoteRequest& request, QWidget* parent) : QDialog(parent), request_(request) {
    setObjectName(QStringLiteral("frmmsdApt"));
    setWindowTitle(QStringLiteral("Missed Appointment Note"));
}
