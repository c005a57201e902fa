#include "output/htmlexport.h"

#include <functional>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTextDocument>
#include <QUrl>
#include <QXmlStreamReader>

#include "output/patientnaming.h"
#include "session/hiddennames.h"
#include "tests/output/exportfixture.h"
#include "tests/support/fulldisk.h"

namespace {

/// Reed's day and week as pages.
class HtmlExport : public ExportFixture {
  protected:
    /// Exports the day, and does not open it.
    QString exportDay(QDate day = QDate(2026, 3, 11)) {
        expectMade(DayHtmlPath(day));
        ExportDayHtml(day);
        return QString::fromUtf8(FileBytes(DayHtmlPath(day)));
    }
    QString exportWeek() {
        expectMade(WeekHtmlPath(monday));
        ExportWeekHtml(monday);
        return QString::fromUtf8(FileBytes(WeekHtmlPath(monday)));
    }
    void expectMade(const QString& path, Answer answer = Answer::No) {
        desk.expectBox("Appointments HTML file created - " + path + ". Do you want to open it now?", "HTML Created",
                       answer);
    }
    /// The texts of the cells in the order of the page, each with its shade ("#c0c0ff") in front if it has one, and
    /// its heading's level ("h2").
    static QStringList cells(const QString& html) {
        QStringList cells;
        QString shade;
        QXmlStreamReader page(html.toUtf8());
        while (!page.atEnd()) {
            page.readNext();
            if (page.isStartElement() && page.name() == QLatin1String("tr"))
                shade = page.attributes().value("style").toString().section(':', 1);
            if (page.isStartElement() && page.name() == QLatin1String("td"))
                cells << (shade.isEmpty() ? QString() : shade + ' ') + cellText(page);
        }
        EXPECT_FALSE(page.hasError()) << page.errorString().toStdString();
        return cells;
    }
    static QString cellText(QXmlStreamReader& page) {
        QString text;
        for (page.readNext(); !(page.isEndElement() && page.name() == QLatin1String("td")); page.readNext()) {
            if (page.isCharacters())
                text += page.text();
            if (page.isStartElement() && page.name() == QLatin1String("br"))
                text += '/';
            else if (page.isStartElement())
                text += page.name().toString() + ':';
        }
        return text;
    }
    /// What tidy has to say of a page: nothing, where it is as it should be.
    static QString complaints(const QString& path) {
        QProcess tidy;
        tidy.start("tidy", {"-q", "-e", "--show-info", "yes", path});
        EXPECT_TRUE(tidy.waitForFinished(60000));
        return QString::fromUtf8(tidy.readAllStandardError());
    }
    /// The picture of a page in a window of 800 by 600 pixels.
    QImage pictureBy(const QString& chromium, const QString& path) {
        const QString picture = file("page.png");
        QProcess browser;
        browser.start(chromium,
                      {"--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars", "--force-color-profile=srgb",
                       "--window-size=800,600", "--user-data-dir=" + file("browser"), "--screenshot=" + picture,
                       QUrl::fromLocalFile(path).toString()});
        EXPECT_TRUE(browser.waitForFinished(60000));
        EXPECT_EQ(browser.exitCode(), 0) << browser.readAllStandardError().constData();
        return QImage(picture);
    }
    /// The least rectangle that holds every pixel of these colours.
    static QRect placeOf(const QImage& picture, const std::function<bool(QColor)>& is) {
        QRect place;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (is(picture.pixelColor(x, y)))
                    place |= QRect(x, y, 1, 1);
        return place;
    }

    const QDate monday{2026, 3, 9};
};

}  // namespace

TEST_F(HtmlExport, TheDayStandsUnderItsHeadings) {
    book({.text = "Smith, Bo", .start = 600, .end = 645, .note = "|only a note"});
    book({});
    book({.text = "Lunch", .start = 720, .end = 780, .note = "", .code = ncolor::Unavailable, .patient = ""});
    EXPECT_EQ(cells(exportDay()),
              (QStringList{"h1:Schedule for: Reed", "h2:March 11, 2026", "h3:Wednesday", "h3:Today's Appointments",
                           "9:00 AM", "9:50 AM", "Jones, Mary", "", "", "90834", "10:00 AM", "10:45 AM", "Smith, Bo",
                           "12:00 Noon", "1:00 PM", "Lunch"}));
}

