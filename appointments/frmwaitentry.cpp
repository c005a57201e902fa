#include "appointments/frmwaitentry.h"

#include <algorithm>
#include <QCheckBox>
#include <QGridLayout>
#include <QLocale>
#include <QVBoxLayout>

#include "appointments/editorparts.h"
#include "appointments/patientbox.h"
#include "data/minutetime.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/notefield.h"
#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int CheckColumn = 1;
constexpr int NameColumn = 2;
constexpr int NoteLines = 3;
constexpr int Sunday = 7;  // As QLocale counts it.
const QString MissingData = QStringLiteral("Missing Data");

bool refuse(const QString& text, QWidget& field) {
    MsgBox(text, ExclamationBox, MissingData);
    field.setFocus();
    return false;
}

QLabel* hint(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

}  // namespace

frmwaitentry::frmwaitentry(WaitRow row, QWidget* parent) : EditorDialog(parent), row_(std::move(row)) {
    setObjectName(QStringLiteral("frmwaitentry"));
    setWindowTitle(row_.id == 0 ? tr("Add to Wait List") : tr("Edit Entry of Wait List"));
    buildForm();
    load();
    connect(pnlpatient, &PatientBox::Changed, this, &frmwaitentry::proposeLength);
    connect(List1, &ctList::CheckChanged, this, &frmwaitentry::showProviders);
    connect(cmdOk, &QPushButton::clicked, this, &frmwaitentry::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmwaitentry::reject);
    FitToScreen(*this);
    pnlpatient->setFocus();
}

bool frmwaitentry::takesEscape() {
    return pnlpatient->CloseMatches();
}

void frmwaitentry::buildForm() {
    cmdOk = FormButton(tr("O&K"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdCancel = FormButton(tr("Cancel"), "cmdCancel", this);
    pnlpatient = new PatientBox(*this);
    LayInHalves(*this, buildWhat(), 3, buildProviders(), 2, ButtonRow({cmdOk, cmdCancel}));
}

QWidget* frmwaitentry::buildWhat() {
    auto* fields = new QWidget(this);
    ctlength = Named(new ctNEdit(fields), "ctlength");
    ctlength->setAccessibleName(tr("Length in minutes"));
    ctlength->setRange(1, LongestWait);
    ctlength->setStep(Session().TimeUnit);
    ctuntil = EditorDate(ctDEdit::Kind::Date, "ctuntil", tr("Waits until"), fields);
    ctuntil->setDateOrder(Session().DateOrder);
    txtnote = Named(new NoteField(fields), "txtnote");
    txtnote->setAccessibleName(tr("Note"));
    txtnote->setLines(NoteLines);
    txtnote->setKeepsSeparators(true);
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Space(8));
    grid->setVerticalSpacing(Space(8));
    grid->setColumnStretch(1, 1);
    QLayout* times = buildTimes(fields);
    grid->addWidget(FieldLabel(QLatin1Char('&') + CaptionText(Session().WordUsage) + QLatin1Char(':'), pnlpatient), 0,
                    0);
    grid->addWidget(pnlpatient, 0, 1);
    grid->addWidget(FieldLabel(tr("&Length:"), ctlength), 1, 0);
    grid->addLayout(InARow({ctlength, hint(tr("minutes"), fields)}), 1, 1);
    grid->addWidget(new QLabel(tr("Days:"), fields), 2, 0);
    grid->addLayout(buildDays(fields), 2, 1);
    grid->addWidget(FieldLabel(tr("&From:"), ctfrom), 3, 0);
    grid->addLayout(times, 3, 1);
    grid->addWidget(FieldLabel(tr("Unt&il:"), ctuntil), 4, 0);
    grid->addLayout(InARow({ctuntil, hint(tr("empty: without an end"), fields)}), 4, 1);
    grid->addWidget(FieldLabel(tr("&Note:"), txtnote), 5, 0, Qt::AlignTop);
    grid->addWidget(txtnote, 5, 1);
    grid->setRowStretch(grid->rowCount() - 1, 1);
    return fields;
}

QLayout* frmwaitentry::buildDays(QWidget* parent) {
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(12));
    for (int day = 0; day < WeekDays; ++day) {
        const int number = day == 0 ? Sunday : day;
        auto* box = Named(new QCheckBox(QLocale::c().dayName(number, QLocale::ShortFormat), parent),
                          QStringLiteral("ckday%1").arg(day));
        box->setAccessibleName(QLocale::c().dayName(number));
        ckday[static_cast<std::size_t>(day)] = box;
        row->addWidget(box);
    }
    row->addStretch(1);
    return row;
}

