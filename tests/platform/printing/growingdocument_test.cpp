#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QScrollBar>
#include <QTest>

#include "platform/printing/pageview.h"
#include "platform/printing/printpreview.h"
#include "platform/printing/vsprinter.h"
#include "platform/theme/theme.h"
#include "tests/platform/printing/pagereader.h"

using printing::PageLayout;

namespace {

/// A document that becomes longer while it is shown.
class GrowingDocument : public testing::Test {
  protected:
    GrowingDocument() {
        Theme::Install(ThemeMode::Light);
        vp.SetPaper(QPageSize(QPageSize::Letter));
    }
    void addLines(int count) {
        for (int line = 0; line < count; ++line)
            vp.AddParagraph(QStringLiteral("line %1").arg(++lines));
    }
    void addTitles(const char* title) {
        vp.AddTable({.widths = {3000, 3000}, .titles = {QString::fromLatin1(title), "Other"}}, {.titlesStay = true});
    }
    [[nodiscard]] static std::vector<printing::Piece> allPieces(const PageLayout& layout) {
        std::vector<printing::Piece> all;
        for (int page = 0; page < layout.pageCount(); ++page)
            all.insert(all.end(), layout.pieces(page).begin(), layout.pieces(page).end());
        return all;
    }
    void show() {
        preview.resize(700, 500);
        preview.show();
        preview.ShowDocument(vp.Document());
        QApplication::processEvents();
    }
    [[nodiscard]] PageView& pages() const { return *preview.findChild<PageView*>(); }
    [[nodiscard]] QAction& command(const char* name) const { return *preview.findChild<QAction*>(QLatin1String(name)); }
    [[nodiscard]] QColor pixel(QPoint place) const { return pages().viewport()->grab().toImage().pixelColor(place); }

    int lines = 0;
    VSPrinter vp;
    PrintPreview preview;
};

}  // namespace

TEST_F(GrowingDocument, IsDividedAsIfItHadBeenThereAtOnce) {
    addTitles("Day");
    printing::Document document = vp.Document();
    PageLayout growing(document);
    for (int part = 0; part < 30; ++part) {
        addLines(7);
        vp.AddTogether([&] {
            vp.AddSpace(100);
            addLines(5);
        });
        for (std::size_t block = document.blocks.size(); block < vp.Document().blocks.size(); ++block)
            document.blocks.push_back(vp.Document().blocks[block]);
        growing.Grow();
    }
    const PageLayout whole(vp.Document());
    EXPECT_GT(whole.pageCount(), 5);
    EXPECT_EQ(allPieces(growing), allPieces(whole));
}

TEST_F(GrowingDocument, TitlesThatStayStandOnEachPageUntilOthersDo) {
    addTitles("First");
    addLines(100);
    addTitles("Second");
    addLines(100);
    const PageLayout laid(vp.Document());
    ASSERT_EQ(laid.pageCount(), 4);
    EXPECT_EQ(WordsOf(laid, 1).first(), QStringLiteral("First"));
    EXPECT_EQ(WordsOf(laid, 2).first(), QStringLiteral("Second"));
    EXPECT_EQ(WordsOf(laid, 3).first(), QStringLiteral("Second"));
}

TEST_F(GrowingDocument, WhatBelongsTogetherBeginsAPageRatherThanToBeDivided) {
    addLines(50);
    vp.AddTogether([this] { addLines(20); });
    addLines(1);
    const PageLayout laid(vp.Document());
    ASSERT_EQ(laid.pageCount(), 2);
    EXPECT_EQ(WordsOf(laid, 0).last(), QStringLiteral("line 50"));
    EXPECT_EQ(WordsOf(laid, 1).first(), QStringLiteral("line 51"));
}

