#pragma once

#include <QHeaderView>
#include <QPersistentModelIndex>
#include <QTreeView>
#include <QVariant>
#include <vector>

#include "platform/controls/listmodel.h"

/// The list of the dialogs: rows of cells under headers, some columns with check boxes, each row with hidden item data
/// (a key, number or text), a text item and a note mark.
///
/// Rows count from 0, and -1 means none. Columns count from 1. The cell of a check column is checked when its
/// text is a number other than 0. A row or column that is not there is ignored by commands and answered with an empty
/// value by questions.
///
/// Keys: letters move to the next row that starts with what was typed, Space flips the row's check box and Shift+Space
/// its second one, Enter activates the row, Ctrl+C copies the selected rows.
class ctList : public QTreeView {
    Q_OBJECT

  public:
    explicit ctList(QWidget* parent = nullptr);

    /// Replaces the columns and empties the list.
    void SetColumns(std::vector<ListColumn> columns);
    /// Shows a column at another place, counted from 1 from the left; its number stays.
    void PlaceColumn(int column, int place) { header()->moveSection(header()->visualIndex(column - 1), place - 1); }
    void SetHeader(int column, const QString& text) { model_.setHeader(column, text); }
    /// Lets the user order the rows by a click on a header; off at first, the order in which rows were added.
    void SetSortable(bool sortable);
    /// Lets more than one row be selected; off at first.
    void SetMultiSelect(bool multiSelect);
    /// Check boxes that the user may not change are shown as such; on at first.
    void SetChecksEnabled(bool enabled) { model_.setChecksEnabled(enabled); }

    void Clear();
    /// Returns the new row's position. Cells for columns that are not there are kept and never shown.
    int AddRow(const QStringList& cells, const QVariant& itemData = {});
    /// The selection goes to no row when the selected one is removed.
    void RemoveRow(int row);
    void SetCell(int row, int column, const QString& text) { model_.setCell(row, column, text); }
    void SetItemData(int row, const QVariant& itemData) { model_.setRowData(row, itemData); }
    void SetItemText(int row, const QString& text) { model_.setItemText(row, text); }
    void SetNoteMark(int row, bool marked) { model_.setNoteMark(row, marked); }
    /// The cell names a patient, or tells of one what is nobody else's business: it is hidden with the names.
    void NameCell(int row, int column) { model_.nameCell(row, column); }
    /// Hides or shows what NameCell has marked, in the list and in what is copied from it; off at first. Cell and
    /// Cells go on telling what the list holds.
    void SetNamesHidden(bool hidden) { model_.setNamesHidden(hidden); }
    /// Raises no CheckChanged.
    void SetChecked(int row, int column, bool checked) { model_.setChecked(row, column, checked); }
    /// Selects the row alone and scrolls to it; -1 selects none.
    void SelectRow(int row);
    /// SelectRow, with the row as the first in sight where enough rows follow it.
    void StartAtRow(int row);
    void MakeVisible(int row);

    [[nodiscard]] int RowCount() const { return model_.rowCount(); }
    [[nodiscard]] int ColumnCount() const { return model_.columnCount(); }
    [[nodiscard]] QString Header(int column) const;
    /// The row as it was added, with the cells set since.
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
    /// In list order.
    [[nodiscard]] std::vector<int> SelectedRows() const;
    /// The first row whose item data equals `itemData`, -1 where none does.
    [[nodiscard]] int FindItemData(const QVariant& itemData) const { return model_.findItemData(itemData); }

    void keyboardSearch(const QString& typed) override;
    [[nodiscard]] QSize sizeHint() const override;

  Q_SIGNALS:
    /// Double click or Enter.
    void RowActivated(int row);
    /// The user flipped a check box; `checked` is its new state.
    void CheckChanged(int row, int column, bool checked);
    /// Right click or the menu key; `row` is -1 beside the rows, and is selected otherwise.
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
    void flipCheck(int row, int column);
    void copySelection() const;
    /// The check column that Space, or with `second` Shift+Space, flips; 0 where there is none.
    [[nodiscard]] int checkColumnForKey(bool second) const;

    ListModel model_;
    QPersistentModelIndex pressedCell_;
    QString typed_;
    qint64 typedAt_ = 0;
};
