#include "platform/controls/listmodel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QColor>
#include <QSignalSpy>

namespace {

constexpr int In = 1;
constexpr int Name = 2;
constexpr int Colour = 3;
constexpr int Came = 4;

class ListModelTest : public testing::Test {
  protected:
    ListModelTest() {
        model.setColumns({{QStringLiteral("In"), ListColumn::Kind::Check},
                          {QStringLiteral("Name")},
                          {QStringLiteral("Colour"), ListColumn::Kind::Color},
                          {QStringLiteral("Came"), ListColumn::Kind::Check, 5, Qt::AlignRight}});
    }

    int add(const char* in, const char* name, const char* colour = "#ff8000", const char* came = "0") {
        return model.addRow(
            {QString::fromUtf8(in), QString::fromUtf8(name), QString::fromUtf8(colour), QString::fromUtf8(came)});
    }
    [[nodiscard]] QVariant at(int row, int column, int role) const { return model.index(row, column - 1).data(role); }
    [[nodiscard]] QStringList names() const {
        QStringList all;
        for (int row = 0; row < model.rowCount(); ++row)
            all << model.cell(row, Name);
        return all;
    }

    ListModel model;
    /// Asks the model everything that a view may ask, at every change.
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

}  // namespace

TEST_F(ListModelTest, RowsAndColumnsStandOnlyAtTheTop) {
    add("1", "Ann");
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.columnCount(), 4);
    EXPECT_EQ(model.rowCount(model.index(0, 0)), 0);
    EXPECT_EQ(model.columnCount(model.index(0, 0)), 0);
}

TEST_F(ListModelTest, OtherColumnsEmptyTheList) {
    add("1", "Ann");
    model.setColumns({{QStringLiteral("Only")}});
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.columnCount(), 1);
}

TEST_F(ListModelTest, ANumberOtherThanNothingChecksABox) {
    struct Case {
        const char* cell;
        bool checked;
    };
    for (const Case& entry : {Case{"1", true}, Case{"-1", true}, Case{"7", true}, Case{"0", false}, Case{"", false},
                              Case{"yes", false}, Case{"1x", false}})
        EXPECT_EQ(model.checked(add(entry.cell, "Ann"), In), entry.checked) << entry.cell;
    EXPECT_TRUE(model.checked(add("0", "Bo", "", "2"), Came));
}

TEST_F(ListModelTest, ABoxIsReadByItsStateAndItsHeaderAndShowsNoText) {
    add("1", "Ann");
    EXPECT_EQ(at(0, In, Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(at(0, Came, Qt::CheckStateRole).toInt(), Qt::Unchecked);
    EXPECT_FALSE(at(0, In, Qt::DisplayRole).isValid());
    EXPECT_EQ(at(0, In, Qt::AccessibleTextRole).toString(), QStringLiteral("In"));
    EXPECT_FALSE(at(0, Name, Qt::CheckStateRole).isValid());
}

TEST_F(ListModelTest, AColourIsASwatchWithoutTextThatAReaderReadsByItsName) {
    add("0", "Ann", "#ff8000");
    EXPECT_EQ(at(0, Colour, Qt::DecorationRole).value<QColor>(), QColor(0xFF, 0x80, 0x00));
    EXPECT_FALSE(at(0, Colour, Qt::DisplayRole).isValid());
    EXPECT_EQ(at(0, Colour, Qt::AccessibleTextRole).toString(), QStringLiteral("#ff8000"));
    EXPECT_FALSE(at(0, Name, Qt::DecorationRole).isValid());
}

TEST_F(ListModelTest, ACellStandsAsItsColumnIsAlignedAndABoxesHeaderInTheMiddle) {
    add("0", "Ann");
    EXPECT_EQ(at(0, Name, Qt::TextAlignmentRole).toInt(), int(Qt::AlignLeft | Qt::AlignVCenter));
    EXPECT_EQ(at(0, Came, Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignHCenter | Qt::AlignVCenter));
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignLeft | Qt::AlignVCenter));
}

