#include "tests/desks/widgethand.h"

#include <algorithm>
#include <functional>
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include "platform/calendar/ctmday.h"
#include "platform/controls/ctlist.h"
#include "platform/desktop/desktop.h"

namespace {

/// The window that had the keys last. Without a window manager nobody gives them back when a dialog has closed.
QPointer<QWidget>& lastActive() {
    static QPointer<QWidget> window;
    if (QWidget* active = QApplication::activeWindow(); active != nullptr && !active->isModal())
        window = active;
    return window;
}

/// The board stands beside the main window; whichever was used last is in front.
bool boardIsInFront() {
    return lastActive() != nullptr && lastActive()->isVisible() && lastActive()->inherits("frmboard");
}

QWidget* front() {
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    if (boardIsInFront())
        return lastActive();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == QLatin1String("mdisched"))
            return window;
    return QApplication::activeWindow();
}

template <class Widget>
Widget& find(const QString& name) {
    QWidget* window = front();
    Widget* widget = window ? window->findChild<Widget*>(name) : nullptr;
    if (widget == nullptr)
        throw CannotObey(QStringLiteral("there is no %1 in %2").arg(name, WindowInFront()));
    return *widget;
}

QAction& findAction(const QString& name) {
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (auto* action = window->findChild<QAction*>(name))
            return *action;
    throw CannotObey(QStringLiteral("there is no command %1").arg(name));
}

// Whatever its view calls it.
ctMDay& calendar() {
    const QWidget* window = front();
    for (ctMDay* shown : window ? window->findChildren<ctMDay*>() : QList<ctMDay*>())
        if (shown->isVisible())
            return *shown;
    throw CannotObey(QStringLiteral("there is no calendar in %1").arg(WindowInFront()));
}

/// What the program has handed to the desktop.
QStringList& openedTargets() {
    static QStringList targets;
    return targets;
}

// What opens a dialog must not hold up the answer.
void later(std::function<void()> act) {
    QTimer::singleShot(0, qApp, std::move(act));
}

int indexOfKey(const QString& key) {
    const int index = calendar().IndexOfKey(key);
    if (index < 1)
        throw CannotObey(QStringLiteral("no item has the key %1").arg(key));
    return index;
}

QString textOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text();
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
        return line->text();
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        return combo->currentText();
    if (const auto* spin = qobject_cast<const QAbstractSpinBox*>(&widget))
        return spin->text();
    if (const auto* plain = qobject_cast<const QPlainTextEdit*>(&widget))
        return plain->toPlainText();
    if (const auto* list = qobject_cast<const ctList*>(&widget)) {
        QStringList rows;
        for (int row = 0; row < list->RowCount(); ++row)
            rows << list->ShownCells(row).join(u';');
        return rows.join(QLatin1Char('\n'));
    }
    if (const auto* cards = qobject_cast<const QListView*>(&widget)) {
        QStringList rows;
        for (int row = 0; row < cards->model()->rowCount(); ++row)
            rows << cards->model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
        return rows.join(QLatin1Char('\n'));
    }
    throw CannotObey(QStringLiteral("%1 holds no text").arg(widget.objectName()));
}

QString trigger(const QStringList& words) {
    QAction& action = findAction(words.at(1));
    if (!action.isEnabled())
        throw CannotObey(QStringLiteral("the command is greyed"));
    later([&action] { action.trigger(); });
    return {};
}

QString select(const QStringList& words) {
    calendar().setSelectedItem(indexOfKey(words.at(1)));
    return {};
}

QString range(const QStringList& words) {
    calendar().selectRange(1, words.at(1).toInt(), words.at(2).toInt());
    return {};
}

QString items(const QStringList&) {
    QStringList told;
    const ctMDay& day = calendar();
    for (int index = 1; index <= day.ItemCount(); ++index) {
        const CalendarItem& item = day.Item(index);
        told
            << QStringLiteral("%1 %2-%3 %4").arg(item.ItemKey).arg(item.ItemStart).arg(item.ItemEnd).arg(item.ItemText);
    }
    return told.join(QLatin1Char('\n'));
}

