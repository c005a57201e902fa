// The manual that this build has made.

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QWidget>

#include "manual/menukeys.h"
#include "platform/desktop/manual.h"
#include "shell/menutables.h"

namespace {

const QDir Manual(QStringLiteral(SVS_BUILT_MANUAL));

QString contentOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

QStringList matches(const QString& text, const char* pattern) {
    QStringList found;
    for (auto all = QRegularExpression(QLatin1String(pattern)).globalMatch(text); all.hasNext();)
        found << all.next().captured(1);
    return found;
}

/// The classes of all windows in the program's headers.
QStringList formsOfTheProgram() {
    QStringList forms;
    for (const char* room : {"app", "appointments", "companion", "followup", "output", "people", "rooms", "search",
                             "session", "shell", "views"})
        for (QDirIterator headers(QStringLiteral(SVS_SOURCES "/") + QLatin1String(room), {QStringLiteral("*.h")},
                                  QDir::Files);
             headers.hasNext();)
            forms << matches(contentOf(headers.next()),
                             "(?m)^class (\\w+)(?: final)? : public (?:\\w*Dialog|CalendarView|MenuView|QMainWindow)");
    forms << QStringLiteral("frmboard");
    forms.removeDuplicates();
    return forms;
}

QStringList pages() {
    return Manual.entryList({QStringLiteral("*.html")}, QDir::Files);
}

}  // namespace

TEST(BuiltManual, ExplainsEveryWindowOfTheProgram) {
    // What others are made of.
    const QStringList parts{QStringLiteral("EditorDialog"), QStringLiteral("FindDialog"),
                            QStringLiteral("CalendarView"), QStringLiteral("MenuView")};
    const QString known = contentOf(Manual.filePath(QStringLiteral("forms.txt")));
    QStringList forms = formsOfTheProgram();
    EXPECT_GT(forms.size(), 45);
    for (const QString& form : forms)
        EXPECT_TRUE(parts.contains(form) || known.contains(form + QLatin1Char(' ')))
            << "No page explains " << form.toStdString();
}

TEST(BuiltManual, HasEachPageThatItLinksAndEachPictureInLightAndDark) {
    ASSERT_GT(pages().size(), 30);
    for (const QString& page : pages()) {
        const QString html = contentOf(Manual.filePath(page));
        for (const QString& target : matches(html, "(?:href|src|srcset)=\"([^\"#: ]+)[^\"]*\""))
            EXPECT_TRUE(Manual.exists(target)) << page.toStdString() << " leads to " << target.toStdString();
        for (const QString& picture : matches(html, "(?:src|srcset)=\"(pictures/[^\" ]+)[^\"]*\""))
            EXPECT_GT(QImage(Manual.filePath(picture)).width(), 200) << picture.toStdString();
    }
}

TEST(BuiltManual, IsWellFormed) {
    for (const QString& page : pages()) {
        QProcess tidy;
        tidy.start(QStringLiteral("tidy"),
                   {QStringLiteral("-q"), QStringLiteral("-e"), QStringLiteral("--warn-proprietary-attributes"),
                    QStringLiteral("no"), Manual.filePath(page)});
        ASSERT_TRUE(tidy.waitForFinished());
        EXPECT_EQ(tidy.exitCode(), 0) << page.toStdString() << "\n" << tidy.readAllStandardError().toStdString();
    }
}

TEST(BuiltManual, ListsTheKeyOfEveryCommand) {
    const QString keys = contentOf(Manual.filePath(QStringLiteral("keys.html")));
    EXPECT_TRUE(keys.contains(manual::MenuKeyTables()));
    for (const auto& menus :
         {DayMenus(), WeekMenus(), MonthMenus(), AllProvidersMenus(), RoomMenus(), CompanionMenus()})
        for (const MenuEntry& entry : menus) {
            const QString key = entry.keys == nullptr ? QString() : QString::fromLatin1(entry.keys);
            EXPECT_TRUE(key.isEmpty() || keys.contains(QStringLiteral("<kbd>%1</kbd>").arg(key))) << key.toStdString();
        }
}

TEST(BuiltManual, TellsOnlyKeysThatTheProgramKnows) {
    QString known = manual::MenuKeyTables();
    for (const char* file : {"README.md", "docs/manual/keys.md", "shell/mdisched.h", "shell/mdisched_build.cpp"})
        known += contentOf(QStringLiteral(SVS_SOURCES "/") + QLatin1String(file));
    for (const QString& page : pages())
        for (const QString& key : matches(contentOf(Manual.filePath(page)), "<kbd>(Ctrl\\+[^<]+|F\\d+)</kbd>"))
            EXPECT_TRUE(known.contains(key)) << page.toStdString() << " tells of " << key.toStdString();
}

TEST(BuiltManual, OpensAtThePageOfAWindowOrOfWhatItBelongsTo) {
    ManualFolder() = Manual.path();
    QWidget unknown;
    EXPECT_EQ(ManualPageOf(&unknown), Manual.filePath(QStringLiteral("index.html")));
    EXPECT_EQ(ManualPageOf(nullptr), Manual.filePath(QStringLiteral("index.html")));
    ManualFolder() = QStringLiteral("/nowhere");
    EXPECT_EQ(ManualPageOf(&unknown), QString());
}
