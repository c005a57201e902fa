#include "appointments/frmdelrepeat.h"

#include <optional>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "appointments/notice.h"
#include "platform/controls/ctlist.h"
#include "platform/database/sql.h"
#include "platform/theme/theme.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/session.h"

using db::Ignoring;
using db::Sql;

namespace {

constexpr int CheckColumn = 1;
constexpr int DateColumn = 2;
constexpr int TimeColumn = 3;
constexpr int TextColumn = 4;

}  // namespace

frmdelrepeat::frmdelrepeat(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmdelrepeat"));
    setWindowTitle(QStringLiteral("Repeating Appointment"));
    ctList1 = new ctList(this);
    ctList1->setObjectName(QStringLiteral("ctList1"));
    ctList1->setAccessibleName(tr("Appointments of the series"));
    FollowHiddenNames(ctList1);
    ctList1->SetColumns({{QString(), ListColumn::Kind::Check, 4, Qt::AlignCenter},
                         {QStringLiteral("Date"), ListColumn::Kind::Text, 14},
                         {QStringLiteral("Time"), ListColumn::Kind::Text, 12},
                         {QStringLiteral("Appointment")}});
    auto* check = new QPushButton(QStringLiteral("Check &All"), this);
    check->setObjectName(QStringLiteral("cmdselect0"));
    auto* uncheck = new QPushButton(QStringLiteral("&Uncheck All"), this);
    uncheck->setObjectName(QStringLiteral("cmdselect1"));
    cmdOk = new QPushButton(QStringLiteral("&OK"), this);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdcancel"));

    auto* text = new QVBoxLayout;
    text->addWidget(NoticeLabel(
        QStringLiteral("lblmessage"),
        QStringLiteral(
            "The appointment you selected to delete is a repeating appointment. You can delete all appointments in the group or selected appointments."),
        this));
    text->addWidget(NoticeLabel(QStringLiteral("lblcheck"), QStringLiteral("Check appointments to delete."), this));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(check);
    buttons->addWidget(uncheck);
    buttons->addStretch(1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addLayout(NoticeLayout(text, this));
    column->addWidget(ctList1, 1);
    column->addLayout(buttons);
    ctList1->setFocus();
    allowOk();

    connect(check, &QPushButton::clicked, this, [this] { selecttodelete(true); });
    connect(uncheck, &QPushButton::clicked, this, [this] { selecttodelete(false); });
    connect(ctList1, &ctList::CheckChanged, this, &frmdelrepeat::allowOk);
    connect(cmdOk, &QPushButton::clicked, this, &frmdelrepeat::deleteChecked);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

QSize frmdelrepeat::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 84, fontMetrics().height() * 22};
}

void frmdelrepeat::AddAppointment(const Row& row) {
    const int added = ctList1->AddRow(
        JoinCells({QString::number(row.checked ? 1 : 0), row.date, row.time, row.text.simplified()}), row.key);
    if (row.isGroup)
        ctList1->SetItemText(added, QStringLiteral("G"));
    if (row.namesPatient)
        ctList1->NameCell(added, TextColumn);
    if (row.checked)
        ctList1->SelectRow(added);
    allowOk();
}

void frmdelrepeat::selecttodelete(bool state) {
    for (int row = 0; row < ctList1->RowCount(); ++row)
        ctList1->SetChecked(row, CheckColumn, state);
    allowOk();
}

void frmdelrepeat::allowOk() {
    bool any = false;
    for (int row = 0; row < ctList1->RowCount(); ++row)
        any = any || ctList1->Checked(row, CheckColumn);
    cmdOk->setEnabled(any);
    cmdOk->setToolTip(any ? QString() : tr("Check the appointments to delete first."));
}

void frmdelrepeat::deleteChecked() {
    std::optional<db::DatabaseError> failure;
    for (int row = 0; row < ctList1->RowCount(); ++row) {
        if (!ctList1->Checked(row, CheckColumn))
            continue;
        try {
            deleteRow(row);
        } catch (const db::DatabaseError& error) {
            failure = error;
        }
    }
    if (failure)
        TellError(QStringLiteral("Error deleting appointment. "), *failure);
    accept();
}

void frmdelrepeat::deleteRow(int row) const {
    db::Connection& connection = Session().Connection;
    const int key = ctList1->ItemData(row).toInt();
    connection.Execute(Sql("Delete from appointments Where nkeyid = {}", key));
    AuditDeletedAppointment(ctList1->Cell(row, DateColumn), ctList1->Cell(row, TimeColumn),
                            ctList1->Cell(row, TextColumn));
    Ignoring([&] { connection.Execute(Sql("Delete from roomschedule Where apptid = {}", key)); });
    Ignoring([&] { connection.Execute(Sql("Delete from appointmentsevents Where nkeyid = {}", key)); });
    if (ctList1->ItemText(row) == QLatin1String("G"))
        Ignoring([&] { connection.Execute(Sql("Delete from AppointmentsGroup Where nKeyid = {}", key)); });
}
