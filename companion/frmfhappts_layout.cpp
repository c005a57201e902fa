#include <algorithm>
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

#include "companion/companionitem.h"
#include "companion/frmfhappts.h"
#include "people/frmcleg.h"
#include "platform/calendar/ctmday.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formparts.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"
#include "session/session.h"
#include "shell/detailspane.h"
#include "shell/keptsplitter.h"

namespace {

constexpr int DaysOfWeek = 7;
constexpr char sidesKey[] = "frmFHAppts.sides";
constexpr char listsKey[] = "frmFHAppts.SSSplitter1";
constexpr char detailsKey[] = "frmFHAppts.sidePanes";
constexpr int SideCharacters = 46;  ///< So that the week has room for its seven days on a screen of 1280.
constexpr int LabelCharacters = 22;
constexpr int ProvidersShare = 2;
constexpr int DetailsShare = 3;

std::vector<bool> areAppointments(std::span<const CalendarItem> items) {
    std::vector<bool> named;
    named.reserve(items.size());
    for (const CalendarItem& item : items)
        named.push_back(IsCompanionAppointment(item));
    return named;
}

// An appointment and an event may have the same key.
bool sameTable(const CalendarItem& item, const CalendarItem& other) {
    return IsCompanionAppointment(item) == IsCompanionAppointment(other);
}

LegendEntry legendEntry(int color, const QString& meaning) {
    LegendEntry entry{{}, meaning};
    entry.item.ItemColor = color;
    MarkCompanionKind(entry.item);
    return entry;
}

}  // namespace

void frmFHAppts::makeBoards() {
    const BoardRules rules{LockCompanionItem, areAppointments, sameTable};
    day_ = new DayBoard(QStringLiteral("ctMDay1"), rules, this);
    week_ = new DayBoard(QStringLiteral("ctMDay2"), rules, this);
    day_->Grid().setAccessibleName(tr("Fernhall day"));
    week_->Grid().setAccessibleName(tr("Fernhall week"));
    week_->Grid().setDayColumns(DaysOfWeek);
}

QWidget* frmFHAppts::makeWeekPage() {
    auto* page = new QWidget(this);
    pnlView = Named(new QLabel(page), "pnlView");
    pnlView->setFont(HeadingFont());
    pnlView->setTextFormat(Qt::PlainText);
    pnlView->setContentsMargins(Space(8), 0, Space(8), Space(4));
    auto* rows = new QVBoxLayout(page);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(pnlView);
    rows->addWidget(&week_->Grid(), 1);
    return page;
}

void frmFHAppts::layOut() {
    makeBoards();
    boards_ = new QStackedWidget(this);
    boards_->addWidget(&day_->Grid());
    boards_->addWidget(makeWeekPage());
    auto* SSSplitter1 = Named(new QSplitter(Qt::Vertical, this), "SSSplitter1");
    SSSplitter1->setChildrenCollapsible(false);
    panel_ = Named(new ProviderPanel(ProviderPanel::Columns::Provider, this), "pnlproviders");
    panel_->Rows().setContentsMargins(0, 0, 0, 0);
    details_ = Named(new DetailsPane(tr("A&ppointment"), this, LabelCharacters), "sidePanes");
    SSSplitter1->addWidget(panel_);
    SSSplitter1->addWidget(details_);
    SSSplitter1->setStretchFactor(0, ProvidersShare);
    SSSplitter1->setStretchFactor(1, DetailsShare);
    sides_ = Named(new QSplitter(Qt::Horizontal, this), "sides");
    sides_->setChildrenCollapsible(false);
    sides_->addWidget(boards_);
    sides_->addWidget(SSSplitter1);
    sides_->setStretchFactor(0, 1);
    sides_->setStretchFactor(1, 0);
    sized_ = KeepSplitter(*sides_, sidesKey);
    KeepSplitter(*SSSplitter1, listsKey);
    KeepSplitter(*details_, detailsKey);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, Space(8), Space(8));
    whole->addWidget(sides_);
    lblCPT = Named(new QLabel(this), "lblCPT");
    lblCPT->setTextFormat(Qt::PlainText);
    lblCPT->hide();
    setFocusProxy(&day_->Grid());
}

void frmFHAppts::resizeEvent(QResizeEvent* event) {
    MenuView::resizeEvent(event);
    if (!std::exchange(sized_, true))
        shareWidth();
}

// The columns come first where room is short; the lists beside them scroll.
void frmFHAppts::shareWidth() {
    const int room = sides_->width() - sides_->handleWidth();
    const int side = std::min(fontMetrics().averageCharWidth() * SideCharacters, room * 2 / 5);
    sides_->setSizes({room - side, side});
}

void frmFHAppts::bindView() {
    showOpenView(menu::mnuVFH, View::Companion);
    menus().Allow(menu::mnuVAll, Session().AllProviders, tr("This needs access to all schedules."));
    menus().Bind(menu::mnuPrint, [this] { printS(); });
    menus().Bind(menu::mnuFReport, [this] { openReport(); });
    menus().Command(menu::mnuWeek).setCheckable(true);
    const auto turn = [this] {
        ShowMode(mode_ == Mode::Day ? Mode::Week : Mode::Day);
        showModeCommands();
    };
    menus().Bind(menu::mnuAShow, turn);
    menus().Bind(menu::mnuWeek, turn);
    for (const DayBoard* board : {day_, week_})
        bindGrid(board->Grid());
    bindPanel();
}

void frmFHAppts::bindGrid(ctMDay& grid) {
    connect(&grid, &ctMDay::ItemSelected, this, [this, &grid](int index) {
        if (&grid == &Grid())
            showDetails(index);
    });
    connect(&grid, &ctMDay::HeadingClicked, this, &frmFHAppts::chooseColumn);
    connect(&grid, &ctMDay::DayStepRequested, this, [this](int direction) { main().cycledate(direction < 0 ? 0 : 1); });
}

void frmFHAppts::bindPanel() {
    QAction& display = menus().Command(menu::mnuVDisplay);
    display.setCheckable(true);
    display.setChecked(true);
    menus().Bind(menu::mnuVDisplay, [this] { showModeCommands(); });
    menus().Bind(menu::mnuProvSelectAll, [this] { checkAll(); });
    connect(panel_, &ProviderPanel::ChoiceChanged, this, &frmFHAppts::showChosen);
    auto* popup = Named(new QMenu(this), "popupProviders");
    popup->addAction(&menus().Command(menu::mnuProvSelectAll));
    connect(&panel_->List(), &ctList::PopupRequested, popup,
            [popup](int /*row*/, QPoint globalPosition) { popup->popup(globalPosition); });
}

void frmFHAppts::showLegend() {
    frmcleg dialog(
        {legendEntry(companioncolor::Scheduled, tr("Scheduled")), legendEntry(companioncolor::Charged, tr("Charged")),
         legendEntry(companioncolor::Event, tr("Event"))},
        window(), CompanionMarks());
    ShowModal(dialog);
}
