#include "data/codes.h"
#include "data/demo/companion.h"
#include "data/demo/tablewriter.h"

#include <QTime>

namespace demo {

namespace {

// appt_status
constexpr int NotSeen = 1, Cancelled = 2, MissedThere = 3, Arrived = 4, Seen = 5;

int apptStatus(int color, Random& random) {
    switch (color) {
        case ncolor::Kept:
            return Seen;
        case ncolor::CheckedIn:
            return Arrived;
        case ncolor::Missed:
            return MissedThere;
        case ncolor::PatientCancelled:
        case ncolor::TherapistCancelled:
            return Cancelled;
        default:
            return random.chance(50) ? 0 : NotSeen;
    }
}

QDateTime at(QDate date, int minutes) {
    return QDateTime(date, QTime(0, 0), Qt::UTC).addSecs(qint64{60} * minutes);
}

/// What seldom happens, and is there in every practice around its day.
enum class By { Quintana, Reed, QuintanaWithReed };
struct Rare {
    By by;
    int day;     ///< Days from today.
    int client;  ///< Index of a client whom the main database does not have.
    Hours hours;
    bool charged;
    const char* call;
    int status;
    int series;
    const char* note;
};

// Each code of a courtesy call and one that is on no list, each status of an appointment and one that is none, a row at
// midnight and one of no length, which are no appointments, and one that begins before the practice opens.
constexpr Rare RareRows[]{
    {By::Quintana, 0, 0, {480, 530}, true, "CF", Seen, 0, "Paid at the desk, \"receipt\" mailed."},
    {By::Quintana, 0, 1, {540, 590}, true, "LM", Seen, 901, ""},
    {By::Quintana, 0, 2, {600, 650}, false, "AM", Arrived, 0, "Waits in the car; doesn't want to come in yet."},
    {By::Quintana, 0, 3, {660, 710}, false, "NA", 0, 902, ""},
    {By::Quintana, 0, 4, {780, 830}, false, "BZ", NotSeen, 0, "\xF0\x9F\x8E\x82 on the day before."},
    {By::Quintana, 0, 5, {840, 890}, false, "CX", Cancelled, 0, "Asked for the same time next week."},
    {By::Quintana, 0, 6, {900, 950}, false, "WN", MissedThere, 0, ""},
    {By::Quintana, 0, 7, {960, 1010}, false, "ZZ", 6, 0, "Status and call were entered by another program."},
    {By::Quintana, 1, 8, {405, 455}, false, "CF", NotSeen, 0, "Before the practice opens."},
    {By::Quintana, 1, 9, {0, 50}, false, "", NotSeen, 0, "Entered without a time."},
    {By::Quintana, 1, 10, {600, 600}, false, "", NotSeen, 0, "Entered without a length."},
    {By::QuintanaWithReed, 0, 11, {1120, 1170}, false, "CF", NotSeen, 0, "Both see the family together."},
    {By::QuintanaWithReed, 1, 12, {720, 770}, false, "", 0, 0, ""},
    {By::Reed, 1, 13, {1080, 1125}, false, "LM", NotSeen, 0, "Has no chart in the scheduler."},
    {By::Reed, -7, 14, {1080, 1125}, true, "CF", Seen, 0, ""},
};

class TransactionRows {
  public:
    TransactionRows(const Practice& practice, const Companion& keys, db::Connection& companion)
        : keys_(keys),
          today_(practice.options.today),
          random_(practice.options.seed, "transactions"),
          rows_(companion, "ClientTransactions",
                {"ClntId",
                 "TranId",
                 "ProvId",
                 "ProvIdAdditional",
                 "CtrnDate",
                 "CtrnTime",
                 "CtrnDuration",
                 "CtrnStatus",
                 "CtrnNotes",
                 "RecurTranId",
                 "CtrnCallStatus",
                 "appt_status",
                 "SVSessionID",
                 "CTRNDiagnosisPointer",
                 "CTRNDiagnosisPointerS",
                 "ClaimSubmStatus",
                 "isICDBlock12",
                 "DateCreated",
                 "UserIDCreated",
                 "LastModifiedDate",
                 "UserIdLastModified"}) {}