TEST_F(HtmlExport, SizesAndWidthsAreAsTold) {
    book({});
    const QString html = exportDay();
    QStringList sizes;
    for (const QString& table : html.split("<table ").mid(1))
        sizes << table.section("font-size:", 1).section(QRegularExpression("[;\"]"), 0, 0);
    EXPECT_EQ(sizes, (QStringList{"18pt", "16pt", "12pt", "14pt", "11pt"}));
    EXPECT_TRUE(html.contains("<col style=\"width:425pt\"/>"));
    EXPECT_TRUE(html.contains("<col style=\"width:100pt\"/><col style=\"width:100pt\"/><col style=\"width:225pt\"/>"));
}

TEST_F(HtmlExport, TheTimesAreThoseOfTheUsersClock) {
    Session().MilitaryTime = true;
    book({.start = 845, .end = 900});
    EXPECT_TRUE(cells(exportDay()).contains("14:05"));
}

TEST_F(HtmlExport, TheDayBeginsWithItsFirstHour) {
    book({.text = "early", .start = 479, .end = 500});
    book({.text = "first", .start = 480, .end = 500});
    const QStringList day = cells(exportDay());
    EXPECT_FALSE(day.contains("early"));
    EXPECT_TRUE(day.contains("first"));
    EXPECT_TRUE(cells(exportWeek()).contains("#c0c0ff early") || cells(exportWeek()).contains("early"));
}

TEST_F(HtmlExport, OnlyTheProvidersOwnRowsStandOnThePages) {
    share(book({.text = "shared", .code = ncolor::Activity, .provider = EventClinicianId}), "REED");
    book({.text = "another's", .provider = "LANE"});
    EXPECT_EQ(cells(exportDay()).size(), 4);
    EXPECT_EQ(cells(exportWeek()).size(), 3);
}

TEST_F(HtmlExport, TheWeekStandsByItsDaysAndEveryOtherAppointmentIsShaded) {
    book({.text = "before", .date = monday.addDays(-1)});
    book({.text = "on Wednesday", .start = 600, .end = 650, .note = ""});
    book({.text = "on Monday", .date = monday, .note = ""});
    book({.text = "early on Wednesday"});
    book({.text = "on Sunday", .date = monday.addDays(6), .note = ""});
    book({.text = "after", .date = monday.addDays(7)});
    EXPECT_EQ(cells(exportWeek()), (QStringList{"#c0c0ff h1:Week of March 9, 2026",
                                                "h2:Weeks Appointments",
                                                "h2:Schedule for: Reed",
                                                "#c0c0ff h3:Monday, March 09",
                                                "9:00 AM",
                                                "9:50 AM",
                                                "on Monday",
                                                "#c0c0ff h3:Wednesday, March 11",
                                                "#c0c0ff 9:00 AM",
                                                "#c0c0ff 9:50 AM",
                                                "#c0c0ff early on Wednesday",
                                                "#c0c0ff ",
                                                "#c0c0ff ",
                                                "#c0c0ff 90834",
                                                "10:00 AM",
                                                "10:50 AM",
                                                "on Wednesday",
                                                "#c0c0ff h3:Sunday, March 15",
                                                "#c0c0ff 9:00 AM",
                                                "#c0c0ff 9:50 AM",
                                                "#c0c0ff on Sunday"}));
}

TEST_F(HtmlExport, AWeekWithoutAppointmentsHasItsHeadings) {
    EXPECT_EQ(cells(exportWeek()),
              (QStringList{"#c0c0ff h1:Week of March 9, 2026", "h2:Weeks Appointments", "h2:Schedule for: Reed"}));
    EXPECT_EQ(complaints(WeekHtmlPath(monday)), "");
}

