#include "views/menuview.h"

#include <QAction>

#include "people/frmcleg.h"
#include "people/frmlocs.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"
#include "views/viewtable.h"

MenuView::MenuView(MainWindow& main, std::span<const MenuEntry> entries, QWidget* parent)
    : ViewWindow(parent), main_(main), menus_(entries, this) {
    bindAny({"mnuFSelect"}, [this] { main_.SelectProvider(); });
    bindAny({"mnuFPrefs"}, [this] { main_.ShowPreferences(); });
    bindAny({"mnuFExit"}, [this] { main_.Leave(); });
    bindAny({"mnuHContents"}, [this] { main_.ShowHelp(); });
    bindViews();
    bindSteps();
    bindPracticeLists();
    MenuView::FollowMainWindow();
}

void MenuView::bindAny(std::initializer_list<const char*> names, const std::function<void()>& run) {
    for (const char* name : names)
        menus_.Bind(QLatin1String(name), run);
}

void MenuView::showAny(std::initializer_list<const char*> names, bool shown) {
    for (const char* name : names)
        menus_.Show(QLatin1String(name), shown);
}

void MenuView::bindViews() {
    bindAny({"mnuVDay", "mnuDay"}, [this] { main_.changeview(0); });
    bindAny({"mnuVWeek", "mnuWeek"}, [this] { main_.changeview(1); });
    bindAny({"mnuVMonth", "mnuMonth"}, [this] { main_.changeview(2); });
    bindAny({"mnuVAll", "mnuAll"}, [this] { main_.changeview(3); });
    bindAny({"mnuVRoom", "mnuRoom"}, [this] { main_.changeview(4); });
}

void MenuView::bindSteps() {
    bindAny({"mnuVToday"}, [this] { main_.GoToToday(); });
    bindAny({"mnuVPrevious"}, [this] { main_.cycledate(0); });
    bindAny({"mnuVNext"}, [this] { main_.cycledate(1); });
    bindAny({"mnuVRefresh"}, [this] { main_.cycledate(2); });
    bindAny({"mnuVHidePats"}, [this] { main_.ToggleHidePatientNames(); });
    bindAny({"mnuVHideTP"}, [this] {
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
    bindAny({"mnuFLoc"}, edits(PracticeList::Locations));
    bindAny({"mnuFRoomList", "mnuFRoom", "mnuRoomList"}, edits(PracticeList::Rooms));
    bindAny({"mnuFActList"}, edits(PracticeList::Events));
    bindAny({"mnuVColor"}, [this] {
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
        .setText(main_.TaskPaneShown() ? QStringLiteral("&Hide Task Pane") : QStringLiteral("&Show Task Pane"));
}

void MenuView::showOpenView(const QString& command, int view) {
    menus_.Command(command).setCheckable(true);
    menus_.Command(command).setChecked(true);
    const ViewEntry& entry = *FindView(view);
    menus_.Command(QStringLiteral("mnuVPrevious"))
        .setText(QStringLiteral("&%1\tAlt+Left").arg(QLatin1String(entry.previous)));
    menus_.Command(QStringLiteral("mnuVNext")).setText(QStringLiteral("&%1\tAlt+Right").arg(QLatin1String(entry.next)));
}
