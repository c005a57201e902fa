#include "shell/menuview.h"

#include <QAction>
#include <QMenu>

#include "people/frmabook.h"
#include "people/frmcleg.h"
#include "people/frmlocs.h"
#include "platform/desktop/desktop.h"
#include "platform/text/plaintext.h"
#include "session/session.h"
#include "shell/frmabout.h"
#include "shell/frmpopts.h"
#include "shell/frmsviews.h"
#include "shell/viewtable.h"

namespace {

// A view without a title is named by what it shows.
QString titleOf(const SavedView& saved) {
    const ViewEntry* entry = FindView(saved.Shows());
    return saved.title.isEmpty() && entry != nullptr ? QString::fromLatin1(entry->item) : saved.title;
}

}  // namespace

MenuView::MenuView(MainWindow& main, std::span<const MenuEntry> entries, QWidget* parent)
    : ViewWindow(parent), main_(main), menus_(entries, this) {
    menus_.Bind(menu::mnuFSelect, [this] { main_.SelectProvider(); });
    menus_.Bind(menu::mnuFPrefs, [this] { main_.ShowPreferences(); });
    menus_.Bind(menu::mnuPrntOpts, [this] { showPrintOptions(); });
    menus_.Bind(menu::mnuFExit, [this] { main_.Leave(); });
    menus_.Bind(menu::mnuHContents, [this] { main_.ShowHelp(); });
    menus_.Bind(menu::mnuHAbout, [this] { ShowAbout(window()); });
    bindViews();
    bindSteps();
    bindPracticeLists();
    bindSavedViews();
    MenuView::FollowMainWindow();
}

void MenuView::showAny(std::initializer_list<MenuName> names, bool shown) {
    for (const MenuName name : names)
        menus_.Show(name, shown);
}

void MenuView::bindViews() {
    menus_.Bind(menu::mnuVDay, [this] { main_.changeview(View::Day); });
    menus_.Bind(menu::mnuVWeek, [this] { main_.changeview(View::Week); });
    menus_.Bind(menu::mnuVMonth, [this] { main_.changeview(View::Month); });
    menus_.Bind(menu::mnuVAll, [this] { main_.changeview(View::AllProviders); });
    menus_.Bind(menu::mnuVRoom, [this] { main_.changeview(View::Rooms); });
    menus_.Bind(menu::mnuVFH, [this] { main_.changeview(View::Companion); });
}

void MenuView::bindSteps() {
    menus_.Bind(menu::mnuVToday, [this] { main_.GoToToday(); });
    menus_.Bind(menu::mnuVPrevious, [this] { main_.cycledate(0); });
    menus_.Bind(menu::mnuVNext, [this] { main_.cycledate(1); });
    menus_.Bind(menu::mnuVRefresh, [this] { main_.cycledate(2); });
    menus_.Bind(menu::mnuVNow, [this] { goToNow(); });
    menus_.Bind(menu::mnuVHidePats, [this] { main_.ToggleHidePatientNames(); });
    menus_.Bind(menu::mnuVHideTP, [this] {
        main_.ToggleTaskPane();
        FollowMainWindow();
    });
    menus_.Command(menu::mnuVHidePats).setCheckable(true);
}

void MenuView::goToNow() {
    main_.GoToToday();
    ShowNow();
}

void MenuView::bindSavedViews() {
    menus_.Bind(menu::mnuVSave, [this] { main_.SaveThisView(); });
}

// Each entry has a letter of its own: the last digit of its key.
void MenuView::showSavedViews() {
    const QString why = main_.WhyNoSavedViews();
    menus_.Suit(menu::mnuVSave, why.isEmpty(), why);
    QMenu* menu = menus_.Command(menu::mnuVSaved).menu();
    if (menu == nullptr)
        return;
    for (const QPointer<QAction>& entry : savedEntries_)
        if (entry != nullptr) {
            menu->removeAction(entry);
            entry->deleteLater();  // It may be the command that is running.
        }
    savedEntries_.clear();
    for (const SavedView& saved : main_.SavedViews()) {
        if (savedEntries_.empty())
            savedEntries_.emplace_back(menu->addSeparator());
        const QString number = QString::number(saved.slot);
        auto* entry = new QAction(
            QStringLiteral("%1&%2 %3").arg(number.chopped(1), number.last(1), CaptionText(titleOf(saved))), menu);
        entry->setObjectName(QStringLiteral("mnuVSaved") + number);
        entry->setShortcut(QKeySequence(Qt::Key_F1 + saved.slot - 1));
        entry->setToolTip(TipText(ContentsInWords(saved, [](const QString& id) { return id; })));
        connect(entry, &QAction::triggered, this, [this, slot = saved.slot] { main_.ShowSavedView(slot); });
        menu->addAction(entry);
        savedEntries_.emplace_back(entry);
    }
}

void MenuView::bindPracticeLists() {
    const auto edits = [this](PracticeList list) {
        return [this, list] {
            frmlocs dialog(list, window());
            ShowModal(dialog);
            listsChanged();
        };
    };
    menus_.Bind(menu::mnuFLoc, edits(PracticeList::Locations));
    menus_.Bind(menu::mnuFRoomList, edits(PracticeList::Rooms));
    menus_.Bind(menu::mnuFActList, edits(PracticeList::Events));
    menus_.Bind(menu::mnuFAvail, edits(PracticeList::Availability));
    menus_.Bind(menu::mnuVABook, [this] {
        frmabook dialog(window());
        ShowModal(dialog);
    });
    menus_.Bind(menu::mnuVBoard, [this] { main_.OpenBoard(); });
    menus_.Bind(menu::mnuVColor, [this] { showLegend(); });
}

void MenuView::showLegend() {
    frmcleg dialog(AppointmentLegend(), window());
    ShowModal(dialog);
}

void MenuView::showPrintOptions() {
    frmpopts dialog({printsWeekends(), [this] { main_.ShowHelp(); }}, window());
    ShowModal(dialog);
}

void MenuView::FillMenus(QMenuBar& bar) {
    menus_.Fill(bar);
    showSavedViews();
}

void MenuView::FollowMainWindow() {
    menus_.Command(menu::mnuVHidePats).setChecked(Session().HidePatientNames);
    menus_.Command(menu::mnuVHideTP)
        .setText(main_.TaskPaneShown() ? QStringLiteral("&Hide Task Pane") : QStringLiteral("S&how Task Pane"));
    showSavedViews();
}

void MenuView::showOpenView(MenuName command, View view) {
    menus_.Command(command).setCheckable(true);
    menus_.Command(command).setChecked(true);
    const ViewEntry& entry = *FindView(view);
    menus_.Command(menu::mnuVPrevious).setText(QStringLiteral("&%1\tAlt+Left").arg(QLatin1String(entry.previous)));
    menus_.Command(menu::mnuVNext).setText(QStringLiteral("&%1\tAlt+Right").arg(QLatin1String(entry.next)));
}
