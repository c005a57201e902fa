#include <algorithm>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <tuple>

#include "data/codes.h"
#include "data/minutetime.h"
#include "data/namedpatients.h"
#include "data/pipefields.h"
#include "data/statuses.h"
#include "platform/controls/datefield.h"
#include "platform/controls/formparts.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "search/frmfinda.h"
#include "session/preferences.h"
#include "session/providernames.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr char AllDetail[] = "FindAllProviders";
constexpr char AllCategory[] = "SchedulerGeneral";

struct Visit {
    qint64 key = 0;
    QDate date;
    int start = 0;
    int end = 0;
    int code = 0;
    bool named = false;
    QString text;
    QString place;
    QString clinician;
    bool toCome = false;
};

Visit visitOf(const Recordset& row) {
    Visit visit;
    visit.key = row["nkeyid"].integer();
    visit.date = row["dapptdate"].date();
    visit.start = static_cast<int>(row["nstarttime"].integer());
    visit.end = static_cast<int>(row["nendtime"].integer());
    visit.code = static_cast<int>(row["ncolor"].integer());
    visit.named = NamesPatient(visit.code, !row["patientid"].text().isEmpty());
    visit.text = row["cappttext"].text();
    visit.place = row["clocation"].text();
    visit.clinician = row["clinicianid"].text();
    return visit;
}

/// Whether a visit lasts still or comes later.
bool isToCome(const Visit& visit, const QDateTime& now) {
    const int minute = now.time().hour() * 60 + now.time().minute();
    return visit.date > now.date() || (visit.date == now.date() && visit.end > minute);
}

/// Those to come stand before those that are past; in both the one nearest to now stands first.
bool isNearer(const Visit& a, const Visit& b) {
    if (a.toCome != b.toCome)
        return a.toCome;
    const Visit& earlier = a.toCome ? a : b;
    const Visit& later = a.toCome ? b : a;
    return std::tie(earlier.date, earlier.start, earlier.key) < std::tie(later.date, later.start, later.key);
}

QString statusWord(int code) {
    const Status& status = StatusOf(code);
    return QString::fromLatin1(*status.inFind != 0 ? status.inFind : status.word);
}

QString providerName(const ProviderNames& providers, const QString& clinician) {
    return clinician == QLatin1String(EventClinicianId) ? frmfinda::tr("Several providers") : providers.Of(clinician);
}

/// The pattern of Like for a text: one letter stands at the beginning, more stand anywhere.
QString patternOf(const QString& text) {
    return (text.size() == 1 ? QString() : QStringLiteral("%")) + db::LikeText(text) + u'%';
}

}  // namespace

void frmfinda::addChoiceOfAll() {
    ckall = Named(new QCheckBox(tr("All Pro&viders, next appointment first"), this), "ckall");
    if (Session().AllProviders) {
        ckall->setToolTip(tr("Search the schedules of all providers, and the members of groups"));
        ckall->setChecked(GetPreference({}, QLatin1String(AllDetail), QLatin1String(AllCategory)) == u'1');
    } else {
        ckall->setEnabled(false);
        ckall->setToolTip(tr("Your access covers only your own schedule."));
    }
    ckall->setAccessibleDescription(ckall->toolTip());
    connect(ckall, &QCheckBox::toggled, this, &frmfinda::chooseAll);
    addChoice(ckall);
}

void frmfinda::chooseAll(bool all) {
    SetPreference(all ? QStringLiteral("1") : QStringLiteral("0"), QLatin1String(AllDetail),
                  QLatin1String(AllCategory));
    showColumns();
}

// The rows come without an order: what is next depends on the time of day, and the engine would fetch a million rows
// through an index of dates to sort a few.
QString frmfinda::allStatement(const QString& text) {
    const QString pattern = patternOf(text);
    return Sql(
        "Select nkeyid, dapptdate, nstarttime, nendtime, cappttext, clocation, ncolor, clinicianid, patientid from appointments Where CapptText Like '{}' Or nkeyid In (Select nKeyId from AppointmentsGroup Where PatientName Like '{}')",
        pattern, pattern);
}

