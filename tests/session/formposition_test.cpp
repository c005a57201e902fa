#include "session/formposition.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QWidget>

#include "platform/desktop/userstore.h"

namespace {

class FormPlace : public testing::Test {
  protected:
    FormPlace() {
        SetUserStoreFile(folder.filePath("places.ini"));
        form.setObjectName("frmsched");
        form.setGeometry(40, 50, 300, 200);
    }
    ~FormPlace() override { SetUserStoreFile({}); }
    void restoreFrom(const char* text) {
        WriteUserSetting("frmsched", QString::fromLatin1(text));
        FormPosition(form, FormMode::Get);
    }
    [[nodiscard]] QRect place() const { return {form.pos(), form.size()}; }

    QTemporaryDir folder;
    QWidget form;
};

const QList<QRect> OneScreen{QRect(0, 0, 1000, 800)};
const QList<QRect> TwoScreens{QRect(0, 0, 1000, 800), QRect(1000, 0, 1000, 800)};

}  // namespace

TEST_F(FormPlace, AWindowComesBackWhereItWasLeft) {
    FormPosition(form, FormMode::Set);
    EXPECT_EQ(ReadUserSetting("frmsched"), "40,50,300,200,0");
    form.setGeometry(0, 0, 100, 100);

    FormPosition(form, FormMode::Get);

    EXPECT_EQ(place(), QRect(40, 50, 300, 200));
}

TEST_F(FormPlace, WithoutAStoredPlaceTheWindowStaysAsDesigned) {
    FormPosition(form, FormMode::Get);

    EXPECT_EQ(place(), QRect(40, 50, 300, 200));
}

TEST_F(FormPlace, ATextThatCannotBeReadLeavesTheWindowAsDesigned) {
    for (const char* text : {"", "1,2,3", "a,b,c,d,0", "10,10,0,0,0", "10,10,200,200,", "1,2,3,4,5,6"}) {
        restoreFrom(text);
        EXPECT_EQ(place(), QRect(40, 50, 300, 200)) << text;
        EXPECT_FALSE(form.isMaximized()) << text;
    }
}

TEST_F(FormPlace, NegativeNumbersReadAsZero) {
    restoreFrom("-20,-8,320,240,0");

    EXPECT_EQ(place(), QRect(0, 0, 320, 240));
}

TEST_F(FormPlace, NegativeNumbersAreStoredAsZero) {
    form.move(-30, -5);

    FormPosition(form, FormMode::Set);

    EXPECT_EQ(ReadUserSetting("frmsched"), "0,0,300,200,0");
}

TEST_F(FormPlace, AnyStoredStateButZeroMaximizes) {
    for (const char* text : {"40,50,300,200,1", "40,50,300,200,2"}) {
        form.setWindowState(Qt::WindowNoState);
        restoreFrom(text);
        EXPECT_TRUE(form.isMaximized()) << text;
    }
}

TEST_F(FormPlace, AMinimizedWindowComesBackMaximized) {
    form.setWindowState(Qt::WindowMinimized);
    FormPosition(form, FormMode::Set);
    EXPECT_TRUE(ReadUserSetting("frmsched").endsWith(",2"));

    form.setWindowState(Qt::WindowNoState);
    FormPosition(form, FormMode::Get);

    EXPECT_TRUE(form.isMaximized());
}

TEST_F(FormPlace, APlaceThatNoScreenHasLeavesTheWindowAsDesigned) {
    form.setGeometry(10, 20, 300, 200);
    for (const char* text :
         {"2147483647,2147483647,2147483647,2147483647,0", "99999,5,300,200,0", "40,50,3,2,0", "40,50,0,0,0",
          "40,50,300,200", "40,50,300,x,0", "\x01,,;,\xFF,0", "99999999999,1,300,200,0"}) {
        restoreFrom(text);
        EXPECT_EQ(place(), QRect(10, 20, 300, 200)) << text;
        EXPECT_FALSE(form.isMaximized()) << text;
    }
}

TEST(OnSomeScreen, AWindowThatCanBeReachedStaysWhereItIs) {
    EXPECT_EQ(OnSomeScreen(QRect(100, 100, 400, 300), OneScreen), QRect(100, 100, 400, 300));
    EXPECT_EQ(OnSomeScreen(QRect(800, 100, 400, 300), OneScreen), QRect(800, 100, 400, 300));
    EXPECT_EQ(OnSomeScreen(QRect(1400, 100, 400, 300), TwoScreens), QRect(1400, 100, 400, 300));
}

TEST(OnSomeScreen, AWindowOfAScreenThatIsGoneMovesToTheNearest) {
    EXPECT_EQ(OnSomeScreen(QRect(1400, 100, 400, 300), OneScreen), QRect(600, 100, 400, 300));
    EXPECT_EQ(OnSomeScreen(QRect(2500, 900, 400, 300), TwoScreens), QRect(1600, 500, 400, 300));
}

TEST(OnSomeScreen, AWindowWhoseTitleIsOutOfReachMovesInside) {
    EXPECT_EQ(OnSomeScreen(QRect(100, 790, 400, 300), OneScreen), QRect(100, 500, 400, 300));
    EXPECT_EQ(OnSomeScreen(QRect(970, 100, 400, 300), OneScreen), QRect(600, 100, 400, 300));
}

TEST(OnSomeScreen, AWindowLargerThanTheScreenIsMadeToFit) {
    EXPECT_EQ(OnSomeScreen(QRect(1200, 900, 1600, 1200), OneScreen), QRect(0, 0, 1000, 800));
    EXPECT_EQ(OnSomeScreen(QRect(100, 100, 1600, 1200), OneScreen), QRect(0, 0, 1000, 800));
    EXPECT_EQ(OnSomeScreen(QRect(100, 100, 1600, 700), TwoScreens), QRect(100, 100, 1600, 700));
}

TEST(OnSomeScreen, WithoutAnyScreenNothingMoves) {
    EXPECT_EQ(OnSomeScreen(QRect(5, 5, 10, 10), {}), QRect(5, 5, 10, 10));
}
