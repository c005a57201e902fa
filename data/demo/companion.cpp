#include "data/demo/companion.h"

#include "data/demo/tablewriter.h"

#include <array>

namespace demo {

namespace {

constexpr int PairedOfFourteen = 10;
constexpr int ProviderList = 1, PatientList = 4;

class ClientRows {
  public:
    ClientRows(const Practice& practice, const Companion& keys, db::Connection& companion)
        : today_(practice.options.today),
          keys_(keys),
          random_(practice.options.seed, "clients"),
          details_(practice.options.seed, "client details"),
          clients_(companion, "Clients",
                   {"ClntFirstName",
                    "ClntLastName",
                    "ClntMiddleInitial",
                    "ClntMr",
                    "ClntSuffix",
                    "ClntAddressOne",
                    "ClntAddressTwo",
                    "ClntCity",
                    "ClntState",
                    "ClntZipCode",
                    "ClntHomePhone",
                    "ClntHomeExt",
                    "ClntWorkPhone",
                    "ClntWorkExt",
                    "ClntEmailAddress",
                    "ClntUsualFee",
                    "ClntFeeAdjustment",
                    "ClntCurrentBalance",
                    "ClntActiveInd",
                    "ClntOtherNumberOne",
                    "LookIdNUMBOne",
                    "TranIDQuickCharge",
                    "ProvId",
                    "ClntSex",
                    "DateCreated",
                    "LastModifiedDate"}),
          parties_(companion, "ClientParties",
                   {"ClntId", "PartMr", "PartFirstName", "PartMiddleInitial", "PartLastName", "PartSuffix"}),
          shares_(companion, "ClientChargeDistributions",
                  {"ClntId", "PartId", "CDisType", "CDisPercentDue", "CDisFixedAmount"}),
          policies_(companion, "clientInsurancePolicies", {"InsrId", "ClntId", "CPolType", "CPolActiveInd"}) {
        TableWriter lookups(companion, "LookupValues", {"LookCode", "LookName"});
        for (const char* name : {"Cell Phone", "School ID", "Emergency Contact"}) {
            lookups.add({"NUMB", name});
            lookups_.push_back(lookups.key());
        }
        lookups.add({"RACE", "Not asked"});
        TableWriter insurers(companion, "InsuranceCompanies", {"InsrName"});
        for (const char* name : {"Blue Harbor Health", "Prairie Mutual", "Northern Lakes HMO", "Unity Benefit Trust",
                                 "St. Odile Health Plan", "State Medical Assistance"}) {
            insurers.add({name});
            insurers_.push_back(insurers.key());
        }
    }

    int add(const Patient& patient, int provider) {
        const Address address = SomeAddress(random_);
        const QStringList street = address.street.split(QStringLiteral("\r\n"));
        const bool number = random_.chance(90);
        clients_.add({patient.person.first,
                      patient.person.last,
                      patient.person.middle,
                      details_.chance(90) ? (patient.person.female ? "Ms." : "Mr.") : "",
                      !patient.person.female && details_.chance(8) ? "Jr." : "",
                      street[0],
                      street.size() > 1 ? street[1] : QString(),
                      address.city,
                      address.state,
                      address.zip,
                      PhoneText(patient.homePhone.left(10)),
                      details_.chance(5) ? QString::number(details_.between(2, 99)) : QString(),
                      PhoneText(patient.workPhone.left(10)),
                      patient.workPhone.mid(10),
                      random_.chance(60) ? SomeEmail(patient.person, random_) : QString(),
                      known(90.0 + 15 * random_.between(0, 6)),
                      random_.chance(20) ? 20.0 : 0.0,
                      known(random_.between(-4, 40) * 10),
                      patient.archived ? 0 : 1,
                      number ? PhoneText(SomePhone(random_)) : QString(),
                      number ? db::Value(random_.pick(lookups_)) : db::Value(),
                      random_.chance(85) ? db::Value(random_.pick(keys_.services)) : db::Value(),
                      provider,
                      patient.person.female ? "F" : "M",
                      today_.addDays(-400),
                      today_.addDays(-random_.between(0, 90))});
        const int client = clients_.key();
        addMoney(client);
        return client;
    }

    void finish() {
        for (BatchWriter* writer : {&clients_, &parties_, &shares_, &policies_})
            writer->finish();
    }

  private:
    /// An amount that the companion does not know of every client.
    db::Value known(double amount) { return details_.chance(94) ? db::Value(amount) : db::Value(); }

