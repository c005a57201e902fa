#include "search/frmsavail.h"

#include <algorithm>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "search/attendance.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;
using db::SqlDate;

namespace {

constexpr int SmallestDate = 2;  // A date field with a value below this holds no date.

/// Whether a provider is busy: some busy id begins with the provider's, in any case.
bool isBusy(const QString& id, const QStringList& busy) {
    return std::any_of(busy.begin(), busy.end(),
                       [&id](const QString& other) { return other.startsWith(id, Qt::CaseInsensitive); });
}

}  // namespace

frmsavail::frmsavail(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmsavail"));
    setWindowTitle(QStringLiteral("Search Availability by Opening"));
    buildForm();
    layOutForm();
    connect(cmdsearch, &QPushButton::clicked, this, &frmsavail::cmdsearch_Click);
    connect(List1, &ctList::SelectionChanged, this, [this] { cmdgoto->setEnabled(List1->SelectedRow() >= 0); });
    connect(List1, &ctList::RowActivated, this, &frmsavail::cmdgoto_Click);
    connect(cmdgoto, &QPushButton::clicked, this, &frmsavail::cmdgoto_Click);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmsavail::buildForm() {
    const auto field = [this](ctDEdit::Kind kind, const char* name) {
        auto* made = new ctDEdit(kind, this);
        made->setObjectName(QLatin1String(name));
        made->setTwentyFourHour(Session().MilitaryTime);
        made->setDateOrder(Session().DateOrder);
        made->setRange(0, 1440);
        return made;
    };
    ctdate = field(ctDEdit::Kind::Date, "ctdate");
    ctdate->setDate(Today());
    ctstart = field(ctDEdit::Kind::Time, "ctstart");
    ctend = field(ctDEdit::Kind::Time, "ctend");
    ctend->setIsEnd(true);
    const auto button = [this](const char* name, const QString& text, const QIcon& icon) {
        auto* made = new QPushButton(icon, text, this);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        return made;
    };
    cmdsearch = button("cmdsearch", tr("&Search"), Icon("find"));
    cmdsearch->setDefault(true);
    cmdgoto = button("cmdgoto", tr("&Go To"), {});
    cmdgoto->setEnabled(false);
    cmdclose = button("cmdclose", tr("&Close"), {});
    List1 = new ctList(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setAccessibleName(QStringLiteral("Providers Available at above Date/Time"));
    List1->SetColumns({{QStringLiteral("Provider"), ListColumn::Kind::Text, 24},
                       {tr("User Id"), ListColumn::Kind::Text, 14},
                       {tr("Attends")}});
    lblcount = new QLabel(this);
    lblcount->setObjectName(QStringLiteral("lblcount"));
}

void frmsavail::layOutForm() {
    const auto label = [this](const QString& text, QWidget* buddy) {
        auto* made = new QLabel(text, this);
        made->setBuddy(buddy);
        return made;
    };
    auto* times = new QHBoxLayout;
    times->setSpacing(Space(8));
    times->addWidget(label(tr("&Date:"), ctdate));
    times->addWidget(ctdate);
    times->addSpacing(Space(8));
    times->addWidget(label(tr("S&tart:"), ctstart));
    times->addWidget(ctstart);
    times->addSpacing(Space(8));
    times->addWidget(label(tr("&End:"), ctend));
    times->addWidget(ctend);
    times->addStretch(1);
    times->addWidget(cmdsearch);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblcount, 1);
    buttons->addWidget(cmdgoto);
    buttons->addWidget(cmdclose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addLayout(times);
    column->addWidget(label(QStringLiteral("Providers Available at above Date/Time"), List1));
    column->addWidget(List1, 1);
    column->addLayout(buttons);
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 24);
    ctdate->setFocus();
}

bool frmsavail::validate() {
    const auto refuse = [](const QString& text, QWidget& field) {
        MsgBox(text, ExclamationBox, QStringLiteral("Missing Data"));
        field.setFocus();
        return false;
    };
    if (ctdate->Value() < SmallestDate)
        return refuse(QStringLiteral("Enter a valid date."), *ctdate);
    if (ctstart->Time() < 0)
        return refuse(QStringLiteral("Enter a start time"), *ctstart);
    if (ctend->Time() < 0)
        return refuse(QStringLiteral("Enter a start time"), *ctend);
    if (ctstart->Time() >= ctend->Time())
        return refuse(QStringLiteral("End time must be later than start time"), *ctend);
    return true;
}

void frmsavail::cmdsearch_Click() {
    if (!validate())
        return;
    const BusyPointer busy;
    cmdgoto->setEnabled(false);
    List1->Clear();
    lblcount->clear();
    try {
        listFree(busyProviders());
        const int free = List1->RowCount();
        lblcount->setText(free == 0   ? tr("Nobody is free.")
                          : free == 1 ? tr("1 provider")
                                      : tr("%1 providers").arg(free));
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error searching availability. "), error);
    }
}

QStringList frmsavail::busyProviders() const {
    // The window is shortened by a minute at both ends, so that a booking may touch it.
    const int first = ctstart->Time() + 1;
    const int last = ctend->Time() - 1;
    QStringList busy;
    for (
        Recordset rows(
            Sql("Select ClinicianId from appointments Where dapptdate = '{}' AND (({} BETWEEN nstarttime AND nendtime) OR ({} BETWEEN nstarttime AND nendtime) OR (nstarttime BETWEEN {} AND {}))",
                SqlDate(ctdate->Date()), first, last, first, last),
            Session().Connection);
        !rows.Eof(); rows.MoveNext())
        busy << rows[0].text();
    busy.removeDuplicates();
    return busy;
}

void frmsavail::listFree(const QStringList& busy) {
    const std::vector<Attendance> attendances = AttendancesOn(ctdate->Date());
    for (Recordset rows(QStringLiteral("Select id, prov_lastname, archive from provider_info Order by prov_lastname"),
                        Session().Connection);
         !rows.Eof(); rows.MoveNext()) {
        const QString id = rows["id"].text();
        if (isBusy(id, busy) || rows["archive"].integer() != 0)
            continue;
        const QString name = rows["prov_lastname"].text();
        const int row = List1->AddRow(
            {name, id, AttendanceText(attendances, id, ctdate->Date(), ctstart->Time(), ctend->Time())}, id);
        List1->SetItemText(row, name);
    }
}

void frmsavail::cmdgoto_Click() {
    const int row = List1->SelectedRow();
    if (row < 0)
        return;
    Session().ProviderId = List1->ItemData(row).toString();
    Session().ProviderName = List1->ItemText(row);
    jumpDate_ = ctdate->Date();
    accept();
}