QLayout* frmwaitentry::buildTimes(QWidget* parent) {
    ctfrom = EditorDate(ctDEdit::Kind::Time, "ctfrom", tr("From this time of the day"), parent);
    ctto = EditorDate(ctDEdit::Kind::Time, "ctto", tr("To this time of the day"), parent);
    ctto->setIsEnd(true);
    for (ctDEdit* time : {ctfrom, ctto}) {
        time->setTwentyFourHour(Session().MilitaryTime);
        time->setStep(Session().TimeUnit);
    }
    return InARow({ctfrom, FieldLabel(tr("&to"), ctto), ctto, hint(tr("empty: any time"), parent)});
}

QWidget* frmwaitentry::buildProviders() {
    auto* panel = new QWidget(this);
    List1 = Named(new ctList(panel), "List1");
    List1->setAccessibleName(tr("Providers"));
    List1->SetColumns({{QString(), ListColumn::Kind::Check, 4, Qt::AlignCenter},
                       {tr("Provider")},
                       {tr("User Id"), ListColumn::Kind::Text, 12}});
    lblproviders = Named(new QLabel(panel), "lblproviders");
    lblproviders->setWordWrap(true);
    lblproviders->setForegroundRole(QPalette::PlaceholderText);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(8));
    column->addWidget(FieldLabel(tr("P&roviders:"), List1));
    column->addWidget(List1, 1);
    column->addWidget(lblproviders);
    return panel;
}

void frmwaitentry::load() {
    const BusyPointer busy;
    loadProviders();
    for (int day = 0; day < WeekDays; ++day)
        ckday[static_cast<std::size_t>(day)]->setChecked((row_.entry.days & (1 << day)) != 0);
    if (row_.entry.times.start > 0)
        ctfrom->setTime(row_.entry.times.start);
    if (row_.entry.times.end < MinutesPerDay)
        ctto->setTime(row_.entry.times.end);
    ctuntil->setDate(row_.entry.until);
    txtnote->setPlainText(row_.note);
    if (row_.patientGone)
        pnlpatient->ShowName(row_.patientName);
    else if (!row_.entry.patientId.isEmpty())
        pnlpatient->SetPatient(row_.entry.patientId);
    if (row_.entry.minutes > 0)
        ctlength->setValue(row_.entry.minutes);
    else
        proposeLength();
    pnlpatient->txtpatients->selectAll();
}

// Without the right to all schedules only the session's provider can be chosen. Whom the entry names already is listed
// as well, so that a save loses nobody.
void frmwaitentry::loadProviders() {
    try {
        for (Recordset row(
                 QStringLiteral("Select id, prov_lastname, archive From provider_info Order by prov_lastname"),
                 Session().Connection);
             !row.Eof(); row.MoveNext()) {
            const QString id = row["id"].text();
            const bool archived = row["archive"].integer() != 0;
            const bool mine = Session().AllProviders || id.compare(Session().ProviderId, Qt::CaseInsensitive) == 0;
            if ((mine && !archived) || row_.entry.providers.contains(id, Qt::CaseInsensitive))
                addProvider(
                    id, archived ? tr("%1 (archived)").arg(row["prov_lastname"].text()) : row["prov_lastname"].text());
        }
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading provider list. "), error);
    }
    for (const QString& id : row_.entry.providers)
        if (List1->FindItemData(id) < 0)
            addProvider(id, tr("(no longer on the list)"));
    showProviders();
}

void frmwaitentry::addProvider(const QString& id, const QString& name) {
    const auto wanted = std::find_if(row_.entry.providers.begin(), row_.entry.providers.end(),
                                     [&](const QString& one) { return one.compare(id, Qt::CaseInsensitive) == 0; });
    const bool checked = wanted != row_.entry.providers.end();
    List1->AddRow({QString::number(checked ? 1 : 0), name, id}, checked ? *wanted : id);
}

