#include "views/viewmenus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <vector>

#include "platform/theme/icon.h"

namespace {

using Kind = MenuEntry::Kind;

constexpr MenuEntry calendarMenus[] = {
    {Kind::Menu, "mnuFile", "&File", nullptr, nullptr},
    {Kind::Command, "mnuFSelect", "&Select Therapist...", "user", "Ctrl+L"},
    {Kind::Separator, "mnuFsep1", nullptr, nullptr, nullptr},
    {Kind::Command, "mnuFLoc", "&Locations...", "location", nullptr},
    {Kind::Command, "mnuFRoomList", "&Rooms...", "rooms", nullptr},
    {Kind::Command, "mnuFActList", "&Activities/Events...", "activity", nullptr},
    {Kind::Command, "mnuFAtypes", "Appointment &Types...", "legend", nullptr},
    {Kind::Command, "mnuFHolidays", "&Holidays...", "holiday", nullptr},
    {Kind::Separator, "mnuFsep2", nullptr, nullptr, nullptr},
    {Kind::Command, "mnuFPrefs", "&Preferences...", "preferences", "Ctrl+,"},
    {Kind::Separator, "mnuFsep3", nullptr, nullptr, nullptr},
    {Kind::Command, "mnuFPrintS", "&Print Schedule...", "print", "Ctrl+P"},
    {Kind::Command, "mnuFPrintA", "Print Appointment S&lip...", "print", nullptr},
    {Kind::Submenu, "mnuFExport", "&Export", "export", nullptr},
    {Kind::Command, "mnuFExportiCal", "&iCalendar", nullptr, nullptr},
    {Kind::Command, "mnuFExportHTML", "&HTML", nullptr, nullptr},
    {Kind::EndSubmenu, nullptr, nullptr, nullptr, nullptr},
    {Kind::Separator, "mnuFsep4", nullptr, nullptr, nullptr},
    {Kind::Command, "mnuFExit", "E&xit", "exit", "Ctrl+Q"},

    {Kind::Menu, "mnuAppointments", "&Appointments", nullptr, nullptr},
    {Kind::Submenu, "mnuANew", "&New", "add", nullptr},
    {Kind::Command, "mnuANPat", "&Patient...", "user", "Ctrl+N"},
    {Kind::Command, "mnuASGroup", "&Group...", "group", "Ctrl+Shift+G"},
    {Kind::Command, "mnuANEvent", "&Activity/Event...", "activity", "Ctrl+Shift+E"},
    {Kind::Command, "mnuASType", "Appointment &Type...", "legend", "Ctrl+Shift+T"},
    {Kind::Command, "mnuANAvail", "&Unavailable Time...", "unavailable", "Ctrl+Shift+U"},
    {Kind::EndSubmenu, nullptr, nullptr, nullptr, nullptr},
    {Kind::Command, "mnuAEdit", "&Edit...", "edit", "Ctrl+E"},
    {Kind::Command, "mnuADelete", "&Delete\tDel", "delete", nullptr},
    {Kind::Separator, "mnuAsep1", nullptr, nullptr, nullptr},
    {Kind::Command, "mnuCheckediN", "Checked-&In...", "checkedin", "Ctrl+I"},
    {Kind::Command, "mnuAKept", "&Kept", "check", "Ctrl+K"},
    {Kind::Command, "mnuAMissed", "&Missed", "missed", "Ctrl+M"},
    {Kind::Command, "mnuAPCancel", "&Patient Cancel", "close", nullptr},
    {Kind::Command, "mnuATCancel", "T&herapist Cancel", "close", nullptr},
    {Kind::Separator, "mnuAsep2", nullptr, nullptr, nullptr},
    {Kind::Command, "mnuARepeat", "&Repeating...", "repeat", "Ctrl+R"},
    {Kind::Command, "mnuANote", "&Session Note...", "note", nullptr},
    {Kind::Separator, "mnuAsep3", nullptr, nullptr, nullptr},
    {Kind::Command, "mnuAFind", "&Find...", "find", "Ctrl+F"},
    {Kind::Submenu, "mnuASearchA", "Search A&vailability", "find", nullptr},
    {Kind::Command, "mnuASearchO", "By &Opening...", nullptr, nullptr},
    {Kind::Command, "mnuASearchT", "By Appointment &Type...", nullptr, nullptr},
    {Kind::EndSubmenu, nullptr, nullptr, nullptr, nullptr},

    {Kind::Menu, "mnuToDo", "&Tasks", nullptr, nullptr},
    {Kind::Command, "mnuTNew", "&New Task...", "tasks", nullptr},
    {Kind::Command, "mnuTEdit", "&Edit Task...", "edit", nullptr},
    {Kind::Command, "mnuTDelete", "&Delete Task", "delete", nullptr},
    {Kind::Separator, "mnuTsep1", nullptr, nullptr, nullptr},
    {Kind::Command, "mnuTPrint", "&Print Tasks...", "print", nullptr},

    {Kind::Menu, "mnuView", "&View", nullptr, nullptr},
    {Kind::Command, "mnuVDay", "&Day View\tCtrl+1", "day", nullptr},
    {Kind::Command, "mnuVWeek", "&Week View\tCtrl+2", "week", nullptr},
    {Kind::Command, "mnuVMonth", "&Month View\tCtrl+3", "month", nullptr},
    {Kind::Command, "mnuVAll", "&All Providers\tCtrl+4", "all", nullptr},
    {Kind::Command, "mnuVRoom", "&Room Scheduler...\tCtrl+5", "rooms", nullptr},
    {Kind::Command, "mnuVFH", "&Fernhall Scheduler\tCtrl+6", "companion", nullptr},
    {Kind::Separator, "mnuVsep1", nullptr, nullptr, nullptr},
    {Kind::Command, "mnuVToday", "&Today\tCtrl+T", "today", nullptr},
    {Kind::Command, "mnuVPrevious", "&Previous Day\tAlt+Left", "previous", nullptr},
    {Kind::Command, "mnuVNext", "&Next Day\tAlt+Right", "next", nullptr},
    {Kind::Command, "mnuVRefresh", "Re&fresh", "refresh", "F5"},
    {Kind::Separator, "mnuVsep2", nullptr, nullptr, nullptr},
    {Kind::Command, "mnuVCheckedin", "&Checked-In...", "checkedin", nullptr},
    {Kind::Command, "mnuVActivity", "Activity &Scheduler...", "activity", nullptr},
    {Kind::Command, "mnuVColor", "Color &Legend...", "legend", nullptr},
    {Kind::Separator, "mnuVsep3", nullptr, nullptr, nullptr},
    {Kind::Command, "mnuVHidePats", "Hide Patient &Names\tCtrl+H", "eyeoff", nullptr},
    {Kind::Command, "mnuVHideTP", "&Hide Task Pane", "pane", "Ctrl+Shift+P"},

    {Kind::Menu, "mnuHelp", "&Help", nullptr, nullptr},
    {Kind::Command, "mnuHContents", "&Contents\tF1", "help", nullptr},
};

}  // namespace

