#include "appointments/attendeelist.h"

#include <QHash>
#include <QStyledItemDelegate>

#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"

namespace {

constexpr int IdRole = Qt::UserRole;

/// Shows by a check mark what is selected, so that many attendees do not make the list one block of colour.
class CheckedDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, Space(8));
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        // The view tells what is selected in the state, which the base leaves as it is.
        QStyledItemDelegate::initStyleOption(option, index);
        option->features |= QStyleOptionViewItem::HasCheckIndicator;
        option->checkState = (option->state & QStyle::State_Selected) != 0 ? Qt::Checked : Qt::Unchecked;
        option->state.setFlag(QStyle::State_Selected, false);
    }
};

}  // namespace

AttendeeList::AttendeeList(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(MultiSelection);
    setItemDelegate(new CheckedDelegate(this));
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
}

void AttendeeList::AddProvider(const QString& id, const QString& name) {
    auto* item = new QListWidgetItem(OneLine(name), this);
    item->setData(IdRole, id);
    item->setToolTip(TipText(name));
}

void AttendeeList::AddProviders(const QList<ListedProvider>& providers) {
    QHash<QString, int> bearers;
    for (const ListedProvider& provider : providers)
        ++bearers[provider.name.toLower()];
    for (const auto& [id, name] : providers) {
        const bool alone = bearers.value(name.toLower()) == 1 && !name.isEmpty();
        AddProvider(id, alone ? name : QStringLiteral("%1 (%2)").arg(name, id).trimmed());
    }
}

void AttendeeList::SelectProvider(int row) {
    if (QListWidgetItem* provider = item(row))
        provider->setSelected(true);
}

void AttendeeList::ShowFirstSelected() {
    for (int row = 0; row < count(); ++row)
        if (item(row)->isSelected())
            return setCurrentRow(row, QItemSelectionModel::NoUpdate);
}

int AttendeeList::FindProvider(const QString& id) const {
    for (int row = 0; row < count(); ++row)
        if (item(row)->data(IdRole).toString().compare(id, Qt::CaseInsensitive) == 0)
            return row;
    return -1;
}

QString AttendeeList::ProviderName(int row) const {
    const QListWidgetItem* provider = item(row);
    return provider != nullptr ? provider->text() : QString();
}

QStringList AttendeeList::SelectedIds() const {
    return selectedTexts(IdRole);
}

QStringList AttendeeList::SelectedNames() const {
    return selectedTexts(Qt::DisplayRole);
}

QStringList AttendeeList::selectedTexts(int role) const {
    QStringList texts;
    for (int row = 0; row < count(); ++row)
        if (item(row)->isSelected())
            texts << item(row)->data(role).toString();
    return texts;
}

// Without an event the current row moves on its own, by a letter typed for one: Qt would turn it.
QItemSelectionModel::SelectionFlags AttendeeList::selectionCommand(const QModelIndex& index,
                                                                   const QEvent* event) const {
    return event == nullptr ? QItemSelectionModel::NoUpdate : QListWidget::selectionCommand(index, event);
}
