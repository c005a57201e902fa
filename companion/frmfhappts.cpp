#include "companion/frmfhappts.h"

#include <algorithm>
#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QLocale>
#include <QStackedWidget>
#include <utility>

#include "companion/sessioncolumn.h"
#include "output/frmschrpt.h"
#include "platform/calendar/ctmday.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/printing/vsprinter.h"
#include "platform/text/plaintext.h"
#include "session/namedpreview.h"
#include "session/rights.h"
#include "session/session.h"
#include "shell/menutables.h"
#include "shell/schedulesheet.h"

using db::Recordset;
using db::Sql;

namespace {

const QString ChoiceCategory = QStringLiteral("Interfaces");
const QString ChoiceDetail = QStringLiteral("SVSchedulerFHTherapistList");

QString providersStatement() {
    if (!Session().AllProviders)
        return Sql("Select * from providers Where provid = {}", Session().FHProviderId);
    return QStringLiteral("Select * from providers Order by ProvLastName, ProvFirstName");
}

CompanionProvider asCompanion(const ListedProvider& listed) {
    return {listed.id.toInt(), listed.name};
}

}  // namespace

frmFHAppts::frmFHAppts(MainWindow& main, QWidget* parent) : MenuView(main, CompanionMenus(), parent) {
    setObjectName(QStringLiteral("frmFHAppts"));
    layOut();
    bindView();
    bindCommands();
    open();
}

// A field with the focus is left while the view is destroyed, so the view is hidden while it is still whole.
frmFHAppts::~frmFHAppts() {
    hide();
}

void frmFHAppts::open() {
    Session().FHLedgerHidden = GetUserFHLedger(Session().UID);
    contents_ = main().TakeContents();
    setGrids();
    LoadProviders();
    if (providersRead_ && columns_.empty())
        MsgBox(QStringLiteral("No matching or paired provider in Fernhall for current user. Unable to load schedule."),
               ExclamationBox, QStringLiteral("Solvane"));
}

void frmFHAppts::setGrids() {
    for (DayBoard* board : {day_, week_}) {
        board->SetScale(Session().TimeUnit);
        board->Grid().setReadOnly(Session().ScreenAccess == 1);
    }
}

void frmFHAppts::ApplyPreferences() {
    setGrids();
    Reload();
}

QString frmFHAppts::GetTherapistList() {
    try {
        QString choice = ReadChoice(ChoiceCategory, ChoiceDetail);
        choiceKnown_ = true;
        return choice;
    } catch (const db::DatabaseError& error) {
        MsgBox(QStringLiteral("Error loading last saved therapist filter. ") + error.description, ErrorBox,
               QStringLiteral("Error Getting Information"));
        return {};
    }
}

void frmFHAppts::SaveTherapistList() {
    // An empty list could not be read, so it holds no choice.
    if (choiceKnown_ && !choiceIsSaved_ && !panel_->Providers().empty())
        db::Ignoring([this] { WriteChoice(ChoiceCategory, ChoiceDetail, panel_->Choice()); });
}

void frmFHAppts::LoadProviders() {
    // The day is loaded over the same connection.
    std::shared_ptr<db::Connection> companion;
    providersRead_ = readInto(
        *boards_, QStringLiteral("Error loading Fernhall providers. "),
        [&] {
            companion = Companion();
            readProviders(*companion);
        },
        [this] { LoadProviders(); });
    setmenuaccess();
    resetcols();
    if (providersRead_)
        frmFHAppts::Reload();
    else
        showTitles();
}