TEST_F(HtmlExport, TheFileIsNamedByProviderAndDate) {
    EXPECT_EQ(DayHtmlPath(today), file("Documents/REED03112026.HTM"));
    EXPECT_EQ(WeekHtmlPath(monday), file("Documents/REEDWeek03092026.HTM"));
    Session().DateOrder = 1;
    EXPECT_EQ(DayHtmlPath(today), file("Documents/REED11032026.HTM"));
    EXPECT_EQ(WeekHtmlPath(monday), file("Documents/REEDWeek09032026.HTM"));
    Session().DateOrder = 2;
    EXPECT_EQ(DayHtmlPath(today), file("Documents/REED03112026.HTM"));
    Session().ProviderId = QStringLiteral("../A\\B");
    EXPECT_EQ(DayHtmlPath(today), file("Documents/.._A_B03112026.HTM"));
}

TEST_F(HtmlExport, TheFolderIsMadeWhereItIsMissingAndThePageIsItsOwnersAlone) {
    Session().DocPath = file("deep/down");
    exportDay();
    EXPECT_TRUE(QFileInfo(file("deep/down/Documents/REED03112026.HTM")).isFile());
    for (const QString& made : {file("deep/down/Documents"), DayHtmlPath(today)})
        EXPECT_EQ(QFileInfo(made).permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther),
                  QFileDevice::Permissions());
}

TEST_F(HtmlExport, InAFolderThatAGroupSharesThePageIsTheGroupsToo) {
    const auto group = QFileDevice::ReadGroup | QFileDevice::WriteGroup;
    Session().DocPath = file("shared");
    QDir().mkdir(file("shared"));
    QFile::setPermissions(file("shared"), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner |
                                              group | QFileDevice::ExeGroup);
    exportDay();
    EXPECT_EQ(QFileInfo(file("shared/Documents")).permissions() & (group | QFileDevice::ExeGroup),
              group | QFileDevice::ExeGroup);
    EXPECT_EQ(QFileInfo(DayHtmlPath(today)).permissions() & (group | QFileDevice::ReadOther), group);
}

TEST_F(HtmlExport, AnOlderPageIsReplaced) {
    exportDay();
    book({.text = "new"});
    EXPECT_TRUE(cells(exportDay()).contains("new"));
}

TEST_F(HtmlExport, YesOpensThePage) {
    expectMade(DayHtmlPath(today), Answer::Yes);
    ExportDayHtml(today);
    EXPECT_EQ(desk.opened, QStringList{DayHtmlPath(today)});
}

TEST_F(HtmlExport, APageThatNothingOpensIsTold) {
    Desktop().openWithShell = [](const QString&) { return false; };
    expectMade(DayHtmlPath(today), Answer::Yes);
    desk.expectBox("No program on this computer opens " + DayHtmlPath(today) + ".", "HTML Created");
    ExportDayHtml(today);
}

TEST_F(HtmlExport, ADatabaseThatIsLostIsToldAndThePageStays) {
    const QString before = exportDay();
    desk.expectBox("Error exporting appointments. " + loseDatabase(), "Error");
    ExportDayHtml(today);
    EXPECT_EQ(QString::fromUtf8(FileBytes(DayHtmlPath(today))), before);
}

TEST_F(HtmlExport, ADiskThatIsFullIsToldAndThePageStays) {
    const QString before = exportDay();
    for (int i = 0; i < 100; ++i)
        book({});
    const FullDisk disk(3000);
    desk.expectBox(
        "Error exporting appointments. The file " + DayHtmlPath(today) + " could not be written: File too large.",
        "Error");
    ExportDayHtml(today);
    EXPECT_EQ(QString::fromUtf8(FileBytes(DayHtmlPath(today))), before);
}

TEST_F(HtmlExport, AFolderThatCannotBeMadeIsTold) {
    PutFile(file("Documents"), "a file");
    desk.expectBox(
        "Error exporting appointments. The file " + DayHtmlPath(today) + " could not be written: Not a directory.",
        "Error");
    ExportDayHtml(today);
}

TEST_F(HtmlExport, PatientsAreNamedAsTheUserChoseForPages) {
    book({});
    KeepNaming(ExportFormat::HtmlPage, PatientNaming::Initials);
    EXPECT_TRUE(cells(exportDay()).contains("M. J."));
    EXPECT_FALSE(exportWeek().contains("Jones"));
}

