// The measures of the style and what it draws itself: what it adds to the one that it builds on.

#include <gtest/gtest.h>

#include <memory>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabBar>
#include <QToolButton>

#include "platform/theme/quietstyle.h"
#include "platform/theme/theme.h"
#include "tests/platform/calendar/picture.h"
#include "tests/platform/calendar/words.h"

namespace {

/// The style is there before anything that refers to it.
struct Installed {
    Installed() { Theme::Install(ThemeMode::Light); }
};

class QuietMeasures : public testing::Test, private Installed {
  protected:
    template <typename Option = QStyleOption>
    [[nodiscard]] Option option(const QRect& rect = QRect(10, 10, 60, 30)) const {
        Option made;
        made.rect = rect;
        made.state = QStyle::State_Enabled;
        made.palette = QApplication::palette();
        made.fontMetrics = QFontMetrics(QApplication::font());
        return made;
    }
    [[nodiscard]] Picture primitive(QStyle::PrimitiveElement element, QStyle::State more = {},
                                    const QWidget* widget = nullptr) const {
        auto made = option();
        made.state |= more;
        return painted([&](QPainter& painter) { style.drawPrimitive(element, &made, &painter, widget); });
    }
    [[nodiscard]] static Picture painted(const std::function<void(QPainter&)>& draw) {
        QImage image(90, 60, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        draw(painter);
        painter.end();
        return Picture(image);
    }

    const QStyle& style = *QApplication::style();
    const std::unique_ptr<QStyle> plain{QStyleFactory::create(QStringLiteral("Fusion"))};
    const ThemeColours& colours = ColoursOf(ThemeMode::Light);
    const QRect place{10, 10, 60, 30};
};

}  // namespace

TEST_F(QuietMeasures, AreThese) {
    const std::pair<QStyle::PixelMetric, int> metrics[] = {
        {QStyle::PM_ToolTipLabelFrameWidth, 5},
        {QStyle::PM_ScrollBarExtent, 13},
        {QStyle::PM_ScrollBarSliderMin, 28},
        {QStyle::PM_ButtonShiftHorizontal, 0},
        {QStyle::PM_ButtonShiftVertical, 0},
        {QStyle::PM_ToolBarFrameWidth, 0},
        {QStyle::PM_SplitterWidth, 7},
        {QStyle::PM_IndicatorWidth, 16},
        {QStyle::PM_IndicatorHeight, 16},
        {QStyle::PM_ExclusiveIndicatorWidth, 16},
        {QStyle::PM_ExclusiveIndicatorHeight, 16},
        {QStyle::PM_CheckBoxLabelSpacing, 7},
        {QStyle::PM_RadioButtonLabelSpacing, 7},
        {QStyle::PM_LayoutHorizontalSpacing, 8},
        {QStyle::PM_LayoutVerticalSpacing, 8},
        {QStyle::PM_LayoutLeftMargin, 12},
        {QStyle::PM_LayoutTopMargin, 12},
        {QStyle::PM_LayoutRightMargin, 12},
        {QStyle::PM_LayoutBottomMargin, 12},
        {QStyle::PM_ToolBarIconSize, 20},
        {QStyle::PM_MessageBoxIconSize, Space(36)},
    };
    for (const auto& [metric, pixels] : metrics)
        EXPECT_EQ(style.pixelMetric(metric), pixels) << metric;
    EXPECT_EQ(style.pixelMetric(QStyle::PM_TabBarIconSize), plain->pixelMetric(QStyle::PM_TabBarIconSize));
}

TEST_F(QuietMeasures, HabitsAreThese) {
    const std::pair<QStyle::StyleHint, int> hints[] = {
        {QStyle::SH_EtchDisabledText, 0},
        {QStyle::SH_DitherDisabledText, 0},
        {QStyle::SH_DialogButtonBox_ButtonsHaveIcons, 0},
        {QStyle::SH_ItemView_ActivateItemOnSingleClick, 0},
        {QStyle::SH_ScrollBar_LeftClickAbsolutePosition, 0},
        {QStyle::SH_ToolTip_WakeUpDelay, 450},
        {QStyle::SH_Slider_AbsoluteSetButtons, Qt::LeftButton},
    };
    for (const auto& [hint, value] : hints)
        EXPECT_EQ(style.styleHint(hint), value) << hint;
    EXPECT_EQ(style.styleHint(QStyle::SH_TabBar_Alignment), plain->styleHint(QStyle::SH_TabBar_Alignment));
}

TEST_F(QuietMeasures, ControlsAreAsHighAsATextWithRoomAroundIt) {
    const int text = QFontMetrics(QApplication::font()).height();
    const struct {
        const char* what;
        QStyle::ContentsType type;
        int least;
    } heights[] = {
        {"push button", QStyle::CT_PushButton, text + 11}, {"field", QStyle::CT_LineEdit, text + 11},
        {"combo box", QStyle::CT_ComboBox, text + 11},     {"spin box", QStyle::CT_SpinBox, text + 11},
        {"check box", QStyle::CT_CheckBox, text + 4},      {"radio button", QStyle::CT_RadioButton, text + 4},
        {"header", QStyle::CT_HeaderSection, text + 11}};
    for (const auto& row : heights) {
        QStyleOptionButton button = option<QStyleOptionButton>();
        QStyleOptionComboBox combo = option<QStyleOptionComboBox>();
        QStyleOptionSpinBox spin = option<QStyleOptionSpinBox>();
        QStyleOptionFrame frame = option<QStyleOptionFrame>();
        QStyleOptionHeader header = option<QStyleOptionHeader>();
        const QStyleOption* asked = row.type == QStyle::CT_ComboBox        ? static_cast<QStyleOption*>(&combo)
                                    : row.type == QStyle::CT_SpinBox       ? static_cast<QStyleOption*>(&spin)
                                    : row.type == QStyle::CT_LineEdit      ? static_cast<QStyleOption*>(&frame)
                                    : row.type == QStyle::CT_HeaderSection ? static_cast<QStyleOption*>(&header)
                                                                           : static_cast<QStyleOption*>(&button);
        EXPECT_EQ(style.sizeFromContents(row.type, asked, QSize(40, 2), nullptr).height(), row.least) << row.what;
    }
}

TEST_F(QuietMeasures, SomeControlsAreLargerThanPlainOnes) {
    const auto more = [&](QStyle::ContentsType type, const QStyleOption& asked) {
        const QSize contents(60, 60);
        return style.sizeFromContents(type, &asked, contents, nullptr) -
               plain->sizeFromContents(type, &asked, contents, nullptr);
    };
    EXPECT_EQ(more(QStyle::CT_PushButton, option<QStyleOptionButton>()).width(), 8);
    EXPECT_EQ(more(QStyle::CT_ToolButton, option<QStyleOptionToolButton>()), QSize(8, 4));
    EXPECT_EQ(more(QStyle::CT_TabBarTab, option<QStyleOptionTab>()), QSize(8, 6));
    EXPECT_EQ(more(QStyle::CT_MenuBarItem, option<QStyleOptionMenuItem>()), QSize(6, 5));
    QStyleOptionMenuItem item = option<QStyleOptionMenuItem>();
    item.menuItemType = QStyleOptionMenuItem::Normal;
    EXPECT_GE(style.sizeFromContents(QStyle::CT_MenuItem, &item, QSize(40, 2), nullptr).height(),
              item.fontMetrics.height() + 9);
    item.menuItemType = QStyleOptionMenuItem::Separator;
    EXPECT_LT(style.sizeFromContents(QStyle::CT_MenuItem, &item, QSize(40, 2), nullptr).height(),
              item.fontMetrics.height());
}

TEST_F(QuietMeasures, TheSliderStandsWhereTheValueIs) {
    auto bar = option<QStyleOptionSlider>(QRect(0, 0, 13, 200));
    bar.orientation = Qt::Vertical;
    bar.maximum = 300;
    bar.pageStep = 100;
    const auto part = [&](QStyle::SubControl which) {
        return style.subControlRect(QStyle::CC_ScrollBar, &bar, which, nullptr);
    };
    for (const auto& [value, top] : {std::pair{0, 0}, {150, 75}, {300, 150}}) {
        bar.sliderPosition = value;
        EXPECT_EQ(part(QStyle::SC_ScrollBarSlider), QRect(0, top, 13, 50)) << value;
        EXPECT_EQ(part(QStyle::SC_ScrollBarSubPage), QRect(0, 0, 13, top)) << value;
        EXPECT_EQ(part(QStyle::SC_ScrollBarAddPage), QRect(0, top + 50, 13, 150 - top)) << value;
    }
    EXPECT_EQ(part(QStyle::SC_ScrollBarGroove), bar.rect);
    EXPECT_TRUE(part(QStyle::SC_ScrollBarAddLine).isEmpty()) << "there are no arrows";
    bar.upsideDown = true;
    bar.sliderPosition = 300;
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider).top(), 0);
    bar.upsideDown = false;
    bar.maximum = 0;
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider).height(), 200) << "with nothing to scroll";
    bar.maximum = 1'000'000;
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider).height(), 28);
    bar.rect = QRect(0, 0, 13, 10);
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider).height(), 10);
}

