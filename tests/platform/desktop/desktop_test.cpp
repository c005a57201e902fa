#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QLabel>
#include <QTimer>

#include "platform/desktop/busypointer.h"
#include "tests/support/scripteddesk.h"

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
