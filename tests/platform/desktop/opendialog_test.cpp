#include "platform/desktop/opendialog.h"

#include <gtest/gtest.h>

#include <functional>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/desktop/desktop.h"

namespace {

constexpr int LongerThanAPress = 250;  ///< Milliseconds; a button that is pressed by its letter clicks after 100.

/// A window with commands, over which a dialog is shown.
class WindowBehind : public testing::Test {
  protected:
    WindowBehind() {
        connect(action, &QAction::triggered);
        connect(button, &QPushButton::clicked);
        action->setShortcut(QKeySequence(QStringLiteral("Ctrl+N")));
        window.addAction(action);
        window.resize(300, 200);
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
    }
    template <class Sender, class Signal>
    void connect(Sender* sender, Signal signal) {
        QObject::connect(sender, signal, &window, [this] { ++commands; });
    }
    /// Shows a dialog, does this while it is open, and closes it.
    void showDialog(const std::function<void(QDialog&)>& meanwhile) {
        QDialog dialog(&window);
        QTimer::singleShot(0, &dialog, [&] {
            meanwhile(dialog);
            dialog.reject();
        });
        ShowModal(dialog);
    }

    QWidget window;
    QAction* action = new QAction(&window);
    QPushButton* button = new QPushButton(QStringLiteral("&Go"), &window);
    int commands = 0;
};

}  // namespace

TEST_F(WindowBehind, AShortcutTypedBeforeTheDialogWasActiveGoesNowhere) {
    showDialog([this](QDialog&) {
        QApplication::setActiveWindow(&window);
        QTest::keyClick(window.windowHandle(), Qt::Key_N, Qt::ControlModifier);
    });
    EXPECT_EQ(commands, 0);

    QApplication::setActiveWindow(&window);
    QTest::keyClick(window.windowHandle(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(commands, 1) << "With the dialog closed it is heard again.";
}

TEST_F(WindowBehind, AButtonPressedByItsLetterJustBeforeTheDialogClicksNoMore) {
    button->animateClick();
    showDialog([this](QDialog&) {
        QTest::qWait(LongerThanAPress);
        EXPECT_EQ(commands, 0);
    });
    QTest::qWait(LongerThanAPress);
    EXPECT_EQ(commands, 0) << "Nor when the dialog has closed.";
    EXPECT_FALSE(button->isDown());

    button->animateClick();
    QTest::qWait(LongerThanAPress);
    EXPECT_EQ(commands, 1);
}

TEST_F(WindowBehind, ABoxThatWasPressedByItsLetterKeepsItsTick) {
    QCheckBox box(QStringLiteral("&Tick"), &window);
    box.show();
    box.animateClick();
    showDialog([](QDialog&) { QTest::qWait(LongerThanAPress); });
    EXPECT_FALSE(box.isChecked());
}

TEST_F(WindowBehind, TheDialogsOwnCommandsAndThoseOfADialogOverItAreHeard) {
    showDialog([this](QDialog& dialog) {
        QPushButton own(QStringLiteral("&Own"), &dialog);
        connect(&own, &QPushButton::clicked);
        own.animateClick();
        QTest::qWait(LongerThanAPress);
        EXPECT_EQ(commands, 1);

        QDialog second(&dialog);
        QPushButton deeper(QStringLiteral("&Deeper"), &second);
        connect(&deeper, &QPushButton::clicked);
        QTimer::singleShot(0, &second, [&] {
            own.animateClick();
            deeper.animateClick();
            QTest::qWait(LongerThanAPress);
            second.reject();
        });
        ShowModal(second);
        EXPECT_EQ(commands, 2) << "The one in front alone.";
    });
}

TEST_F(WindowBehind, ADialogIsOpenAsLongAsItIsShown) {
    EXPECT_FALSE(OpenDialog::Any());
    showDialog([this](QDialog& dialog) {
        EXPECT_TRUE(OpenDialog::Any());
        QDialog second(&dialog);
        QTimer::singleShot(0, &second, &QDialog::reject);
        ShowModal(second);
        EXPECT_TRUE(OpenDialog::Any()) << "The first one still is.";
    });
    EXPECT_FALSE(OpenDialog::Any());
}
