#include "platform/calendar/accessibility.h"

#include <algorithm>
#include <map>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <vector>

#include "platform/calendar/ctmday.h"
#include "platform/calendar/ctweek.h"
#include "platform/calendar/glyphs.h"

namespace {

/// One item of a calendar, identified by its index. It becomes invalid when no item has that index any more.
class AccessibleItem : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    AccessibleItem(ctMDay* calendar, int index) : calendar_(calendar), index_(index) {}

    [[nodiscard]] bool isValid() const override { return calendar_ && index_ <= calendar_->ItemCount(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(calendar_);
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (!isValid())
            return {};
        if (kind == QAccessible::Name)
            return calendar_->AccessibleItemName(index_);
        const CalendarItem& item = std::as_const(*calendar_).Item(index_);
        if (kind != QAccessible::Description)
            return {};
        QStringList parts{StatusIconText(item.ItemStatusIcon), item.ItemLocation.left(300)};
        parts.removeAll(QString());
        parts.removeAll(item.ItemStatusText);
        return parts.join(QStringLiteral(", "));
    }
    void setText(QAccessible::Text, const QString&) override {}

    [[nodiscard]] QRect rect() const override {
        const QRect place = isValid() ? calendar_->ItemRect(index_) : QRect();
        return place.isEmpty() ? QRect() : QRect(calendar_->mapToGlobal(place.topLeft()), place.size());
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.selectable = state.focusable = true;
        state.selected = calendar_->SelectedItem() == index_;
        state.focused = state.selected && calendar_->hasFocus();
        state.offscreen = calendar_->ItemRect(index_).isEmpty();
        state.invisible = !calendar_->isVisible();
        state.readOnly = calendar_->ReadOnly() || std::as_const(*calendar_).Item(index_).ItemTextLocked;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void doAction(const QString& name) override {
        if (!isValid())
            return;
        calendar_->setSelectedItem(index_);
        calendar_->ScrollToItem(index_);
        if (name == setFocusAction())
            calendar_->setFocus();
    }

  private:
    QPointer<ctMDay> calendar_;
    int index_;
};

/// The calendar. Its children are the shown items in the order of Tab. Their interfaces are created when they are asked
/// for.
class AccessibleCalendar : public QAccessibleWidget {
  public:
    explicit AccessibleCalendar(ctMDay* calendar) : QAccessibleWidget(calendar, QAccessible::List) {}
    ~AccessibleCalendar() override {
        for (const auto& [index, id] : ids_)
            QAccessible::deleteAccessibleInterface(id);
    }

    [[nodiscard]] int childCount() const override { return static_cast<int>(order().size()); }

    [[nodiscard]] QAccessibleInterface* child(int position) const override {
        const std::vector<int> items = order();
        if (position < 0 || position >= static_cast<int>(items.size()))
            return nullptr;
        return itemInterface(items[static_cast<std::size_t>(position)]);
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const std::vector<int> items = order();
        const auto found = std::find_if(items.begin(), items.end(), [&](int index) {
            const auto known = ids_.find(index);
            return known != ids_.end() && QAccessible::accessibleInterface(known->second) == child;
        });
        return found == items.end() ? -1 : static_cast<int>(found - items.begin());
    }

    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint point = calendar()->mapFromGlobal(QPoint(x, y));
        // The selected item lies above the others.
        if (const int selected = calendar()->SelectedItem(); calendar()->ItemRect(selected).contains(point))
            return itemInterface(selected);
        for (const int index : order()) {
            if (calendar()->ItemRect(index).contains(point))
                return itemInterface(index);
        }
        return nullptr;
    }

    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        const int index = calendar()->SelectedItem();
        return calendar()->hasFocus() && index > 0 ? itemInterface(index) : nullptr;
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? calendar()->SelectionText() : QAccessibleWidget::text(kind);
    }

  private:
    [[nodiscard]] ctMDay* calendar() const { return static_cast<ctMDay*>(widget()); }
    [[nodiscard]] std::vector<int> order() const { return calendar()->ItemsInReadingOrder(); }

    [[nodiscard]] QAccessibleInterface* itemInterface(int index) const {
        if (const auto known = ids_.find(index); known != ids_.end())
            return QAccessible::accessibleInterface(known->second);
        auto* made = new AccessibleItem(calendar(), index);  // QAccessible's registry owns it from here on.
        ids_[index] = QAccessible::registerAccessibleInterface(made);
        return made;
    }

    mutable std::map<int, QAccessible::Id> ids_;
};

/// A month. What it says of its selected day is made when asked for, since items are added one by one.
class AccessibleMonth : public QAccessibleWidget {
  public:
    explicit AccessibleMonth(ctWeek* month) : QAccessibleWidget(month) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Description ? static_cast<ctWeek*>(widget())->SelectionText()
                                                : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* MakeInterface(const QString& className, QObject* object) {
    if (className == QLatin1String("ctMDay"))
        if (auto* calendar = qobject_cast<ctMDay*>(object); calendar != nullptr)
            return new AccessibleCalendar(calendar);
    if (className == QLatin1String("ctWeek"))
        if (auto* month = qobject_cast<ctWeek*>(object); month != nullptr)
            return new AccessibleMonth(month);
    return nullptr;
}

}  // namespace

void InstallCalendarAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(&MakeInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

void AnnounceCalendarSelection(ctMDay& calendar) {
    if (!QAccessible::isActive())
        return;
    if (calendar.SelectedItem() < 1) {
        QAccessibleValueChangeEvent changed(&calendar, calendar.SelectionText());
        QAccessible::updateAccessibility(&changed);
        return;
    }
    const std::vector<int> order = calendar.ItemsInReadingOrder();
    const auto place = std::find(order.begin(), order.end(), calendar.SelectedItem());
    if (place == order.end())
        return;
    for (const QAccessible::Event kind : {QAccessible::Selection, QAccessible::Focus}) {
        if (kind == QAccessible::Focus && !calendar.hasFocus())
            continue;
        QAccessibleEvent changed(&calendar, kind);
        changed.setChild(static_cast<int>(place - order.begin()));
        QAccessible::updateAccessibility(&changed);
    }
}

void AnnounceMonthSelection(ctWeek& month) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent changed(&month, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
}
