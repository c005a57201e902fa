#include <memory>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>

#include "appointments/frmnore.h"
#include "benchmarks/baredatabase.h"
#include "benchmarks/benches.h"
#include "data/schema.h"
#include "people/frmabook.h"
#include "platform/controls/ctlist.h"
#include "platform/database/sql.h"
#include "session/fillprogress.h"
#include "session/session.h"

using db::Sql;

namespace {

constexpr int patientCount = 100000;

/// A practice with so many patients that a look-up could be felt.
class CrowdedPractice {
  public:
    CrowdedPractice() {
        db::Connection connection;
        connection.Create(connectionText());
        ApplySchema(connection, SchemaScript::Main);
        connection.BeginTrans();
        for (int i = 0; i < patientCount; ++i) {
            const QString name = nameOf(i);
            connection.Execute(
                QStringLiteral(
                    "Insert Into patient_info (id, last_name, first_name, acctnbr, telephone_h) Values (?, ?, ?, ?, '5551234567')"),
                {QString::number(10000 + i), name, nameOf(i * 31 + 7), QString::number(i)});
        }
        connection.CommitTrans();
    }

    [[nodiscard]] std::string file() const { return folder_.filePath(QStringLiteral("practice.db")).toStdString(); }
    void openSession() const {
        ResetSession();
        SessionValues& session = Session();
        session.Connection.Open(connectionText());
        session.UID = session.ProviderId = QStringLiteral("REED");
        session.ScreenAccess = 3;
        session.AllProviders = true;
        session.CurrentView = View::Day;
        session.WordUsage = QStringLiteral("Patient");
        session.PhoneMask = QStringLiteral("(###) ###-####");
    }

  private:
    [[nodiscard]] QString connectionText() const {
        return QStringLiteral("Data Source=%1;Initial Catalog=practice;").arg(folder_.path());
    }
    /// Spread over the alphabet, "Baca0" to "Zozo9".
    static QString nameOf(int i) {
        static const QString consonants = QStringLiteral("bcdfghjklmnpqrstvwxyz");
        static const QString vowels = QStringLiteral("aeiou");
        QString name;
        for (int part = 0; part < 3; ++part) {
            name += consonants[i % 21];
            i /= 21;
            name += vowels[i % 5];
            i /= 5;
        }
        name[0] = name[0].toUpper();
        return name;
    }

    QTemporaryDir folder_;
};

const CrowdedPractice& practice() {
    static const CrowdedPractice made;
    return made;
}

struct Typed {
    const char* what;
    const char* before;
    char key;
};
// The last is nobody's name, so that every patient is looked at.
constexpr Typed cases[] = {{"Look-up, the first letter typed", "", 'm'},
                           {"Look-up, the fourth letter typed", "mor", 'a'},
                           {"Look-up, a letter that fits nobody", "zzz", 'z'}};

void bareLookUp(benchmark::State& state, const Typed& typed) {
    BareDatabase bare(practice().file());
    const std::string statement =
        Sql("Select id, last_name, first_name, middle_init, acctnbr, telephone_h, telephone_b, defaultCPT, Other_Phone_Type, Other_Phone, EmailAddress from patient_Info Where archive = 0 and last_name || ', ' || first_name Like '{}{}%' Order by last_name, first_name, middle_init",
            typed.before, QString(QLatin1Char(typed.key)))
            .toStdString();
    for (auto _ : state)
        bare.read(statement);
}

void ourLookUp(benchmark::State& state, const Typed& typed) {
    practice().openSession();
    frmnore editor({apptkind::Patient, true, 0, View::Day, {QStringLiteral("REED"), QString()}, std::nullopt});
    editor.show();
    editor.txtpatients->setFocus();
    QApplication::processEvents();
    for (auto _ : state) {
        state.PauseTiming();
        editor.txtpatients->setText(QLatin1String(typed.before));
        state.ResumeTiming();
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(typed.key)));
        QApplication::sendEvent(editor.txtpatients, &press);
        benchmark::DoNotOptimize(editor.txtpatients->grab());
    }
    if (editor.PatientTag().isEmpty() != (typed.key == 'z'))
        state.SkipWithError("the look-up found what it should not, or did not find what it should");
    // The connection goes before the folder with its file.
    ResetSession();
}

/// The statement of the patients' list in the address book, as the bare engine takes it.
std::string patientsList(const char* limit) {
    return std::string(
               "Select id, last_name, first_name, address, city, state, zipcode, telephone_h, telephone_b, other_phone_type, other_phone from patient_Info Where archive = 0 Order by last_name, first_name") +
           limit;
}

void bareFirstRows(benchmark::State& state) {
    BareDatabase bare(practice().file());
    for (auto _ : state)
        bare.read(patientsList(" Limit 200"));
}

void bareAllRows(benchmark::State& state) {
    BareDatabase bare(practice().file());
    for (auto _ : state)
        bare.read(patientsList(""));
}

/// From the choice of the patients' list to its first screen, or to its last row.
void ourPatients(benchmark::State& state, bool whole) {
    practice().openSession();
    frmabook book;
    book.show();
    QApplication::processEvents();
    for (auto _ : state) {
        book.cbogroups->setCurrentIndex(static_cast<int>(AddressList::Patients));
        Q_EMIT book.cbogroups->activated(book.cbogroups->currentIndex());
        while (whole && book.pnlprogress->isVisible())
            QApplication::processEvents();
        benchmark::DoNotOptimize(book.grab());
        state.PauseTiming();
        const int rows = book.ctList1->RowCount();
        if (whole ? rows != patientCount : rows < 200)
            state.SkipWithError("the list is not as long as it should be");
        book.cbogroups->setCurrentIndex(static_cast<int>(AddressList::Personal));
        Q_EMIT book.cbogroups->activated(book.cbogroups->currentIndex());
        state.ResumeTiming();
    }
    // The connection goes before the folder with its file.
    ResetSession();
}

}  // namespace

void RegisterLookUpBenches() {
    for (const Typed& typed : cases) {
        const std::string name = std::string(typed.what) + "/100k";
        benchmark::RegisterBenchmark((name + "/bare").c_str(), bareLookUp, typed)->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((name + "/ours").c_str(), ourLookUp, typed)->Unit(benchmark::kMillisecond);
    }
    const auto add = [](const char* name, auto&& bench, auto... arguments) {
        benchmark::RegisterBenchmark(name, bench, arguments...)->Unit(benchmark::kMillisecond);
    };
    add("Address book, the first 200 patients/100k/bare", bareFirstRows);
    add("Address book, the first 200 patients/100k/ours", ourPatients, false);
    add("Address book, all patients/100k/bare", bareAllRows);
    add("Address book, all patients/100k/ours", ourPatients, true);
}
