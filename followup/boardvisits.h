#pragma once

#include <optional>
#include <QDate>
#include <QString>
#include <QStringList>
#include <vector>

#include "platform/database/resulttable.h"

/// The places of the board. Every appointment of today that has a status (HasStatus) stands in exactly one of the first
/// six, by the columns of its row and the minute of the clock:
///
/// - Due: no status that settles it (blank, Pending, Tentative, or a colour that means nothing here), and its
///   `nStartTime` has not passed. An all-day row and one without a start are due all day.
/// - Late: the same, and the minute after its start has begun.
/// - Waiting: Checked-In. The minutes run from the time in `CheckInTime`, whose date is not read.
/// - InSession: Kept, its `nEndTime` has not been reached, and its note is not signed.
/// - Gone: any other Kept row.
/// - NotComing: Missed, or cancelled by patient or therapist.
///
/// Groups, activities, unavailable time and slots of an appointment type have no status and are not on the board.
///
/// - UnwrittenNote: a Kept visit of the last NoteDays days, or a Gone one of today, whose note is missing (no row in
///   `sessions` has its `NoteID`) or is not signed: no `SignatureDate`, and no row in `SessionSignatures`.
/// - EndingSeries: the next visit of a series of which SeriesVisits or fewer are left. What is left are its rows from
///   today on that are neither missed nor cancelled.
enum class BoardPlace { Due, Late, Waiting, InSession, Gone, NotComing, UnwrittenNote, EndingSeries };

inline constexpr int BoardPlaces = 8;
/// How many days before today are looked through for notes.
inline constexpr int NoteDays = 30;
/// A series is about to end when so many visits or fewer are left.
inline constexpr int SeriesVisits = 4;

/// An appointment on the board, as its row was read.
struct BoardVisit {
    enum class Note { Missing, Unsigned, Signed };

    int key = 0;
    QDate date;
    std::optional<int> start;  ///< Minutes since midnight. None where the row has none, or lasts all day.
    int end = 0;               ///< Minutes since midnight.
    QString name;              ///< `cappttext`, in one line.
    int code = 0;              ///< `ncolor`
    QString providerId, patientId;
    QString arrival;  ///< `CheckInTime`
    int noteId = 0;
    Note note = Note::Missing;
    int left = 0;  ///< How many visits of the series are left, and the date of the last one.
    QDate last;

    [[nodiscard]] bool IsAwaited() const;
};

/// Where an appointment of today stands at this minute of the day.
[[nodiscard]] BoardPlace PlaceOf(const BoardVisit& visit, int minute);
/// How many minutes a patient has waited, at least 0, or -1 where the time of arrival cannot be read.
[[nodiscard]] int MinutesWaited(const BoardVisit& visit, int minute);

/// A provider by whom the board can be filtered.
struct BoardProvider {
    QString id, name;
    bool isListed = true;  ///< Neither archived nor left out of the scheduler.
};

/// What the board shows, as it was read.
struct BoardContents {
    QDate date;
    std::vector<BoardVisit> today;
    std::vector<BoardVisit> notes;   ///< Kept, the note missing or unsigned; those of today may still be in session.
    std::vector<BoardVisit> series;  ///< The next visit of each.
    std::vector<BoardProvider> providers;

    /// Returns the surname of a provider, or the id where there is none.
    [[nodiscard]] QString ProviderName(const QString& id) const;
    /// Returns the visits of a place at this minute, in the order in which the board lists them.
    [[nodiscard]] std::vector<BoardVisit> Of(BoardPlace place, int minute) const;
};

/// The statements that read the board of a day: of one provider, or of all when `providerId` is empty.
[[nodiscard]] QStringList BoardStatements(QDate date, const QString& providerId);
/// Makes the contents of what BoardStatements read, one table for each statement.
[[nodiscard]] BoardContents ContentsOf(QDate date, const std::vector<db::ResultTable>& tables);
