#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QStyleOptionSlider>
#include <QTest>

#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

namespace {

QImage pictureOf(QWidget& widget) {
    return widget.grab().toImage();
}

bool shows(const QImage& image, const QColor& colour) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == colour)
                return true;
    return false;
}

class QuietStyleTest : public testing::Test {
  protected:
    QuietStyleTest() { Theme::Install(ThemeMode::Light); }
    const ThemeColours& colours = ColoursOf(ThemeMode::Light);
};

}  // namespace

TEST_F(QuietStyleTest, TheFocusedButtonWearsTheRingAndNoOther) {
    QWidget form;
    QPushButton first(QStringLiteral("First"), &form);
    QPushButton second(QStringLiteral("Second"), &form);
    second.move(150, 0);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    first.setFocus();
    EXPECT_TRUE(shows(pictureOf(first), colours.accent));
    EXPECT_FALSE(shows(pictureOf(second), colours.accent));
}

TEST_F(QuietStyleTest, AMessageBoxShowsOurPictures) {
    const std::pair<QMessageBox::Icon, QColor> pictures[] = {{QMessageBox::Information, colours.accent},
                                                             {QMessageBox::Question, colours.accent},
                                                             {QMessageBox::Warning, colours.caution},
                                                             {QMessageBox::Critical, colours.danger}};
    for (const auto& [icon, colour] : pictures) {
        const QMessageBox box(icon, QString(), QStringLiteral("Text"));
        EXPECT_TRUE(shows(box.iconPixmap().toImage(), colour)) << icon;
    }
}

TEST_F(QuietStyleTest, TheSmallButtonsOfFieldsAndToolbarsShowOurPictures) {
    const QStyle& style = *QApplication::style();
    const QSize size(24, 24);
    EXPECT_TRUE(shows(style.standardIcon(QStyle::SP_LineEditClearButton).pixmap(size).toImage(), colours.mutedText));
    EXPECT_TRUE(
        shows(style.standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton).pixmap(size).toImage(), colours.text));
}

TEST_F(QuietStyleTest, TheButtonsOfAMessageBoxHaveNoPictures) {
    const QMessageBox box(QMessageBox::Information, QString(), QStringLiteral("Text"), QMessageBox::Ok);
    EXPECT_TRUE(box.button(QMessageBox::Ok)->icon().isNull());
}

TEST_F(QuietStyleTest, TheDefaultButtonIsFilledWithTheAccent) {
    QPushButton button(QStringLiteral("OK"));
    button.setDefault(true);
    const QImage image = pictureOf(button);
    EXPECT_EQ(image.pixelColor(8, image.height() / 2), colours.accent);
}

TEST_F(QuietStyleTest, ACheckedBoxIsToldByItsMarkNotOnlyByItsFill) {
    QCheckBox box;
    box.setChecked(true);
    const QImage image = pictureOf(box);
    EXPECT_TRUE(shows(image, colours.accent));
    EXPECT_TRUE(shows(image, colours.accentText));
}

TEST_F(QuietStyleTest, ADisabledDefaultButtonDoesNotLookLikeTheOneToPress) {
    QPushButton button(QStringLiteral("OK"));
    button.setDefault(true);
    button.setEnabled(false);
    EXPECT_FALSE(shows(pictureOf(button), colours.accent));
}

TEST_F(QuietStyleTest, AScrollBarWithoutArrowsPagesAboveAndBelowItsSlider) {
    QScrollBar bar(Qt::Vertical);
    bar.resize(13, 200);
    bar.setRange(0, 900);
    bar.setPageStep(100);
    bar.setValue(450);
    bar.show();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(6, 195));
    EXPECT_EQ(bar.value(), 550);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(6, 5));
    EXPECT_EQ(bar.value(), 450);
}

TEST_F(QuietStyleTest, TheSliderOfAVeryLongListStaysLargeEnoughToGrab) {
    QScrollBar bar(Qt::Vertical);
    bar.resize(13, 200);
    bar.setRange(0, 1000000);
    bar.setPageStep(10);
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = Qt::Vertical;
    option.maximum = bar.maximum();
    option.pageStep = bar.pageStep();
    const QRect slider = bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar);
    EXPECT_GE(slider.height(), 24);
}

TEST_F(QuietStyleTest, ThePictureOnTheDefaultButtonHasTheColourOfItsText) {
    QDialog form;
    QPushButton button(Icon("print"), QString(), &form);
    button.setDefault(true);
    form.show();
    EXPECT_FALSE(shows(pictureOf(button), colours.text));
    button.setDefault(false);
    button.setAutoDefault(false);
    EXPECT_TRUE(shows(pictureOf(button), colours.text));
}

TEST_F(QuietStyleTest, ASpinBoxWithoutButtonsShowsNoArrows) {
    QSpinBox box;
    box.setSpecialValueText(QStringLiteral(" "));
    EXPECT_TRUE(shows(pictureOf(box), colours.text));
    box.setButtonSymbols(QAbstractSpinBox::NoButtons);
    EXPECT_FALSE(shows(pictureOf(box), colours.text));
}

TEST_F(QuietStyleTest, ALabelShowsMarkupAsItStands) {
    QLabel label(QStringLiteral("<b>Bold</b><img src=\"/etc/hostname\">"));
    label.show();
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    QLabel plain(QStringLiteral("<b>Bold</b><img src=\"/etc/hostname\">"));
    plain.setTextFormat(Qt::PlainText);
    EXPECT_EQ(label.sizeHint(), plain.sizeHint());
}
