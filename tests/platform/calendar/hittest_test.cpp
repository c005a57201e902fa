#include "platform/calendar/hittest.h"

#include <gtest/gtest.h>

#include <QPalette>

namespace {

const QDate Day(2026, 3, 11);

/// Three columns of 200 pixels beside the gutter, two pixels a minute.
class HitTesting : public testing::Test {
  protected:
    HitTesting() : style(ScreenStyle(QPalette(), QFont(QStringLiteral("DejaVu Sans"), 9))) {
        content.date = Day;
        content.columns = {{{}, Day}, {{}, Day.addDays(1)}, {{}, Day.addDays(2)}};
        content.firstTime = 480;
        content.lastTime = 1079;
    }

    int add(int start, int end, int column = 1) {
        CalendarItem item;
        item.ItemStart = start;
        item.ItemEnd = end;
        item.ItemColumn = column;
        content.items.push_back(item);
        return static_cast<int>(content.items.size());
    }

    void arrange() {
        layout = LayOut(content, 5);
        GridWishes wishes;
        wishes.area = QRect(0, 0, style.gutterWidth + 600, 700);
        wishes.visibleColumns = 3;
        grid = FitGrid(content, layout, style, wishes);
        grid.scale.pixelsPerMinute = 2;
    }

    [[nodiscard]] Hit at(QPoint point) const { return HitTest(point, grid, layout, style, selected); }
    [[nodiscard]] QPoint inColumn(int column, int minute, int dx = 0) const {
        return {grid.columnRect(column).center().x() + dx, grid.y(minute)};
    }

    CalendarContent content;
    CalendarStyle style;
    CalendarLayout layout;
    CalendarGrid grid;
    int selected = 0;
};

}  // namespace

TEST_F(HitTesting, FreeTimeIsAColumnAndAMinute) {
    arrange();
    EXPECT_EQ(at(inColumn(2, 547)), Hit(CellHit{2, 547}));
    EXPECT_EQ(at(inColumn(3, 480)), Hit(CellHit{3, 480}));
}

TEST_F(HitTesting, EveryMinuteOfEveryColumnComesBackFromItsPixel) {
    arrange();
    grid.scrollY = 400;
    for (int column = 1; column <= 3; ++column) {
        for (int minute = 700; minute < 950; ++minute)
            ASSERT_EQ(at(inColumn(column, minute)), Hit(CellHit{column, minute}));
    }
}

TEST_F(HitTesting, AnItemHasABodyAndTwoEdges) {
    const int item = add(540, 600);
    arrange();
    const QRect card = grid.itemRect(*layout.find(item));
    EXPECT_EQ(at(card.center()), Hit(ItemHit{item, Zone::Body}));
    EXPECT_EQ(at({card.center().x(), card.top()}), Hit(ItemHit{item, Zone::TopEdge}));
    EXPECT_EQ(at({card.center().x(), card.bottom()}), Hit(ItemHit{item, Zone::BottomEdge}));
}

TEST_F(HitTesting, AFiveMinuteItemCanStillBePickedUpByItsBody) {
    const int item = add(540, 545);
    arrange();
    const QRect card = grid.itemRect(*layout.find(item));
    int body = 0;
    for (int y = card.top(); y <= card.bottom(); ++y)
        body += at({card.center().x(), y}) == Hit(ItemHit{item, Zone::Body}) ? 1 : 0;
    EXPECT_GE(body, card.height() / 2);
}

TEST_F(HitTesting, TheRightEndOfAColumnIsFreeBesideItems) {
    add(540, 600);
    arrange();
    EXPECT_EQ(at({grid.columnRect(1).right() - 1, grid.y(560)}), Hit(CellHit{1, 560}));
}

