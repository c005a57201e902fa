#pragma once

#include <QAbstractTableModel>
#include <QVariant>
#include <vector>

/// One column of a ctList.
struct ListColumn {
    /// The cell of a Color column holds a colour as QColor reads it ("#ff8000") and shows a swatch.
    enum class Kind { Text, Check, Color };

    QString header;
    Kind kind = Kind::Text;
    /// The initial width in average characters. With 0 the column shares the width that the others leave. In a list
    /// without headings it is at most half the list.
    int widthCharacters = 0;
    Qt::Alignment alignment = Qt::AlignLeft;
};

/// The text that is shown in place of a hidden name or a private cell.
[[nodiscard]] QString HiddenNameText();

/// The rows behind a ctList. Rows count from 0. Columns count from 1, as the forms name them; columns from 0 exist only
/// in the QModelIndex interface.
class ListModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    static constexpr int NoteMarkRole = Qt::UserRole;

    using QAbstractTableModel::QAbstractTableModel;

    void setColumns(std::vector<ListColumn> columns);
    void setHeader(int column, const QString& text);
    void clear();
    int addRow(const QStringList& cells);
    void removeRowAt(int row);
    void setCell(int row, int column, const QString& text);
    void setChecked(int row, int column, bool checked);
    void setRowData(int row, const QVariant& data);
    void setItemText(int row, const QString& text);
    void setNoteMark(int row, bool marked);
    void setChecksEnabled(bool enabled);
    void nameCell(int row, int column);
    void setNamesHidden(bool hidden);

    [[nodiscard]] const std::vector<ListColumn>& columns() const { return columns_; }
    [[nodiscard]] bool has(int row) const { return row >= 0 && row < rowCount(); }
    [[nodiscard]] bool isCheckColumn(int column) const;
    [[nodiscard]] bool isColorColumn(int column) const;
    [[nodiscard]] int firstTextColumn() const;
    [[nodiscard]] QStringList cells(int row) const;
    [[nodiscard]] QString cell(int row, int column) const;
    [[nodiscard]] QString shownCell(int row, int column) const;
    [[nodiscard]] bool checked(int row, int column) const;
    [[nodiscard]] QVariant rowData(int row) const;
    [[nodiscard]] QString itemText(int row) const;
    [[nodiscard]] bool noteMark(int row) const;
    [[nodiscard]] bool checksEnabled() const { return checksEnabled_; }
    /// Returns the first row whose item data equals `data`, or -1.
    [[nodiscard]] int findItemData(const QVariant& data) const;
    /// Returns the next row after `after`, wrapping at the end, whose cell starts with `prefix` in any case, or -1.
    [[nodiscard]] int findPrefix(const QString& prefix, int column, int after) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    using QAbstractTableModel::itemData;

    struct Row {
        QStringList cells;
        QString itemText;
        QVariant itemData;
        quint32 checks = 0;  ///< Bit n belongs to column n + 1.
        quint32 names = 0;   ///< The cells marked by nameCell, in the same bits.
        bool noteMark = false;
    };

    [[nodiscard]] static QStringView cellView(const Row& row, int column);
    void changed(int row);

    std::vector<ListColumn> columns_;
    std::vector<Row> rows_;
    bool checksEnabled_ = true;
    bool namesHidden_ = false;
};
