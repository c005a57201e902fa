#include <gtest/gtest.h>

#include <QPainter>

#include "platform/printing/vsprinter.h"
#include "tests/platform/printing/pagereader.h"

using printing::PageLayout;

namespace {

class PaperFigure : public testing::Test {
  protected:
    PaperFigure() { vp.SetPaper(QPageSize(QPageSize::Letter)); }

    void addFigure() {
        vp.AddFigure([this](QPainter& painter, const QRectF& room) {
            rooms.push_back(room);
            painter.fillRect(room, Qt::red);
        });
    }
    VSPrinter vp;
    std::vector<QRectF> rooms;
};

}  // namespace

TEST_F(PaperFigure, FillsWhatTheTitleLeavesOfThePageInDots) {
    vp.AddParagraph(QStringLiteral("March 11"));
    addFigure();
    const PageLayout laid(vp.Document());
    ASSERT_EQ(laid.pageCount(), 1);
    const QImage page = PictureOf(laid, 0);
    ASSERT_EQ(rooms.size(), 1U);
    EXPECT_NEAR(rooms[0].width(), 7.5 * 96, 1);
    EXPECT_LT(rooms[0].height(), 9.5 * 96);
    EXPECT_GT(rooms[0].height(), 9 * 96);
    EXPECT_EQ(page.pixelColor(400, 900), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(20, 900), QColor(Qt::white)) << "The margin stays free.";
}

TEST_F(PaperFigure, EachHasAPageOfItsOwn) {
    addFigure();
    addFigure();
    vp.AddParagraph(QStringLiteral("Behind"));
    const PageLayout laid(vp.Document());
    EXPECT_EQ(laid.pageCount(), 3);
    EXPECT_EQ(WordsOf(laid, 2), QStringList{QStringLiteral("Behind")});
}

TEST_F(PaperFigure, WithLittleRoomLeftItBeginsAnotherPage) {
    vp.AddParagraph(QStringLiteral("line\n").repeated(40));
    addFigure();
    EXPECT_EQ(vp.PageCount(), 2);
}