// By the mouse, from the item's middle.
QString drag(const QStringList& words) {
    ctMDay& day = calendar();
    const int index = indexOfKey(words.at(1));
    day.setTopTime(0);
    day.ScrollToItem(index);
    const QPoint from = day.ItemRect(index).center();
    const int start = std::as_const(day).Item(index).ItemStart;
    const QPoint to =
        from + QPoint(0, day.CellRect(1, start + words.at(2).toInt()).top() - day.CellRect(1, start).top());
    later([&day, from, to] {
        QTest::mousePress(&day, Qt::LeftButton, {}, from);
        QTest::mouseMove(&day, from + QPoint(0, to.y() > from.y() ? 12 : -12));
        QTest::mouseMove(&day, to);
        QTest::mouseRelease(&day, Qt::LeftButton, {}, to);
    });
    return {};
}

QString type(const QStringList& words) {
    auto& widget = find<QWidget>(words.at(1));
    widget.setFocus();
    QTest::keyClicks(QApplication::focusWidget() ? QApplication::focusWidget() : &widget, words.at(2));
    return {};
}

QString replace(const QStringList& words) {
    auto& widget = find<QWidget>(words.at(1));
    widget.setFocus();
    QWidget* target = QApplication::focusWidget() ? QApplication::focusWidget() : &widget;
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(target, Qt::Key_Delete);
    QTest::keyClicks(target, words.at(2));
    return {};
}

QString choose(const QStringList& words) {
    auto& combo = find<QComboBox>(words.at(1));
    const int index = combo.findText(words.at(2));
    if (index < 0)
        throw CannotObey(QStringLiteral("it is not on the list"));
    combo.setCurrentIndex(index);
    Q_EMIT combo.activated(index);
    return {};
}

QString click(const QStringList& words) {
    auto& button = find<QAbstractButton>(words.at(1));
    if (!button.isEnabled())
        throw CannotObey(QStringLiteral("the button is greyed"));
    later([&button] { button.click(); });
    return {};
}

QString answerBox(const QStringList& words) {
    auto* box = qobject_cast<QMessageBox*>(front());
    if (box == nullptr)
        throw CannotObey(QStringLiteral("there is no message box; in front is %1").arg(WindowInFront()));
    const auto wanted = words.at(1) == QLatin1String("Yes")  ? QMessageBox::Yes
                        : words.at(1) == QLatin1String("No") ? QMessageBox::No
                                                             : QMessageBox::Ok;
    QAbstractButton* button = box->button(wanted);
    if (button == nullptr)
        throw CannotObey(QStringLiteral("the box has no such button"));
    const QString said = box->text();
    later([button] { button->click(); });
    return said;
}

QString placeText(const QWidget& widget, const QPoint& point) {
    const QPoint global = widget.mapToGlobal(point);
    return QStringLiteral("%1 %2").arg(global.x()).arg(global.y());
}

/// The middle of an item on the screen.
QString itemPlace(const QStringList& words) {
    ctMDay& day = calendar();
    const int index = indexOfKey(words.at(1));
    day.ScrollToItem(index);
    return placeText(day, day.ItemRect(index).center());
}

/// The middle of the row of a minute, in the first column unless another is given.
QString timePlace(const QStringList& words) {
    ctMDay& day = calendar();
    const int column = std::max(1, words.value(2).toInt());
    return placeText(day, day.CellRect(column, words.at(1).toInt()).center());
}

/// The middle of a row of a list, counted from 0, as far as the row is in sight.
QString rowPlace(const QStringList& words) {
    const auto& list = find<QAbstractItemView>(words.at(1));
    const QRect cell = list.visualRect(list.model()->index(words.at(2).toInt(), 0));
    return placeText(*list.viewport(), cell.center());
}

QString widgetPlace(const QStringList& words) {
    const auto& widget = find<QWidget>(words.at(1));
    return placeText(widget, widget.rect().center());
}

/// The middle of a menu's word in the menu bar.
QString menuPlace(const QStringList& words) {
    const QWidget* window = front();
    for (QMenuBar* bar : window ? window->findChildren<QMenuBar*>() : QList<QMenuBar*>())
        for (QAction* action : bar->actions())
            if (bar->isVisible() && action->objectName() == words.at(1))
                return placeText(*bar, bar->actionGeometry(action).center());
    throw CannotObey(QStringLiteral("there is no such menu in %1").arg(WindowInFront()));
}

