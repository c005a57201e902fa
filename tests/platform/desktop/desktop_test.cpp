#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include "platform/desktop/busypointer.h"
#include "tests/support/files.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

TEST(Desktop, AnExpectedQuestionIsAnsweredFromTheScript) {
    ScriptedDesk desk;
    desk.expectBox("Continue?", "Solvane", Answer::Yes);

    EXPECT_EQ(MsgBox("Continue?", YesNoBox, "Solvane"), Answer::Yes);
}

TEST(Desktop, TheClockStandsStillInATest) {
    ScriptedDesk desk;
    desk.setNow(QDateTime(QDate(2026, 2, 28), QTime(23, 59)));

    EXPECT_EQ(Today(), QDate(2026, 2, 28));
    EXPECT_EQ(Now().time(), QTime(23, 59));
}

TEST(Desktop, AStepThatWaitsRunsWhenItsTimeHasPassedAndNotBefore) {
    QObject context;
    int steps = 0;
    After(0, &context, [&steps] { ++steps; });
    EXPECT_EQ(steps, 0);
    QApplication::processEvents();
    EXPECT_EQ(steps, 1);

    auto gone = std::make_unique<QObject>();
    After(0, gone.get(), [&steps] { ++steps; });
    gone.reset();
    QApplication::processEvents();
    EXPECT_EQ(steps, 1) << "Nobody waits any more.";
}

TEST(Desktop, InATestTimePassesWhenTheTestSaysSo) {
    ScriptedDesk desk;
    QObject context;
    int steps = 0;
    After(1000, &context, [&steps] { ++steps; });
    QApplication::processEvents();
    EXPECT_EQ(steps, 0);
    EXPECT_EQ(desk.waits, QList<int>{1000});
    desk.passTime();
    EXPECT_EQ(steps, 1);
}

TEST(Desktop, TheFileDialogAsksBeforeItReplacesUnlessTheCallerDoes) {
    const QTemporaryDir folder(TestFolderTemplate());
    const QString path = folder.filePath(QStringLiteral("old.ics"));
    PutFile(path, "before");
    const auto choose = [&path](AsksToReplace asks) {
        bool asked = false;
        QTimer::singleShot(0, [&asked] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            QTimer::singleShot(0, dialog, [&asked, dialog] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                    asked = true;
                    box->close();
                    dialog->reject();
                }
            });
            dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
        });
        EXPECT_EQ(ChooseSaveFile(QStringLiteral("Save"), path, QStringLiteral("All files (*)"), asks),
                  asks == AsksToReplace::Caller ? path : QString());
        return asked;
    };
    EXPECT_TRUE(choose(AsksToReplace::FileDialog));
    EXPECT_FALSE(choose(AsksToReplace::Caller));
}

TEST(Desktop, AMessageUnderABusyPointerHasTheNormalPointer) {
    const BusyPointer busy;
    bool wasNormal = false;
    QTimer::singleShot(0, [&] {
        wasNormal = QGuiApplication::overrideCursor() == nullptr;
        QApplication::activeModalWidget()->close();
    });

    MsgBox("Saved.", InformationBox, "Solvane");

    EXPECT_TRUE(wasNormal);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST(Desktop, ABoxIsWideEnoughForItsTitle) {
    const QString title = QStringLiteral("Provider Schedule Not Found in Fernhall");
    int width = 0;
    QString text;
    QTimer::singleShot(0, [&] {
        QWidget* box = QApplication::activeModalWidget();
        width = box->width();
        for (const auto* label : box->findChildren<QLabel*>())
            if (label->objectName() == QLatin1String("qt_msgbox_label") && label->textFormat() == Qt::PlainText)
                text = label->text();
        box->close();
    });

    MsgBox("<b>No.</b>", InformationBox, title);

    QFont bold = QApplication::font();
    bold.setBold(true);
    EXPECT_GE(width, QFontMetrics(bold).horizontalAdvance(title) + 100);
    EXPECT_EQ(text, "<b>No.</b>");
}
