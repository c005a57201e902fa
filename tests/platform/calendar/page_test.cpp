// A calendar on paper: the whole day without scrolling, and a list of what has no room to be read.

#include "platform/calendar/page.h"

#include <QPainter>
#include <QRegularExpression>

#include "tests/platform/calendar/picture.h"
#include "tests/platform/calendar/words.h"

namespace {

const QDate Day(2026, 3, 11);
const QRect Paper(30, 20, 700, 900);

class PrintedPage : public testing::Test {
  protected:
    PrintedPage() : font(QStringLiteral("DejaVu Sans"), 9), style(PrintStyle(font, font)) { providers(1); }

    void providers(int count) {
        content.date = Day;
        content.dayColumns = false;
        content.columns.clear();
        for (int i = 1; i <= count; ++i)
            content.columns.push_back({QStringLiteral("Provider %1").arg(i), Day});
    }
    void add(int column, int start, int end, const QString& text) {
        CalendarItem item;
        item.ItemColumn = column;
        item.ItemStart = start;
        item.ItemEnd = end;
        item.ItemText = text;
        content.items.push_back(item);
    }
    void paintOn(QPaintDevice& device, int first, int count, const QRect& area) const {
        QPainter painter(&device);
        PaintPage(painter, area, content, first, count, style);
    }
    [[nodiscard]] std::vector<Word> words(int first = 1, int count = 1, const QRect& area = Paper) const {
        WordDevice device(QSize(800, 1000));
        paintOn(device, first, count, area);
        return device.words();
    }
    [[nodiscard]] QStringList texts(int first = 1, int count = 1) const { return TextsOf(words(first, count)); }
    /// The list below the grid, without its heading; empty where there is none.
    [[nodiscard]] QStringList listed(int first = 1, int count = 1) const {
        const QStringList all = texts(first, count);
        const qsizetype heading = all.indexOf(QStringLiteral("Besides, at times that are full above:"));
        if (heading < 0)
            return {};
        // Only lines of the list part what they say by two blanks.
        return all.mid(heading + 1).filter(QStringLiteral("  "));
    }

    /// How many columns the list has when this is its longest line.
    [[nodiscard]] int columnsFor(const QString& line) const {
        return (Paper.width() + gap()) / (QFontMetrics(style.text).horizontalAdvance(line) + 1 + gap());
    }
    [[nodiscard]] int gap() const { return QFontMetrics(style.text).averageCharWidth() * 4; }

    QFont font;
    CalendarStyle style;
    CalendarContent content;
};

}  // namespace

TEST_F(PrintedPage, HasTheWholeDayInsideItsArea) {
    add(1, 540, 600, "Anna");
    const QStringList all = texts();
    for (const char* hour : {"8", "9", "10", "11", "12", "1", "2", "3", "4", "5"})
        EXPECT_TRUE(all.contains(QString::fromLatin1(hour))) << hour;
    EXPECT_TRUE(all.contains(QStringLiteral("Provider 1")));
    EXPECT_TRUE(all.contains(QStringLiteral("Anna")));
    for (const Word& word : words())
        EXPECT_TRUE(QRectF(Paper).adjusted(-1, -4, 1, 4).contains(word.place)) << word.text.toStdString();
    EXPECT_TRUE(listed().isEmpty());
}

TEST_F(PrintedPage, PaintsNothingBesideItsArea) {
    add(1, 0, 1440, "Anna");
    for (int i = 0; i < 40; ++i)
        add(1, 540, 600, QStringLiteral("Person %1").arg(i));
    QImage image(800, 1000, QImage::Format_RGB32);
    image.fill(Qt::yellow);
    paintOn(image, 1, 1, Paper);
    const Picture page(image);
    for (const QRect& outside : {QRect(0, 0, 800, Paper.top()), QRect(0, 0, Paper.left(), 1000),
                                 QRect(Paper.right() + 1, 0, 69, 1000), QRect(0, Paper.bottom() + 1, 800, 79)})
        EXPECT_EQ(page.share(outside, Qt::yellow, 0), 1);
    EXPECT_EQ(page.share(Paper.adjusted(300, 300, -100, -500), Qt::yellow, 0), 0);
}