void frmfinda::listByNearness(Recordset& rows) {
    const ProviderNames providers;
    const QHash<qint64, QStringList> members = membersFound();
    const QDateTime now = Now();
    std::vector<Visit> visits;
    visits.reserve(static_cast<std::size_t>(rows.RecordCount()));
    toCome_ = 0;
    for (; !rows.Eof(); rows.MoveNext()) {
        Visit& visit = visits.emplace_back(visitOf(rows));
        visit.toCome = isToCome(visit, now);
        toCome_ += visit.toCome ? 1 : 0;
    }
    hits_ = static_cast<int>(visits.size());
    const auto listed = visits.begin() + std::min(hits_, MostListed);
    std::partial_sort(visits.begin(), listed, visits.end(), isNearer);
    const bool military = Session().MilitaryTime;
    const auto order = static_cast<DateOrder>(Session().DateOrder);
    for (auto visit = visits.begin(); visit != listed; ++visit) {
        const QStringList names = members.value(visit->key);
        const QString text = names.isEmpty()
                                 ? visit->text
                                 : QStringLiteral("%1: %2").arg(visit->text, names.join(QStringLiteral(" / ")));
        const int line =
            ctList1->AddRow({CleanFieldText(text), providerName(providers, visit->clinician),
                             DateFieldText(visit->date, order), MinutesToTimeText(visit->start, military),
                             MinutesToTimeText(visit->end, military), visit->place, statusWord(visit->code)},
                            visit->key);
        if (visit->named || !names.isEmpty())
            ctList1->NameCell(line, DescriptionColumn);
    }
}

/// Returns the members of groups whose names contain the text, by the keys of the groups' appointments.
QHash<qint64, QStringList> frmfinda::membersFound() const {
    QHash<qint64, QStringList> members;
    Recordset rows(
        Sql("Select nKeyId, PatientName from AppointmentsGroup Where PatientName Like '{}' Order by PatientName",
            patternOf(txtfind->text())),
        Session().Connection);
    for (; !rows.Eof(); rows.MoveNext())
        members[rows["nkeyid"].integer()] << rows["patientname"].text();
    return members;
}

QString frmfinda::countText(int hits) const {
    if (!ckall->isChecked())
        return FindDialog::countText(hits);
    if (hits_ == 1)
        return toCome_ == 1 ? tr("1 appointment, to come") : tr("1 appointment, past");
    const QLocale words(QLocale::English, QLocale::UnitedStates);
    if (hits_ > hits)
        return tr("The nearest %1 of %2 appointments. Type more of the text.")
            .arg(words.toString(hits), words.toString(hits_));
    if (toCome_ == 0)
        return tr("%1 appointments, all past").arg(hits);
    if (toCome_ == hits)
        return tr("%1 appointments, all to come").arg(hits);
    return tr("%1 appointments: %2 to come, %3 past").arg(hits).arg(toCome_).arg(hits - toCome_);
}

// A shared activity stands in the schedules of all who attend it. The one that is shown is left only for another that
// has the appointment.
void frmfinda::turnToProvider(qint64 key, const QString& clinician) {
    SessionValues& session = Session();
    const auto isShown = [&session](const QString& id) {
        return id.compare(session.ProviderId, Qt::CaseInsensitive) == 0;
    };
    QStringList owners{clinician};
    if (clinician == QLatin1String(EventClinicianId)) {
        owners.clear();
        Recordset attendees(
            Sql("Select clinicianid from appointmentsevents Where nkeyid = {} Order by clinicianid", key),
            session.Connection);
        for (; !attendees.Eof(); attendees.MoveNext())
            owners << attendees[0].text();
    }
    if (owners.isEmpty() || std::ranges::any_of(owners, isShown))
        return;
    const QString name = ProviderNames().Of(owners.front());
    session.ProviderId = owners.front();
    session.ProviderName = name;
    providerChanged_ = true;
}
