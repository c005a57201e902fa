#include "data/demo/patients.h"

#include "data/demo/tablewriter.h"

#include <algorithm>
#include <array>

namespace demo {

namespace {

constexpr int UsualPatients = 1800;

constexpr std::array AppointmentAlerts{"Balance due: please collect at the desk.",
                                       "Needs a ground-floor room (wheelchair).",
                                       "Interpreter required: Spanish.",
                                       "Do not leave messages at work.",
                                       "Referral expires this month. Ask for the new one.",
                                       "Prefers mornings; works second shift."};
constexpr std::array CheckInAlerts{"New insurance card to be copied.", "Consent form is out of date.",
                                   "Update address and emergency contact.", "Give the PHQ form on arrival."};
constexpr std::array Programs{"Outpatient", "Intensive Outpatient", "Child and Family", "Substance Use",
                              "School Based"};

QDate someBirthday(Random& random, const Provider& provider, QDate today) {
    const bool child = provider.discipline.startsWith(QLatin1String("Child"));
    const int age = child ? random.between(4, 17) : random.between(14, 86);
    return today.addDays(-age * 365 - random.between(0, 364));
}

class PatientRows {
  public:
    PatientRows(const Practice& practice, db::Connection& connection)
        : practice_(practice),
          today_(practice.options.today),
          random_(practice.options.seed, "patient rows"),
          info_(connection, "patient_info",
                {"id",
                 "last_name",
                 "first_name",
                 "middle_init",
                 "salutation",
                 "acctnbr",
                 "provider_id",
                 "incident_nbr",
                 "total_episodes",
                 "defaultCPT",
                 "archive",
                 "address",
                 "city",
                 "state",
                 "zipcode",
                 "telephone_h",
                 "telephone_b",
                 "Other_Phone",
                 "Other_Phone_Type",
                 "CallPhoneNumber",
                 "EmailAddress",
                 "PreferredContactMode",
                 "birth_date",
                 "sex",
                 "ssn"}),
          episodes_(connection, "incident_hx",
                    {"Patient_id", "incident_nbr", "provider_id", "treatment_program", "init_contact_date"}),
          access_(connection, "PatientAccess", {"patientid", "providerid"}),
          alerts_(connection, "Patient_Alerts",
                  {"patient_id", "alert_type", "Status", "BeginDate", "EndDate", "alert"}),
          authorizations_(
              connection, "authorizations",
              {"patient_id", "sess_remaining", "cpt_allowed", "authoriz_active", "start_date", "end_date"}) {}

    void add(const Patient& patient) {
        const int episodes = random_.chance(14) ? 2 : 1;
        addInfo(patient, episodes);
        addEpisodes(patient, episodes);
        if (random_.chance(15)) {
            const auto& other = random_.pick(practice_.providers);
            if (other.id != provider(patient).id)
                access_.add({patient.id, other.id});
        }
        addAlerts(patient);
        if (random_.chance(30))
            addAuthorization(patient);
    }

    void finish() {
        for (BatchWriter* writer : {&info_, &episodes_, &access_, &alerts_, &authorizations_})
            writer->finish();
    }

  private:
    const Provider& provider(const Patient& patient) const {
        return practice_.providers[static_cast<std::size_t>(patient.provider)];
    }

    void addInfo(const Patient& patient, int episodes) {
        const Address address = SomeAddress(random_);
        const bool cell = random_.chance(70);
        const QString cellPhone = cell ? SomePhone(random_) : QString();
        static constexpr std::array Contacts{"Home Phone", "Cell Phone", "E-Mail", "Text Message"};
        info_.add({patient.id, patient.person.last, patient.person.first, patient.person.middle,
                   patient.person.female ? "Ms." : "Mr.", patient.account, provider(patient).id, episodes, episodes,
                   patient.defaultService, patient.archived ? 1 : 0, address.street, address.city, address.state,
                   address.zip, patient.homePhone, patient.workPhone, cellPhone, cell ? "Cell Phone" : "",
                   cell && random_.chance(40) ? db::Value(cellPhone) : db::Value(),
                   random_.chance(65) ? db::Value(SomeEmail(patient.person, random_)) : db::Value(),
                   random_.chance(60) ? db::Value(random_.pick(Contacts)) : db::Value(),
                   someBirthday(random_, provider(patient), today_), patient.person.female ? "Female" : "Male",
                   // Numbers that begin with 9 are given to nobody.
                   random_.chance(50)
                       ? db::Value(QStringLiteral("9%1").arg(random_.between(0, 99999999), 8, 10, QLatin1Char('0')))
                       : db::Value()});
    }

    void addEpisodes(const Patient& patient, int episodes) {
        QDate contact = today_.addDays(-random_.between(900, 2400));
        for (int episode = 1; episode <= episodes; ++episode) {
            episodes_.add({patient.id, episode, provider(patient).id, random_.pick(Programs), contact});
            contact = contact.addDays(random_.between(200, 800));
        }
    }

    void addAlerts(const Patient& patient) {
        if (random_.chance(5))
            alerts_.add({patient.id, "Appointment", 1, nullptr, nullptr, random_.pick(AppointmentAlerts)});
        if (random_.chance(4)) {
            const QDate begin = today_.addDays(-random_.between(0, 60));
            alerts_.add({patient.id, "Check-In", 1, begin, begin.addDays(90), random_.pick(CheckInAlerts)});
        }
        if (random_.chance(3))
            alerts_.add({patient.id, "Appointment", 0, nullptr, nullptr, random_.pick(AppointmentAlerts)});
    }

    // A few authorizations are used up and a few have ended.
    void addAuthorization(const Patient& patient) {
        const QDate start = today_.addDays(-random_.between(10, 400));
        const int remaining = random_.chance(12) ? 0 : random_.between(1, 24);
        authorizations_.add(
            {patient.id, remaining, patient.defaultService, random_.chance(90) ? 0 : 1, start, start.addDays(365)});
    }

    const Practice& practice_;
    QDate today_;
    Random random_;
    BatchWriter info_;
    BatchWriter episodes_;
    BatchWriter access_;
    BatchWriter alerts_;
    BatchWriter authorizations_;
};

}  // namespace

void MakePatients(Practice& practice) {
    Random random(practice.options.seed, "patients");
    const int count = std::clamp(practice.options.appointments / 22, 150, UsualPatients * practice.size);
    const int providers = static_cast<int>(practice.providers.size());
    for (int i = 0; i < count; ++i) {
        Patient patient;
        patient.id = QString::number(10001 + i);
        patient.person = SomePerson(random);
        patient.account = QStringLiteral("%1-%2").arg(patient.person.last.left(1).toUpper()).arg(20417 + i * 3);
        patient.homePhone = random.chance(92) ? SomePhone(random) : QString();
        patient.workPhone = random.chance(35) ? SomePhone(random, random.chance(40)) : QString();
        patient.provider = random.between(0, providers - 1);
        // A trainee sees only a few patients.
        if (practice.providers[static_cast<std::size_t>(patient.provider)].work == Work::Trainee && random.chance(70))
            patient.provider = random.between(0, 1);
        patient.archived = random.chance(8);
        patient.defaultService =
            random.chance(80) ? practice.services[random.weighted({4, 40, 18, 8, 6, 6, 10, 8})].code : QString();
        practice.patients.push_back(patient);
    }
}

void WritePatients(const Practice& practice, db::Connection& connection) {
    PatientRows rows(practice, connection);
    for (const Patient& patient : practice.patients)
        rows.add(patient);
    rows.finish();
}

}  // namespace demo