// A choice that the user made since the view was opened is not stored yet.
void frmFHAppts::readProviders(db::Connection& companion) {
    const bool isMade = choiceKnown_ && !panel_->Providers().empty();
    const QString choice = isMade ? panel_->Choice() : GetTherapistList();
    const db::ReadTogether together(companion, {providersStatement(), SessionColumnStatement()});
    Recordset rows(providersStatement(), companion);
    HasSVSessionCol_ = IsSVSessionIDColThere(companion);
    std::vector<ListedProvider> providers;
    for (; !rows.Eof(); rows.MoveNext())
        providers.push_back({rows["ProvId"].text(),
                             OneLine(rows["ProvLastName"].text() + QStringLiteral(", ") + rows["ProvFirstName"].text()),
                             {}});
    panel_->Clear();
    for (const ListedProvider& provider : providers)
        panel_->Add(provider);
    panel_->Choose(choice);
    // A choice whose providers are all gone shows everybody, because the list can never be without a check.
    if (panel_->Choice().isEmpty())
        panel_->CheckAll();
    if (const std::optional<ViewContents> contents = std::exchange(contents_, std::nullopt))
        takeContents(*contents);
}

void frmFHAppts::AddContents(ViewContents& contents) const {
    const std::vector<ListedProvider> providers = panel_->Providers();
    if (!std::ranges::all_of(providers, &ListedProvider::shown))
        contents.Set(savedname::Providers, panel_->Choice());
    if (!menus_.Command(menu::mnuVDisplay).isChecked())
        contents.Set(savedname::Panel, 0);
    if (mode_ == Mode::Week) {
        contents.Set(savedname::Mode, QStringLiteral("week"));
        contents.Set(savedname::Column, weekProvider_.provId);
    }
}

// Nothing is read here. Providers who are gone are passed over, and a week of one who is gone is shown as the day.
void frmFHAppts::takeContents(const ViewContents& contents) {
    panel_->Choose(contents.Value(savedname::Providers));
    if (panel_->Choice().isEmpty())
        panel_->CheckAll();
    choiceIsSaved_ = true;
    menus().Command(menu::mnuVDisplay).setChecked(contents.Number(savedname::Panel, 1) != 0);
    const std::optional<ListedProvider> week = panel_->Find(contents.Value(savedname::Column));
    const bool isWeek = contents.Value(savedname::Mode) == QLatin1String("week") && week;
    if (isWeek)
        weekProvider_ = asCompanion(*week);
    setMode(isWeek ? Mode::Week : Mode::Day);
}

void frmFHAppts::ShowContents(const ViewContents& contents) {
    setGrids();
    if (!providersRead_) {
        contents_ = contents;
        LoadProviders();
        return;
    }
    takeContents(contents);
    resetcols();
    Reload();
}

void frmFHAppts::resetcols() {
    ctMDay& grid = day_->Grid();
    grid.ClearColumns();
    columns_.clear();
    for (const ListedProvider& provider : panel_->Providers()) {
        if (!provider.shown)
            continue;
        grid.AddColumn(provider.name);
        columns_.push_back(asCompanion(provider));
    }
}

void frmFHAppts::showChosen() {
    choiceKnown_ = true;
    choiceIsSaved_ = false;
    resetcols();
    Reload();
}

void frmFHAppts::checkAll() {
    panel_->CheckAll();
    showChosen();
}

void frmFHAppts::reloadWhole() {
    LoadProviders();
}

void frmFHAppts::showTitles() {
    const QDate date = main().Date();
    const QString caption =
        mode_ == Mode::Day ? LongDateText(date)
                           : QStringLiteral("Week of ") + QLocale::c().toString(date, QStringLiteral("MMMM d, yyyy"));
    main().ShowDateText(caption);
    main().ShowTitle(caption);
}

// A click on the heading selects the first row in sight.
void frmFHAppts::chooseColumn(int column) {
    ctMDay& grid = Grid();
    grid.selectRange(column, grid.TopTime(), grid.TopTime() + grid.TimeInterval());
    grid.ScrollToColumn(column);
}

void frmFHAppts::ShowMode(Mode mode) {
    if (mode == mode_)
        return;
    if (mode == Mode::Week) {
        const std::optional<CompanionProvider> chosen = SelectedProvider();
        if (!chosen) {
            MsgBox(QStringLiteral("Select a provider by clicking in the column."), ExclamationBox,
                   QStringLiteral("Solvane"));
            return;
        }
        weekProvider_ = *chosen;
    }
    setMode(mode);
    Reload();
    Grid().setFocus();
}

