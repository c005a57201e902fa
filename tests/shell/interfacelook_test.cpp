#include <QApplication>

#include "platform/calendar/ctmday.h"
#include "platform/theme/theme.h"
#include "tests/shell/mainwindowfixture.h"

namespace {

/// The look that the practice has set for the forms of all its users.
class InterfaceLook : public MainWindowFixture {
  protected:
    ~InterfaceLook() override {
        window.reset();
        QApplication::setFont(font_);
        Theme::Instance().setMode(ThemeMode::Light);
    }
    static int headingHeight() {
        ctMDay calendar;
        calendar.resize(400, 400);
        return calendar.HeadingRect(1).height();
    }

    const QFont font_ = QApplication::font();
};

}  // namespace

TEST_F(InterfaceLook, TheCalendarsOfAllViewsHaveTheFontThatIsSet) {
    const int before = headingHeight();
    Session().InterfaceSizing = true;
    Session().InterfaceFontName = QStringLiteral("DejaVu Serif");
    Session().InterfaceFontSize = 12;
    start();
    EXPECT_EQ(QApplication::font().family(), "DejaVu Serif");
    EXPECT_EQ(QApplication::font().pointSize(), 12);
    EXPECT_GT(headingHeight(), before);
}

TEST_F(InterfaceLook, WithoutSizingTheFontOfTheDesktopStays) {
    Session().InterfaceSizing = false;
    Session().InterfaceFontName = QStringLiteral("DejaVu Serif");
    Session().InterfaceFontSize = 12;
    start();
    EXPECT_EQ(QApplication::font(), font_);
}

TEST_F(InterfaceLook, TheCalendarsTakeTheirColoursFromTheTheme) {
    const auto picture = [] {
        ctMDay calendar;
        calendar.resize(400, 400);
        calendar.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 0)));
        return calendar.grab().toImage();
    };
    Theme::Instance().setMode(ThemeMode::Light);
    const QImage light = picture();
    Theme::Instance().setMode(ThemeMode::Dark);
    EXPECT_LT(picture().pixelColor(200, 200).lightness(), light.pixelColor(200, 200).lightness());
}