void frmwaitentry::showProviders() {
    QStringList names;
    for (int row = 0; row < List1->RowCount(); ++row)
        if (List1->Checked(row, CheckColumn))
            names << List1->Cell(row, NameColumn);
    lblproviders->setText(names.isEmpty() ? tr("None is checked: any provider.")
                                          : tr("Waits for %1.").arg(names.join(QStringLiteral(", "))));
}

// A length that the user has entered stays.
void frmwaitentry::proposeLength() {
    if (row_.entry.minutes > 0 || (ctlength->Value() > 0 && ctlength->Value() != proposedLength_))
        return;
    int minutes = 0;
    if (pnlpatient->Patient() && !pnlpatient->Patient()->cpt.isEmpty())
        db::Ignoring([&] {
            const Recordset service(
                Sql("Select sess_cpt_time From session_types Where sess_cpt_code = '{}'", pnlpatient->Patient()->cpt),
                Session().Connection);
            minutes = service.Eof() ? 0 : static_cast<int>(service["sess_cpt_time"].integer());
        });
    proposedLength_ = minutes > 0 ? minutes : Session().TimeUnit;
    ctlength->setValue(proposedLength_);
}

QStringList frmwaitentry::checkedProviders() const {
    QStringList ids;
    for (int row = 0; row < List1->RowCount(); ++row)
        if (List1->Checked(row, CheckColumn))
            ids << List1->ItemData(row).toString();
    return ids;
}

int frmwaitentry::checkedDays() const {
    int days = 0;
    for (int day = 0; day < WeekDays; ++day)
        days |= ckday[static_cast<std::size_t>(day)]->isChecked() ? 1 << day : 0;
    return days;
}

MinuteRange frmwaitentry::enteredTimes() const {
    return {std::max(ctfrom->Time(), 0), ctto->Time() < 0 ? MinutesPerDay : ctto->Time()};
}

// An empty field is no limit; one that is not understood is refused.
bool frmwaitentry::validate() {
    if (!pnlpatient->Settle())
        return false;
    if (!pnlpatient->Patient())
        return refuse(tr("Choose who waits, from the names that appear while you type or by Look Up."), *pnlpatient);
    if (ctlength->Value() < 1 || ctlength->Value() > LongestWait)
        return refuse(tr("Enter the length of the visit, from 1 to %1 minutes.").arg(LongestWait), *ctlength);
    if (checkedDays() == 0)
        return refuse(tr("Check at least one day."), *ckday[1]);
    for (ctDEdit* time : {ctfrom, ctto})
        if (!time->Text().isEmpty() && time->Time() < 0)
            return refuse(tr("Enter a valid time, or leave the field empty."), *time);
    const MinuteRange times = enteredTimes();
    if (times.end - times.start < static_cast<int>(ctlength->Value()))
        return refuse(tr("A visit of %1 does not fit between these times.")
                          .arg(WaitLengthText(static_cast<int>(ctlength->Value()))),
                      *ctfrom);
    if (!ctuntil->Text().isEmpty() && !ctuntil->Date().isValid())
        return refuse(tr("Enter a valid date, or leave the field empty."), *ctuntil);
    if (ctuntil->Date().isValid() && ctuntil->Date() < Today())
        return refuse(tr("This date is past. Enter a later one, or leave the field empty."), *ctuntil);
    return true;
}

WaitRow frmwaitentry::entered() const {
    WaitRow row = row_;
    row.entry.patientId = pnlpatient->Patient()->id;
    row.patientName = pnlpatient->Patient()->name;
    row.entry.minutes = static_cast<int>(ctlength->Value());
    row.entry.providers = checkedProviders();
    row.entry.days = checkedDays();
    row.entry.times = enteredTimes();
    row.entry.until = ctuntil->Date();
    row.note = txtnote->toPlainText();
    return row;
}

void frmwaitentry::cmdOk_Click() {
    // Enter does not leave the field in which the user stands.
    for (ctDEdit* field : {ctfrom, ctto, ctuntil})
        field->setText(field->Text());
    if (!validate())
        return;
    const WriteOutcome outcome = SaveWaitRow(entered());
    if (outcome.failure) {
        TellError(WriteTrouble(outcome.step), *outcome.failure);
        return;
    }
    if (outcome.end == WriteOutcome::End::Gone)
        MsgBox(tr("Another user has booked or closed this entry in the meantime. Nothing has been saved."),
               ExclamationBox, windowTitle());
    accept();
}
