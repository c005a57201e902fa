#include "tests/walk/walkplace.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QRegularExpression>
#include <QTabBar>
#include <set>

#include "platform/calendar/ctmday.h"
#include "platform/calendar/ctweek.h"
#include "platform/controls/ctdate.h"
#include "session/session.h"
#include "shell/viewtable.h"
#include "shell/viewwindow.h"
#include "tests/walk/walkcalendar.h"

namespace walk {

namespace {

constexpr const char* TypedTexts[] = {"o'b", "3/12", "9", "10:30a", "a", "x", "900", "Team"};
constexpr const char* EndOfProgram[] = {"mnuFExit", "leave"};

int upTo(int most, Chance& chance) {
    return std::uniform_int_distribution<int>(0, std::max(most, 0))(chance);
}

QPoint anywhereOn(const QWidget& widget, Chance& chance) {
    return widget.mapToGlobal(QPoint(upTo(widget.width() - 1, chance), upTo(widget.height() - 1, chance)));
}

QPoint middleOf(const QWidget& widget, const QRect& part) {
    return widget.mapToGlobal(part.center());
}

QString someText(Chance& chance) {
    return QString::fromLatin1(TypedTexts[upTo(std::size(TypedTexts) - 1, chance)]);
}

QMainWindow* mainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == QLatin1String("mdisched") && window->isVisible())
            return qobject_cast<QMainWindow*>(window);
    return nullptr;
}

ViewWindow* openView() {
    const QMainWindow* window = mainWindow();
    for (ViewWindow* view : window != nullptr ? window->findChildren<ViewWindow*>() : QList<ViewWindow*>())
        if (view->isVisible())
            return view;
    return nullptr;
}

QString viewName() {
    return openView() != nullptr ? openView()->objectName() : QStringLiteral("nothing");
}

QString nameOf(const QWidget& widget, std::set<QString>& taken) {
    QString name = widget.objectName();
    if (name.isEmpty() || name.startsWith(QLatin1String("qt_"))) {
        const auto* button = qobject_cast<const QAbstractButton*>(&widget);
        name = QString::fromLatin1(widget.metaObject()->className()) +
               (button ? QLatin1Char(' ') + button->text() : QString());
    }
    QString unique = name;
    for (int number = 2; !taken.insert(unique).second; ++number)
        unique = QStringLiteral("%1 %2").arg(name).arg(number);
    return unique;
}

bool isOnTop(const QWidget& widget) {
    return widget.isVisible() && widget.isEnabled() && !widget.visibleRegion().isEmpty();
}

void addList(const QAbstractScrollArea& list, const QString& name, Place& place, Chance& chance) {
    const QRect top(0, 0, list.viewport()->width(), std::min(list.viewport()->height(), 90));
    const QPoint at =
        list.viewport()->mapToGlobal(QPoint(upTo(top.width() - 1, chance), upTo(top.height() - 1, chance)));
    place.deeds.push_back({QStringLiteral("click ") + name, Click(at)});
    place.deeds.push_back({QStringLiteral("double click ") + name, DoubleClick(at)});
    place.deeds.push_back({QStringLiteral("right click ") + name, Click(at, Qt::RightButton)});
    place.deeds.push_back(
        {QStringLiteral("keys in ") + name, Click(at) + Key(Qt::Key_Down) + Key(Qt::Key_Space) + Key(Qt::Key_Return)});
}

void addField(const QWidget& field, const QString& name, Place& place, Chance& chance) {
    const QPoint at = field.mapToGlobal(field.rect().center());
    place.deeds.push_back({QStringLiteral("type in ") + name, Click(at) + Key(Qt::Key_A, Qt::ControlModifier) +
                                                                  Text(someText(chance)) + Key(Qt::Key_Tab)});
    place.deeds.push_back(
        {QStringLiteral("type and enter in ") + name, Click(at) + Text(someText(chance)) + Key(Qt::Key_Return)});
    place.deeds.push_back(
        {QStringLiteral("arrows in ") + name, Click(at) + Key(Qt::Key_Up) + Key(Qt::Key_Down, Qt::AltModifier)});
    place.deeds.push_back({QStringLiteral("right click ") + name, Click(at, Qt::RightButton)});
}

