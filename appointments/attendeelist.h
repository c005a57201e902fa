#pragma once

#include <QListWidget>
#include <QStringList>

/// The providers who may attend, in one list: the selected ones are the attendees. Each row shows a check mark while it
/// is selected, and a click or Space turns it, whatever else is selected; moving and typing a name only look.
class AttendeeList : public QListWidget {
    Q_OBJECT

  public:
    explicit AttendeeList(QWidget* parent = nullptr);

    void AddProvider(const QString& id, const QString& name);
    /// Adds to what is selected. A row that is not there is ignored.
    void SelectProvider(int row);

    /// The row of the provider with this id, as the database compares ids: in any case. -1 where none has it.
    [[nodiscard]] int FindProvider(const QString& id) const;
    [[nodiscard]] QString ProviderName(int row) const;
    /// Both in list order.
    [[nodiscard]] QStringList SelectedIds() const;
    [[nodiscard]] QStringList SelectedNames() const;

  protected:
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;

  private:
    [[nodiscard]] QStringList selectedTexts(int role) const;
};