TEST_F(QuietMeasures, AnAcrossBarIsMirroredFromRightToLeft) {
    auto bar = option<QStyleOptionSlider>(QRect(0, 0, 200, 13));
    bar.orientation = Qt::Horizontal;
    bar.maximum = 300;
    bar.pageStep = 100;
    const auto slider = [&] {
        return style.subControlRect(QStyle::CC_ScrollBar, &bar, QStyle::SC_ScrollBarSlider, nullptr);
    };
    EXPECT_EQ(slider(), QRect(0, 0, 50, 13));
    bar.direction = Qt::RightToLeft;
    EXPECT_EQ(slider(), QRect(150, 0, 50, 13));
}

TEST_F(QuietMeasures, ATitleStandsAboveItsFrame) {
    auto box = option<QStyleOptionGroupBox>(QRect(0, 0, 200, 100));
    box.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    box.text = QStringLiteral("Title");
    const auto part = [&](QStyle::SubControl which) {
        return style.subControlRect(QStyle::CC_GroupBox, &box, which, nullptr);
    };
    EXPECT_EQ(part(QStyle::SC_GroupBoxFrame).top(), part(QStyle::SC_GroupBoxLabel).bottom() + 4);
    box.text.clear();
    EXPECT_EQ(part(QStyle::SC_GroupBoxFrame),
              plain->subControlRect(QStyle::CC_GroupBox, &box, QStyle::SC_GroupBoxFrame, nullptr));
}

