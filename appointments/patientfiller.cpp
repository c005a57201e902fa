#include "appointments/patientfiller.h"

#include <algorithm>

#include "appointments/patientlist.h"
#include "platform/controls/ctlist.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

constexpr int PieceRows = 2000;

}  // namespace

PatientFiller::PatientFiller(ctList& list, QObject* parent) : QObject(parent), list_(list) {
    timer_.setInterval(0);
    connect(&timer_, &QTimer::timeout, this, [this] { addPiece(PieceRows); });
}

void PatientFiller::loadpatients() {
    timer_.stop();
    list_.Clear();
    loaded_ = 0;
    total_ = 0;
    try {
        rows_.Open(PatientListStatement(), Session().Connection);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading patient list. "), error);
        return;
    }
    total_ = rows_.RecordCount();
    // The first screen is there at once.
    addPiece(PieceRows);
}

void PatientFiller::Finish() {
    if (IsFilling())
        addPiece(total_ - loaded_);
}

void PatientFiller::addPiece(int rows) {
    const int end = std::min(loaded_ + rows, total_);
    for (; loaded_ < end; ++loaded_, rows_.MoveNext()) {
        const PatientFacts patient = PatientOf(rows_);
        list_.SetItemText(list_.AddRow(patient.ListRow(), patient.id), patient.name);
    }
    if (loaded_ < total_) {
        timer_.start();
    } else {
        timer_.stop();
        rows_.Close();
    }
    Q_EMIT Progress(loaded_, total_);
}
