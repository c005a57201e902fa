#include "search/frmfirstatype.h"

#include <optional>
#include <QApplication>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <vector>

#include "data/minutetime.h"
#include "platform/calendar/colour.h"
#include "platform/controls/ctlist.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/waiting.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "search/attendance.h"
#include "session/errorbox.h"
#include "session/formheading.h"
#include "session/session.h"

using db::Ignoring;
using db::Recordset;
using db::Sql;
using db::SqlDate;

namespace {

constexpr int GridMinutes = 5;
constexpr int MostDigits =
    5;  // One digit more than the minutes of a day have, so that a number that is too large is refused and not cut.
constexpr int DayMinutes = 1440;
const QString Title = QStringLiteral("Solvane");

/// A failure is ignored unless the database does not answer at all, because any time would then look free.
bool hasRow(const QString& statement) {
    try {
        return !Recordset(statement, Session().Connection).Eof();
    } catch (const db::DatabaseError& error) {
        if (db::IsUnanswered(error))
            throw;
        return false;
    }
}

/// Returns the first free start in a block, or nothing where there is none. `stopped` is asked before every try.
template <class Stopped>
std::optional<int> firstFree(QDate date, int start, int end, int length, const QString& provider, Stopped stopped) {
    const int tries = (end - start) / GridMinutes;
    for (int i = 0; i < tries && !stopped(); ++i) {
        if (!slotbooked(date, start, start + length, provider))
            return start;
        start += GridMinutes;
        if (start + length > end)
            return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace

bool slotbooked(QDate date, int start, int end, const QString& clinicianId) {
    return hasRow(Sql(
               "Select * from appointments Where appttype <> 4 AND DApptDate = '{}' And Clinicianid = '{}' And {} Between nstarttime and (nendtime - .1)",
               SqlDate(date), clinicianId, start)) ||
           hasRow(Sql(
               "Select * from appointments Where appttype <> 4 AND DApptDate = '{}' And Clinicianid = '{}' And {} Between (nstarttime + .1) and nendtime",
               SqlDate(date), clinicianId, end)) ||
           hasRow(Sql(
               "Select * from appointments Where appttype <> 4 AND DApptDate = '{}' And Clinicianid = '{}' And (nstarttime + .1) Between {} And {}",
               SqlDate(date), clinicianId, start, end));
}

frmfirstatype::frmfirstatype(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmfirstatype"));
    setWindowTitle(QStringLiteral("Search Availability by Appointment Type"));
    buildForm();
    layOutForm();
    loadtypes();
    loadprovs();
    followFields();
    connect(cboProviders, &QComboBox::currentIndexChanged, this, &frmfirstatype::dropResults);
    connect(cboatypes, &QComboBox::currentIndexChanged, this, &frmfirstatype::followFields);
    connect(txtlength, &QLineEdit::textChanged, this, &frmfirstatype::followFields);
    connect(cmdsearch, &QPushButton::clicked, this, &frmfirstatype::cmdsearch_Click);
    connect(cmdstop, &QPushButton::clicked, this, [this] { stop_ = true; });
    connect(ctList1, &ctList::RowActivated, this, &frmfirstatype::cmdgoto_Click);
    connect(cmdgoto, &QPushButton::clicked, this, &frmfirstatype::cmdgoto_Click);
    connect(cmdclose, &QPushButton::clicked, this, &frmfirstatype::reject);
}

void frmfirstatype::buildForm() {
    const auto named = [](auto* widget, const char* name) {
        widget->setObjectName(QLatin1String(name));
        return widget;
    };
    cboProviders = named(new QComboBox(this), "cboProviders");
    cboatypes = named(new QComboBox(this), "cboatypes");
    txtlength = named(new QLineEdit(this), "txtlength");
    txtlength->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), txtlength));
    txtlength->setMaxLength(MostDigits);
    txtlength->setFixedWidth(fontMetrics().averageCharWidth() * 10);
    const auto button = [&](const char* name, const QString& text, const QIcon& icon) {
        auto* made = named(new QPushButton(icon, text, this), name);
        made->setAutoDefault(false);
        return made;
    };
    cmdsearch = button("cmdsearch", tr("&Search"), Icon("find"));
    cmdsearch->setDefault(true);
    cmdstop = button("cmdstop", tr("S&top"), {});
    cmdstop->setEnabled(false);
    cmdgoto = button("cmdgoto", tr("&Go To"), {});
    cmdgoto->setEnabled(false);
    cmdclose = button("cmdclose", tr("&Close"), {});
    ctList1 = named(new ctList(this), "ctList1");
    ctList1->setAccessibleName(tr("Free time"));
    ctList1->SetColumns({{QStringLiteral("Date"), ListColumn::Kind::Text, 22},
                         {QStringLiteral("Start Time"), ListColumn::Kind::Text, 14},
                         {QStringLiteral("End Time"), ListColumn::Kind::Text, 14},
                         {tr("Attends")}});
    lblcount = named(new QLabel(this), "lblcount");
}

void frmfirstatype::layOutForm() {
    auto* fields = new QFormLayout;
    fields->setVerticalSpacing(Space(8));
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    fields->addRow(tr("&Provider:"), cboProviders);
    fields->addRow(tr("Appointment t&ype:"), cboatypes);
    auto* length = new QHBoxLayout;
    length->addWidget(txtlength);
    length->addStretch(1);
    length->addWidget(cmdsearch);
    length->addWidget(cmdstop);
    fields->addRow(QStringLiteral("Length (in minutes):"), length);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblcount, 1);
    buttons->addWidget(cmdgoto);
    buttons->addWidget(cmdclose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addLayout(fields);
    column->addWidget(ctList1, 1);
    column->addLayout(buttons);
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 26);
    txtlength->setAccessibleName(QStringLiteral("Length (in minutes):"));
    txtlength->setFocus();
}

