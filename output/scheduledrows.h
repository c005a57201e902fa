#pragma once

#include <QDate>
#include <QHash>
#include <QString>
#include <span>
#include <vector>

#include "session/providernames.h"

/// A row of `appointments` as the schedule reports read it.
struct ScheduledRow {
    qint64 nkeyid = 0;
    QDate DApptDate = {};
    int nStartTime = 0;  ///< Minutes since midnight.
    int nEndTime = 0;
    QString cappttext = {};
    QString CapptNote = {};
    QString CLOCATION = {};
    QString clinicianid = {};
    QString patientid = {};
    QString PatientAcct = {};
    int ncolor = 0;
    int appttype = 0;
};

/// Reads the rows of a statement over `appointments`, without those of other kinds when only patients' are wanted.
/// Throws db::DatabaseError.
[[nodiscard]] std::vector<ScheduledRow> ReadScheduledRows(const QString& statement, bool patientsOnly);

/// Whether the report of patients' appointments has the row. A slot that was booked by appointment type has no patient
/// yet.
[[nodiscard]] bool IsPatientAppointment(const ScheduledRow& row);

/// How a patient is reached.
struct PatientContact {
    QString telephone_h, telephone_b, Other_Phone, EmailAddress;
};

/// A patient of a group appointment.
struct ReportedMember {
    QString PatientName;
    PatientContact contact;
    bool kept = false;
};

/// What a report tells about its rows from other tables. It is read for many rows at once, and once for each patient
/// and provider: a server far away is asked some times, and not for each row.
///
/// The constructor reads the names of the providers. It and ReadFor throw db::DatabaseError.
class ScheduleFacts {
  public:
    /// How many rows ReadFor is best given.
    static constexpr std::size_t RowsAtOnce = 250;
    /// Reads what belongs to these rows. Members and attendees of earlier rows are forgotten.
    void ReadFor(std::span<const ScheduledRow> rows);

    /// Returns the provider's name, or the id of a provider who is not there any more.
    [[nodiscard]] QString getprovname(const QString& clinicianid) const { return providers_.Of(clinicianid); }
    /// Returns the names of the providers who attend an activity, "Lane, Reed".
    [[nodiscard]] QString Attendees(qint64 nkeyid) const { return attendees_.value(nkeyid).join(QStringLiteral(", ")); }
    /// Returns empty texts for a patient who is not there any more.
    [[nodiscard]] PatientContact ContactOf(const QString& patientid) const;
    /// Returns the members of a group in the order of their names.
    [[nodiscard]] std::vector<ReportedMember> MembersOf(qint64 nkeyid) const;

  private:
    struct Member {
        QString PatientName, PatientId;
        bool kept = false;
    };
    void readMembers(const std::vector<qint64>& groups);
    void readAttendees(const QStringList& activities);
    void readContacts(const QStringList& patients);

    ProviderNames providers_;
    QHash<QString, PatientContact> contacts_;
    QHash<qint64, std::vector<Member>> members_;
    QHash<qint64, QStringList> attendees_;
};
