#include "appointments/patientfiller.h"

#include <utility>

#include "appointments/patientlist.h"
#include "platform/controls/ctlist.h"
#include "platform/desktop/localefacts.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

constexpr int BirthDateColumn = 8;
constexpr int BesideTheName = 2;

}  // namespace

void SetPatientColumns(ctList& list, const QStringList& headings) {
    static constexpr int widths[] = {38, 13, 19, 22, 8, 19, 22};
    std::vector<ListColumn> columns;
    columns.reserve(static_cast<std::size_t>(headings.size()) + 1);
    for (int column = 0; column < headings.size(); ++column)
        columns.push_back({headings[column], ListColumn::Kind::Text, widths[column]});
    columns.push_back({QObject::tr("Birth Date"), ListColumn::Kind::Text, 16});
    list.SetColumns(std::move(columns));
    list.PlaceColumn(BirthDateColumn, BesideTheName);
}

PatientFiller::PatientFiller(ctList& list, QObject* parent) : ListFiller(list, parent), list_(list) {}

void PatientFiller::loadpatients() {
    Clear();
    try {
        db::Recordset patients(PatientListStatement(), Session().Connection);
        readBirthDates();
        Fill(std::move(patients), [this](const db::Recordset& row) { addPatient(row); });
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading patient list. "), error);
    }
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

void PatientFiller::addPatient(const db::Recordset& row) {
    const PatientFacts patient = PatientOf(row);
    QStringList cells = patient.ListRow();
    if (const QDate born = birthDates_.value(patient.id); born.isValid())
        cells << ShortDateText(born);
    list_.SetItemText(list_.AddRow(cells, patient.id), patient.name);
}

void PatientFiller::StartAt(const QString& id, const QString& name) {
    list_.SelectRow(-1);
    StopSeeking();
    if (id.isEmpty())
        return startAtName(name);
    Seek([this, id](int row) { return list_.ItemData(row).toString() == id; }, [this](int row) { start(row); });
}

void PatientFiller::startAtName(const QString& name) {
    if (name.isEmpty())
        return;
    Seek([this, name](int row) { return list_.ItemText(row).startsWith(name, Qt::CaseInsensitive); },
         [this, name](int row) {
             if (row < 0 && list_.SelectedRow() < 0)
                 startAtName(name.chopped(1));
             else
                 start(row);
         });
}

void PatientFiller::start(int row) {
    if (row >= 0 && list_.SelectedRow() < 0)
        list_.StartAtRow(row);
}
