#pragma once

#include <memory>
#include <optional>
#include <QDate>
#include <QLockFile>
#include <QString>
#include <vector>

/// Where and as what an appointment of a series stands, as far as work on the rest of a series changes it.
struct SeriesPlace {
    QDate date;
    int start = 0;  ///< Minutes since midnight, as end.
    int end = 0;
    QString provider;  ///< `clinicianid`
    int code = 0;      ///< `ncolor`
    int room = 0;      ///< The RoomID; 0 for none.

    friend bool operator==(const SeriesPlace&, const SeriesPlace&) = default;
};

/// What becomes of one row of a series. The row is written only while it stands as `before` tells.
struct SeriesStep {
    int key = 0;
    SeriesPlace before;
    std::optional<SeriesPlace> after;  ///< Nothing where the row is deleted.

    friend bool operator==(const SeriesStep&, const SeriesStep&) = default;
};

/// The work of booking, deleting or changing the rows of a series one after the other. It holds no names, because a
/// mark of it is kept outside the database; all other data of a row is read from the row.
struct SeriesWork {
    enum class Kind {
        Booking,
        Deletion,
        Rest  ///< The work on the rest of a series, told by `steps`.
    };
    /// The people who come to the appointment besides its provider and patient, and who are taken over into each copy.
    enum class Company { None, Attendees, Members };

    Kind kind = Kind::Booking;
    QDate date;     ///< The date of the appointment with which the work began.
    int start = 0;  ///< Minutes since midnight, as end.
    int end = 0;

    // A booking.
    int source = 0;      ///< The key of the row that is copied.
    int reference = 0;   ///< `repeating_ref` of the copies.
    qint64 lastKey = 0;  ///< The highest key in the series before the work began.
    QString provider;    ///< `clinicianid` of the copies.
    QString schedule;    ///< The provider in whose schedule something may be in the way.
    int room = 0;        ///< 0: the copies get none.
    Company company = Company::None;
    std::vector<QDate> dates;

    // A deletion.
    std::vector<int> keys;

    // The rest of a series. Either all steps delete or none does.
    std::vector<SeriesStep> steps;

    friend bool operator==(const SeriesWork&, const SeriesWork&) = default;
};

/// The mark of work on a series that has begun: a file beside the user's preferences. After the program was killed, the
/// mark is all that tells that rows are missing. The program that works on a mark locks it for as long as it runs, so
/// that no other program takes it. When the mark cannot be written, the work goes on without it.
class SeriesMark {
  public:
    /// Writes a mark for the session's user and database.
    static std::shared_ptr<SeriesMark> Begin(const SeriesWork& work);
    /// Returns the marks that ended programs left behind for the session's user and database, and locks them.
    static std::vector<std::shared_ptr<SeriesMark>> Left();

    [[nodiscard]] const SeriesWork& Work() const { return work_; }
    /// Deletes the mark, when the work is done or given up.
    void Remove();

  private:
    SeriesMark(const QString& file, SeriesWork work);

    QString file_;
    SeriesWork work_;
    std::unique_ptr<QLockFile> lock_;
};
