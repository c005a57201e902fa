#include "appointments/patientfiller.h"

#include <algorithm>

#include "appointments/patientlist.h"
#include "platform/controls/ctlist.h"
#include "platform/desktop/localefacts.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

constexpr int PieceRows = 2000;
constexpr int BirthDateColumn = 8;
constexpr int BesideTheName = 2;

}  // namespace

void SetPatientColumns(ctList& list, const QStringList& headings) {
    static constexpr int widths[] = {38, 13, 19, 22, 8, 19, 22};
    std::vector<ListColumn> columns;
    for (int column = 0; column < headings.size(); ++column)
        columns.push_back({headings[column], ListColumn::Kind::Text, widths[column]});
    columns.push_back({QObject::tr("Birth Date"), ListColumn::Kind::Text, 16});
    list.SetColumns(std::move(columns));
    list.PlaceColumn(BirthDateColumn, BesideTheName);
}

PatientFiller::PatientFiller(ctList& list, QObject* parent) : QObject(parent), list_(list) {
    timer_.setInterval(0);
    connect(&timer_, &QTimer::timeout, this, [this] { addPiece(PieceRows); });
}

void PatientFiller::loadpatients() {
    timer_.stop();
    list_.Clear();
    startId_.clear();
    startName_.clear();
    loaded_ = 0;
    total_ = 0;
    try {
        rows_.Open(PatientListStatement(), Session().Connection);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading patient list. "), error);
        return;
    }
    total_ = rows_.RecordCount();
    readBirthDates();
    // The first screen is there at once.
    addPiece(PieceRows);
}

// The statement of the list does not ask for them.
void PatientFiller::readBirthDates() {
    birthDates_.clear();
    db::Ignoring([this] {
        for (db::Recordset rows(
                 QStringLiteral("Select id, birth_date from patient_info Where archive = 0 And birth_date Is Not Null"),
                 Session().Connection);
             !rows.Eof(); rows.MoveNext())
            birthDates_.insert(rows[0].text(), rows[1].date());
    });
}

void PatientFiller::StartAt(const QString& id, const QString& name) {
    list_.SelectRow(-1);
    startId_ = id;
    startName_ = id.isEmpty() ? name : QString();
    startFrom(0);
}

bool PatientFiller::isStart(int row) const {
    return startId_.isEmpty() ? list_.ItemText(row).startsWith(startName_, Qt::CaseInsensitive)
                              : list_.ItemData(row).toString() == startId_;
}

void PatientFiller::startFrom(int row) {
    while (list_.SelectedRow() < 0 && !(startId_.isEmpty() && startName_.isEmpty())) {
        for (; row < list_.RowCount(); ++row)
            if (isStart(row)) {
                list_.StartAtRow(row);
                break;
            }
        if (IsFilling())
            return;
        // Nobody on the whole list: less of the name.
        startId_.clear();
        startName_.chop(1);
        row = 0;
    }
    startId_.clear();
    startName_.clear();
}

void PatientFiller::Finish() {
    if (IsFilling())
        addPiece(total_ - loaded_);
}

void PatientFiller::addPiece(int rows) {
    const int end = std::min(loaded_ + rows, total_);
    const int added = end - loaded_;
    for (; loaded_ < end; ++loaded_, rows_.MoveNext()) {
        const PatientFacts patient = PatientOf(rows_);
        QStringList cells = patient.ListRow();
        if (const QDate born = birthDates_.value(patient.id); born.isValid())
            cells << ShortDateText(born);
        list_.SetItemText(list_.AddRow(cells, patient.id), patient.name);
    }
    if (loaded_ < total_) {
        timer_.start();
    } else {
        timer_.stop();
        rows_.Close();
        birthDates_.clear();
    }
    startFrom(loaded_ - added);
    Q_EMIT Progress(loaded_, total_);
}
