#include "tests/desks/deskfixture.h"

namespace {

/// The program, started where the locale is chosen by these variables.
class Locales : public DeskFixture {
  protected:
    /// The date field of the rooms, on March 11, 2026.
    [[nodiscard]] QString dateField(const QStringList& locale) const {
        Desk desk(folder.path(), QStringLiteral("REED"), day, {}, {}, locale);
        desk.tell("trigger", QStringLiteral("mnuVRoom"));
        return desk.tell("text", QStringLiteral("txtdate"));
    }
    const QString monthFirst{QStringLiteral("03/11/2026")};
    const QString dayFirst{QStringLiteral("11/03/2026")};
};

}  // namespace

TEST_F(Locales, WhereNobodyChoseOneTheMonthStandsFirst) {
    EXPECT_EQ(dateField({}), monthFirst);
    EXPECT_EQ(dateField({QStringLiteral("LANG=C")}), monthFirst);
    EXPECT_EQ(dateField({QStringLiteral("LANG=POSIX")}), monthFirst);
}

TEST_F(Locales, TheLanguageDecidesTheOrderOfADate) {
    EXPECT_EQ(dateField({QStringLiteral("LANG=en_US.UTF-8")}), monthFirst);
    EXPECT_EQ(dateField({QStringLiteral("LANG=en_GB.UTF-8")}), dayFirst);
}

TEST_F(Locales, TheLocaleOfTimesGoesBeforeTheLanguage) {
    EXPECT_EQ(dateField({QStringLiteral("LANG=en_US.UTF-8"), QStringLiteral("LC_TIME=en_GB.UTF-8")}), dayFirst);
    EXPECT_EQ(dateField({QStringLiteral("LANG=en_GB.UTF-8"), QStringLiteral("LC_TIME=C")}), monthFirst);
}

TEST_F(Locales, TheLocaleOfEverythingGoesBeforeBoth) {
    EXPECT_EQ(dateField({QStringLiteral("LANG=en_US.UTF-8"), QStringLiteral("LC_TIME=en_US.UTF-8"),
                         QStringLiteral("LC_ALL=en_GB.UTF-8")}),
              dayFirst);
    EXPECT_EQ(dateField({QStringLiteral("LANG=en_GB.UTF-8"), QStringLiteral("LC_ALL=C")}), monthFirst);
}