TEST_F(GrowingDocument, WhatBelongsTogetherAndIsLongerThanAPageIsDivided) {
    addTitles("Day");
    addLines(10);
    vp.AddTogether([this] { addLines(200); });
    const PageLayout laid(vp.Document());
    QStringList words;
    for (int page = 0; page < laid.pageCount(); ++page)
        words << WordsOf(laid, page).filter(QStringLiteral("line "));
    EXPECT_EQ(words.size(), 210) << "No line is lost or doubled.";
    EXPECT_EQ(words.last(), QStringLiteral("line 210"));
}

TEST_F(GrowingDocument, InThePreviewKeepsThePageAndTheSizeThatTheUserChose) {
    addLines(300);
    show();
    command("cmdnext").trigger();
    command("cmdfitpage").trigger();
    const double zoom = preview.Zoom();
    const int place = pages().verticalScrollBar()->value();
    for (int round = 0; round < 3; ++round) {
        const int before = preview.PageCount();
        addLines(200);
        preview.Grow(vp.Document());
        QApplication::processEvents();
        EXPECT_GT(preview.PageCount(), before);
    }
    EXPECT_EQ(preview.CurrentPage(), 2);
    EXPECT_EQ(preview.Zoom(), zoom);
    EXPECT_EQ(pages().verticalScrollBar()->value(), place);
}

TEST_F(GrowingDocument, InThePreviewKeepsThePaperThatTheUserTurned) {
    addLines(10);
    show();
    command("cmdlandscape").trigger();
    addLines(100);
    preview.Grow(vp.Document());
    EXPECT_EQ(preview.Document().setup.orientation, QPageLayout::Landscape);
    EXPECT_EQ(preview.PageCount(), PageLayout(preview.Document()).pageCount());
}

TEST_F(GrowingDocument, OnlyThePagesInSightArePainted) {
    int painted = 0;
    for (int page = 0; page < 40; ++page)
        vp.AddFigure([&painted](QPainter&, const QRectF&) { ++painted; });
    show();
    command("cmdfitpage").trigger();
    painted = 0;
    pages().viewport()->grab();
    EXPECT_LE(painted, 2);
    EXPECT_GE(painted, 1);
}

TEST_F(GrowingDocument, ScrollingTellsThePageInView) {
    addLines(300);
    show();
    QTest::keyClick(&pages(), Qt::Key_End);
    EXPECT_EQ(preview.CurrentPage(), preview.PageCount());
    QTest::keyClick(&pages(), Qt::Key_Home);
    EXPECT_EQ(preview.CurrentPage(), 1);
    QTest::keyClick(&pages(), Qt::Key_PageDown);
    EXPECT_GT(pages().verticalScrollBar()->value(), 0);
}

TEST_F(GrowingDocument, TheMouseDragsThePages) {
    addLines(300);
    show();
    QWidget* sheet = pages().viewport();
    for (int round = 1; round <= 2; ++round) {
        QTest::mousePress(sheet, Qt::LeftButton, {}, {200, 300});
        QTest::mouseMove(sheet, {200, 200});
        QMouseEvent move(QEvent::MouseMove, QPointF(200, 200), sheet->mapToGlobal(QPointF(200, 200)), Qt::LeftButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(sheet, &move);
        QTest::mouseRelease(sheet, Qt::LeftButton, {}, {200, 200});
        EXPECT_EQ(pages().verticalScrollBar()->value(), round * 100);
    }
}

TEST_F(GrowingDocument, AWindowThatBecomesLargerKeepsThePageAsWideAsItself) {
    addLines(300);
    show();
    const double before = preview.Zoom();
    preview.resize(1000, 600);
    QApplication::processEvents();
    EXPECT_GT(preview.Zoom(), before);
    EXPECT_EQ(pages().horizontalScrollBar()->maximum(), 0);
}

TEST_F(GrowingDocument, ThePaperIsWhiteInTheDarkToo) {
    addLines(1);
    show();
    Theme::Instance().setMode(ThemeMode::Dark);
    EXPECT_EQ(pixel({200, 100}), QColor(Qt::white));
    Theme::Instance().setMode(ThemeMode::Light);
    EXPECT_EQ(pixel({200, 100}), QColor(Qt::white));
}