bool isExit(const QAbstractButton& button) {
    static const QRegularExpression leaving(QStringLiteral("^(cmd)?(ok|cancel|close|exit|yes|no)$"),
                                            QRegularExpression::CaseInsensitiveOption);
    return leaving.match(button.objectName()).hasMatch() ||
           leaving.match(QString(button.text()).remove(QLatin1Char('&'))).hasMatch();
}

void addButton(const QAbstractButton& button, const QString& name, Place& place) {
    std::vector<Deed>& kind = isExit(button) && button.window()->isModal() ? place.exits : place.deeds;
    const QPoint at = button.mapToGlobal(button.rect().center());
    kind.push_back({QStringLiteral("click ") + name, Click(at)});
    const QKeySequence letter = button.shortcut();
    if (!letter.isEmpty())
        kind.push_back({QStringLiteral("letter of ") + name, Key(letter[0].key(), letter[0].keyboardModifiers())});
}

// The parts of a field of ours are reached through the field.
bool isPart(const QWidget& widget) {
    for (const QWidget* parent = widget.parentWidget(); parent != nullptr; parent = parent->parentWidget())
        if (qobject_cast<const QAbstractSpinBox*>(parent) != nullptr ||
            qobject_cast<const QComboBox*>(parent) != nullptr || qobject_cast<const ctMDay*>(parent) != nullptr ||
            parent->inherits("QCalendarWidget"))
            return true;
    return false;
}

void addWidgets(const QWidget& window, Place& place, Chance& chance) {
    std::set<QString> taken;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() != &window || isPart(*widget) || !isOnTop(*widget))
            continue;
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            addButton(*button, nameOf(*widget, taken), place);
        else if (const auto* day = qobject_cast<const ctMDay*>(widget))
            AddCalendar(*day, nameOf(*widget, taken), place, chance);
        else if (qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget) ||
                 qobject_cast<const QComboBox*>(widget))
            addField(*widget, nameOf(*widget, taken), place, chance);
        else if (const auto* area = qobject_cast<const QAbstractScrollArea*>(widget);
                 area != nullptr && area->focusPolicy() != Qt::NoFocus)
            addList(*area, nameOf(*widget, taken), place, chance);
        else if (qobject_cast<const QTabBar*>(widget) || qobject_cast<const ctDate*>(widget) ||
                 qobject_cast<const ctWeek*>(widget)) {
            const QString name = nameOf(*widget, taken);
            const QPoint at = anywhereOn(*widget, chance);
            place.deeds.push_back({QStringLiteral("click ") + name, Click(at)});
            place.deeds.push_back({QStringLiteral("double click ") + name, DoubleClick(at)});
            place.deeds.push_back({QStringLiteral("keys in ") + name,
                                   Click(at) + Key(Qt::Key_Down) + Key(Qt::Key_PageUp) + Key(Qt::Key_Return)});
        }
    }
}

// Down until the command is reached, and Return on it alone.
Events chooseByKeys(QMenu& menu, const QAction& action) {
    const auto unless = [menu = QPointer<QMenu>(&menu), &action](bool there, const Events& key) {
        return [=, &action] {
            if (menu != nullptr && (menu->activeAction() == &action) == there)
                for (const std::function<void()>& event : key)
                    event();
        };
    };
    Events events;
    for (qsizetype step = 0; step < menu.actions().size(); ++step)
        events.push_back(unless(false, Key(Qt::Key_Down)));
    events.push_back(unless(true, Key(Qt::Key_Return)));
    return events;
}

void addMenu(QMenu& menu, Place& place) {
    std::set<QString> taken;
    for (QAction* action : menu.actions()) {
        const QString name = action->objectName().isEmpty() ? action->text() : action->objectName();
        if (!action->isVisible() || action->isSeparator() || !action->isEnabled() || !taken.insert(name).second)
            continue;
        place.deeds.push_back({QStringLiteral("click ") + name, Click(middleOf(menu, menu.actionGeometry(action)))});
        place.deeds.push_back({QStringLiteral("go to ") + name, chooseByKeys(menu, *action)});
    }
    place.exits.push_back({QStringLiteral("Escape"), Key(Qt::Key_Escape)});
    place.exits.push_back({QStringLiteral("Left, Escape"), Key(Qt::Key_Left) + Key(Qt::Key_Escape)});
}

