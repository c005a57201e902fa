#include "platform/controls/listdelegate.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "platform/controls/ctlist.h"
#include "platform/theme/theme.h"
#include "tests/support/tips.h"

namespace {

/// A list with a box, a text and a colour, as it is painted.
class ListPicture : public testing::Test {
  protected:
    ListPicture() {
        Theme::Install(ThemeMode::Light);
        list = std::make_unique<ctList>();
        list->SetColumns({{QStringLiteral("In"), ListColumn::Kind::Check, 10},
                          {QStringLiteral("Name"), ListColumn::Kind::Text, 20},
                          {QStringLiteral("Colour"), ListColumn::Kind::Color, 10}});
        for (const char* name : {"Ann", "Ann"})
            list->AddRow({QStringLiteral("0"), QString::fromLatin1(name), QStringLiteral("#ff8000")});
        list->setAlternatingRowColors(false);
        list->resize(500, 200);
        list->show();
    }
    ~ListPicture() override { Theme::Instance().setMode(ThemeMode::Light); }

    [[nodiscard]] QRect cell(int row, int column) const {
        return list->visualRect(list->model()->index(row, column - 1));
    }
    [[nodiscard]] QImage picture() const { return list->viewport()->grab().toImage(); }
    [[nodiscard]] QImage pictureOf(int row, int column) const { return picture().copy(cell(row, column)); }
    /// How many dots of one picture differ from the other's.
    static int differences(const QImage& one, const QImage& other) {
        int count = 0;
        for (int y = 0; y < std::min(one.height(), other.height()); ++y)
            for (int x = 0; x < std::min(one.width(), other.width()); ++x)
                count += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
        return count;
    }
    [[nodiscard]] QString tipAt(int row, int column) const {
        return TipAt(*list->viewport(), cell(row, column).center());
    }

    std::unique_ptr<ctList> list;
};

}  // namespace

TEST_F(ListPicture, TwoRowsOfTheSameTextLookAlike) {
    EXPECT_EQ(differences(pictureOf(0, 2), pictureOf(1, 2)), 0);
}

TEST_F(ListPicture, ACheckedBoxIsSeenAndGoesAgain) {
    const QImage empty = pictureOf(0, 1);
    list->SetChecked(0, 1, true);
    EXPECT_GT(differences(empty, pictureOf(0, 1)), 10);
    list->SetChecked(0, 1, false);
    EXPECT_EQ(differences(empty, pictureOf(0, 1)), 0);
}

TEST_F(ListPicture, TheBoxStandsInTheMiddleOfItsColumn) {
    const QImage before = pictureOf(0, 1);
    list->SetChecked(0, 1, true);
    const QImage after = pictureOf(0, 1);
    int left = after.width();
    int right = 0;
    for (int y = 0; y < after.height(); ++y)
        for (int x = 0; x < after.width(); ++x)
            if (before.pixel(x, y) != after.pixel(x, y)) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
    EXPECT_NEAR((left + right) / 2.0, after.width() / 2.0, 3);
}

TEST_F(ListPicture, ABoxThatMayNotBeChangedLooksDifferent) {
    list->SetChecked(0, 1, true);
    const QImage free = pictureOf(0, 1);
    list->SetChecksEnabled(false);
    EXPECT_GT(differences(free, pictureOf(0, 1)), 5);
}

TEST_F(ListPicture, ANoteIsMarkedBeforeTheNameAndNowhereElse) {
    list->SetNoteMark(0, true);
    EXPECT_GT(differences(pictureOf(0, 2), pictureOf(1, 2)), 20);
    EXPECT_EQ(differences(pictureOf(0, 1), pictureOf(1, 1)), 0);
    EXPECT_EQ(differences(pictureOf(0, 3), pictureOf(1, 3)), 0);
    list->SetNoteMark(0, false);
    EXPECT_EQ(differences(pictureOf(0, 2), pictureOf(1, 2)), 0);
}

TEST_F(ListPicture, AColourIsSeenAsASwatch) {
    const QImage swatch = pictureOf(0, 3);
    int orange = 0;
    for (int y = 0; y < swatch.height(); ++y)
        for (int x = 0; x < swatch.width(); ++x)
            orange += swatch.pixelColor(x, y) == QColor(0xFF, 0x80, 0x00) ? 1 : 0;
    EXPECT_GT(orange, 50);
}

TEST_F(ListPicture, TheSelectedRowIsSeenInEveryColumn) {
    const QImage before = picture();
    list->SelectRow(0);
    for (int column = 1; column <= 3; ++column)
        EXPECT_GT(differences(before.copy(cell(0, column)), pictureOf(0, column)), 50) << column;
    EXPECT_EQ(differences(before.copy(cell(1, 2)), pictureOf(1, 2)), 0);
}

TEST_F(ListPicture, AHiddenNameIsNotInThePicture) {
    list->SetCell(0, 2, QStringLiteral("Bartholomew O'Brien"));
    list->SetCell(1, 2, QStringLiteral("Jo"));
    list->NameCell(0, 2);
    list->NameCell(1, 2);
    EXPECT_GT(differences(pictureOf(0, 2), pictureOf(1, 2)), 20);
    list->SetNamesHidden(true);
    EXPECT_EQ(differences(pictureOf(0, 2), pictureOf(1, 2)), 0);
}

TEST_F(ListPicture, ALineIsOneAndAHalfTimesAsHighAsItsText) {
    EXPECT_GE(cell(0, 2).height(), list->fontMetrics().height() * 3 / 2);
    EXPECT_LT(cell(0, 2).height(), list->fontMetrics().height() * 3);
}

TEST_F(ListPicture, AListIsReadableInTheDark) {
    const auto inks = [this] {
        const QImage image = pictureOf(0, 2);
        int darkest = 255;
        int lightest = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                darkest = std::min(darkest, qGray(image.pixel(x, y)));
                lightest = std::max(lightest, qGray(image.pixel(x, y)));
            }
        return std::pair(darkest, lightest);
    };
    const auto light = inks();
    EXPECT_GT(light.second - light.first, 120);
    Theme::Instance().setMode(ThemeMode::Dark);
    QApplication::processEvents();
    const auto dark = inks();
    EXPECT_GT(dark.second - dark.first, 120);
    EXPECT_LT(dark.first, 80) << "The paper is dark.";
}

TEST_F(ListPicture, ATextThatFitsHasNoTipAndOneThatDoesNotHasTheWhole) {
    EXPECT_EQ(tipAt(0, 2), QString());
    const QString text = QStringLiteral("A name of more words than the column has room for, by far");
    list->SetCell(0, 2, text);
    for (int look = 0; look < 2; ++look)
        EXPECT_EQ(tipAt(0, 2), text) << look;
    EXPECT_EQ(tipAt(1, 2), QString());
}

TEST_F(ListPicture, ATipBetraysNoHiddenName) {
    list->SetCell(0, 2, QStringLiteral("A name of more words than the column has room for, by far"));
    list->NameCell(0, 2);
    list->SetNamesHidden(true);
    EXPECT_EQ(tipAt(0, 2), QString());
}
