// The manual's builder tells its writer what is to be mended.

#include "manual/site.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "tests/support/files.h"
#include "tests/support/testdatabase.h"

namespace {

class ManualSources : public testing::Test {
  protected:
    ManualSources() {
        page("contents.md",
             "# The manual\n\nNew here? [Book first](book.md).\n\n## Desk\n- [Book](book.md)\n- [Move](move.md)\n");
        page("book.md", "# Book\n\n<!-- forms: frmnore -->\n\nSee [moves](move.md#by-mouse).\n");
        page("move.md", "# Move\n\n<!-- words: shift, reschedule -->\n\n## By mouse\n\nDrag it <kbd>Ctrl+X</kbd>.\n");
    }
    void page(const char* file, const char* text) const { PutFile(folder.filePath(QLatin1String(file)), text); }
    [[nodiscard]] manual::Sources read() const { return manual::ReadSources(folder.path(), QStringLiteral("<hr />")); }
    /// The fault that reading finds; "" for none.
    [[nodiscard]] std::string fault() const {
        try {
            const manual::Sources sources = read();
            static_cast<void>(manual::PicturesOf(sources));
            return {};
        } catch (const manual::Fault& found) {
            return found.what();
        }
    }

    QTemporaryDir folder{TestFolderTemplate()};
};

}  // namespace

TEST_F(ManualSources, InOrderAreReadInTheOrderOfTheContents) {
    const manual::Sources sources = read();
    ASSERT_EQ(sources.pages.size(), 2U);
    EXPECT_EQ(sources.pages[0].title, "Book");
    EXPECT_EQ(sources.pages[1].title, "Move");
    EXPECT_EQ(sources.pages[1].words, "shift, reschedule");
    EXPECT_EQ(fault(), "");
}

TEST_F(ManualSources, BecomePagesWithLinksAnchorsAndTheWayOn) {
    const auto files = manual::FilesOf(read(), QStringLiteral("{title}|{manual}|{navigation}|{page}|{steps}"));
    const QByteArray book = files["book.html"];
    EXPECT_TRUE(book.startsWith("Book - The manual|The manual|<h2>Desk</h2>")) << book.toStdString();
    EXPECT_TRUE(book.contains("<a href=\"move.html#by-mouse\">moves</a>"));
    EXPECT_TRUE(book.contains("<li><a href=\"book.html\" aria-current=\"page\">Book</a></li>"));
    EXPECT_TRUE(book.contains("<a class=\"next\" rel=\"next\" href=\"move.html\">"));
    EXPECT_FALSE(book.contains("<!--")) << "What the builder is told is not for the reader.";
    EXPECT_TRUE(files["move.html"].contains("<h2 id=\"by-mouse\">By mouse</h2>"));
    EXPECT_TRUE(files["move.html"].contains("<kbd>Ctrl+X</kbd>"));
    EXPECT_EQ(files["forms.txt"], "frmnore book.html\n");
    EXPECT_TRUE(files["index.html"].contains("<a href=\"book.html\">Book</a>"));
}

TEST_F(ManualSources, AreFoundByTheirWords) {
    const auto files = manual::FilesOf(read(), QStringLiteral("{page}"));
    QByteArray script = files["search.js"];
    ASSERT_TRUE(script.startsWith("const manualPages = "));
    const QJsonArray pages = QJsonDocument::fromJson(script.mid(20).chopped(2)).array();
    ASSERT_EQ(pages.size(), 2);
    EXPECT_EQ(pages[1].toObject()["text"].toString(), "Move By mouse Drag it Ctrl+X.");
    EXPECT_EQ(pages[1].toObject()["words"].toString(), "shift, reschedule");
    EXPECT_EQ(pages[1].toObject()["headings"].toArray().size(), 1);
}

