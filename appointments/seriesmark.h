#pragma once

#include <memory>
#include <QDate>
#include <QLockFile>
#include <QString>
#include <vector>

/// Rows of a series that are booked or deleted one after the other. It names nobody, since a mark of it is kept outside
/// the database: whatever a row holds besides is read from the row.
struct SeriesWork {
    enum class Kind { Booking, Deletion };
    /// Who comes to the appointment besides its provider and patient, and goes along into each copy.
    enum class Company { None, Attendees, Members };

    Kind kind = Kind::Booking;
    QDate date;     ///< Of the appointment that the work began with.
    int start = 0;  ///< Minutes since midnight, as end.
    int end = 0;

    // A booking.
    int source = 0;      ///< The key of the row that is copied.
    int reference = 0;   ///< `repeating_ref` of the copies.
    qint64 lastKey = 0;  ///< The highest key in the series before.
    QString provider;    ///< `clinicianid` of the copies.
    QString schedule;    ///< The provider in whose schedule something may be in the way.
    int room = 0;        ///< 0: the copies get none.
    Company company = Company::None;
    std::vector<QDate> dates;

    // A deletion.
    std::vector<int> keys;

    friend bool operator==(const SeriesWork&, const SeriesWork&) = default;
};

/// The mark of work on a series that has begun, a file beside the user's preferences: after a program that was killed
/// it is what is left to tell that rows are missing. It is held for the run of the program; that of a program that runs
/// is nobody else's. Where it cannot be written the work goes on without it.
class SeriesMark {
  public:
    /// Writes the mark, for the session's user and database.
    static std::shared_ptr<SeriesMark> Begin(const SeriesWork& work);
    /// The marks that programs which have ended left behind for the session's user and database.
    static std::vector<std::shared_ptr<SeriesMark>> Left();

    [[nodiscard]] const SeriesWork& Work() const { return work_; }
    /// The work is done, or given up.
    void Remove();

  private:
    SeriesMark(const QString& file, SeriesWork work);

    QString file_;
    SeriesWork work_;
    std::unique_ptr<QLockFile> lock_;
};
