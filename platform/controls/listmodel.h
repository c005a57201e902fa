#pragma once

#include <QAbstractTableModel>
#include <QVariant>
#include <vector>

/// One column of a ctList.
struct ListColumn {
    /// A colour's cell holds its name as QColor reads it ("#ff8000") and shows a swatch.
    enum class Kind { Text, Check, Color };

    QString header;
    Kind kind = Kind::Text;
    /// Width to begin with, in average characters; 0 shares what the others leave. Without headings, at most half the
    /// list.
    int widthCharacters = 0;
    Qt::Alignment alignment = Qt::AlignLeft;
};

/// What stands where a hidden name, or what would betray it, is listed.
[[nodiscard]] QString HiddenNameText();

/// The rows behind a ctList. Rows count from 0, columns from 1 as the forms name them; column 0 exists only in the
/// QModelIndex interface.
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
    void sort(int modelColumn, Qt::SortOrder order) override;

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
    /// The first row whose item data equals `data`, -1 where none does.
    [[nodiscard]] int findItemData(const QVariant& data) const;
    /// The next row after `after`, wrapping at the end, whose cell starts with `prefix` in any case; -1 where none
    /// does.
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
        quint32 checks = 0;  ///< Bit n for column n + 1.
        quint32 names = 0;   ///< The same.
        bool noteMark = false;
    };

    [[nodiscard]] static QStringView cellView(const Row& row, int column);
    void changed(int row);

    std::vector<ListColumn> columns_;
    std::vector<Row> rows_;
    bool checksEnabled_ = true;
    bool namesHidden_ = false;
};
