#include <QAction>
#include <QLabel>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "companion/companionitem.h"
#include "companion/frmfhappts.h"
#include "platform/calendar/ctmday.h"
#include "platform/controls/formparts.h"
#include "platform/theme/theme.h"
#include "session/session.h"
#include "shell/detailspane.h"

namespace {

constexpr int DaysOfWeek = 7;

std::vector<bool> appointments(std::span<const CalendarItem> items) {
    std::vector<bool> named;
    named.reserve(items.size());
    for (const CalendarItem& item : items)
        named.push_back(item.ItemColor != companioncolor::Event);
    return named;
}

}  // namespace

void frmFHAppts::makeBoards() {
    day_ = new DayBoard(QStringLiteral("ctMDay1"), {LockCompanionItem, appointments}, this);
    week_ = new DayBoard(QStringLiteral("ctMDay2"), {LockCompanionItem, appointments}, this);
    day_->Grid().setAccessibleName(tr("Fernhall day"));
    week_->Grid().setAccessibleName(tr("Fernhall week"));
    week_->Grid().setDayColumns(DaysOfWeek);
    pnlView = Named(new QLabel(this), "pnlView");
    pnlView->setFont(HeadingFont());
    pnlView->setTextFormat(Qt::PlainText);
    lblCPT = Named(new QLabel(this), "lblCPT");
    lblCPT->hide();
}

void frmFHAppts::layOut() {
    makeBoards();
    auto* weekPage = new QWidget(this);
    auto* rows = new QVBoxLayout(weekPage);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(pnlView);
    rows->addWidget(&week_->Grid(), 1);
    boards_ = new QStackedWidget(this);
    boards_->addWidget(&day_->Grid());
    boards_->addWidget(weekPage);
    panel_ = Named(new ProviderPanel(ProviderPanel::Columns::Provider, this), "pnlproviders");
    details_ = Named(new DetailsPane(tr("A&ppointment"), this), "sidePanes");
    SSSplitter1 = Named(new QSplitter(Qt::Vertical, this), "SSSplitter1");
    SSSplitter1->setChildrenCollapsible(false);
    SSSplitter1->addWidget(panel_);
    SSSplitter1->addWidget(details_);
    auto* sides = Named(new QSplitter(Qt::Horizontal, this), "SSSplitter2");
    sides->setChildrenCollapsible(false);
    sides->addWidget(boards_);
    sides->addWidget(SSSplitter1);
    sides->setStretchFactor(0, 1);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(sides);
    setFocusProxy(&day_->Grid());
}

void frmFHAppts::bindView() {
    showOpenView(menu::mnuVFH, View::Companion);
    menus().Allow(menu::mnuVAll, Session().AllProviders);
    menus().Command(menu::mnuWeek).setCheckable(true);
    const auto turn = [this] { ShowMode(mode_ == Mode::Day ? Mode::Week : Mode::Day); };
    menus().Bind(menu::mnuAShow, turn);
    menus().Bind(menu::mnuWeek, turn);
    menus().Bind(menu::mnuProvSelectAll, [this] {
        panel_->CheckAll();
        showChosen();
    });
    QAction& display = menus().Command(menu::mnuVDisplay);
    display.setCheckable(true);
    display.setChecked(true);
    menus().Bind(menu::mnuVDisplay, [this, &display] { panel_->setVisible(display.isChecked()); });
    connect(panel_, &ProviderPanel::ChoiceChanged, this, &frmFHAppts::showChosen);
    for (const DayBoard* board : {day_, week_})
        connect(&board->Grid(), &ctMDay::DayStepRequested, this,
                [this](int direction) { main().cycledate(direction < 0 ? 0 : 1); });
}