std::span<const MenuEntry> CalendarMenus() {
    return calendarMenus;
}

ViewMenus::ViewMenus(std::span<const MenuEntry> entries, QObject* parent) : QObject(parent), entries_(entries) {
    for (const MenuEntry& entry : entries_) {
        if (entry.kind == Kind::EndSubmenu)
            continue;
        addCommand(entry.name, QString::fromUtf8(entry.text), entry.icon, entry.keys);
        // A menu can be opened whatever its entries can do; rights alone close it.
        if (entry.kind == Kind::Menu || entry.kind == Kind::Submenu)
            setBound(QString::fromLatin1(entry.name));
    }
}

void ViewMenus::addCommand(const char* name, const QString& text, const char* icon, const char* keys) {
    auto* action = new QAction(text, this);
    action->setObjectName(QString::fromLatin1(name));
    action->setSeparator(text.isNull());
    if (icon)
        action->setIcon(Icon(icon));
    if (keys)
        action->setShortcut(QKeySequence(QString::fromLatin1(keys)));
    commands_.insert(action->objectName(), {action, action->isSeparator(), true, true, {}});
    refresh(commands_[action->objectName()]);
}

void ViewMenus::Fill(QMenuBar& bar) {
    QWidget* menu = &bar;
    QWidget* target = &bar;
    for (const MenuEntry& entry : entries_) {
        if (entry.kind == Kind::EndSubmenu) {
            target = menu;
            continue;
        }
        QAction& action = Command(QString::fromLatin1(entry.name));
        if (entry.kind != Kind::Menu && entry.kind != Kind::Submenu) {
            target->addAction(&action);
            continue;
        }
        QWidget* owner = entry.kind == Kind::Menu ? &bar : menu;
        auto* made = new QMenu(action.text(), owner);
        made->setToolTipsVisible(true);
        action.setMenu(made);
        owner->addAction(&action);
        target = made;
        if (entry.kind == Kind::Menu)
            menu = made;
    }
}

QAction& ViewMenus::Command(const QString& name) const {
    const auto found = commands_.constFind(name);
    Q_ASSERT(found != commands_.constEnd());
    return *found->action;
}

void ViewMenus::Bind(const QString& name, std::function<void()> run) {
    connect(&Command(name), &QAction::triggered, this, [run = std::move(run)] { run(); });
    setBound(name);
}

void ViewMenus::setBound(const QString& name) {
    commands_[name].bound = true;
    refresh(commands_[name]);
}

void ViewMenus::Allow(const QString& name, bool allowed) {
    State& state = commands_[name];
    state.allowed = allowed;
    refresh(state);
}

void ViewMenus::Show(const QString& name, bool shown) {
    commands_[name].action->setVisible(shown);
}

void ViewMenus::Suit(const QString& name, bool suits, const QString& why) {
    State& state = commands_[name];
    state.suits = suits;
    state.why = why;
    refresh(state);
}

QList<QAction*> ViewMenus::Entries(const QString& menu) const {
    QList<QAction*> found;
    bool inMenu = false;
    bool inSubmenu = false;
    for (const MenuEntry& entry : entries_) {
        if (entry.kind == Kind::Menu)
            inMenu = menu == QLatin1String(entry.name);
        else if (entry.kind == Kind::EndSubmenu)
            inSubmenu = false;
        else if (inMenu && !inSubmenu)
            found << &Command(QString::fromLatin1(entry.name));
        if (entry.kind == Kind::Submenu)
            inSubmenu = true;
    }
    return found;
}

void ViewMenus::refresh(const State& state) {
    state.action->setEnabled(state.bound && state.allowed && state.suits);
    if (state.action->isSeparator())
        return;
    if (!state.allowed)
        state.action->setToolTip(tr("Not available to you."));
    else if (!state.bound)
        state.action->setToolTip(tr("Not available in this version."));
    else if (!state.suits)
        state.action->setToolTip(state.why);
    else
        state.action->setToolTip(QString());
}
