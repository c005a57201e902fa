// What a printed page tells besides the schedule: whose it is, how many visits have which status, and what the glyphs
// mean.

#include "platform/calendar/page.h"

#include <gtest/gtest.h>

#include <QPainter>

#include "tests/platform/calendar/words.h"

namespace {

const QDate Day(2026, 3, 11);
const QRect Paper(0, 0, 700, 900);

class PageWithNotes : public testing::Test {
  protected:
    PageWithNotes() : font(QStringLiteral("DejaVu Sans"), 9), style(PrintStyle(font, font)) {
        content.date = Day;
        content.dayColumns = false;
        content.columns = {{QStringLiteral("Reed"), Day}, {QStringLiteral("Lane"), Day}};
    }
    void add(int column, StatusMark mark, int statusIcon = 0) {
        CalendarItem item;
        item.ItemColumn = column;
        item.ItemStart = start += 30;
        item.ItemEnd = start + 30;
        item.ItemText = QStringLiteral("Anna");
        item.ItemStatusMark = mark;
        item.ItemStatusIcon = statusIcon;
        content.items.push_back(item);
    }
    [[nodiscard]] std::vector<Word> words(const PageNotes& notes) const {
        WordDevice device(Paper.size());
        QPainter painter(&device);
        PaintPage(painter, Paper, content, 1, static_cast<int>(content.columns.size()), style, notes);
        painter.end();
        return device.words();
    }
    /// The words of the last lines of the page.
    [[nodiscard]] QStringList legend() const {
        QStringList found;
        for (const Word& word : words({{}, true}))
            if (word.place.center().y() > Paper.bottom() - style.smallLine)
                found << word.text;
        return found;
    }
    /// The numbers in the heading of a column.
    [[nodiscard]] QStringList counts(int column) const {
        QStringList found;
        const int middle = Paper.width() / 2;
        for (const Word& word : words({{}, true}))
            if (word.place.top() < style.headingHeight + 2 * style.smallLine &&
                (word.place.left() < middle) == (column == 1) && word.text.toInt() > 0)
                found << word.text;
        return found;
    }

    int start = 510;
    QFont font;
    CalendarStyle style;
    CalendarContent content;
};

}  // namespace

TEST_F(PageWithNotes, TheOwnerStandsAboveEachHeading) {
    const std::vector<Word> all = words({QStringLiteral("Dr. Reed"), false});
    EXPECT_EQ(TextsOf(all).count(QStringLiteral("Dr. Reed")), 2);
    EXPECT_LT(WordWith(all, QStringLiteral("Dr. Reed")).place.bottom(),
              WordWith(all, QStringLiteral("Lane")).place.top() + 1);
    EXPECT_FALSE(TextsOf(words({})).contains(QStringLiteral("Dr. Reed")));
}

TEST_F(PageWithNotes, AHeadingCountsTheVisitsByStatus) {
    for (const StatusMark mark : {StatusMark::Pending, StatusMark::Kept, StatusMark::Pending, StatusMark::Pending})
        add(1, mark);
    add(2, StatusMark::Activity);
    EXPECT_EQ(counts(1), (QStringList{"3", "1"}));
    EXPECT_EQ(counts(2), QStringList());
}

TEST_F(PageWithNotes, TheFootExplainsTheGlyphsOfThePageAndNoOthers) {
    add(1, StatusMark::Kept);
    add(2, StatusMark::Cancelled);
    add(2, StatusMark::Unavailable);
    add(1, StatusMark::Kept);
    EXPECT_EQ(legend(), (QStringList{"Kept", "Cancelled", "Unavailable Time"}));
}

TEST_F(PageWithNotes, TheFootExplainsCourtesyCallsToo) {
    add(1, StatusMark::Pending, 4);
    EXPECT_EQ(legend(), (QStringList{"Pending", "Left message"}));
}

TEST_F(PageWithNotes, APictureOfAStatusThatIsExplainedIsNotExplainedAgain) {
    add(1, StatusMark::CheckedIn, 3);
    EXPECT_EQ(legend(), QStringList{"Checked-In"});
}

TEST_F(PageWithNotes, APageWithoutGlyphsHasNoLegendAndKeepsItsRoom) {
    add(1, StatusMark::None);
    EXPECT_EQ(legend().filter(QStringLiteral("Pending")), QStringList());
    EXPECT_EQ(TextsOf(words({{}, true})).size(), TextsOf(words({})).size());
}

TEST_F(PageWithNotes, ALegendThatIsTooWideGoesOnInTheNextLine) {
    for (const StatusMark mark : {StatusMark::Pending, StatusMark::Tentative, StatusMark::CheckedIn, StatusMark::Kept,
                                  StatusMark::Missed, StatusMark::Cancelled, StatusMark::Group, StatusMark::Activity,
                                  StatusMark::Unavailable, StatusMark::TypeSlot})
        add(1, mark);
    const std::vector<Word> all = words({{}, true});
    EXPECT_GT(WordWith(all, QStringLiteral("Appointment type")).place.top(),
              WordWith(all, QStringLiteral("Tentative")).place.top());
    for (const Word& word : all)
        EXPECT_TRUE(QRectF(Paper).adjusted(-1, -4, 1, 4).contains(word.place)) << word.text.toStdString();
}

TEST_F(PageWithNotes, AnOwnerOfAnyLengthStaysInItsColumn) {
    const QString name = QString(400, u'W');
    for (const Word& word : words({name, true}))
        EXPECT_LE(word.place.width(), Paper.width() / 2.0) << word.text.left(20).toStdString();
}
