#include "views/frmall.h"

#include <algorithm>
#include <numeric>
#include <QAction>
#include <QComboBox>
#include <QHash>
#include <QPushButton>

#include "appointments/appointmentitem.h"
#include "appointments/conflicts.h"
#include "appointments/workinghours.h"
#include "data/codes.h"
#include "data/holidays.h"
#include "data/pipefields.h"
#include "data/recurrence.h"
#include "output/appointmentslip.h"
#include "output/frmschrpt.h"
#include "platform/controls/noticebar.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "search/frmnextfree.h"
#include "session/preferences.h"
#include "session/session.h"
#include "shell/menutables.h"

using db::Ignoring;
using db::ReadTogether;
using db::Recordset;
using db::Sql;

namespace {

constexpr int AllDisciplines = 0;

QString columnsStatement() {
    return PreferenceStatement(QStringLiteral("AllCols"), QStringLiteral("Scheduler"), QString::fromLatin1(AllUsers));
}

}  // namespace

QString frmall::appointmentsStatement(QDate date) {
    return Sql(
        "Select appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid where DApptDate = '{}' Order by appttype DESC",
        date);
}

QString frmall::hoursStatement(QDate date) {
    return Sql("Select * from ProvSched Where workdayvalue = {}", WeekdayNumber(date));
}

frmall::frmall(MainWindow& main, QWidget* parent) : CalendarView(main, AllProvidersMenus(), parent) {
    setObjectName(QStringLiteral("frmall"));
    layOut();
    showOpenView(menu::mnuVAll, View::AllProviders);
    bindSwitches();
    const ReadTogether together(Session().Connection, dayStatements() << ListedProvidersStatement()
                                                                      << columnsStatement() << switchStatements());
    readSwitches();
    readColumns();
    LoadProviders();
    connectPanel();
    const std::optional<ViewContents> saved = this->main().TakeContents();
    if (saved)
        takeContents(*saved);
    loadmdayview();
    if (saved)
        goToColumnOf(*saved);
    setmenuaccess();
}

void frmall::connectPanel() {
    QAction& display = menus().Command(menu::mnuVDisplay);
    display.setCheckable(true);
    display.setChecked(true);
    menus().Bind(menu::mnuVDisplay, [this, &display] { panel_->setVisible(display.isChecked()); });
    connect(cbodisc, &QComboBox::activated, this, &frmall::filter);
    connect(panel_, &ProviderPanel::ChoiceChanged, this, &frmall::showChosen);
    connect(cboprovs, &QComboBox::activated, this, [this](int index) { chooseColumn(index + 1); });
    connect(cmdgo, &QPushButton::clicked, this, &frmall::goToProvider);
    connect(ctMDay1, &ctMDay::ItemSelected, this, &frmall::displayapptinfo);
    connect(ctMDay1, &ctMDay::RangeSelected, this, [this] { selectColumn(ctMDay1->SelColumn()); });
    connect(ctMDay1, &ctMDay::HeadingClicked, this, &frmall::chooseColumn);
    connect(ctMDay1, &ctMDay::BeforeDrop, this, &frmall::askBeforeDrop);
}

void frmall::readColumns() {
    const int wanted =
        GetPreference({}, QStringLiteral("AllCols"), QStringLiteral("Scheduler"), QString::fromLatin1(AllUsers))
            .toInt();
    preferredColumns_ = wanted < FewestColumns || wanted > MostColumns ? FewestColumns : wanted;
    showColumns();
}

void frmall::showColumns() {
    const bool fit = menus().Command(menu::mnuVFit).isChecked();
    ctMDay1->setVisibleColumns(fit ? 0 : wantedColumns());
}

void frmall::ApplyPreferences() {
    savedColumns_.reset();
    readColumns();
    CalendarView::ApplyPreferences();
}

void frmall::LoadProviders() {
    cbodisc->clear();
    cbodisc->addItem(QStringLiteral("Show All"));
    panel_->Clear();
    const auto addProviders = [this] {
        for (Recordset rows(ListedProvidersStatement(), Session().Connection); !rows.Eof(); rows.MoveNext())
            panel_->Add({rows["Id"].text(), rows["prov_lastname"].text(), rows["discipline"].text()});
    };
    providersRead_ = readInto(*ctMDay1, QStringLiteral("Error loading provider list. "), addProviders);
    for (const ListedProvider& provider : panel_->Providers())
        if (!provider.discipline.isEmpty() && cbodisc->findText(provider.discipline, Qt::MatchFixedString) < 0)
            cbodisc->addItem(provider.discipline);
    cbodisc->setCurrentIndex(AllDisciplines);
    resetcols();
}

void frmall::Reload() {
    if (!providersRead_)
        LoadProviders();
    loadmdayview();
}

void frmall::reloadWhole() {
    providersRead_ = false;
    Reload();
}