TEST_F(QuietMeasures, TheTextOfAFieldStandsOffItsBorderButNotTwiceInABox) {
    auto frame = option<QStyleOptionFrame>(QRect(0, 0, 100, 30));
    QLineEdit alone;
    QComboBox box;
    box.setEditable(true);
    const QRect usual = plain->subElementRect(QStyle::SE_LineEditContents, &frame, &alone);
    EXPECT_EQ(style.subElementRect(QStyle::SE_LineEditContents, &frame, &alone), usual.adjusted(3, 0, -3, 0));
    EXPECT_EQ(style.subElementRect(QStyle::SE_LineEditContents, &frame, box.lineEdit()), usual);
}

TEST_F(QuietMeasures, FramesAreThinLines) {
    const struct {
        const char* what;
        QStyle::PrimitiveElement element;
        QStyle::State state;
        QColor line;
        bool below;  ///< Also at the lower side.
    } frames[] = {
        {"frame", QStyle::PE_Frame, {}, colours.border, true},
        {"focused frame", QStyle::PE_Frame, QStyle::State_HasFocus, colours.accent, true},
        {"status bar", QStyle::PE_PanelStatusBar, {}, colours.border, false},
        {"tabs", QStyle::PE_FrameTabWidget, {}, colours.border, false},
        {"tab bar", QStyle::PE_FrameTabBarBase, {}, colours.border, false},
        {"tip", QStyle::PE_PanelTipLabel, {}, colours.border, true},
        {"group", QStyle::PE_FrameGroupBox, {}, colours.border, true},
        {"focused row", QStyle::PE_FrameFocusRect, {}, colours.accent, true},
    };
    for (const auto& frame : frames) {
        const Picture picture = primitive(frame.element, frame.state);
        EXPECT_GT(picture.share({18, 10, 40, 1}, frame.line, 20), 0.9) << frame.what;
        EXPECT_EQ(picture.share({18, 39, 40, 1}, frame.line, 20) > 0.9, frame.below) << frame.what;
        const bool filled = frame.element == QStyle::PE_PanelTipLabel;
        EXPECT_EQ(picture.share({18, 14, 40, 20}, filled ? colours.base : QColor(Qt::magenta)), 1) << frame.what;
    }
    for (const QStyle::PrimitiveElement nothing : {QStyle::PE_FrameDefaultButton, QStyle::PE_FrameStatusBarItem})
        EXPECT_EQ(primitive(nothing).share({0, 0, 90, 60}, Qt::magenta), 1) << nothing;
    const QPushButton button;
    EXPECT_EQ(primitive(QStyle::PE_FrameFocusRect, {}, &button).share({0, 0, 90, 60}, Qt::magenta), 1)
        << "a button has its ring on its border";
}

