#include "platform/controls/dateaccess.h"

#include <map>
#include <memory>
#include <QAccessibleWidget>

#include "platform/controls/ctdate.h"

namespace {

constexpr int DayCount = MonthGrid::Weeks * MonthGrid::Days;

/// One day of the month shown. The calendar's own interface owns it.
class DayAccess : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    DayAccess(ctDate& calendar, int position) : calendar_(&calendar), position_(position) {}

    [[nodiscard]] bool isValid() const override { return true; }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override { return calendar_->window()->windowHandle(); }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(calendar_);
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] QRect rect() const override {
        const QRect place = calendar_->Layout().dayAt(position_);
        return {calendar_->mapToGlobal(place.topLeft()), place.size()};
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Cell; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? calendar_->LongText(date()) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.selectable = true;
        state.focusable = true;
        state.selected = date() == calendar_->Date();
        state.focused = state.selected && calendar_->hasFocus();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction())
            calendar_->Choose(date());
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

  private:
    [[nodiscard]] QDate date() const { return calendar_->Grid().dateAt(0, position_); }

    ctDate* calendar_;
    int position_;
};

class DateAccess : public QAccessibleWidget {
  public:
    explicit DateAccess(ctDate& calendar) : QAccessibleWidget(&calendar, QAccessible::Table), calendar_(&calendar) {
        for (int position = 0; position < DayCount; ++position) {
            days_.push_back(new DayAccess(calendar, position));
            QAccessible::registerAccessibleInterface(days_.back());
        }
    }
    ~DateAccess() override {
        for (DayAccess* day : days_)
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(day));
    }
    Q_DISABLE_COPY(DateAccess)

    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        return index < 0 || index >= DayCount ? nullptr : days_[static_cast<std::size_t>(index)];
    }
    [[nodiscard]] int childCount() const override { return DayCount; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (int index = 0; index < DayCount; ++index)
            if (days_[static_cast<std::size_t>(index)] == wanted)
                return index;
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        return child(calendar_->Layout().hit(calendar_->mapFromGlobal(QPoint(x, y))).position);
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        const auto position = calendar_->Grid().positionOf(calendar_->Date());
        return calendar_->hasFocus() && position ? child(*position) : nullptr;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value)
            return calendar_->LongText(calendar_->Date());
        if (kind == QAccessible::Description)
            return calendar_->HeadingText();
        return QAccessibleWidget::text(kind);
    }

  private:
    ctDate* calendar_;
    std::vector<DayAccess*> days_;
};

QAccessibleInterface* makeDateAccess(const QString& className, QObject* object) {
    auto* calendar = className == QLatin1String("ctDate") ? qobject_cast<ctDate*>(object) : nullptr;
    return calendar == nullptr ? nullptr : new DateAccess(*calendar);
}

}  // namespace

void InstallDateAccess() {
    static const bool installed = [] {
        QAccessible::installFactory(makeDateAccess);
        return true;
    }();
    static_cast<void>(installed);
}

void TellDateChanged(ctDate& calendar) {
    if (!QAccessible::isActive())
        return;
    const auto position = calendar.Grid().positionOf(calendar.Date());
    QAccessibleEvent event(&calendar, QAccessible::Focus);
    event.setChild(position.value_or(-1));
    QAccessible::updateAccessibility(&event);
}