bool frmall::providerchecked(const QString& id) const {
    const std::optional<ListedProvider> listed = panel_->Find(id);
    return listed && listed->shown;
}

void frmall::resetcols() {
    ctMDay1->ClearColumns();
    List1.clear();
    cboprovs->clear();
    for (const ListedProvider& provider : panel_->Providers()) {
        if (!provider.shown || idle_.contains(provider.id.toLower()))
            continue;
        ctMDay1->AddColumn(provider.name);
        List1.push_back(provider.id);
        cboprovs->addItem(provider.name);
    }
    cboprovs->setCurrentIndex(cboprovs->count() > 0 ? 0 : -1);
    cmdgo->setEnabled(cboprovs->count() > 0);
}

void frmall::filter(int index) {
    const QString discipline = cbodisc->itemText(index);
    panel_->CheckThose([&](const ListedProvider& provider) {
        return index == AllDisciplines || provider.discipline.compare(discipline, Qt::CaseInsensitive) == 0;
    });
    showChosen();
}

void frmall::showChosen() {
    resetcols();
    loadmdayview();
}

QStringList frmall::dayStatements() const {
    const QDate date = main().Date();
    QStringList statements = statementsOfLoad(date, {})
                             << appointmentsStatement(date) << HolidayStatement(date) << hoursStatement(date);
    if (showsWorkingOnly())
        statements << WorkingHours::Statement();
    return statements;
}

void frmall::loadmdayview() {
    const QDate date = main().Date();
    const ReadTogether together(Session().Connection, dayStatements());
    beginLoad(date, {});
    if (providersRead_)
        leaveOutIdle(date);
    QHash<QString, int> columns;
    for (std::size_t i = 0; i < List1.size(); ++i)
        columns.insert(List1[i].toLower(), static_cast<int>(i) + 1);
    const auto addRows = [&] {
        addAppointments(Recordset(appointmentsStatement(date), Session().Connection),
                        [&columns](const Recordset& row, CalendarItem& item) {
                            if (row["allday"].boolean())
                                return false;
                            const auto column = columns.constFind(row["clinicianid"].text().toLower());
                            if (column == columns.cend())
                                return false;
                            item.ItemColumn = *column;
                            return true;
                        });
        std::vector<int> everyColumn(List1.size());
        std::iota(everyColumn.begin(), everyColumn.end(), 1);
        if (addHoliday(date, everyColumn))
            ctMDay1->setDayBackColor(ncolor::Holiday);
    };
    if (providersRead_)
        readInto(*ctMDay1, QStringLiteral("Error loading schedule. "), addRows);
    LoadWorkSchedule(date);
    endLoad();
    const QString caption = LongDateText(date);
    main().ShowDateText(caption);
    main().ShowTitle(caption);
    if (const std::optional<FoundAppointment> found = main().TakeFound(date)) {
        const int column = columnWith(found->provider.isEmpty() ? Session().ProviderId : found->provider);
        showFound(*found);
        selectColumn(column);
    }
}

void frmall::LoadWorkSchedule(QDate date) {
    ctMDay1->ClearTimeRanges();
    Ignoring([&] {
        Recordset hours(hoursStatement(date), Session().Connection);
        if (hours.RecordCount() < 2)
            return;
        for (std::size_t i = 0; i < List1.size(); ++i) {
            hours.MoveFirst();
            hours.Find(Sql("providerid = '{}'", List1[i]));
            if (hours.Eof())
                continue;
            board_->ShadeAround(hours, static_cast<int>(i) + 1);
        }
    });
}

void frmall::displayapptinfo(int index) {
    if (index > 0)
        selectColumn(ctMDay1->ColumnOfItem(index));
}

void frmall::selectColumn(int column) {
    if (column >= 1 && column <= cboprovs->count())
        cboprovs->setCurrentIndex(column - 1);
}

// The selected time goes along to the chosen provider; an appointment of another provider is selected no more.
void frmall::chooseColumn(int column) {
    const int item = ctMDay1->SelectedItem();
    if (item > 0 && ctMDay1->ColumnOfItem(item) != column)
        ctMDay1->clearSelection();
    else if (ctMDay1->SelectedRange() >= 0)
        ctMDay1->selectRange(column, ctMDay1->SelStart(), ctMDay1->SelEnd());
    selectColumn(column);
    ctMDay1->ScrollToColumn(column);
}

int frmall::columnOf(const QString& provider) const {
    const auto found = std::find_if(List1.begin(), List1.end(), [&provider](const QString& id) {
        return id.compare(provider, Qt::CaseInsensitive) == 0;
    });
    return found == List1.end() ? 0 : static_cast<int>(found - List1.begin()) + 1;
}

