#include "appointments/waitoffers.h"

#include <algorithm>
#include <QHash>
#include <tuple>

#include "appointments/workinghours.h"
#include "data/codes.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/rights.h"
#include "session/session.h"

using db::Raw;
using db::Recordset;
using db::Sql;

namespace {

constexpr qsizetype MostDatesOfOneStatement = 100;

bool isCancelled(int code) {
    return code == ncolor::PatientCancelled || code == ncolor::TherapistCancelled;
}

/// A person on a day: a provider or a patient, by the id.
struct Whose {
    QString id;
    QDate date;

    friend bool operator==(const Whose&, const Whose&) = default;
    friend std::size_t qHash(const Whose& whose, std::size_t seed = 0) {
        return qHashMulti(seed, whose.id, whose.date.toJulianDay());
    }
};

Whose whose(const QString& id, QDate date) {
    return {id.trimmed().toUpper(), date};
}

/// A visit of a patient. A cancelled one is in the way only with the provider with whom it was given up.
struct Visit {
    MinuteRange time;
    QString givenUpWith;  ///< The provider of a cancelled visit; empty for one that takes place.
};

QString inDates(const QStringList& dates) {
    return QLatin1Char('\'') + dates.join(QLatin1String("', '")) + QLatin1Char('\'');
}

QString bookedStatement(const QString& dates) {
    return Sql(
        "Select dapptdate, nStartTime, nEndTime, ncolor, appttype, clinicianid, patientid From appointments Where dapptdate In ({})",
        Raw{dates});
}

QString attendedStatement(const QString& dates) {
    return Sql(
        "Select dapptdate, nStartTime, nEndTime, appointmentsevents.clinicianid From appointmentsevents Inner Join appointments On appointmentsevents.nkeyid = appointments.nkeyid Where dapptdate In ({})",
        Raw{dates});
}

QString groupsStatement(const QString& dates) {
    return Sql(
        "Select dapptdate, nStartTime, nEndTime, ncolor, AppointmentsGroup.PatientId From AppointmentsGroup Inner Join appointments On AppointmentsGroup.nKeyId = appointments.nkeyid Where dapptdate In ({})",
        Raw{dates});
}

constexpr char ProvidersStatement[] = "Select id, prov_lastname, archive From provider_info";

MinuteRange timeOf(const Recordset& row) {
    return {static_cast<int>(row["nStartTime"].integer()), static_cast<int>(row["nEndTime"].integer())};
}

/// What is booked on the dates of the freed times, and what is known of the providers.
class Practice {
  public:
    explicit Practice(const std::vector<FreedTime>& freed) {
        QStringList statements{QString::fromLatin1(ProvidersStatement), WorkingHours::Statement()};
        const QStringList chunks = datesOf(freed);
        for (const QString& dates : chunks)
            statements << bookedStatement(dates) << attendedStatement(dates) << groupsStatement(dates);
        const db::ReadTogether together(Session().Connection, statements);
        for (const FreedTime& time : freed)
            freed_[whose(time.provider, time.date)].push_back(time.time);
        readProviders();
        hours_ = WorkingHours::Read();
        for (const QString& dates : chunks) {
            readBooked(dates);
            readAttended(dates);
            readGroups(dates);
        }
    }

    [[nodiscard]] DayAround around(const FreedTime& freed) const {
        const Whose provider = whose(freed.provider, freed.date);
        DayAround day;
        day.providerActive = active_.contains(provider.id);
        day.booked = booked_.value(provider);
        day.earliest = EarliestMinute(freed.date, Now());
        day.open = freed_.value(provider);
        if (const std::optional<MinuteRange> hours = hours_.On(freed.provider, freed.date))
            day.open.push_back(*hours);
        return day;
    }

    [[nodiscard]] std::vector<MinuteRange> visits(const QString& patientId, const FreedTime& freed) const {
        std::vector<MinuteRange> times;
        for (const Visit& visit : visits_.value(whose(patientId, freed.date)))
            if (visit.givenUpWith.isEmpty() || visit.givenUpWith == freed.provider.trimmed().toUpper())
                times.push_back(visit.time);
        return times;
    }

    [[nodiscard]] QString nameOf(const QString& provider) const {
        const QString name = active_.value(provider.trimmed().toUpper());
        return name.isEmpty() ? provider : name;
    }

