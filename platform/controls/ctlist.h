#pragma once

#include <QHeaderView>
#include <QPersistentModelIndex>
#include <QTreeView>
#include <QVariant>
#include <vector>

#include "platform/controls/listmodel.h"

/// The list of the dialogs. It shows rows of cells under headers. A column may hold check boxes. Each row also carries
/// hidden item data (a key, number or text), a text item and a note mark.
///
/// Rows count from 0, and -1 means none. Columns count from 1. The cell of a check column is checked when its text is a
/// number other than 0. Commands ignore a row or column that does not exist, and questions answer it with an empty
/// value.
///
/// Keys: letters move to the next row that starts with the typed text, Space flips the row's check box and Shift+Space
/// its second one, Enter activates the row, Ctrl+C copies the selected rows.
class ctList : public QTreeView {
    Q_OBJECT

  public:
    explicit ctList(QWidget* parent = nullptr);

    /// Replaces the columns and empties the list.
    void SetColumns(std::vector<ListColumn> columns);
    /// Shows a column at another place, counted from 1 from the left. The column keeps its number.
    void PlaceColumn(int column, int place) { header()->moveSection(header()->visualIndex(column - 1), place - 1); }
    void SetHeader(int column, const QString& text) { model_.setHeader(column, text); }
    /// Lets the user select more than one row. It is off at first.
    void SetMultiSelect(bool multiSelect);
    /// Sets whether the user may change the check boxes. It is on at first. Boxes that may not be changed look
    /// disabled.
    void SetChecksEnabled(bool enabled) { model_.setChecksEnabled(enabled); }

    void Clear();
    /// Adds a row at the end and returns its position. Cells beyond the last column are kept and never shown.
    int AddRow(const QStringList& cells, const QVariant& itemData = {});
    /// Removes a row. When it was selected, no row is selected afterwards.
    void RemoveRow(int row);
    void SetCell(int row, int column, const QString& text) { model_.setCell(row, column, text); }
    void SetItemData(int row, const QVariant& itemData) { model_.setRowData(row, itemData); }
    void SetItemText(int row, const QString& text) { model_.setItemText(row, text); }
    void SetNoteMark(int row, bool marked) { model_.setNoteMark(row, marked); }
    /// Marks a cell that names a patient, or that tells something private about one. It is hidden together with the
    /// names.
    void NameCell(int row, int column) { model_.nameCell(row, column); }
    /// Hides or shows the cells that NameCell has marked, in the list and in text copied from it. They are shown at
    /// first. Cell and Cells always return the real text.
    void SetNamesHidden(bool hidden) { model_.setNamesHidden(hidden); }
    /// Checks or clears a box without raising CheckChanged.
    void SetChecked(int row, int column, bool checked) { model_.setChecked(row, column, checked); }
    /// Selects the row alone and scrolls to it; -1 selects none.
    void SelectRow(int row);
    /// Shows only the rows whose cell in the column contains the text, in any case; with column 0 any text cell may. An
    /// empty text shows all rows. Rows that are added later are filtered, too. A row that is not shown keeps its number
    /// and is not selected.
    void SetFilter(const QString& text, int column = 0);
    /// Selects the row and scrolls so that it is the first in sight, where enough rows follow it.
    void StartAtRow(int row);

    [[nodiscard]] int RowCount() const { return model_.rowCount(); }
    /// Returns how many rows the filter shows.
    [[nodiscard]] int ShownRowCount() const { return RowCount() - hiddenRows_; }
    [[nodiscard]] bool IsRowShown(int row) const { return model_.has(row) && !isRowHidden(row, {}); }
    [[nodiscard]] int ColumnCount() const { return model_.columnCount(); }
    [[nodiscard]] QString Header(int column) const;
    /// The row as it was added, with the cells that were set since.
    [[nodiscard]] QStringList Cells(int row) const { return model_.cells(row); }
    [[nodiscard]] QString Cell(int row, int column) const { return model_.cell(row, column); }
    /// The cell as the user sees it, in one line.
    [[nodiscard]] QString ShownCell(int row, int column) const { return model_.shownCell(row, column); }
    /// The row as the user sees it, a cell for each column.
    [[nodiscard]] QStringList ShownCells(int row) const;
    [[nodiscard]] QVariant ItemData(int row) const { return model_.rowData(row); }
    [[nodiscard]] QString ItemText(int row) const { return model_.itemText(row); }
    [[nodiscard]] bool NoteMark(int row) const { return model_.noteMark(row); }
    [[nodiscard]] bool Checked(int row, int column) const { return model_.checked(row, column); }
    [[nodiscard]] int SelectedRow() const;
    /// The selected rows in list order.
    [[nodiscard]] std::vector<int> SelectedRows() const;
    /// Returns the first row whose item data equals `itemData`, or -1.
    [[nodiscard]] int FindItemData(const QVariant& itemData) const { return model_.findItemData(itemData); }

    void keyboardSearch(const QString& typed) override;
    [[nodiscard]] QSize sizeHint() const override;

  Q_SIGNALS:
    /// Raised by a double click on a row and by Enter.
    void RowActivated(int row);
    /// Raised when the user flipped a check box. `checked` is its new state.
    void CheckChanged(int row, int column, bool checked);
    /// Raised by a right click or the menu key. `row` is -1 beside the rows. Otherwise the row has been selected.
    void PopupRequested(int row, QPoint globalPosition);
    void SelectionChanged();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

  private:
    void layOutColumns();
    [[nodiscard]] bool passesFilter(int row) const;
    void hideRow(int row, bool hidden);
    void flipCheck(int row, int column);
    void copySelection() const;
    /// Returns the check column that Space, or with `second` Shift+Space, flips; 0 where there is none.
    [[nodiscard]] int checkColumnForKey(bool second) const;

    ListModel model_;
    QPersistentModelIndex pressedCell_;
    QString filter_;
    int filterColumn_ = 0;
    int hiddenRows_ = 0;
    QString typed_;
    qint64 typedAt_ = 0;
};
