#include <QComboBox>
#include <QLabel>
#include <random>

#include "tests/followup/boardfixture.h"

namespace {

/// Practices of random rows: each column takes what a row may hold, and what none should.
class BoardCounts : public BoardFixture, public testing::WithParamInterface<int> {
  protected:
    BoardCounts() : random_(static_cast<unsigned>(GetParam())) {}

    int any(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }
    QString oneOf(const QStringList& texts) { return texts[any(0, static_cast<int>(texts.size()) - 1)]; }

    void fill() {
        for (int note = 1; note <= 12; ++note) {
            run(db::Sql(
                "Insert Into sessions (stype, SignatureDate) Values (1, {})",
                db::Raw{oneOf({QStringLiteral("Null"), QStringLiteral("Null"), QStringLiteral("'2026/03/10'")})}));
            if (any(0, 3) == 0)
                run(db::Sql("Insert Into SessionSignatures (session_id) Values ({})",
                            static_cast<int>(database.connection().LastIdentity())));
        }
        const QStringList codes{"16711680", "126322256", "16711681", "16777215", "49152", "49152", "192",     "193",
                                "194",      "16777088",  "16744703", "12632064", "12345", "Null",  "12632256"};
        for (int row = 0; row < 150; ++row) {
            const QDate date = any(0, 2) > 0 ? day : day.addDays(any(-34, 20));
            run(db::Sql(
                "Insert Into appointments (dapptdate, nStartTime, nEndTime, allday, cappttext, ncolor, appttype, clinicianid, patientid, CheckInTime, NoteID, repeating, repeating_ref) Values ('{}', {}, {}, {}, 'Row {}', {}, {}, '{}', {}, {}, {}, {}, {})",
                date, db::Raw{any(0, 9) == 0 ? QStringLiteral("Null") : QString::number(any(400, 700))},
                db::Raw{any(0, 9) == 0 ? QStringLiteral("Null") : QString::number(any(400, 800))},
                any(0, 9) == 0 ? 1 : 0, row, db::Raw{oneOf(codes)}, any(0, 9) == 0 ? 4 : 0,
                oneOf({QStringLiteral("REED"), QStringLiteral("LANE"), QStringLiteral("GONE")}),
                db::Raw{oneOf({QStringLiteral("'10017'"), QStringLiteral("''"), QStringLiteral("Null")})},
                db::Raw{
                    oneOf({QStringLiteral("Null"), QStringLiteral("'03/11/26 08:50 AM'"), QStringLiteral("'soon'")})},
                db::Raw{oneOf({QStringLiteral("Null"), QStringLiteral("0"), QStringLiteral("99999"),
                               QString::number(any(1, 12)), QString::number(any(1, 12))})},
                any(0, 2) > 0 ? 1 : 0, db::Raw{any(0, 7) == 0 ? QStringLiteral("Null") : QString::number(any(1, 15))}));
        }
    }

    /// What a row must be to have a status.
    static constexpr const char* hasStatus =
        "appttype <> 4 and (IsNull(ncolor, 0) in (16711680, 126322256, 16711681, 16777215, 49152, 192, 193, 194) or (IsNull(ncolor, 0) not in (16777088, 16744703, 12632064, 49344) and IsNull(patientid, '') <> ''))";

    QString signedNote() const {
        return QStringLiteral(
            "NoteID in (Select id from sessions Where SignatureDate Is Not Null or id in (Select session_id from SessionSignatures))");
    }