void frmfirstatype::loadtypes() {
    try {
        for (Recordset rows(QStringLiteral("Select * from AptCategories Order by aptcategory"), Session().Connection);
             !rows.Eof(); rows.MoveNext()) {
            const int color = static_cast<int>(rows["aptcategorycolor"].integer());
            cboatypes->addItem(rows["aptcategory"].text(), color);
            cboatypes->setItemData(cboatypes->count() - 1, ColorFromWindows(color), Qt::DecorationRole);
        }
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading appointment types. "), error);
    }
    cboatypes->setCurrentIndex(-1);
}

void frmfirstatype::loadprovs() {
    try {
        for (Recordset rows(QStringLiteral("Select id, prov_lastname from provider_info Order by prov_lastname"),
                            Session().Connection);
             !rows.Eof(); rows.MoveNext())
            cboProviders->addItem(rows["prov_lastname"].text(), rows["id"].text());
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading provider list. "), error);
    }
    cboProviders->setCurrentIndex(cboProviders->findData(Session().ProviderId));
}

// The listed results belong to the other provider and must not be opened as this one's.
void frmfirstatype::dropResults() {
    ctList1->Clear();
    lblcount->clear();
    cmdgoto->setEnabled(false);
}

void frmfirstatype::followFields() {
    cboProviders->setEnabled(!searching_);
    cmdsearch->setEnabled(!searching_ && cboatypes->currentIndex() >= 0 && !txtlength->text().isEmpty());
}

void frmfirstatype::cmdsearch_Click() {
    const int length = txtlength->text().toInt();
    if (length <= 0) {
        MsgBox(QStringLiteral("Enter length of time slot"), ExclamationBox, Title);
        txtlength->setFocus();
        return;
    }
    if (length > DayMinutes) {
        MsgBox(tr("A day has 1440 minutes. Enter a shorter length."), ExclamationBox, Title);
        txtlength->setFocus();
        txtlength->selectAll();
        return;
    }
    ctList1->Clear();
    lblcount->setText(tr("Searching..."));
    cmdgoto->setEnabled(false);
    searching_ = true;
    stop_ = false;
    cmdstop->setEnabled(true);
    followFields();
    try {
        search(length, cboProviders->currentData().toString());
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error searching availability. "), error);
    }
    searching_ = false;
    cmdstop->setEnabled(false);
    followFields();
    const int found = ctList1->RowCount();
    lblcount->setText(stop_        ? tr("Stopped. Openings so far: %1.").arg(found)
                      : found == 0 ? tr("No opening was found.")
                      : found == 1 ? tr("1 opening")
                                   : tr("%1 openings").arg(found));
    if (found == 0)
        return;
    cmdgoto->setEnabled(true);
    ctList1->SelectRow(0);
}

void frmfirstatype::search(int length, const QString& provider) {
    const auto stopped = [this] {
        // A step takes about a millisecond, and the window handles events between the steps.
        QApplication::processEvents();
        return stop_;
    };
    const std::vector<Attendance> attendances = AttendancesOf(provider, Today());
    for (
        Recordset blocks(
            Sql("Select * from appointments Where dapptdate >= '{}' AND clinicianid = '{}' AND ncolor = {} Order by dapptdate",
                SqlDate(Today()), provider, cboatypes->currentData().toInt()),
            Session().Connection);
        !blocks.Eof() && !stop_; blocks.MoveNext()) {
        const QDate date = blocks["dapptdate"].date();
        const int start = static_cast<int>(blocks["nstarttime"].integer());
        const int end = static_cast<int>(blocks["nendtime"].integer());
        if (const std::optional<int> free = firstFree(date, start, end, length, provider, stopped))
            addResult(date, *free, length, AttendanceText(attendances, provider, date, *free, *free + length));
    }
}

void frmfirstatype::addResult(QDate date, int start, int length, const QString& attends) {
    const bool military = Session().MilitaryTime;
    ctList1->AddRow(
        {NamedDateText(date), MinutesToTimeText(start, military), MinutesToTimeText(start + length, military), attends},
        date);
}

void frmfirstatype::reject() {
    if (searching_)
        stop_ = true;
    else
        QDialog::reject();
}

void frmfirstatype::cmdgoto_Click() {
    const int row = ctList1->SelectedRow();
    if (row < 0 || searching_)
        return;
    if (cboProviders->currentData().toString() != Session().ProviderId && !jumptoclinician())
        return;
    jumptodate(row);
}

void frmfirstatype::jumptodate(int row) {
    jumpDate_ = ctList1->ItemData(row).toDate();
    accept();
}

bool frmfirstatype::jumptoclinician() {
    const QString id = cboProviders->currentData().toString();
    bool found = false;
    Ignoring([&] { found = hasRow(Sql("Select pswd_type_of_access from passwords Where pswd_user_id = '{}'", id)); });
    if (!found) {
        MsgBox(QStringLiteral("Error moving to selected provider. "), ErrorBox, Title);
        return false;
    }
    Session().ProviderId = id;
    Session().ProviderName = cboProviders->currentText();
    providerChanged_ = true;
    return true;
}
