#pragma once

#include <QTest>

#include "followup/boardlist.h"
#include "followup/frmboard.h"
#include "tests/followup/checkinfixture.h"
#include "tests/shell/fakemainwindow.h"

/// The board of Reed, who may see all schedules, on Wednesday, March 11, 2026, at 9:05.
class BoardFixture : public CheckInFixture {
  protected:
    BoardFixture() {
        run("Insert Into provider_info (id, prov_lastname, archive) Values ('LANE', 'Lane', 0)");
        run("Update provider_info Set archive = 0");
    }
    ~BoardFixture() override { board_.reset(); }

    /// A row of `appointments`.
    struct Visit {
        QString text = QStringLiteral("Anna");
        int start = 540;
        int code = 0xFF0000;
        QString provider = QStringLiteral("REED");
        int end = 0;  ///< 50 minutes after the start where it is 0.
        QDate date = QDate(2026, 3, 11);
        QString more = QString();        ///< ", CheckInTime"
        QString moreValues = QString();  ///< ", '03/11/26 08:50 AM'"
    };
    int put(const Visit& visit) {
        run(db::Sql(
            "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, patientid{}) Values ('{}', {}, {}, '{}', {}, '{}', '10017'{})",
            db::Raw{visit.more}, visit.date, visit.start, visit.end > 0 ? visit.end : visit.start + 50, visit.text,
            visit.code, visit.provider, db::Raw{visit.moreValues}));
        return static_cast<int>(database.connection().LastIdentity());
    }
    int putCheckedIn(const QString& text, const QString& arrival) {
        return put({.text = text,
                    .code = 0xFFFFFF,
                    .more = QStringLiteral(", CheckInTime"),
                    .moreValues = arrival.isNull() ? QStringLiteral(", Null") : QStringLiteral(", '%1'").arg(arrival)});
    }
    void run(const QString& statement) { database.connection().Execute(statement); }
    void run(const char* statement) { run(QString::fromLatin1(statement)); }
    int statusOf(int key) {
        return static_cast<int>(database.number(db::Sql("Select ncolor from appointments Where nkeyid = {}", key)));
    }

    /// Opens the board, or looks at it when all that it reads has come.
    frmboard& board() {
        if (!board_) {
            board_ = std::make_unique<frmboard>(main, nullptr);
            board_->resize(1200, 760);
            board_->show();
        }
        EXPECT_TRUE(QTest::qWaitFor([this] { return !board_->IsReading(); }, 20000)) << "The board is never read.";
        return *board_;
    }
    /// The cards of a place, "name|mark|detail".
    QStringList cards(BoardPlace place) {
        QStringList all;
        const BoardList& list = board().List(place);
        for (int row = 0; row < list.CardCount(); ++row)
            all << QStringList{list.Card(row).name, list.Card(row).mark, list.Card(row).detail}.join(u'|');
        return all;
    }
    QStringList names(BoardPlace place) {
        QStringList all;
        for (const QString& card : cards(place))
            all << card.section(u'|', 0, 0);
        return all;
    }
    /// Gives the focus to the first card of a place.
    BoardList& select(BoardPlace place) {
        BoardList& list = board().List(place);
        list.setFocus();
        list.SelectRow(0);
        return list;
    }
    void press(BoardCommand command) { board().Command(command).trigger(); }
    void choose(const char* provider) {
        board().cboprovider->setCurrentIndex(board().cboprovider->findData(QString::fromLatin1(provider)));
    }
    void setClock(int hour, int minute) { desk.setNow(QDateTime(day, QTime(hour, minute))); }

    FakeMainWindow main{QDate(2026, 3, 10)};
    std::unique_ptr<frmboard> board_;
};