TEST_F(ManualSources, ShowEachPictureInLightAndDark) {
    page("book.md", "# Book\n\n![The form](pictures/frmnore.png)\n");
    const manual::Sources sources = read();
    EXPECT_EQ(manual::PicturesOf(sources), QStringList("frmnore"));
    const QByteArray html = manual::FilesOf(sources, QStringLiteral("{page}"))["book.html"];
    EXPECT_TRUE(html.contains("srcset=\"pictures/frmnore-dark.png 2x\"")) << html.toStdString();
    EXPECT_TRUE(html.contains("srcset=\"pictures/frmnore.png 2x\""));
    EXPECT_TRUE(html.contains("<img src=\"pictures/frmnore.png\" alt=\"The form\" loading=\"lazy\" />"));
}

TEST_F(ManualSources, WithALinkToNowhereAreRefused) {
    page("book.md", "# Book\n\nFirst.\n\nSee [moves](moove.md).\n");
    EXPECT_EQ(fault(), "book.md:5: there is no page \"moove.md\"");
    page("book.md", "# Book\n\nSee [moves](move.md#by-key).\n");
    EXPECT_EQ(fault(), "book.md:3: \"move.md\" has no heading \"by-key\"");
}

TEST_F(ManualSources, ThatTheContentsDoNotListAreRefused) {
    page("spare.md", "# Spare\n");
    EXPECT_EQ(fault(), "spare.md:1: the contents do not list the page");
}

TEST_F(ManualSources, ThatTheContentsListTwiceUnderAnotherTitleOrWithoutAFileAreRefused) {
    page("contents.md", "# The manual\n\n## Desk\n- [Book](book.md)\n- [Book](book.md)\n");
    EXPECT_EQ(fault(), "contents.md:5: \"book.md\" is listed twice");
    page("contents.md", "# The manual\n\n## Desk\n- [Booking](book.md)\n");
    EXPECT_EQ(fault(), "contents.md:4: the title of \"book.md\" is \"Book\"");
    page("contents.md", "# The manual\n\n## Desk\n- [Gone](gone.md)\n");
    EXPECT_EQ(fault(), "gone.md:1: the page cannot be read");
}

TEST_F(ManualSources, WithTwoPagesOfOneTitleOrOneFormAreRefused) {
    page("contents.md", "# The manual\n\n## Desk\n- [Book](book.md)\n- [Book](move.md)\n");
    page("move.md", "# Book\n\n## By mouse\n");
    EXPECT_EQ(fault(), "contents.md:5: two pages are \"Book\"");
    page("contents.md", "# The manual\n\n## Desk\n- [Book](book.md)\n- [Move](move.md)\n");
    page("move.md", "# Move\n\n<!-- forms: frmnore -->\n\n## By mouse\n");
    EXPECT_EQ(fault(), "move.md:1: \"frmnore\" is explained by \"book.md\" too");
}

TEST_F(ManualSources, WithAPictureThatNobodyTakesOrCannotHearAreRefused) {
    page("book.md", "# Book\n\n![A photo](photo.jpg)\n");
    EXPECT_EQ(fault(), "book.md:3: a picture is \"pictures/NAME.png\" with words for who cannot see it");
    page("book.md", "# Book\n\n![](pictures/frmnore.png)\n");
    EXPECT_EQ(fault(), "book.md:3: a picture is \"pictures/NAME.png\" with words for who cannot see it");
}

TEST_F(ManualSources, WithoutATitleWithOneHeadingTwiceOrAnUnknownCommentAreRefused) {
    page("book.md", "Book\n");
    EXPECT_EQ(fault(), "book.md:1: a page begins with \"# \" and its title");
    page("book.md", "# Book\n\n## Why\n\n## Why\n");
    EXPECT_EQ(fault(), "book.md:5: two headings are \"Why\"");
    page("book.md", "# Book\n\n<!-- froms: frmnore -->\n");
    EXPECT_EQ(fault(), "book.md:3: nobody knows the comment <!-- froms: frmnore -->");
}
