#include "search/frmfinda.h"

#include <QCheckBox>
#include <QLabel>

#include "data/minutetime.h"
#include "data/namedpatients.h"
#include "data/pipefields.h"
#include "data/statuses.h"
#include "platform/controls/datefield.h"
#include "platform/database/sql.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

frmfinda::frmfinda(QWidget* parent)
    : FindDialog({QStringLiteral("Find Appointment that contains the following name or description:"),
                  QStringLiteral("|Appointments|"),
                  tr("1 appointment"),
                  tr("%1 appointments"),
                  tr("Select the appointments to print."),
                  QStringLiteral("Error finding appointments. "),
                  {},
                  {}},
                 {}, parent) {
    setObjectName(QStringLiteral("frmfinda"));
    setWindowTitle(QStringLiteral("Find"));
    addChoiceOfAll();
    showColumns();
}

// With the providers there are seven columns.
QSize frmfinda::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 140, FindDialog::sizeHint().height()};
}

void frmfinda::showColumns() {
    using Kind = ListColumn::Kind;
    if (ckall->isChecked())
        changeColumns({{QStringLiteral("Description")},
                       {QStringLiteral("Provider"), Kind::Text, 16},
                       {QStringLiteral("Date"), Kind::Text, 13},
                       {QStringLiteral("Start"), Kind::Text, 13},
                       {QStringLiteral("End"), Kind::Text, 13},
                       {QStringLiteral("Location"), Kind::Text, 16},
                       {QStringLiteral("Status"), Kind::Text, 20}},
                      QStringLiteral("2160|1500|1150|1150|1150|1500|1690;"),
                      QStringLiteral("Description|Provider|Date|Start|End|Location|Status;"));
    else
        changeColumns({{QStringLiteral("Description")},
                       {QStringLiteral("Date"), Kind::Text, 13},
                       {QStringLiteral("Start"), Kind::Text, 15},
                       {QStringLiteral("End"), Kind::Text, 15},
                       {QStringLiteral("Location"), Kind::Text, 20},
                       {QStringLiteral("Status"), Kind::Text, 14}},
                      QStringLiteral("2160|1300|1300|1300|2800|1440;"),
                      QStringLiteral("Description|Date|Start|End|Location|Status;"));
}

QString frmfinda::statementFor(const QString& text) const {
    const QString& provider = Session().ProviderId;
    if (ckall->isChecked())
        return allStatement(text);
    if (text.size() == 1)
        return Sql("Select * from appointments Where CapptText Like '{}%' AND ClinicianId = '{}' Order by dapptdate",
                   db::LikeText(text), provider);
    return Sql("Select * from appointments Where CapptText Like '%{}%' AND ClinicianId = '{}' Order by dapptdate",
               db::LikeText(text), provider);
}

QStringList frmfinda::listLine(const Recordset& row) const {
    const auto time = [&row, military = Session().MilitaryTime](const char* column) {
        return MinutesToTimeText(static_cast<int>(row[column].integer()), military);
    };
    return {CleanFieldText(row["cappttext"].text()),
            DateFieldText(row["dapptdate"].date(), static_cast<DateOrder>(Session().DateOrder)),
            time("nstarttime"),
            time("nendtime"),
            row["clocation"].text(),
            QString::fromLatin1(StatusOf(static_cast<int>(row["ncolor"].integer())).inFind)};
}

void frmfinda::listHits(Recordset& rows) {
    if (ckall->isChecked())
        listByNearness(rows);
    else
        FindDialog::listHits(rows);
}

void frmfinda::nameHits(Recordset& rows) {
    for (int line = 0; !rows.Eof(); rows.MoveNext(), ++line)
        if (NamesPatient(static_cast<int>(rows["ncolor"].integer()), !rows["patientid"].text().isEmpty()))
            ctList1->NameCell(line, DescriptionColumn);
}

void frmfinda::goTo(qint64 key) {
    const Recordset hit(Sql("Select * from appointments Where nKeyId = {}", key), Session().Connection);
    if (hit.Eof() || !hit["dapptdate"].date().isValid()) {
        lblcount->setText(tr("This appointment is not there any more. Another user may have deleted it."));
        return;
    }
    found_ = {hit["nkeyid"].text(), hit["dapptdate"].date(), static_cast<int>(hit["nstarttime"].integer()),
              hit["allday"].boolean()};
    if (ckall->isChecked())
        turnToProvider(key, hit["clinicianid"].text());
    accept();
}
