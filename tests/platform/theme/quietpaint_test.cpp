// The pieces of which controls are drawn: their fills, borders, rings and marks in each state.

#include "platform/theme/quietpaint.h"

#include <functional>

#include "tests/platform/calendar/picture.h"

namespace {

constexpr QRect Place(10, 10, 60, 30);
constexpr QStyle::State On = QStyle::State_Enabled;

class QuietPieces : public testing::TestWithParam<Look> {
  protected:
    [[nodiscard]] Picture drawn(const std::function<void(QPainter&)>& draw) const {
        QImage image(QSize(90, 60) * GetParam().ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(GetParam().ratio);
        image.fill(Ground);
        QPainter painter(&image);
        draw(painter);
        painter.end();
        return Picture(image);
    }
    template <typename Option = QStyleOption>
    [[nodiscard]] Option option(QStyle::State state, const QRect& rect = Place) const {
        Option made;
        made.rect = rect;
        made.palette = palette;
        made.state = state;
        return made;
    }
    /// The colour beside the middle, where no mark stands.
    [[nodiscard]] static QColor fillOf(const Picture& picture) { return picture.at({20, 25}); }
    /// Whether a border of that width runs along the straight part of every side.
    [[nodiscard]] static bool isBordered(const Picture& picture, const QColor& colour, int width = 1) {
        for (const QRect& side : SidesOf(Place, width)) {
            const QRect straight =
                side.width() > side.height() ? side.adjusted(7, 0, -7, 0) : side.adjusted(0, 7, 0, -7);
            if (picture.share(straight, colour, 24) < 0.95)
                return false;
        }
        return true;
    }

    static inline const QColor Ground = QColor(0xFF, 0x00, 0xFF);
    const ThemeColours& colours = ColoursOf(GetParam().mode);
    const QPalette palette = PaletteOf(colours);
};

INSTANTIATE_TEST_SUITE_P(EachLook, QuietPieces, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_P(QuietPieces, APanelIsRoundAndItsBorderMayBeLeftOut) {
    const Picture bordered = drawn([&](QPainter& painter) { quiet::panel(painter, Place, Qt::green, Qt::blue, 2); });
    EXPECT_EQ(bordered.at({40, 25}), QColor(Qt::green));
    EXPECT_TRUE(isBordered(bordered, Qt::blue, 2));
    EXPECT_EQ(bordered.share({0, 0, 90, 10}, Ground), 1) << "nothing beside it";
    for (const QPoint& corner : {Place.topLeft(), Place.topRight(), Place.bottomLeft(), Place.bottomRight()})
        EXPECT_TRUE(bordered.shows({corner, QSize(1, 1)}, Ground, 60));
    const Picture plain = drawn([&](QPainter& painter) { quiet::panel(painter, Place, Qt::green, Qt::transparent); });
    EXPECT_FALSE(plain.shows(Place.adjusted(3, 3, -3, -3), Qt::blue));
    EXPECT_EQ(plain.share(Place.adjusted(3, 3, -3, -3), Qt::green), 1);
}

TEST_P(QuietPieces, AFocusRingIsTwoPixelsOfTheAccentAndEmpty) {
    const Picture ring = drawn([&](QPainter& painter) { quiet::focusRing(painter, Place, palette); });
    EXPECT_TRUE(isBordered(ring, colours.accent, 2));
    EXPECT_EQ(ring.share(Place.adjusted(5, 5, -5, -5), Ground), 1);
}

TEST_P(QuietPieces, AChevronPointsWhereItSays) {
    const auto inkAt = [&](Qt::ArrowType direction, QPoint from) {
        const Picture picture =
            drawn([&](QPainter& painter) { quiet::chevron(painter, QRect(30, 20, 21, 21), direction, Qt::blue); });
        return picture.shows(QRect(QPoint(40, 30) + from - QPoint(1, 1), QSize(2, 2)), Qt::blue, 200);
    };
    const struct {
        Qt::ArrowType direction;
        QPoint tip, behind;
    } arrows[] = {{Qt::DownArrow, {0, 2}, {0, -3}},
                  {Qt::UpArrow, {0, -2}, {0, 4}},
                  {Qt::RightArrow, {2, 0}, {-3, 0}},
                  {Qt::LeftArrow, {-2, 0}, {4, 0}}};
    for (const auto& arrow : arrows) {
        EXPECT_TRUE(inkAt(arrow.direction, arrow.tip)) << arrow.direction;
        EXPECT_FALSE(inkAt(arrow.direction, arrow.behind)) << arrow.direction;
    }
}

TEST_P(QuietPieces, APushButtonTellsItsState) {
    const struct {
        const char* what;
        QStyle::State state;
        bool isDefault;
        QColor fill, border;
    } buttons[] = {
        {"idle", On, false, colours.base, colours.border},
        {"under the pointer", On | QStyle::State_MouseOver, false, colours.hover, colours.border},
        {"pressed", On | QStyle::State_Sunken, false, colours.border, colours.border},
        {"pressed under the pointer", On | QStyle::State_Sunken | QStyle::State_MouseOver, false, colours.border,
         colours.border},
        {"disabled", QStyle::State_None, false, colours.window, colours.border},
        {"disabled under the pointer", QStyle::State_MouseOver, false, colours.window, colours.border},
        {"checked", On | QStyle::State_On, false, colours.selection, colours.accent},
        {"default", On, true, colours.accent, colours.accent},
        {"default pressed", On | QStyle::State_Sunken, true, colours.accent.darker(118), colours.accent.darker(118)},
        {"default under the pointer", On | QStyle::State_MouseOver, true, colours.accent.lighter(112),
         colours.accent.lighter(112)},
        {"default disabled", QStyle::State_None, true, colours.window, colours.border},
    };
    for (const auto& button : buttons) {
        const Picture picture =
            drawn([&](QPainter& painter) { quiet::pushButton(painter, option(button.state), button.isDefault); });
        EXPECT_LE(Picture::Distance(fillOf(picture), button.fill), 3) << button.what;
        EXPECT_TRUE(isBordered(picture, button.border)) << button.what;
    }
}

TEST_P(QuietPieces, AFocusedButtonHasTheRingAndADefaultOneALineInsideIt) {
    for (const bool isDefault : {false, true}) {
        const Picture picture = drawn(
            [&](QPainter& painter) { quiet::pushButton(painter, option(On | QStyle::State_HasFocus), isDefault); });
        EXPECT_TRUE(isBordered(picture, colours.accent, 2)) << isDefault;
        const QRect line(Place.left() + 10, Place.top() + 2, 40, 1);
        EXPECT_EQ(picture.share(line, colours.accentText, 40) > 0.9, isDefault || colours.accentText == colours.base);
    }
}

TEST_P(QuietPieces, AToolButtonIsFlatUntilItIsUsed) {
    const struct {
        const char* what;
        QStyle::State state;
        QColor fill;
    } buttons[] = {
        {"idle", On, Ground},
        {"under the pointer", On | QStyle::State_MouseOver, colours.hover},
        {"pressed", On | QStyle::State_Sunken, colours.border},
        {"pressed while checked", On | QStyle::State_Sunken | QStyle::State_On, colours.border},
        {"checked", On | QStyle::State_On, colours.selection},
        {"disabled under the pointer", QStyle::State_MouseOver, Ground},
        {"disabled and pressed", QStyle::State_Sunken, Ground},
        {"disabled and checked", QStyle::State_On, colours.selection},
    };
    for (const auto& button : buttons) {
        for (const bool focused : {false, true}) {
            const QStyle::State state = focused ? button.state | QStyle::State_HasFocus : button.state;
            const Picture picture = drawn([&](QPainter& painter) { quiet::toolButton(painter, option(state)); });
            EXPECT_EQ(fillOf(picture), button.fill) << button.what;
            EXPECT_EQ(isBordered(picture, colours.accent, 2), focused) << button.what;
        }
    }
}

TEST_P(QuietPieces, AFieldTellsItsState) {
    const struct {
        const char* what;
        QStyle::State state;
        QColor fill, border;
        int width;
    } fields[] = {
        {"idle", On, colours.base, colours.border, 1},
        {"under the pointer", On | QStyle::State_MouseOver, colours.base, colours.mutedText, 1},
        {"focused", On | QStyle::State_HasFocus, colours.base, colours.accent, 2},
        {"focused under the pointer", On | QStyle::State_HasFocus | QStyle::State_MouseOver, colours.base,
         colours.accent, 2},
        {"read-only", On | QStyle::State_ReadOnly, colours.window, colours.border, 1},
        {"read-only and focused", On | QStyle::State_ReadOnly | QStyle::State_HasFocus, colours.window, colours.accent,
         2},
        {"disabled", QStyle::State_None, colours.window, colours.border, 1},
        {"disabled and focused", QStyle::State_HasFocus, colours.window, colours.border, 1},
    };
    for (const auto& field : fields) {
        const Picture picture = drawn([&](QPainter& painter) { quiet::fieldFrame(painter, option(field.state)); });
        EXPECT_EQ(fillOf(picture), field.fill) << field.what;
        EXPECT_TRUE(isBordered(picture, field.border, field.width)) << field.what;
        EXPECT_EQ(isBordered(picture, field.border, 2), field.width == 2) << field.what;
    }
}

TEST_P(QuietPieces, ACheckBoxTellsItsStateByItsMark) {
    const QRect box(20, 10, 16, 16);
    const struct {
        const char* what;
        QStyle::State state;
        QColor fill, border;
        bool hook, dash;
    } boxes[] = {
        {"off", On, colours.base, colours.mutedText, false, false},
        {"off under the pointer", On | QStyle::State_MouseOver, colours.base, colours.accent, false, false},
        {"off and focused", On | QStyle::State_HasFocus, colours.base, colours.accent, false, false},
        {"on", On | QStyle::State_On, colours.accent, colours.accent, true, false},
        {"partly", On | QStyle::State_NoChange, colours.accent, colours.accent, false, true},
        {"disabled", QStyle::State_Off, colours.window, colours.border, false, false},
        {"disabled on", QStyle::State_On, colours.hover, colours.border, true, false},
    };
    for (const auto& each : boxes) {
        const Picture picture = drawn([&](QPainter& painter) { quiet::checkBox(painter, option(each.state, box)); });
        EXPECT_EQ(picture.at({22, 13}), each.fill) << each.what;
        EXPECT_GT(picture.share({24, 10, 8, 1}, each.border, 40), 0.9) << each.what;
        EXPECT_EQ(picture.share({25, 20, 3, 2}, each.fill) < 0.7, each.hook) << each.what;
        EXPECT_EQ(picture.share({26, 17, 2, 1}, each.fill) < 0.7, each.dash) << each.what;
    }
}

TEST_P(QuietPieces, ARadioButtonIsRoundAndHasADotWhileItIsOn) {
    const QRect box(20, 10, 16, 16);
    for (const bool on : {false, true, false}) {
        const QStyle::State state = on ? On | QStyle::State_On : On;
        const Picture picture = drawn([&](QPainter& painter) { quiet::radioButton(painter, option(state, box)); });
        EXPECT_EQ(picture.at({28, 18}), on ? colours.accentText : colours.base);
        EXPECT_EQ(picture.at({23, 18}), on ? colours.accent : colours.base);
        EXPECT_EQ(picture.at({20, 10}), Ground) << "its corners are round";
    }
}

TEST_P(QuietPieces, AnEditableComboBoxIsAFieldAndAnotherAButton) {
    const QRect arrow(50, 10, 18, 30);
    const auto combo = [&](QStyle::State state, bool editable) {
        auto made = option<QStyleOptionComboBox>(state);
        made.editable = editable;
        return drawn([&](QPainter& painter) { quiet::comboBox(painter, made, arrow); });
    };
    EXPECT_EQ(fillOf(combo(On | QStyle::State_MouseOver, false)), colours.hover);
    EXPECT_EQ(fillOf(combo(On | QStyle::State_MouseOver, true)), colours.base);
    EXPECT_EQ(fillOf(combo(QStyle::State_None, false)), colours.window);
    for (const bool editable : {false, true}) {
        EXPECT_TRUE(isBordered(combo(On | QStyle::State_HasFocus, editable), colours.accent, 2)) << editable;
        EXPECT_TRUE(combo(On, editable).shows(arrow.adjusted(4, 4, -4, -4), colours.text, 90)) << editable;
        EXPECT_FALSE(combo(QStyle::State_None, editable).shows(arrow.adjusted(4, 4, -4, -4), colours.text, 30));
    }
}

TEST_P(QuietPieces, ASpinBoxLightsTheArrowThatIsUnderThePointerAndDimsWhatCannotStep) {
    const QRect up(50, 11, 18, 14);
    const QRect down(50, 25, 18, 14);
    auto spin = option<QStyleOptionSpinBox>(On | QStyle::State_MouseOver);
    spin.frame = true;
    spin.stepEnabled = QAbstractSpinBox::StepUpEnabled;
    spin.activeSubControls = QStyle::SC_SpinBoxUp;
    const auto picture = [&] { return drawn([&](QPainter& painter) { quiet::spinBox(painter, spin, up, down); }); };
    EXPECT_TRUE(picture().shows(up, colours.text, 90));
    EXPECT_FALSE(picture().shows(down, colours.text, 30)) << "it cannot go down";
    EXPECT_EQ(picture().at({52, 13}), colours.hover);
    EXPECT_EQ(picture().at({52, 36}), colours.base);
    spin.state |= QStyle::State_Sunken;
    EXPECT_EQ(picture().at({52, 13}), colours.border);
    spin.stepEnabled = QAbstractSpinBox::StepDownEnabled;
    EXPECT_EQ(picture().at({52, 13}), colours.base) << "what cannot step is not lit";
    EXPECT_TRUE(picture().shows(down, colours.text, 90));
    spin.frame = false;
    EXPECT_EQ(fillOf(picture()), Ground);
    spin.buttonSymbols = QAbstractSpinBox::NoButtons;
    EXPECT_EQ(picture().share(Place, Ground), 1);
}

TEST_P(QuietPieces, AScrollBarsHandleGrowsStrongerInTheHand) {
    const QRect groove(10, 5, 13, 50);
    const QRect slider(10, 15, 13, 20);
    auto bar = option<QStyleOptionSlider>(On, groove);
    bar.minimum = 0;
    bar.maximum = 100;
    const auto strength = [&] {
        const Picture picture = drawn([&](QPainter& painter) { quiet::scrollBar(painter, bar, slider); });
        EXPECT_EQ(picture.share({10, 40, 13, 15}, colours.window), 1);
        return Picture::Distance(picture.at({16, 25}), colours.window);
    };
    const int idle = strength();
    EXPECT_GT(idle, 60);
    bar.state |= QStyle::State_MouseOver;
    EXPECT_EQ(strength(), idle) << "the pointer is elsewhere on it";
    bar.activeSubControls = QStyle::SC_ScrollBarSlider;
    const int lit = strength();
    EXPECT_GT(lit, idle);
    bar.state |= QStyle::State_Sunken;
    EXPECT_GT(strength(), lit);
    bar.maximum = 0;
    EXPECT_EQ(strength(), 0) << "with nothing to scroll there is none";
}

TEST_P(QuietPieces, AHeaderSectionHasALineBelowAndAtItsEnd) {
    using Header = QStyleOptionHeader;
    const struct {
        Header::SectionPosition position;
        bool parted;
    } sections[] = {
        {Header::Beginning, true}, {Header::Middle, true}, {Header::End, false}, {Header::OnlyOneSection, false}};
    for (const auto& section : sections) {
        auto header = option<Header>(On);
        header.position = section.position;
        const Picture picture = drawn([&](QPainter& painter) { quiet::headerSection(painter, header); });
        EXPECT_EQ(fillOf(picture), colours.window);
        EXPECT_GE(picture.share({Place.left() + 3, Place.bottom(), 50, 1}, colours.border), 0.5);
        EXPECT_EQ(picture.share({Place.right(), 20, 1, 10}, colours.border) >= 0.5, section.parted);
        header.state |= QStyle::State_MouseOver;
        EXPECT_EQ(fillOf(drawn([&](QPainter& painter) { quiet::headerSection(painter, header); })), colours.hover);
    }
}

TEST_P(QuietPieces, AMenuATabAndASplitterTellWhereTheUserIs) {
    const auto menu = [&](QStyle::State state) {
        return fillOf(
            drawn([&](QPainter& painter) { quiet::menuBarItem(painter, option<QStyleOptionMenuItem>(state)); }));
    };
    EXPECT_EQ(menu(On), colours.window);
    EXPECT_EQ(menu(On | QStyle::State_Selected), colours.hover);
    EXPECT_EQ(menu(On | QStyle::State_Selected | QStyle::State_Sunken), colours.selection);
    EXPECT_EQ(menu(QStyle::State_Selected), colours.window);
    const auto tab = [&](QStyle::State state) {
        return drawn([&](QPainter& painter) { quiet::tab(painter, option<QStyleOptionTab>(state)); });
    };
    const QRect line(Place.left() + 10, Place.bottom() - 1, 40, 1);
    EXPECT_EQ(tab(On).share(Place, Ground), 1);
    EXPECT_EQ(tab(On | QStyle::State_Selected).share(line, colours.accent), 1);
    EXPECT_EQ(fillOf(tab(On | QStyle::State_MouseOver)), colours.hover);
    EXPECT_EQ(fillOf(tab(On | QStyle::State_MouseOver | QStyle::State_Selected)), Ground);
    EXPECT_EQ(fillOf(tab(QStyle::State_MouseOver)), Ground);
    for (const QRect& bar : {QRect(40, 5, 7, 50), QRect(5, 20, 80, 7)}) {
        for (const bool lit : {false, true}) {
            const Picture picture = drawn([&](QPainter& painter) {
                quiet::splitter(painter, option(lit ? On | QStyle::State_MouseOver : On, bar));
            });
            const QColor handle = lit ? colours.accent : colours.border;
            const bool upright = bar.height() > bar.width();
            const QPoint middle = bar.center();
            EXPECT_EQ(picture.at(middle - QPoint(1, 1)), handle);
            EXPECT_EQ(picture.at(middle + (upright ? QPoint(0, 12) : QPoint(12, 0)) - QPoint(1, 1)), handle);
            EXPECT_EQ(picture.at(middle + (upright ? QPoint(3, 0) : QPoint(0, 3))), Ground);
            EXPECT_EQ(picture.at(middle + (upright ? QPoint(0, 16) : QPoint(16, 0))), Ground);
        }
    }
}
