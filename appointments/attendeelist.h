#pragma once

#include <QListWidget>
#include <QStringList>

/// A provider who may attend.
struct ListedProvider {
    QString id;
    QString name;
};

/// A list of the providers who may attend an Activity; the selected rows are the attendees. A selected row shows a
/// check mark. A click or Space selects or deselects one row and leaves the others as they are. Moving through the list
/// and typing a name change no selection.
class AttendeeList : public QListWidget {
    Q_OBJECT

  public:
    explicit AttendeeList(QWidget* parent = nullptr);

    void AddProvider(const QString& id, const QString& name);
    /// Adds providers, and tells by their ids those apart who bear the same name or none.
    void AddProviders(const QList<ListedProvider>& providers);
    /// Selects the provider of a row in addition to those who are selected. A row that does not exist is ignored.
    void SelectProvider(int row);
    /// Makes the first attendee the current row, in sight.
    void ShowFirstSelected();

    /// Returns the row of the provider with this id, or -1 when there is none. Ids are compared in any letter case, as
    /// the database compares them.
    [[nodiscard]] int FindProvider(const QString& id) const;
    [[nodiscard]] QString ProviderName(int row) const;
    /// The ids and the names of the attendees, both in the order of the list.
    [[nodiscard]] QStringList SelectedIds() const;
    [[nodiscard]] QStringList SelectedNames() const;

  protected:
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;

  private:
    [[nodiscard]] QStringList selectedTexts(int role) const;
};