void addMenuBar(QMainWindow& window, Place& place) {
    QMenuBar& bar = *window.menuBar();
    for (QAction* action : bar.actions()) {
        if (!action->isVisible() || !action->isEnabled())
            continue;
        const QString name = action->objectName();
        place.deeds.push_back({QStringLiteral("open ") + name, Click(middleOf(bar, bar.actionGeometry(action)))});
        const QKeySequence letter = QKeySequence::mnemonic(action->text());
        if (!letter.isEmpty())
            place.deeds.push_back({QStringLiteral("letter of ") + name, Key(letter[0].key(), Qt::AltModifier)});
    }
}

void addShortcuts(const QMainWindow& window, Place& place) {
    std::set<QString> taken;
    for (const QAction* action : window.findChildren<QAction*>()) {
        const QKeySequence keys = action->shortcut();
        if (keys.count() != 1 || !action->isEnabled() || !taken.insert(keys.toString()).second)
            continue;
        place.deeds.push_back(
            {QStringLiteral("key ") + keys.toString(), Key(keys[0].key(), keys[0].keyboardModifiers())});
    }
}

struct TypedAhead {
    const char* name;
    int keys[2];
    Qt::KeyboardModifiers modifiers[2];
};

// What comes at once to a program that was busy.
void addTypedAhead(Place& place) {
    static const TypedAhead pairs[] = {
        {"Return, Return", {Qt::Key_Return, Qt::Key_Return}, {}},
        {"Return, Ctrl+2", {Qt::Key_Return, Qt::Key_2}, {Qt::NoModifier, Qt::ControlModifier}},
        {"Ctrl+N, Ctrl+N", {Qt::Key_N, Qt::Key_N}, {Qt::ControlModifier, Qt::ControlModifier}},
        {"Ctrl+N, Ctrl+3", {Qt::Key_N, Qt::Key_3}, {Qt::ControlModifier, Qt::ControlModifier}},
        {"Alt+G, Ctrl+N", {Qt::Key_G, Qt::Key_N}, {Qt::AltModifier, Qt::ControlModifier}},
        {"Ctrl+F, Ctrl+1", {Qt::Key_F, Qt::Key_1}, {Qt::ControlModifier, Qt::ControlModifier}},
        {"Delete, Delete", {Qt::Key_Delete, Qt::Key_Delete}, {}},
        {"Delete, Ctrl+5", {Qt::Key_Delete, Qt::Key_5}, {Qt::NoModifier, Qt::ControlModifier}},
        {"Ctrl+P, Ctrl+4", {Qt::Key_P, Qt::Key_4}, {Qt::ControlModifier, Qt::ControlModifier}},
        {"Menu, Return", {Qt::Key_Menu, Qt::Key_Return}, {}},
    };
    for (const TypedAhead& pair : pairs)
        place.deeds.push_back({QStringLiteral("at once ") + QLatin1String(pair.name),
                               Key(pair.keys[0], pair.modifiers[0]) + Key(pair.keys[1], pair.modifiers[1])});
}

void addKeys(Place& place) {
    for (const auto& [name, key] : {std::pair{"Tab", Qt::Key_Tab},
                                    {"Down", Qt::Key_Down},
                                    {"Up", Qt::Key_Up},
                                    {"Return", Qt::Key_Return},
                                    {"Space", Qt::Key_Space},
                                    {"Delete", Qt::Key_Delete},
                                    {"F2", Qt::Key_F2},
                                    {"F4", Qt::Key_F4},
                                    {"Menu", Qt::Key_Menu},
                                    {"Insert", Qt::Key_Insert},
                                    {"Escape", Qt::Key_Escape}})
        place.deeds.push_back({QStringLiteral("key ") + QLatin1String(name), Key(key)});
    place.deeds.push_back({QStringLiteral("key Shift+Tab"), Key(Qt::Key_Backtab, Qt::ShiftModifier)});
}