TEST_F(PrintedPage, WidensItsHoursSoThatNothingIsLeftOut) {
    add(1, 300, 330, "Early");
    add(1, 1380, 1440, "Late");
    add(1, 60, 61, "Night");
    const QStringList all = texts();
    for (const char* name : {"Early", "Late", "Night"})
        EXPECT_TRUE(all.contains(QString::fromLatin1(name))) << name;
    EXPECT_FALSE(all.filter(QStringLiteral("later")).size() + all.filter(QStringLiteral("earlier")).size());
}

TEST_F(PrintedPage, HasTheColumnsThatWereAskedFor) {
    providers(6);
    for (int i = 1; i <= 6; ++i)
        add(i, 540, 600, QStringLiteral("Person %1").arg(i));
    const struct {
        const char* what;
        int first, count, from, to;
    } pages[] = {
        {"the first two", 1, 2, 1, 2}, {"the middle", 3, 2, 3, 4},        {"more than there are", 5, 9, 5, 6},
        {"all", 1, 6, 1, 6},           {"before the first", -3, 2, 1, 2}, {"after the last", 99, 1, 6, 6},
    };
    for (const auto& page : pages) {
        const QStringList all = texts(page.first, page.count);
        for (int i = 1; i <= 6; ++i) {
            const bool shown = page.from <= i && i <= page.to;
            EXPECT_EQ(all.contains(QStringLiteral("Provider %1").arg(i)), shown) << page.what << ": " << i;
            EXPECT_EQ(all.contains(QStringLiteral("Person %1").arg(i)), shown) << page.what << ": " << i;
        }
    }
    EXPECT_TRUE(texts(1, 0).isEmpty());
    EXPECT_TRUE(texts(1, -1).isEmpty());
    content.columns.clear();
    EXPECT_TRUE(texts(1, 1).isEmpty());
}

TEST_F(PrintedPage, ColumnsShareTheWidthOfThePaper) {
    providers(4);
    for (const int count : {1, 2, 4}) {
        const std::vector<Word> all = words(1, count);
        const double width = (Paper.width() - style.gutterWidth) / static_cast<double>(count);
        for (int i = 1; i <= count; ++i) {
            const QRectF title = WordWith(all, QStringLiteral("Provider %1").arg(i)).place;
            EXPECT_NEAR(title.center().x(), Paper.left() + style.gutterWidth + (i - 0.5) * width, 2) << count;
        }
    }
}

TEST_F(PrintedPage, ShowsNothingOfTheSelectionOrThePresent) {
    content.dayColumns = true;
    content.columns = {{{}, QDate::currentDate()}};
    QImage image(800, 1000, QImage::Format_RGB32);
    image.fill(Qt::white);
    paintOn(image, 1, 1, Paper);
    EXPECT_FALSE(Picture(image).shows(Paper, style.accent, 40));
    EXPECT_FALSE(Picture(image).shows(Paper, style.present, 40));
}

TEST_F(PrintedPage, CardsTooNarrowToBeReadAreListedBelow) {
    const int letters = QFontMetrics(style.text).averageCharWidth() * 10;
    const int lanes = (Paper.width() - style.gutterWidth) / letters;
    for (int i = 1; i <= lanes; ++i)
        add(1, 540, 600, QStringLiteral("Person %1").arg(i));
    EXPECT_TRUE(listed().isEmpty()) << "as many as can be read stand in the grid";
    add(1, 540, 600, "One more");
    add(1, 550, 610, "And another");
    EXPECT_EQ(listed().mid(0, 2), (QStringList{QStringLiteral("9:00 – 10:00 AM  One more"),
                                               QStringLiteral("9:10 – 10:10 AM  And another")}));
    const QStringList all = texts();
    EXPECT_EQ(all.filter(QStringLiteral("One more")).size(), 1) << "and not in the grid as well";
    EXPECT_TRUE(all.contains(QStringLiteral("Person 1")));
}

