#include "appointments/frmdelrepeat.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "appointments/notice.h"
#include "appointments/serieswork.h"
#include "platform/controls/ctlist.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"

namespace {

constexpr int CheckColumn = 1;
constexpr int DateColumn = 2;
constexpr int TimeColumn = 3;
constexpr int TextColumn = 4;

}  // namespace

frmdelrepeat::frmdelrepeat(std::function<void()> rowsChanged, QWidget* parent)
    : QDialog(parent), rowsChanged_(std::move(rowsChanged)) {
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
    const int added =
        ctList1->AddRow({QString::number(row.checked ? 1 : 0), row.date, row.time, row.text.simplified()}, row.key);
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
    SeriesWork work;
    work.kind = SeriesWork::Kind::Deletion;
    std::vector<SeriesRow> rows;
    for (int row = 0; row < ctList1->RowCount(); ++row) {
        if (!ctList1->Checked(row, CheckColumn))
            continue;
        rows.push_back({ctList1->ItemData(row).toInt(), ctList1->Cell(row, DateColumn), ctList1->Cell(row, TimeColumn),
                        ctList1->Cell(row, TextColumn), ctList1->ItemText(row) == QLatin1String("G")});
        work.keys.push_back(rows.back().key);
    }
    const std::shared_ptr<SeriesMark> mark = SeriesMark::Begin(work);
    const SeriesOutcome outcome = DeleteSeries(rows, *mark);
    if (outcome.failure) {
        TellError(QStringLiteral("Error deleting appointment. "), *outcome.failure);
        OfferRest(mark, outcome, rowsChanged_);
    }
    accept();
}