    void addMoney(int client) {
        if (random_.chance(70)) {
            const bool percent = random_.chance(40);
            shares_.add(
                {client, nullptr, 0, percent ? db::Value(20.0) : db::Value(), percent ? db::Value() : db::Value(25.0)});
        }
        if (random_.chance(12)) {
            const Person payer = SomePerson(random_);
            parties_.add({client, payer.female ? "Ms." : "Mr.", payer.first, payer.middle, payer.last, ""});
            shares_.add({client, parties_.key(), 1, nullptr, 15.0});
        }
        if (details_.chance(8))
            addPercentPayer(client);
        if (random_.chance(85))
            policies_.add({random_.pick(insurers_), client, "P", 1});
        if (random_.chance(15))
            policies_.add({random_.pick(insurers_), client, "S", random_.chance(80) ? 1 : 0});
    }

    // Another party pays by percent, beside the one who pays an amount where there is one.
    void addPercentPayer(int client) {
        const Person payer = SomePerson(details_);
        parties_.add({client, payer.female ? "Ms." : "Mr.", payer.first, payer.middle, payer.last,
                      details_.chance(20) ? "Sr." : ""});
        shares_.add({client, parties_.key(), 1, 30.0, nullptr});
    }

    QDate today_;
    const Companion& keys_;
    Random random_;
    Random details_;
    std::vector<int> lookups_;
    std::vector<int> insurers_;
    BatchWriter clients_;
    BatchWriter parties_;
    BatchWriter shares_;
    BatchWriter policies_;
};

void writeCodes(const Practice& practice, Companion& keys, db::Connection& companion) {
    TableWriter codes(companion, "TransactionCodes", {"TranName", "TranDescription", "TranType"});
    for (const Service& service : practice.services) {
        codes.add({service.code, service.name, "C"});
        keys.services.push_back(codes.key());
    }
    codes.add({"PMT", "Payment by Client", "P"});
    keys.payment = codes.key();
    codes.add({"ADJ", "Adjustment", "A"});
}

void writeProviders(const Practice& practice, Companion& keys, db::Connection& companion) {
    TableWriter providers(companion, "Providers", {"ProvFirstName", "ProvLastName"});
    for (std::size_t i = 0; i < practice.providers.size(); ++i) {
        const Provider& provider = practice.providers[i];
        if (i % 14 >= PairedOfFourteen) {
            keys.providers.push_back(0);
            continue;
        }
        providers.add({provider.first, provider.last});
        keys.providers.push_back(providers.key());
    }
    // A provider who works only in the companion.
    providers.add({"Beatriz", "Quintana"});
    keys.unpaired = providers.key();
}

}  // namespace

Companion WriteCompanion(const Practice& practice, db::Connection& companion) {
    Companion keys;
    keys.databaseId = QStringLiteral("FH-%1").arg(practice.options.seed, 6, 10, QLatin1Char('0'));
    TableWriter defaults(companion, "DefaultFieldValues", {"DfltFieldName", "DfltValue"});
    defaults.add({"DBID", keys.databaseId});
    defaults.add({"STATE", "WI"});
    writeCodes(practice, keys, companion);
    writeProviders(practice, keys, companion);

    Random random(practice.options.seed, "pairs");
    ClientRows clients(practice, keys, companion);
    for (const Patient& patient : practice.patients) {
        const int provider = keys.providers[static_cast<std::size_t>(patient.provider)];
        const bool paired = provider > 0 && (patient.provider < 2 || random.chance(45));
        keys.clients.push_back(paired ? clients.add(patient, provider) : 0);
    }
    // Clients whom the main database does not have.
    for (int i = 0; i < 20; ++i) {
        Patient stranger;
        stranger.person = SomePerson(random);
        stranger.homePhone = SomePhone(random);
        keys.strangers.push_back(clients.add(stranger, keys.providers[0]));
    }
    clients.finish();
    return keys;
}

void WritePairs(const Practice& practice, const Companion& companion, db::Connection& main) {
    BatchWriter pairs(main, "FHDataPairs", {"FHDataList", "FHDatabase", "FHDataValue", "SVDataValue"});
    for (std::size_t i = 0; i < practice.providers.size(); ++i) {
        if (companion.providers[i] > 0)
            pairs.add({ProviderList, companion.databaseId, companion.providers[i], practice.providers[i].id});
    }
    for (std::size_t i = 0; i < practice.patients.size(); ++i) {
        if (companion.clients[i] > 0)
            pairs.add({PatientList, companion.databaseId, companion.clients[i], practice.patients[i].id});
    }
    pairs.finish();
}

}  // namespace demo