TEST_F(HitTesting, AnEdgeThatIsOutsideTheGridDoesNotResize) {
    const int item = add(1050, 1200);
    arrange();
    grid.scrollY = 600;
    const QRect card = grid.itemRect(*layout.find(item));
    EXPECT_EQ(at({card.center().x(), card.bottom()}), Hit(ItemHit{item, Zone::Body}));
}

TEST_F(HitTesting, TheSelectedItemLiesAboveItsNarrowNeighbours) {
    for (int i = 0; i < 40; ++i)
        add(540, 600);
    selected = 20;
    arrange();
    const QRect card = CardRect(selected, grid, layout, style, true);
    EXPECT_GT(card.width(), grid.itemRect(*layout.find(selected)).width());
    EXPECT_EQ(at(card.center()), Hit(ItemHit{20, Zone::Body}));
}

TEST_F(HitTesting, HeadingsBannersAndMarkersAreThemselves) {
    add(1200, 1260, 2);
    add(100, 200, 3);
    const int holiday = add(0, 1439, 1);
    content.items[static_cast<std::size_t>(holiday) - 1].ItemBanner = true;
    arrange();
    EXPECT_EQ(at(grid.headingRect(2).center()), Hit(HeadingHit{2}));
    EXPECT_EQ(at(grid.bannerRect(1, 0).center()), Hit(ItemHit{holiday, Zone::Body}));
    EXPECT_EQ(at(grid.bannerRect(2, 0).center()), Hit(NothingHit{}));
    EXPECT_EQ(at(grid.laterRect(2).center()), Hit(MarkerHit{MarkerHit::Kind::Later, 2}));
    EXPECT_EQ(at(grid.earlierRect(3).center()), Hit(MarkerHit{MarkerHit::Kind::Earlier, 3}));
    EXPECT_EQ(at(grid.laterRect(1).center()), Hit(NothingHit{}));
}

TEST_F(HitTesting, MoreBannersThanRowsAreCountedInTheLast) {
    for (int i = 0; i < 5; ++i) {
        add(0, 1439);
        content.items.back().ItemBanner = true;
    }
    arrange();
    EXPECT_EQ(grid.bannerRows, 3);
    EXPECT_EQ(at(grid.bannerRect(1, 1).center()), Hit(ItemHit{2, Zone::Body}));
    EXPECT_EQ(at(grid.bannerRect(1, 2).center()), Hit(MarkerHit{MarkerHit::Kind::Banners, 1}));
    selected = 5;
    EXPECT_EQ(at(grid.bannerRect(1, 2).center()), Hit(ItemHit{5, Zone::Body}));
}