/// The middle of a command in the open menu.
QString entryPlace(const QStringList& words) {
    auto* menu = qobject_cast<QMenu*>(front());
    if (menu == nullptr)
        throw CannotObey(QStringLiteral("no menu is open; in front is %1").arg(WindowInFront()));
    for (QAction* action : menu->actions())
        if (action->objectName() == words.at(1) && action->isVisible())
            return placeText(*menu, menu->actionGeometry(action).center());
    throw CannotObey(QStringLiteral("the menu has no such command"));
}

/// Whether the menu in front has a command, as a submenu has once it is open.
QString hasEntry(const QStringList& words) {
    const auto* menu = qobject_cast<const QMenu*>(front());
    const auto entries = menu == nullptr ? QList<QAction*>() : menu->actions();
    const bool has = std::any_of(entries.begin(), entries.end(),
                                 [&](const QAction* entry) { return entry->objectName() == words.at(1); });
    return has ? QStringLiteral("yes") : QStringLiteral("not");
}

/// Whether the item has the picture of a session note.
QString noteIcon(const QStringList& words) {
    const CalendarItem& item = std::as_const(calendar()).Item(indexOfKey(words.at(1)));
    return item.ItemSessionIcon > 0 ? QStringLiteral("yes") : QStringLiteral("not");
}

QString shows(const QStringList& words) {
    const QWidget* window = front();
    const QWidget* widget = window ? window->findChild<QWidget*>(words.at(1)) : nullptr;
    return widget != nullptr && widget->isVisible() ? QStringLiteral("yes") : QStringLiteral("not");
}

QString windowId(const QStringList&) {
    const QWidget* window = front();
    return window ? QString::number(window->winId()) : QString();
}

QString focusName(const QStringList&) {
    const QWidget* focus = QApplication::focusWidget();
    return focus ? focus->objectName() : QString();
}

QString picture(const QStringList& words) {
    QWidget* window = front();
    if (window == nullptr || !window->grab().save(words.at(1)))
        throw CannotObey(QStringLiteral("there is no picture to take"));
    return {};
}

}  // namespace

void KeepFromDesktop() {
    Desktop().openWithShell = [](const QString& target) {
        openedTargets() << target;
        return true;
    };
}

QString WindowInFront() {
    const QWidget* window = front();
    if (window == nullptr)
        return QStringLiteral("nothing");
    if (qobject_cast<const QMessageBox*>(window))
        return QStringLiteral("box");
    if (window->inherits("QMenu"))
        return QStringLiteral("popup");
    return window->objectName();
}

QString ObeyInWindow(const QStringList& words) {
    using Command = QString (*)(const QStringList&);
    static const QMap<QString, Command> commands{
        {QStringLiteral("trigger"), trigger},
        {QStringLiteral("select"), select},
        {QStringLiteral("range"), range},
        {QStringLiteral("items"), items},
        {QStringLiteral("drag"), drag},
        {QStringLiteral("type"), type},
        {QStringLiteral("replace"), replace},
        {QStringLiteral("choose"), choose},
        {QStringLiteral("click"), click},
        {QStringLiteral("answer"), answerBox},
        {QStringLiteral("itemPlace"), itemPlace},
        {QStringLiteral("timePlace"), timePlace},
        {QStringLiteral("rowPlace"), rowPlace},
        {QStringLiteral("widgetPlace"), widgetPlace},
        {QStringLiteral("menuPlace"), menuPlace},
        {QStringLiteral("entryPlace"), entryPlace},
        {QStringLiteral("hasEntry"), hasEntry},
        {QStringLiteral("noteIcon"), noteIcon},
        {QStringLiteral("shows"), shows},
        {QStringLiteral("windowId"), windowId},
        {QStringLiteral("focus"), focusName},
        {QStringLiteral("picture"), picture},
        {QStringLiteral("opened"), [](const QStringList&) { return openedTargets().join(QLatin1Char('\n')); }},
        {QStringLiteral("front"), [](const QStringList&) { return WindowInFront(); }},
        {QStringLiteral("text"), [](const QStringList& given) { return textOf(find<QWidget>(given.at(1))); }},
        {QStringLiteral("box"),
         [](const QStringList&) {
             const auto* box = qobject_cast<const QMessageBox*>(front());
             if (box == nullptr)
                 throw CannotObey(QStringLiteral("there is no message box"));
             return box->text();
         }},
    };
    const auto command = commands.constFind(words.first());
    if (command == commands.constEnd())
        throw CannotObey(QStringLiteral("nobody taught me that"));
    return (*command)(words);
}