TEST_F(ListModelTest, HeadersStandAboveTheColumnsThatThereAre) {
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Name"));
    EXPECT_FALSE(model.headerData(1, Qt::Vertical, Qt::DisplayRole).isValid());
    EXPECT_FALSE(model.headerData(4, Qt::Horizontal, Qt::DisplayRole).isValid());
    EXPECT_FALSE(model.headerData(-1, Qt::Horizontal, Qt::DisplayRole).isValid());
    const QSignalSpy told(&model, &ListModel::headerDataChanged);
    model.setHeader(Name, QStringLiteral("Client"));
    model.setHeader(0, QStringLiteral("None"));
    model.setHeader(5, QStringLiteral("None"));
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Client"));
    EXPECT_EQ(told.count(), 1);
}

TEST_F(ListModelTest, WhatTheUserMayDoWithACellIsTold) {
    add("0", "Ann");
    EXPECT_TRUE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsUserCheckable));
    EXPECT_FALSE(model.flags(model.index(0, 1)).testFlag(Qt::ItemIsUserCheckable));
    EXPECT_FALSE(model.flags(model.index(0, 1)).testFlag(Qt::ItemIsEditable));
    model.setChecksEnabled(false);
    EXPECT_FALSE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsUserCheckable));
    EXPECT_TRUE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsSelectable));
    EXPECT_EQ(model.flags({}), Qt::NoItemFlags);
}

TEST_F(ListModelTest, TheFirstColumnOfTextIsNeitherABoxNorAColour) {
    EXPECT_EQ(model.firstTextColumn(), Name);
    model.setColumns({{QStringLiteral("Colour"), ListColumn::Kind::Color}, {QStringLiteral("Name")}});
    EXPECT_EQ(model.firstTextColumn(), 2);
    model.setColumns({{QStringLiteral("In"), ListColumn::Kind::Check}});
    EXPECT_EQ(model.firstTextColumn(), 1);
}

TEST_F(ListModelTest, TheMarkOfANoteStandsBeforeTheFirstText) {
    add("0", "Ann");
    model.setNoteMark(0, true);
    EXPECT_TRUE(at(0, Name, ListModel::NoteMarkRole).toBool());
    EXPECT_FALSE(at(0, In, ListModel::NoteMarkRole).toBool());
    model.setNoteMark(0, false);
    EXPECT_FALSE(at(0, Name, ListModel::NoteMarkRole).toBool());
    model.setNoteMark(3, true);
    EXPECT_FALSE(model.noteMark(3));
}

TEST_F(ListModelTest, EachChangeOfARowIsToldOfThatRow) {
    add("0", "Ann");
    add("0", "Bo");
    const QSignalSpy told(&model, &ListModel::dataChanged);
    model.setCell(1, Name, QStringLiteral("Bob"));
    model.setChecked(1, In, true);
    model.setNoteMark(1, true);
    model.nameCell(1, Name);
    ASSERT_EQ(told.count(), 4);
    for (const QList<QVariant>& change : told) {
        EXPECT_EQ(change[0].toModelIndex(), model.index(1, 0));
        EXPECT_EQ(change[1].toModelIndex(), model.index(1, 3));
    }
}

TEST_F(ListModelTest, ACommandForARowOrColumnThatIsNotThereChangesNothing) {
    add("0", "Ann");
    const QSignalSpy told(&model, &ListModel::dataChanged);
    for (const int row : {-1, 1}) {
        model.setCell(row, Name, QStringLiteral("x"));
        model.setChecked(row, In, true);
        model.setRowData(row, 1);
        model.setItemText(row, QStringLiteral("x"));
        model.nameCell(row, Name);
        model.removeRowAt(row);
    }
    model.setCell(0, 0, QStringLiteral("x"));
    model.setCell(0, 5, QStringLiteral("x"));
    model.setChecked(0, Name, true);
    model.setChecked(0, 0, true);
    EXPECT_EQ(told.count(), 0);
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.cells(0), (QStringList{"0", "Ann", "#ff8000", "0"}));
}