TEST_F(PrintedPage, TwoBesideEachOtherAreAlwaysShown) {
    providers(30);
    add(1, 540, 600, "A");
    add(1, 540, 600, "B");
    add(1, 540, 600, "C");
    EXPECT_EQ(listed(1, 30).filter(QStringLiteral("C")).size(), 1);
    EXPECT_EQ(listed(1, 30).filter(QStringLiteral("  B")).size(), 0);
}

TEST_F(PrintedPage, ALineOfTheListTellsColumnTimesNameAndStatus) {
    for (const bool several : {false, true}) {
        providers(several ? 8 : 1);
        content.items.clear();
        const int many = several ? 6 : 20;
        for (int i = 0; i < many; ++i)
            add(1, 540, 600, "Anna");
        add(1, 780, 840, "Nobody");
        for (int i = 0; i < many; ++i)
            add(1, 780, 840, "Ben");
        content.items.back().ItemStatusText = QStringLiteral("Kept");
        const int count = several ? 8 : 1;
        const QString before = several ? QStringLiteral("Provider 1  ") : QString();
        EXPECT_EQ(listed(1, count).last(), before + QStringLiteral("1:00 – 2:00 PM  Ben  (Kept)"));
        content.twentyFourHour = true;
        EXPECT_EQ(listed(1, count).last(), before + QStringLiteral("13:00 – 14:00  Ben  (Kept)"));
        content.items.back().ItemTextColor = TextColor::SameAsBackground;
        EXPECT_EQ(listed(1, count).last(), before + QStringLiteral("13:00 – 14:00  (Kept)")) << "a hidden name";
        content.twentyFourHour = false;
    }
}

TEST_F(PrintedPage, DaysAreNamedInTheListByTheirDate) {
    content.dayColumns = true;
    content.columns.clear();
    for (int i = 0; i < 7; ++i)
        content.columns.push_back({{}, Day.addDays(i)});
    for (int i = 0; i < 12; ++i) {
        CalendarItem item;
        item.ItemDay = Day.addDays(2);
        item.ItemStart = 540;
        item.ItemEnd = 600;
        item.ItemText = QStringLiteral("Ben");
        content.items.push_back(item);
    }
    EXPECT_TRUE(texts(1, 7).contains(QStringLiteral("Fri Mar 13  9:00 – 10:00 AM  Ben")));
}

TEST_F(PrintedPage, TheListStandsBelowTheGridInColumnsOfOneWidth) {
    for (int i = 0; i < 40; ++i)
        add(1, 540, 600, QStringLiteral("Ben %1").arg(i));
    const std::vector<Word> all = words();
    const Word heading = WordWith(all, QStringLiteral("Besides, at times that are full above:"));
    ASSERT_FALSE(heading.text.isEmpty());
    EXPECT_TRUE(heading.font.bold());
    EXPECT_EQ(heading.colour, style.ink);
    double lastHour = 0;
    std::vector<Word> lines;
    for (const Word& word : all) {
        if (word.text == QLatin1String("5"))
            lastHour = word.place.bottom();
        if (word.text.startsWith(QStringLiteral("9:00 – 10:00 AM  ")))
            lines.push_back(word);
    }
    ASSERT_GT(lines.size(), 10U);
    EXPECT_GT(heading.place.top(), lastHour);
    EXPECT_NEAR(lines[0].place.top() - heading.place.top(), QFontMetrics(style.text).lineSpacing(), 1);
    const int columns = columnsFor(QStringLiteral("9:00 – 10:00 AM  Ben 38"));
    const int rows = (static_cast<int>(lines.size()) + columns - 1) / columns;
    ASSERT_GT(columns, 1);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const int row = static_cast<int>(i) % rows;
        const int column = static_cast<int>(i) / rows;
        EXPECT_NEAR(lines[i].place.left(), Paper.left() + column * ((Paper.width() + gap()) / columns), 1) << i;
        EXPECT_NEAR(lines[i].place.top(), lines[0].place.top() + row * QFontMetrics(style.text).lineSpacing(), 1) << i;
        EXPECT_GT(lines[i].place.top(), heading.place.bottom() - 4);
        EXPECT_LT(lines[i].place.bottom(), Paper.bottom() + 1);
    }
}