TEST_F(QuietMeasures, AFieldInsideABoxLeavesTheFrameToTheBox) {
    QComboBox combo;
    combo.setEditable(true);
    QSpinBox spin;
    const QLineEdit alone;
    EXPECT_NE(primitive(QStyle::PE_PanelLineEdit, {}, &alone).share(place, Qt::magenta), 1);
    EXPECT_EQ(primitive(QStyle::PE_PanelLineEdit, {}, combo.lineEdit()).share(place, Qt::magenta), 1);
    EXPECT_EQ(primitive(QStyle::PE_FrameLineEdit, {}, spin.findChild<QLineEdit*>()).share(place, Qt::magenta), 1);
}

TEST_F(QuietMeasures, BarsAreTheWindowsWithALineBelow) {
    const auto control = [&](QStyle::ControlElement element) {
        const auto made = option();
        return painted([&](QPainter& painter) { style.drawControl(element, &made, &painter, nullptr); });
    };
    for (const QStyle::ControlElement element : {QStyle::CE_ToolBar, QStyle::CE_HeaderEmptyArea}) {
        EXPECT_EQ(control(element).share({11, 11, 50, 25}, colours.window), 1) << element;
        EXPECT_EQ(control(element).share({12, 39, 50, 1}, colours.border), 1) << element;
    }
    EXPECT_EQ(control(QStyle::CE_MenuBarEmptyArea).share(place, colours.window), 1);
}

TEST_F(QuietMeasures, TheTextOfADefaultButtonIsReadOnItsFill) {
    QPushButton button(QStringLiteral("Save"));
    button.setAutoDefault(false);
    button.ensurePolished();
    EXPECT_EQ(WordWith(WordDevice::of(button), QStringLiteral("Save")).colour, colours.text);
    button.setDefault(true);
    EXPECT_EQ(WordWith(WordDevice::of(button), QStringLiteral("Save")).colour, colours.accentText);
    button.setEnabled(false);
    EXPECT_EQ(WordWith(WordDevice::of(button), QStringLiteral("Save")).colour, colours.mutedText);
}

TEST_F(QuietMeasures, WhatCanBePointedAtIsPaintedUnderThePointer) {
    QComboBox combo;
    QToolButton tool;
    QScrollBar bar;
    QTabBar tabs;
    QSpinBox spin;
    QLineEdit edit;
    for (QWidget* widget : std::initializer_list<QWidget*>{&combo, &tool, &bar, &tabs, &spin, &edit}) {
        widget->ensurePolished();
        EXPECT_TRUE(widget->testAttribute(Qt::WA_Hover)) << widget->metaObject()->className();
    }
    QLabel label;
    label.ensurePolished();
    EXPECT_FALSE(label.testAttribute(Qt::WA_Hover));
    QLabel rich;
    rich.setTextFormat(Qt::RichText);
    rich.ensurePolished();
    EXPECT_EQ(rich.textFormat(), Qt::RichText) << "who asked for markup has it";
}