TEST_F(ListModelTest, AQuestionAboutARowThatIsNotThereIsAnsweredWithNothing) {
    EXPECT_EQ(model.cells(0), QStringList());
    EXPECT_EQ(model.cell(0, Name), QString());
    EXPECT_EQ(model.shownCell(-1, Name), QString());
    EXPECT_FALSE(model.checked(0, In));
    EXPECT_FALSE(model.rowData(0).isValid());
    EXPECT_EQ(model.itemText(0), QString());
    EXPECT_EQ(model.findItemData(1), -1);
    EXPECT_EQ(model.findPrefix(QStringLiteral("a"), Name, -1), -1);
}

TEST_F(ListModelTest, ACellOutsideTheRowIsEmpty) {
    model.addRow({QStringLiteral("0")});
    EXPECT_EQ(model.cell(0, Name), QString());
    EXPECT_EQ(model.cell(0, 0), QString());
    EXPECT_EQ(model.cell(0, -1), QString());
    EXPECT_EQ(at(0, Name, Qt::DisplayRole).toString(), QString());
    model.addRow({});
    EXPECT_EQ(model.shownCell(1, In), QString());
}

TEST_F(ListModelTest, HidingNamesCoversTheNamedCellsAloneAndBothWaysIsToldOnce) {
    add("0", "Ann");
    add("0", "Bo");
    add("0", "");
    model.nameCell(0, Name);
    model.nameCell(2, Name);
    const QSignalSpy told(&model, &ListModel::dataChanged);
    model.setNamesHidden(true);
    model.setNamesHidden(true);
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(model.shownCell(0, Name), HiddenNameText());
    EXPECT_EQ(model.shownCell(1, Name), QStringLiteral("Bo"));
    EXPECT_EQ(model.shownCell(2, Name), QString()) << "An empty cell has nothing to hide.";
    EXPECT_EQ(model.cell(0, Name), QStringLiteral("Ann"));
    model.setNamesHidden(false);
    EXPECT_EQ(told.count(), 2);
    EXPECT_EQ(model.shownCell(0, Name), QStringLiteral("Ann"));
}

TEST_F(ListModelTest, TheSearchGoesOnBehindTheRowAndWrapsToItself) {
    for (const char* name : {"Ann", "Bo", "anna"})
        add("0", name);
    EXPECT_EQ(model.findPrefix(QStringLiteral("an"), Name, -1), 0);
    EXPECT_EQ(model.findPrefix(QStringLiteral("AN"), Name, 0), 2);
    EXPECT_EQ(model.findPrefix(QStringLiteral("an"), Name, 2), 0);
    EXPECT_EQ(model.findPrefix(QStringLiteral("bo"), Name, 1), 1);
    EXPECT_EQ(model.findPrefix(QStringLiteral("nn"), Name, -1), -1);
}

TEST_F(ListModelTest, ItemDataIsFoundByItsValueTheFirstOfSeveral) {
    for (const QVariant& data : {QVariant(7), QVariant(QStringLiteral("P-7")), QVariant(7)})
        model.setRowData(add("0", "Ann"), data);
    EXPECT_EQ(model.findItemData(7), 0);
    EXPECT_EQ(model.findItemData(QStringLiteral("P-7")), 1);
    EXPECT_EQ(model.findItemData(8), -1);
}

TEST_F(ListModelTest, EmptyingAnEmptyListIsNoReset) {
    const QSignalSpy resets(&model, &ListModel::modelReset);
    model.clear();
    EXPECT_EQ(resets.count(), 0);
    add("0", "Ann");
    model.clear();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(model.rowCount(), 0);
}