    /// Adds nothing for a booking that is not paired or was over a year ago.
    void add(const Booking& booking) {
        if (booking.kind != BookingKind::Patient || booking.date < today_.addDays(-366))
            return;
        const int client = keys_.clients[static_cast<std::size_t>(booking.patient)];
        const int provider = keys_.providers[static_cast<std::size_t>(booking.provider)];
        if (client == 0 || provider == 0)
            return;
        const bool kept = booking.color == ncolor::Kept;
        const bool charged = kept && (booking.date < today_.addDays(-3) || random_.chance(60));
        addAppointment(booking, client, provider, charged);
        if (charged && random_.chance(15))
            addPayment(booking, client, provider);
    }

    /// Adds an appointment of an unpaired client, by an unpaired provider or by REED.
    void add(const Rare& rare) {
        const int reed = keys_.providers[0];
        addRow({keys_.strangers[static_cast<std::size_t>(rare.client)], keys_.services[1],
                rare.by == By::Reed ? reed : keys_.unpaired, rare.by == By::QuintanaWithReed ? reed : 0,
                today_.addDays(rare.day), rare.hours, rare.charged, QString::fromUtf8(rare.note), rare.series,
                QString::fromLatin1(rare.call), rare.status, 0, today_.addDays(qMin(0, rare.day) - 3)});
    }

    void finish() { rows_.finish(); }

  private:
    struct Transaction {
        int client;
        int code;
        int provider;
        int second;  ///< 0 for none.
        QDate date;
        Hours hours;
        bool charged;
        QString note;
        int series;  ///< 0 for none.
        QString call;
        int status;
        int session;  ///< 0 for none.
        QDate made;
    };

    void addAppointment(const Booking& booking, int client, int provider, bool charged) {
        const int second = random_.chance(3) ? random_.pick(keys_.providers) : 0;
        const bool repeats = booking.series >= 0 && booking.series % 3 == 0;
        const bool linked = booking.session > 0 && booking.color == ncolor::Kept;
        const QDate made = qMin(today_, booking.date).addDays(-random_.between(0, 20));
        addRow({client, keys_.services[static_cast<std::size_t>(booking.service)], provider,
                second == provider ? 0 : second, booking.date, Hours{booking.start, booking.end}, charged, booking.note,
                repeats ? booking.series + 1 : 0, booking.callStatus, apptStatus(booking.color, random_),
                linked ? booking.session : 0, made});
    }

    // A payment is a row without a time and a length.
    void addPayment(const Booking& booking, int client, int provider) {
        addRow({client, keys_.payment, provider, 0, booking.date, Hours{0, 0}, true, QStringLiteral("Copay, check"), 0,
                QString(), 0, 0, booking.date});
    }

    void addRow(const Transaction& row) {
        rows_.add({row.client,
                   row.code,
                   row.provider,
                   row.second > 0 ? db::Value(row.second) : db::Value(),
                   row.date,
                   at(row.date, row.hours.start),
                   row.hours.end - row.hours.start,
                   row.charged ? "C" : "S",
                   row.note,
                   row.series,
                   row.call,
                   row.status,
                   row.session > 0 ? db::Value(row.session) : db::Value(),
                   1,
                   "A",
                   0,
                   1,
                   row.made,
                   row.provider,
                   row.made,
                   row.provider});
    }

    const Companion& keys_;
    QDate today_;
    Random random_;
    BatchWriter rows_;
};

}  // namespace

void WriteCompanionSchedule(const Practice& practice, const Companion& keys, const std::vector<Booking>& bookings,
                            db::Connection& companion) {
    TransactionRows transactions(practice, keys, companion);
    for (const Booking& booking : bookings)
        transactions.add(booking);
    for (const Rare& rare : RareRows)
        transactions.add(rare);
    transactions.finish();
}

}  // namespace demo