TEST_F(PrintedPage, AListLongerThanItsPartOfThePageEndsWithItsRest) {
    for (int i = 0; i < 600; ++i)
        add(1, 540, 600, QStringLiteral("Ben %1").arg(i));
    const QStringList all = texts();
    const qsizetype shown = all.filter(QStringLiteral("9:00 – 10:00 AM  Ben")).size();
    const QStringList rest = all.filter(QRegularExpression(QStringLiteral("^and \\d+ more$")));
    ASSERT_EQ(rest.size(), 1);
    const int letters = QFontMetrics(style.text).averageCharWidth() * 10;
    const int lanes = (Paper.width() - style.gutterWidth) / letters;
    EXPECT_EQ(shown + rest.first().section(QLatin1Char(' '), 1, 1).toInt() + lanes, 600);
    const int line = QFontMetrics(style.text).lineSpacing();
    const double top = WordWith(words(), QStringLiteral("Besides, at times that are full above:")).place.top();
    EXPECT_GT(top, Paper.bottom() - 0.7 * Paper.height() - line) << "the grid keeps its part of the page";
    EXPECT_LT(top, Paper.bottom() - 0.6 * Paper.height());
}

TEST_F(PrintedPage, AListThatJustFitsIsWhole) {
    const int letters = QFontMetrics(style.text).averageCharWidth() * 10;
    const int lanes = (Paper.width() - style.gutterWidth) / letters;
    const int columns = columnsFor(QStringLiteral("9:00 – 10:00 AM  Ben 100"));
    const int rows = static_cast<int>(Paper.height() * 0.7) / QFontMetrics(style.text).lineSpacing() - 2;
    for (int i = 0; i < lanes + rows * columns; ++i)
        add(1, 540, 600, QStringLiteral("Ben %1").arg(100 + i));
    const auto listedLines = [&] { return texts().filter(QStringLiteral("9:00 – 10:00 AM  Ben")).size(); };
    EXPECT_EQ(listedLines(), rows * columns);
    EXPECT_EQ(texts().filter(QStringLiteral("and ")).size(), 0);
    add(1, 540, 600, "Ben 1");
    EXPECT_EQ(listedLines(), rows * columns - 1);
    EXPECT_EQ(texts().filter(QStringLiteral("and 2 more")).size(), 1);
}

TEST_F(PrintedPage, NoLineOfTheListIsShortenedWhileThePaperIsWideEnough) {
    const QString name = QStringLiteral("Featherstonehaugh-Wolstenholme, Maximilian Bartholomew");
    for (int i = 0; i < 30; ++i)
        add(1, 540, 600, name);
    const QStringList all = texts();
    EXPECT_GT(all.filter(QStringLiteral("9:00 – 10:00 AM  ") + name).size(), 10);
    EXPECT_TRUE(all.filter(QStringLiteral("AM  Feather")).filter(QStringLiteral("…")).isEmpty());
}

TEST_F(PrintedPage, AHugeFontOfTheTimeColumnIsMadeToFit) {
    style = PrintStyle(font, QFont(QStringLiteral("DejaVu Sans"), 72));
    content.firstTime = 0;
    content.lastTime = 1439;
    const std::vector<Word> all = words();
    const double hour =
        WordWith(all, QStringLiteral("11")).place.top() - WordWith(all, QStringLiteral("10")).place.top();
    EXPECT_LE(WordWith(all, QStringLiteral("10")).place.height(), hour + 1);
    EXPECT_GE(WordWith(all, QStringLiteral("10")).place.left(), Paper.left() - 1);
    EXPECT_GT(WordWith(all, QStringLiteral("Provider 1")).place.center().x(), Paper.left() + Paper.width() * 0.5);
    EXPECT_LT(WordWith(all, QStringLiteral("Provider 1")).place.center().x(), Paper.left() + Paper.width() * 0.6);
}