  private:
    static QStringList datesOf(const std::vector<FreedTime>& freed) {
        QStringList dates;
        for (const FreedTime& time : freed)
            dates << db::SqlDate(time.date);
        dates.removeDuplicates();
        QStringList chunks;
        for (qsizetype first = 0; first < dates.size(); first += MostDatesOfOneStatement)
            chunks << inDates(dates.mid(first, MostDatesOfOneStatement));
        return chunks;
    }

    void readProviders() {
        for (Recordset row(ProvidersStatement, Session().Connection); !row.Eof(); row.MoveNext())
            if (row["archive"].integer() == 0)
                active_.insert(row["id"].text().trimmed().toUpper(), row["prov_lastname"].text());
    }

    void readBooked(const QString& dates) {
        for (Recordset row(bookedStatement(dates), Session().Connection); !row.Eof(); row.MoveNext()) {
            const QDate date = row["dapptdate"].date();
            const Whose provider = whose(row["clinicianid"].text(), date);
            const bool cancelled = isCancelled(static_cast<int>(row["ncolor"].integer()));
            if (row["appttype"].integer() == ApptTypeSlot)
                continue;
            if (!cancelled)
                booked_[provider].push_back(timeOf(row));
            if (const QString patient = row["patientid"].text(); !patient.isEmpty())
                visits_[whose(patient, date)].push_back({timeOf(row), cancelled ? provider.id : QString()});
        }
    }

    void readAttended(const QString& dates) {
        for (Recordset row(attendedStatement(dates), Session().Connection); !row.Eof(); row.MoveNext())
            booked_[whose(row["clinicianid"].text(), row["dapptdate"].date())].push_back(timeOf(row));
    }

    void readGroups(const QString& dates) {
        for (Recordset row(groupsStatement(dates), Session().Connection); !row.Eof(); row.MoveNext())
            if (!isCancelled(static_cast<int>(row["ncolor"].integer())))
                visits_[whose(row["PatientId"].text(), row["dapptdate"].date())].push_back({timeOf(row), {}});
    }

    QHash<QString, QString> active_;  ///< The names of the providers who are not archived, by id.
    WorkingHours hours_;
    QHash<Whose, std::vector<MinuteRange>> freed_;
    QHash<Whose, std::vector<MinuteRange>> booked_;
    QHash<Whose, std::vector<Visit>> visits_;
};

// Two times that fell free side by side are one place for whoever needs both.
bool isOffered(const std::vector<WaitOffer>& offers, const WaitRow& row, const FreedTime& time, int start) {
    return std::any_of(offers.rbegin(), offers.rend(), [&](const WaitOffer& offer) {
        return offer.row.id == row.id && offer.start == start && offer.freed.date == time.date &&
               offer.freed.provider.compare(time.provider, Qt::CaseInsensitive) == 0;
    });
}

bool begins(const FreedTime& left, const FreedTime& right) {
    return std::tuple(left.date, left.time.start, left.provider) <
           std::tuple(right.date, right.time.start, right.provider);
}

}  // namespace

std::vector<FreedTime> OfferableTimes(const std::vector<FreedTime>& freed) {
    std::vector<FreedTime> times;
    const QDateTime now = Now();
    const auto mayBook = [](const QString& provider) {
        return Session().AllProviders || provider.compare(Session().ProviderId, Qt::CaseInsensitive) == 0;
    };
    for (const FreedTime& time : freed)
        if (MayWrite() && mayBook(time.provider) && EarliestMinute(time.date, now) < time.time.end)
            times.push_back(time);
    return times;
}

std::vector<WaitOffer> OffersFor(const std::vector<FreedTime>& freed) {
    std::vector<FreedTime> times = OfferableTimes(freed);
    if (times.empty())
        return {};
    const std::vector<WaitRow> rows = OpenWaitRows();
    if (rows.empty())
        return {};
    std::stable_sort(times.begin(), times.end(), begins);
    const Practice practice(times);
    std::vector<WaitOffer> offers;
    for (const FreedTime& time : times) {
        const DayAround around = practice.around(time);
        for (const WaitRow& row : rows) {
            const std::optional<int> start =
                StartThatFits(row.entry, time, around, practice.visits(row.entry.patientId, time));
            if (start && !isOffered(offers, row, time, *start))
                offers.push_back({row, time, practice.nameOf(time.provider), *start});
        }
    }
    return offers;
}