TEST_F(HtmlExport, HiddenNamesAreHiddenOnThePages) {
    book({});
    book({.text = "Lunch", .code = ncolor::Unavailable, .patient = ""});
    SetNamesHidden(true);
    for (const QString& html : {exportDay(), exportWeek()}) {
        EXPECT_FALSE(html.contains("Jones"));
        EXPECT_TRUE(html.contains("(hidden)"));
        EXPECT_TRUE(html.contains("Lunch"));
    }
}

TEST_F(HtmlExport, WhateverTextsHoldThePageIsRightAndShowsThem) {
    const QStringList texts{"<script>alert(1)</script>",
                            "a | b; c & d",
                            "tab\there",
                            "כהן, דוד",
                            "محمد",
                            "O'Brien \"Bo\"",
                            "😀 山田",
                            QStringLiteral("x").repeated(255),
                            "</table></body>"};
    int start = 540;
    for (const QString& text : texts)
        book({.text = text, .start = start++, .note = QString(text).remove('|').repeated(3)});
    for (const QString& html : {exportDay(), exportWeek()}) {
        EXPECT_FALSE(html.contains("<script"));
        EXPECT_TRUE(html.contains("<html lang=\"en\">"));
        QTextDocument page;
        page.setHtml(html);
        const QString shown = page.toPlainText();
        for (const QString& text : texts)
            EXPECT_TRUE(shown.contains(QString(text).replace('\t', ' '))) << text.toStdString();
    }
    EXPECT_EQ(complaints(DayHtmlPath(today)), "");
    EXPECT_EQ(complaints(WeekHtmlPath(monday)), "");
}

TEST_F(HtmlExport, TheTitleTellsWhoseScheduleItIsAndWhen) {
    Session().ProviderName = QStringLiteral("Reed & <Sons>");
    EXPECT_TRUE(exportDay().contains("<title>Schedule for: Reed &amp; &lt;Sons&gt;, March 11, 2026</title>"));
    EXPECT_TRUE(exportWeek().contains("<title>Schedule for: Reed &amp; &lt;Sons&gt;, Week of March 9, 2026</title>"));
}

TEST_F(HtmlExport, ABrowserShowsThePageInItsWidthAndItsColours) {
    const QString chromium = QStandardPaths::findExecutable("chromium");
    if (chromium.isEmpty())
        GTEST_SKIP() << "The browser is not installed.";
    book({.text = "Doe, <b>John</b> & \xD7\x93\xD7\x95\xD7\x93"});
    book({.start = 600, .end = 650});
    exportWeek();
    const QImage picture = pictureBy(chromium, WeekHtmlPath(monday));
    ASSERT_EQ(picture.size(), QSize(800, 600));
    const QRect shaded = placeOf(picture, [](QColor colour) { return colour == QColor(0xC0, 0xC0, 0xFF); });
    const QRect drawn = placeOf(picture, [](QColor colour) { return colour != QColor(Qt::white); });
    constexpr int PixelsOfHeading = 8500 / 15;  // Of twips, at 96 pixels an inch.
    EXPECT_NEAR(shaded.width(), PixelsOfHeading, 2);
    EXPECT_NEAR(drawn.width(), PixelsOfHeading, 4) << "Nothing stands beside the table.";
    EXPECT_LT(shaded.top(), 40) << "The page begins with its heading.";
    EXPECT_GT(drawn.height(), 150);
    const QRect ink = placeOf(picture.copy(shaded), [](QColor colour) { return colour.lightness() < 80; });
    EXPECT_LT(ink.left(), 20);
    EXPECT_GT(ink.right(), PixelsOfHeading * 4000 / 8500) << "The names stand in the third column.";
}

TEST_F(HtmlExport, ALongWeekIsPrintedOnAsManyPagesAsItNeeds) {
    for (int day = 0; day < 7; ++day)
        for (int hour = 8; hour < 18; ++hour)
            book({.date = monday.addDays(day), .start = hour * 60, .end = hour * 60 + 50});
    const VSPrinter page = WeekPage(monday);
    EXPECT_GT(page.PageCount(), 2);
    const QString pdf = file("week.pdf");
    page.SavePdf(pdf);
    EXPECT_GT(QFileInfo(pdf).size(), 1000);
}