TEST_F(HitTesting, OutsideThereIsNothing) {
    arrange();
    EXPECT_EQ(at({-1, 300}), Hit(NothingHit{}));
    EXPECT_EQ(at({5, 300}), Hit(NothingHit{}));
    EXPECT_EQ(at({grid.area.right() + 1, 300}), Hit(NothingHit{}));
    EXPECT_EQ(at({100, 100'000}), Hit(NothingHit{}));
}

TEST_F(HitTesting, WithoutColumnsThereIsNothing) {
    content.columns.clear();
    arrange();
    EXPECT_EQ(at({300, 300}), Hit(NothingHit{}));
}

TEST_F(HitTesting, AScrolledColumnIsFoundWhereItIsSeen) {
    arrange();
    grid.scrollX = 150;
    EXPECT_EQ(grid.columnAt(grid.columnLeft(2)), 2);
    EXPECT_EQ(grid.columnAt(grid.columnLeft(3) - 1), 2);
    EXPECT_EQ(at({grid.body().left() + 1, grid.y(600)}), Hit(CellHit{1, 600}));
}

TEST_F(HitTesting, AColumnWithStripsOfEveryKindHasEachInItsPlace) {
    add(100, 200, 1);
    add(1200, 1260, 1);
    const int holiday = add(0, 1439, 1);
    content.items[static_cast<std::size_t>(holiday) - 1].ItemBanner = true;
    arrange();
    EXPECT_EQ(at(grid.earlierRect(1).center()), Hit(MarkerHit{MarkerHit::Kind::Earlier, 1}));
    EXPECT_EQ(at(grid.laterRect(1).center()), Hit(MarkerHit{MarkerHit::Kind::Later, 1}));
    EXPECT_EQ(at(grid.bannerRect(1, 0).center()), Hit(ItemHit{holiday, Zone::Body}));
    EXPECT_EQ(at(grid.headingRect(1).center()), Hit(HeadingHit{1}));
    EXPECT_EQ(at({grid.columnLeft(1) + 5, grid.y(600) + 1}), Hit(CellHit{1, 600}));
    for (const QRect& strip : {grid.earlierRect(2), grid.laterRect(2), grid.bannerRect(2, 0)})
        EXPECT_EQ(at(strip.center()), Hit(NothingHit{})) << "another column has none of them";
    EXPECT_EQ(MarkedItems({MarkerHit::Kind::Earlier, 1}, layout), std::vector<int>{1});
    EXPECT_EQ(MarkedItems({MarkerHit::Kind::Later, 1}, layout), std::vector<int>{2});
    EXPECT_EQ(MarkedItems({MarkerHit::Kind::Banners, 1}, layout), std::vector<int>{holiday});
}

TEST_F(HitTesting, AnEdgeIsAsHighAsTheGripAndAtMostAQuarterOfTheCard) {
    for (const int end : {660, 555, 545}) {
        content.items.clear();
        const int item = add(540, end);
        arrange();
        const QRect card = grid.itemRect(*layout.find(item));
        const int edge = std::min(style.grip, card.height() / 4);
        for (int y = card.top(); y <= card.bottom(); ++y) {
            const Zone zone = y - card.top() < edge      ? Zone::TopEdge
                              : card.bottom() - y < edge ? Zone::BottomEdge
                                                         : Zone::Body;
            EXPECT_EQ(at({card.center().x(), y}), Hit(ItemHit{item, zone})) << end << ": " << y - card.top();
        }
        for (const QPoint& beside :
             {QPoint(card.right() + 1, card.center().y()), QPoint(card.left() - 1, card.center().y()),
              QPoint(card.center().x(), card.top() - 1)})
            EXPECT_TRUE(std::holds_alternative<CellHit>(at(beside))) << end;
    }
}

TEST_F(HitTesting, ACardThatBeginsBeforeTheGridHasNoUpperEdge) {
    const int item = add(400, 600);
    arrange();
    const QRect card = grid.itemRect(*layout.find(item));
    EXPECT_EQ(at({card.center().x(), card.top()}), Hit(ItemHit{item, Zone::Body}));
    EXPECT_EQ(at({card.center().x(), card.bottom()}), Hit(ItemHit{item, Zone::BottomEdge}));
}

TEST_F(HitTesting, RowsOfBannersAreTheirsUntilThereAreTooMany) {
    const ColumnLayout none;
    ColumnLayout three;
    three.banners = {4, 5, 6};
    ColumnLayout five;
    five.banners = {4, 5, 6, 7, 8};
    const struct {
        const ColumnLayout& column;
        int row, selected, shown;
    } rows[] = {{none, 0, 0, 0}, {three, 0, 0, 4}, {three, 1, 0, 5}, {three, 2, 0, 6}, {three, 2, 4, 6},
                {five, 0, 0, 4}, {five, 1, 8, 5},  {five, 2, 0, 0},  {five, 2, 4, 0},  {five, 2, 6, 6},
                {five, 2, 7, 7}, {five, 2, 8, 8},  {five, 2, 99, 0}};
    for (const auto& row : rows)
        EXPECT_EQ(BannerInRow(row.column, row.row, row.selected), row.shown) << row.row << " " << row.selected;
    ColumnLayout one;
    one.banners = {4};
    EXPECT_EQ(BannerInRow(one, 1, 4), 0);
}