void frmFHAppts::setMode(Mode mode) {
    if (mode == Mode::Week)
        pnlView->setText(QStringLiteral(" Week Schedule for: ") + weekProvider_.name);
    mode_ = mode;
    boards_->setCurrentIndex(mode == Mode::Week ? 1 : 0);
    setFocusProxy(&Grid());
    showModeCommands();
}

void frmFHAppts::showModeCommands() {
    const bool week = mode_ == Mode::Week;
    menus()
        .Command(menu::mnuAShow)
        .setText(week ? QStringLiteral("&Show Day View") : QStringLiteral("&Show Week View"));
    menus().Command(menu::mnuWeek).setChecked(week);
    for (const MenuName name : {menu::mnuVDisplay, menu::mnuProvSelectAll})
        menus().Suit(name, !week, tr("The week shows one provider."));
    panel_->setVisible(!week && menus().Command(menu::mnuVDisplay).isChecked());
}

std::optional<SelectedSlot> frmFHAppts::SelectedTime() const {
    const ctMDay& grid = Grid();
    if (grid.SelectedRange() < 0)
        return std::nullopt;
    return SelectedSlot{DateOfColumn(grid.SelColumn()), grid.SelStart(), grid.SelEnd()};
}

std::optional<CompanionProvider> frmFHAppts::ProviderOfColumn(int column) const {
    if (column < 1 || column > Grid().ColumnCount())
        return std::nullopt;
    if (mode_ == Mode::Week)
        return weekProvider_;
    if (column > static_cast<int>(columns_.size()))
        return std::nullopt;
    return columns_[static_cast<std::size_t>(column) - 1];
}

std::optional<CompanionProvider> frmFHAppts::SelectedProvider() const {
    const ctMDay& grid = Grid();
    const int item = grid.SelectedItem();
    return ProviderOfColumn(item > 0 ? grid.ColumnOfItem(item) : grid.SelColumn());
}

QDate frmFHAppts::DateOfColumn(int column) const {
    return mode_ == Mode::Week ? Grid().Date().addDays(column - 1) : Grid().Date();
}

void frmFHAppts::SelectRow(const QString& key, int color, int column) {
    ctMDay& grid = Grid();
    int found = 0;
    for (int index = grid.ItemCount(); index >= 1; --index) {
        const CalendarItem& item = std::as_const(grid).Item(index);
        if (item.ItemKey == key && item.ItemColor == color && (found == 0 || grid.ColumnOfItem(index) == column))
            found = index;
    }
    if (found == 0)
        return;
    grid.setSelectedItem(found);
    grid.ScrollToItem(found);
}

ScheduleSheet frmFHAppts::sheet(const PrintOptions& options) const {
    ScheduleSheet sheet;
    sheet.content = Grid().Content();
    sheet.title = SheetDate(Grid().Date());
    sheet.subtitle = QStringLiteral("Schedule - Fernhall");
    sheet.columnsPerPage = options.columnsPerPage;
    if (mode_ == Mode::Week) {
        sheet.content.headingFormat = QString::fromLatin1(DayAndMonthName);
        sheet.footer = sheet.owner = weekProvider_.name;
        sheet.columnsPerPage = static_cast<int>(sheet.content.columns.size());
    }
    return sheet;
}

void frmFHAppts::printS() {
    if (hasUnread()) {
        TellUnreadSchedule();
        return;
    }
    if (mode_ == Mode::Week)
        TellLandscape();
    const PrintOptions options = ReadPrintOptions();
    PreviewWithNames([&] { return PrintedSheet(sheet(options), options); }, window());
}

void frmFHAppts::openReport() {
    const QDate day = Grid().Date();
    ReportOpening opening{.mode = ReportMode::Companion, .from = day, .to = day};
    if (mode_ == Mode::Week) {
        opening.to = DateOfColumn(Grid().ColumnCount());
        opening.provider = QString::number(weekProvider_.provId);
    }
    frmschrpt form(opening, window());
    ShowModal(form);
}

void frmFHAppts::closeEvent(QCloseEvent* event) {
    SaveTherapistList();
    MenuView::closeEvent(event);
}