Place mainPlace(QMainWindow& window, Chance& chance) {
    Place place{QStringLiteral("mdisched/") + viewName(), {}, {}};
    addShortcuts(window, place);
    addMenuBar(window, place);
    addWidgets(window, place, chance);
    addTypedAhead(place);
    addKeys(place);
    return place;
}

Place dialogPlace(const QWidget& dialog, Chance& chance) {
    const auto* box = qobject_cast<const QMessageBox*>(&dialog);
    Place place{box != nullptr                  ? QStringLiteral("box ") + box->windowTitle()
                : dialog.objectName().isEmpty() ? QString::fromLatin1(dialog.metaObject()->className())
                                                : dialog.objectName(),
                {},
                {}};
    addWidgets(dialog, place, chance);
    if (box == nullptr) {
        addKeys(place);
        std::erase_if(place.deeds, [](const Deed& deed) {
            return deed.name == QLatin1String("key Escape") || deed.name == QLatin1String("key Return");
        });
    }
    place.exits.push_back({QStringLiteral("key Escape"), Key(Qt::Key_Escape)});
    place.exits.push_back({QStringLiteral("key Return"), Key(Qt::Key_Return)});
    return place;
}

Place popupPlace(QWidget& popup, Chance& chance) {
    if (auto* menu = qobject_cast<QMenu*>(&popup)) {
        const QString name = !menu->objectName().isEmpty() ? menu->objectName() : menu->menuAction()->objectName();
        Place place{QStringLiteral("menu %1/%2").arg(name, viewName()), {}, {}};
        addMenu(*menu, place);
        return place;
    }
    Place place{QStringLiteral("list ") + QString::fromLatin1(popup.metaObject()->className()), {}, {}};
    place.deeds = {{QStringLiteral("Down, Return"), Key(Qt::Key_Down) + Key(Qt::Key_Return)},
                   {QStringLiteral("click"), Click(anywhereOn(popup, chance))},
                   {QStringLiteral("End, Return"), Key(Qt::Key_End) + Key(Qt::Key_Return)}};
    place.exits = {{QStringLiteral("Escape"), Key(Qt::Key_Escape)}};
    return place;
}

bool isEditor(const QWidget& window) {
    static const QStringList editors{QStringLiteral("frmnore"), QStringLiteral("frmgrptx"), QStringLiteral("frmactsc")};
    return window.isVisible() && editors.contains(window.objectName());
}

}  // namespace

void KeepOpen(bool keep) {
    for (const char* name : EndOfProgram)
        for (QAction* action :
             mainWindow() != nullptr ? mainWindow()->findChildren<QAction*>(QLatin1String(name)) : QList<QAction*>())
            action->blockSignals(keep);
}

Place PlaceInFront(Chance& chance) {
    if (QWidget* popup = QApplication::activePopupWidget())
        return popupPlace(*popup, chance);
    if (const QWidget* modal = QApplication::activeModalWidget())
        return dialogPlace(*modal, chance);
    QWidget* active = QApplication::activeWindow();
    QMainWindow* window = mainWindow();
    if (qobject_cast<QDialog*>(active) != nullptr && active->isVisible())
        return dialogPlace(*active, chance);
    return window != nullptr ? mainPlace(*window, chance) : Place{};
}

QString WhatIsWrong() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto editors =
        std::count_if(windows.begin(), windows.end(), [](const QWidget* window) { return isEditor(*window); });
    if (editors > 1)
        return QStringLiteral("%1 editors are open at once").arg(editors);
    if (mainWindow() == nullptr)
        return QStringLiteral("the main window is gone");
    const ViewWindow* view = openView();
    if (view == nullptr)
        return QStringLiteral("no view is shown");
    static const QStringList views{{},
                                   QStringLiteral("frmsched"),
                                   QStringLiteral("frmweekv"),
                                   QStringLiteral("frmmtv"),
                                   QStringLiteral("frmall"),
                                   QStringLiteral("frmrooms"),
                                   QStringLiteral("frmFHAppts")};
    if (views.value(static_cast<int>(Session().CurrentView)) != view->objectName())
        return QStringLiteral("%1 is shown as view %2")
            .arg(view->objectName())
            .arg(static_cast<int>(Session().CurrentView));
    return {};
}

}  // namespace walk