TEST_F(PrintedPage, TheGridIsClosedBelowTheLastHourAndOnTheRight) {
    QImage image(800, 1000, QImage::Format_RGB32);
    image.fill(Qt::white);
    paintOn(image, 1, 1, Paper);
    EXPECT_EQ(image.pixelColor(Paper.center().x(), Paper.bottom()), style.columnLine);
    EXPECT_EQ(image.pixelColor(Paper.right(), Paper.center().y()), style.columnLine);
}

TEST_F(PrintedPage, AnAreaWithoutRoomIsNoHarm) {
    for (int i = 0; i < 50; ++i)
        add(1, 540 + i, 600 + i, "Ben");
    for (const QRect& area : {QRect(0, 0, 1, 1), QRect(0, 0, 700, 10), QRect(0, 0, 10, 900), QRect(0, 0, 60, 60)}) {
        QImage image(800, 1000, QImage::Format_RGB32);
        image.fill(Qt::white);
        paintOn(image, 1, 1, area);
        EXPECT_EQ(Picture(image).share(QRect(701, 901, 50, 50), Qt::white, 0), 1);
    }
}

TEST_F(PrintedPage, IsTheSameWhereverItStandsOnThePaper) {
    providers(3);
    for (int i = 0; i < 30; ++i)
        add(1, 540, 600, QStringLiteral("Ben %1").arg(i));
    add(2, 300, 330, "Early");
    add(3, 600, 700, "Anna");
    content.items.back().ItemTentativeIcon = true;
    add(3, 0, 1439, "Holiday");
    content.items.back().ItemBanner = true;
    content.ranges.push_back({720, 779, 0x0000FF, 2, {}});
    const auto pageAt = [&](QPoint place) {
        QImage image(1000, 1200, QImage::Format_RGB32);
        image.fill(Qt::white);
        const QRect area(place, Paper.size());
        paintOn(image, 1, 3, area);
        return image.copy(area);
    };
    const QImage page = pageAt({0, 0});
    EXPECT_TRUE(Picture(page).shows(page.rect(), Qt::black));
    for (const QPoint& place : {QPoint(57, 0), QPoint(0, 33), QPoint(211, 170)})
        EXPECT_EQ(pageAt(place), page) << place.x() << " " << place.y();
}

TEST_F(PrintedPage, HasAllItsColumnsHoweverNarrowTheyGet) {
    const int many = 24;
    providers(many);
    for (int i = 1; i <= many; ++i)
        content.columns[static_cast<std::size_t>(i) - 1].title = QChar(u'a' + i);
    const std::vector<Word> all = words(1, many);
    const double width = (Paper.width() - style.gutterWidth) / static_cast<double>(many);
    for (const int i : {1, 2, 12, many}) {
        const QRectF title = WordWith(all, QChar(u'a' + i)).place;
        EXPECT_NEAR(title.center().x(), Paper.left() + style.gutterWidth + (i - 0.5) * width, 2) << i;
    }
}

TEST_F(PrintedPage, IsInItsOwnInkWhateverWasPaintedBefore) {
    for (int i = 0; i < 30; ++i)
        add(1, 540, 600, QStringLiteral("Ben %1").arg(i));
    const auto pageAfter = [&](const QColor& colour) {
        QImage image(800, 1000, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setPen(colour);
        painter.setBrush(colour);
        painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 30));
        PaintPage(painter, Paper, content, 1, 1, style);
        EXPECT_EQ(painter.pen().color(), colour) << "what follows is painted as before";
        painter.end();
        return image;
    };
    EXPECT_EQ(pageAfter(Qt::red), pageAfter(Qt::black));
}