// A provider who is not checked gets a column; one who is not on the panel can have none.
int frmall::columnWith(const QString& provider) {
    if (idle_.contains(provider.toLower())) {
        followed_ = provider.toLower();
        Reload();
    }
    if (const std::optional<ListedProvider> listed = panel_->Find(provider); listed && !listed->shown) {
        panel_->CheckThose([&](const ListedProvider& each) { return each.shown || each.id == listed->id; });
        showChosen();
    }
    return columnOf(provider);
}

void frmall::followProvider() {
    if (const int column = columnWith(Session().ProviderId); column > 0) {
        chooseColumn(column);
        return;
    }
    Notice notice{
        tr("%1 has no column here: not among the providers that this view shows.").arg(Session().ProviderName)};
    notice.subject = FoundNotice;
    ShowNotice(std::move(notice));
}

QString frmall::whyUnseen(const FoundAppointment& found) const {
    const BookedProvider provider = found.provider.isEmpty()
                                        ? CalendarView::Provider()
                                        : BookedProvider{found.provider, nameOfProvider(found.provider)};
    if (columnOf(provider.id) == 0)
        return tr("The appointment that was found is of %1, who is not among the providers that this view shows.")
            .arg(provider.name);
    if (found.allDay)
        return tr("The appointment that was found lasts all day. This view does not show such entries.");
    return {};
}

BookedProvider frmall::Provider() const {
    return providerOfColumn(cboprovs->currentIndex() + 1).value_or(CalendarView::Provider());
}

std::optional<BookedProvider> frmall::providerOfColumn(int column) const {
    if (column < 1 || column > static_cast<int>(List1.size()))
        return std::nullopt;
    return BookedProvider{List1[static_cast<std::size_t>(column) - 1], ctMDay1->ColumnTitle(column)};
}

NextFreeRequest frmall::nextFreeRequest() const {
    NextFreeRequest request{Provider(), {}, true};
    if (List1.size() < panel_->Providers().size())
        request.chosen = QStringList(List1.begin(), List1.end());
    return request;
}

int frmall::columnFor(QDate /*date*/, const QString& provider) const {
    return columnOf(provider);
}

QString frmall::nameOfProvider(const QString& id) const {
    const std::optional<ListedProvider> listed = panel_->Find(id);
    return listed ? listed->name : id;
}

// The patient's other appointments are asked about, and those of the session's provider, whichever column it is; then
// those of the provider who stands there.
bool frmall::mayDrop(const CalendarItem& item, const ItemPlace& place) {
    const QString patient = GetPipeField(item.ItemNote, 3);
    const QString& own = Session().ProviderId;
    const auto conflicts = [&](const QString& patientId, const QString& providerId) {
        return CheckApptConflicts(item.ItemKey.toInt(), main().Date(), place.start, place.end, patientId, providerId);
    };
    if (!patient.isEmpty() && conflicts(patient, own))
        return false;
    const QString there = providerOfColumn(place.column).value_or(BookedProvider()).id;
    const bool asked = !patient.isEmpty() && there.compare(own, Qt::CaseInsensitive) == 0;
    return asked || there.isEmpty() || !conflicts({}, there);
}

void frmall::askBeforeDrop(int index, const ItemPlace& place, bool* cancel) {
    if (!*cancel)
        *cancel = !mayDrop(std::as_const(*ctMDay1).Item(index), place);
}

bool frmall::givesSlip(int code, int apptType) const {
    return HasSlip(code, apptType);
}

ScheduleSheet frmall::sheet(const PrintOptions& options) const {
    ScheduleSheet sheet = CalendarView::sheet(options);
    sheet.subtitle = QStringLiteral("Schedule - All Therapists");
    const std::size_t listed = panel_->Providers().size();
    const std::size_t shown = sheet.content.columns.size();
    sheet.footer = shown == listed ? tr("All providers") : tr("%1 of %2 providers").arg(shown).arg(listed);
    sheet.columnsPerPage = std::min(savedColumns_.value_or(options.columnsPerPage), PrintOptions::MostColumns);
    return sheet;
}

ReportOpening frmall::reportOpening() const {
    ReportOpening opening = CalendarView::reportOpening();
    opening.provider.clear();
    return opening;
}

void frmall::goToProvider() {
    const std::optional<BookedProvider> chosen = providerOfColumn(cboprovs->currentIndex() + 1);
    if (!chosen)
        return;
    // This view goes with the change to another.
    MainWindow& window = main();
    if (chosen->id == Session().ProviderId) {
        window.changeview(View::Day);
        return;
    }
    bool known = false;
    Ignoring([&] {
        known = !Recordset(Sql("Select pswd_type_of_access from passwords Where pswd_user_id = '{}'", chosen->id),
                           Session().Connection)
                     .Eof();
    });
    if (!known) {
        MsgBox(QStringLiteral("Error moving to selected provider. "), ErrorBox, QStringLiteral("Error"));
        return;
    }
    Session().ProviderId = chosen->id;
    Session().ProviderName = chosen->name;
    window.changeview(View::Day);
    window.ProviderChosen();
}
