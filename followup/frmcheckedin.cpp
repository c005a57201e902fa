#include "followup/frmcheckedin.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "appointments/appointmentwrites.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "followup/checkintime.h"
#include "followup/frmarrivaltime.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formarea.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/forms.h"
#include "platform/desktop/localefacts.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/formposition.h"
#include "session/hiddennames.h"
#include "session/providernames.h"
#include "session/rights.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;
using db::SqlDate;

namespace {

constexpr int RefreshMilliseconds = 60000;
constexpr int PatientColumn = 1;
constexpr int ArrivalColumn = 2;

QString statementOfToday() {
    const SessionValues& session = Session();
    if (session.AllProviders)
        return Sql("Select * from appointments where ncolor = {} and dapptdate = '{}' Order by dapptdate, clinicianid",
                   ncolor::CheckedIn, SqlDate(Today()));
    return Sql(
        "Select * from appointments where ncolor = {} and clinicianid = '{}' AND dapptdate = '{}' Order by dapptdate, clinicianid",
        ncolor::CheckedIn, session.UID, SqlDate(Today()));
}

}  // namespace

frmCheckedIn::frmCheckedIn(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmCheckedIn"));
    setWindowTitle(QStringLiteral("Checked-In"));
    setAttribute(Qt::WA_DeleteOnClose);
    buildForm();
    FitToScreen(*this);
    loadcheckedin();
    Timer1.setInterval(RefreshMilliseconds);
    connect(&Timer1, &QTimer::timeout, this, &frmCheckedIn::loadcheckedin);
    connect(cmdRefresh, &QPushButton::clicked, this, &frmCheckedIn::loadcheckedin);
    connect(cmdclose, &QPushButton::clicked, this, &QWidget::close);
    connect(ctList1, &ctList::RowActivated, this, &frmCheckedIn::correctArrival);
}

void frmCheckedIn::Open(QWidget* parent) {
    QWidget* form = FindForm(QStringLiteral("frmCheckedIn"));
    if (form == nullptr)
        form = new frmCheckedIn(parent);
    form->show();
    form->raise();
    form->activateWindow();
}

void frmCheckedIn::ReloadIfOpen() {
    if (auto* form = qobject_cast<frmCheckedIn*>(FindForm(QStringLiteral("frmCheckedIn"))))
        form->loadcheckedin();
}

QSize frmCheckedIn::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 104, fontMetrics().height() * 18};
}

void frmCheckedIn::showEvent(QShowEvent* event) {
    FormPosition(*this, FormMode::Get);
    Timer1.start();
    QDialog::showEvent(event);
}

void frmCheckedIn::hideEvent(QHideEvent* event) {
    Timer1.stop();
    FormPosition(*this, FormMode::Set);
    QDialog::hideEvent(event);
}

void frmCheckedIn::buildForm() {
    ctList1 = new ctList(this);
    ctList1->setObjectName(QStringLiteral("ctList1"));
    ctList1->setAccessibleName(QStringLiteral("Checked-In"));
    ctList1->SetColumns({{QStringLiteral("Patient")},
                         {QStringLiteral("Arrival Time"), ListColumn::Kind::Text, 22},
                         {QStringLiteral("Apt Time"), ListColumn::Kind::Text, 27},
                         {QStringLiteral("Provider"), ListColumn::Kind::Text, 16}});
    ctList1->SetHeader(PatientColumn, Session().WordUsage);
    FollowHiddenNames(ctList1);
    const auto button = [this](const char* name, const QString& text, const QIcon& icon) {
        auto* made = new QPushButton(icon, text, this);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        return made;
    };
    cmdRefresh = button("cmdRefresh", QStringLiteral("&Refresh"), Icon("refresh"));
    cmdclose = button("cmdclose", tr("&Close"), {});
    lblstatus = new QLabel(this);
    lblstatus->setObjectName(QStringLiteral("lblstatus"));
    lblstatus->setWordWrap(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblstatus, 1);
    buttons->addWidget(cmdRefresh);
    buttons->addWidget(cmdclose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(12), Space(12), Space(12), Space(12));
    column->setSpacing(Space(8));
    column->addWidget(ctList1, 1);
    column->addLayout(buttons);
}

void frmCheckedIn::loadcheckedin() {
    const QVariant kept = ctList1->SelectedRow() >= 0 ? ctList1->ItemData(ctList1->SelectedRow()) : QVariant();
    const int top = ctList1->verticalScrollBar()->value();
    const QString time = MinutesToTimeText(Now().time().hour() * 60 + Now().time().minute(), Session().MilitaryTime);
    ctList1->setUpdatesEnabled(false);
    try {
        readRows();
        lblstatus->setText(ctList1->RowCount() == 0 ? tr("Nobody is checked in at %1.").arg(time)
                                                    : tr("As of %1").arg(time));
    } catch (const db::DatabaseError& error) {
        lblstatus->setText(tr("The list could not be refreshed at %1. %2").arg(time, error.description));
    }
    if (kept.isValid())
        ctList1->SelectRow(ctList1->FindItemData(kept));
    ctList1->verticalScrollBar()->setValue(top);
    ctList1->setUpdatesEnabled(true);
}

void frmCheckedIn::readRows() {
    const db::ReadTogether together(Session().Connection, {statementOfToday(), ProviderNames::Statement()});
    Recordset rows(statementOfToday(), Session().Connection);
    const ProviderNames names;
    ctList1->Clear();
    for (; !rows.Eof(); rows.MoveNext()) {
        const QString provider = rows["clinicianid"].text();
        const QString appointment =
            ShortDateText(rows["dapptdate"].date()) + u' ' +
            MinutesToTimeText(static_cast<int>(rows["nstarttime"].integer()), Session().MilitaryTime);
        const int row = ctList1->AddRow(
            {rows["cappttext"].text(), ShownCheckIn(rows["CheckInTime"].text()), appointment, names.Of(provider)},
            rows["nkeyid"].integer());
        ctList1->SetItemText(row, provider);
        ctList1->NameCell(row, PatientColumn);
    }
}

void frmCheckedIn::correctArrival(int row) {
    if (!MayWrite())
        return;
    const QVariant key = ctList1->ItemData(row);
    const QString shown = ctList1->Cell(row, ArrivalColumn);
    frmarrivalTime dialog(0, this);
    if (const int minutes = MinutesOfCheckIn(shown); minutes >= 0)
        dialog.SetArrival(minutes);
    if (ShowModal(dialog) != QDialog::Accepted)
        return;
    const int minutes = dialog.Arrival() >= 0 ? dialog.Arrival() : Now().time().hour() * 60 + Now().time().minute();
    const QString arrival = CheckInTimeText(Today(), minutes, false);
    if (!shown.isEmpty() && ShownCheckIn(arrival) == shown)
        return;
    const WriteOutcome outcome = CorrectArrival(key.toInt(), arrival);
    if (outcome.failure) {
        MsgBox(QStringLiteral("Error updating arrival time. (%1). ").arg(outcome.failure->number) +
                   outcome.failure->description,
               ErrorBox, QStringLiteral("Error"));
        return;
    }
    if (outcome.end == WriteOutcome::End::Gone) {
        MsgBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
               ExclamationBox, QStringLiteral("Error"));
        loadcheckedin();
        return;
    }
    // The timer may have reloaded the list in the meantime.
    ctList1->SetCell(ctList1->FindItemData(key), ArrivalColumn, ShownCheckIn(arrival));
}
