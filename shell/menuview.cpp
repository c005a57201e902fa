#include "shell/menuview.h"

#include <QAction>

#include "people/frmcleg.h"
#include "people/frmlocs.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"
#include "shell/viewtable.h"

MenuView::MenuView(MainWindow& main, std::span<const MenuEntry> entries, QWidget* parent)
    : ViewWindow(parent), main_(main), menus_(entries, this) {
    menus_.Bind(QStringLiteral("mnuFSelect"), [this] { main_.SelectProvider(); });
    menus_.Bind(QStringLiteral("mnuFPrefs"), [this] { main_.ShowPreferences(); });
    menus_.Bind(QStringLiteral("mnuFExit"), [this] { main_.Leave(); });
    menus_.Bind(QStringLiteral("mnuHContents"), [this] { main_.ShowHelp(); });
    bindViews();
    bindSteps();
    bindPracticeLists();
    MenuView::FollowMainWindow();
}

void MenuView::showAny(std::initializer_list<const char*> names, bool shown) {
    for (const char* name : names)
        menus_.Show(QLatin1String(name), shown);
}

void MenuView::bindViews() {
    menus_.Bind(QStringLiteral("mnuVDay"), [this] { main_.changeview(View::Day); });
    menus_.Bind(QStringLiteral("mnuVWeek"), [this] { main_.changeview(View::Week); });
    menus_.Bind(QStringLiteral("mnuVMonth"), [this] { main_.changeview(View::Month); });
    menus_.Bind(QStringLiteral("mnuVAll"), [this] { main_.changeview(View::AllProviders); });
    menus_.Bind(QStringLiteral("mnuVRoom"), [this] { main_.changeview(View::Rooms); });
}

void MenuView::bindSteps() {
    menus_.Bind(QStringLiteral("mnuVToday"), [this] { main_.GoToToday(); });
    menus_.Bind(QStringLiteral("mnuVPrevious"), [this] { main_.cycledate(0); });
    menus_.Bind(QStringLiteral("mnuVNext"), [this] { main_.cycledate(1); });
    menus_.Bind(QStringLiteral("mnuVRefresh"), [this] { main_.cycledate(2); });
    menus_.Bind(QStringLiteral("mnuVHidePats"), [this] { main_.ToggleHidePatientNames(); });
    menus_.Bind(QStringLiteral("mnuVHideTP"), [this] {
        main_.ToggleTaskPane();
        FollowMainWindow();
    });
    menus_.Command(QStringLiteral("mnuVHidePats")).setCheckable(true);
}

void MenuView::bindPracticeLists() {
    const auto edits = [this](PracticeList list) {
        return [this, list] {
            frmlocs dialog(list, window());
            ShowModal(dialog);
            listsChanged();
        };
    };
    menus_.Bind(QStringLiteral("mnuFLoc"), edits(PracticeList::Locations));
    menus_.Bind(QStringLiteral("mnuFRoomList"), edits(PracticeList::Rooms));
    menus_.Bind(QStringLiteral("mnuFActList"), edits(PracticeList::Events));
    menus_.Bind(QStringLiteral("mnuFAvail"), edits(PracticeList::Availability));
    menus_.Bind(QStringLiteral("mnuVColor"), [this] {
        frmcleg dialog(window());
        ShowModal(dialog);
    });
}

void MenuView::FillMenus(QMenuBar& bar) {
    menus_.Fill(bar);
}

void MenuView::FollowMainWindow() {
    menus_.Command(QStringLiteral("mnuVHidePats")).setChecked(Session().HidePatientNames);
    menus_.Command(QStringLiteral("mnuVHideTP"))
        .setText(main_.TaskPaneShown() ? QStringLiteral("&Hide Task Pane") : QStringLiteral("S&how Task Pane"));
}

void MenuView::showOpenView(const QString& command, View view) {
    menus_.Command(command).setCheckable(true);
    menus_.Command(command).setChecked(true);
    const ViewEntry& entry = *FindView(view);
    menus_.Command(QStringLiteral("mnuVPrevious"))
        .setText(QStringLiteral("&%1\tAlt+Left").arg(QLatin1String(entry.previous)));
    menus_.Command(QStringLiteral("mnuVNext")).setText(QStringLiteral("&%1\tAlt+Right").arg(QLatin1String(entry.next)));
}