    /// Counts the rows of a place by a statement of the test's own.
    qint64 counted(BoardPlace place, int minute, const QString& provider) {
        const QString settled = QStringLiteral("IsNull(ncolor, 0) not in (16777215, 49152, 192, 193, 194)");
        const QString lasts =
            db::Sql("IsNull(nEndTime, 0) > {} and not (NoteID Is Not Null and {})", minute, db::Raw{signedNote()});
        const QString began = db::Sql("nStartTime Is Not Null and allday = 0 and nStartTime < {}", minute);
        const QString of = provider.isEmpty() ? QString() : db::Sql(" and clinicianid = '{}'", provider);
        const auto today = [&](const QString& condition) {
            return database.number(db::Sql("Select Count(*) from appointments Where dapptdate = '{}' and {} and {}{}",
                                           day, db::Raw{QLatin1String(hasStatus)}, db::Raw{condition}, db::Raw{of}));
        };
        switch (place) {
            case BoardPlace::Due:
                return today(settled + QStringLiteral(" and not (") + began + u')');
            case BoardPlace::Late:
                return today(settled + QStringLiteral(" and ") + began);
            case BoardPlace::Waiting:
                return today(QStringLiteral("ncolor = 16777215"));
            case BoardPlace::InSession:
                return today(QStringLiteral("ncolor = 49152 and ") + lasts);
            case BoardPlace::Gone:
                return today(QStringLiteral("ncolor = 49152")) - today(QStringLiteral("ncolor = 49152 and ") + lasts);
            case BoardPlace::NotComing:
                return today(QStringLiteral("ncolor in (192, 193, 194)"));
            case BoardPlace::UnwrittenNote:
                return database.number(db::Sql(
                    "Select Count(*) from appointments Where ncolor = 49152 and appttype <> 4 and dapptdate >= '{}' and (dapptdate < '{}' or (dapptdate = '{}' and IsNull(nEndTime, 0) <= {})) and not (NoteID Is Not Null and {}){}",
                    day.addDays(-30), day, day, minute, db::Raw{signedNote()}, db::Raw{of}));
            case BoardPlace::EndingSeries:
                return series(provider);
        }
        return -1;
    }

    /// Each series is counted alone, at the provider of its next visit.
    qint64 series(const QString& provider) {
        qint64 ending = 0;
        for (int ref = 0; ref <= 15; ++ref) {
            const QString left = db::Sql(
                "repeating_ref = {} and repeating = 1 and dapptdate >= '{}' and IsNull(ncolor, 0) not in (192, 193, 194) and {}",
                ref, day, db::Raw{QLatin1String(hasStatus)});
            const qint64 visits = database.number(db::Sql("Select Count(*) from appointments Where {}", db::Raw{left}));
            const QString next = database.text(db::Sql(
                "Select clinicianid from appointments Where {} Order by dapptdate, nStartTime, nkeyid", db::Raw{left}));
            if (visits >= 1 && visits <= 4 && (provider.isEmpty() || provider == next))
                ++ending;
        }
        return ending;
    }

    std::mt19937 random_;
};

constexpr BoardPlace places[] = {BoardPlace::Due,           BoardPlace::Late,        BoardPlace::Waiting,
                                 BoardPlace::InSession,     BoardPlace::Gone,        BoardPlace::NotComing,
                                 BoardPlace::UnwrittenNote, BoardPlace::EndingSeries};

}  // namespace

TEST_P(BoardCounts, EqualThoseOfTheDatabaseForAllProvidersAndForEach) {
    fill();
    for (const auto& [hour, minute] : {std::pair{7, 0}, {9, 5}, {10, 30}, {23, 59}}) {
        setClock(hour, minute);
        board().Load();
        for (const char* provider : {"", "REED", "LANE", "GONE"}) {
            board();
            choose(provider);
            ASSERT_EQ(board().cboprovider->currentData().toString(), QLatin1String(provider));
            for (const BoardPlace place : places)
                EXPECT_EQ(board().Count(place), counted(place, hour * 60 + minute, QLatin1String(provider)))
                    << "place " << static_cast<int>(place) << " of " << provider << " at " << hour << ':' << minute;
        }
    }
}

TEST_P(BoardCounts, WithoutTheRightToAllSchedulesAreTheUsersOwn) {
    fill();
    Session().AllProviders = false;
    // A series is counted by the rows that the user may see.
    for (const BoardPlace place : places)
        if (place != BoardPlace::EndingSeries) {
            EXPECT_EQ(board().Count(place), counted(place, 545, QStringLiteral("REED"))) << static_cast<int>(place);
        }
    run("Update appointments Set clinicianid = 'REED' Where repeating_ref Is Not Null");
    board().Load();
    EXPECT_EQ(board().Count(BoardPlace::EndingSeries), counted(BoardPlace::EndingSeries, 545, QStringLiteral("REED")));
}

INSTANTIATE_TEST_SUITE_P(RandomPractices, BoardCounts, testing::Range(1, 13));
