#include <memory>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>

#include "appointments/frmnore.h"
#include "benchmarks/baredatabase.h"
#include "benchmarks/benches.h"
#include "data/schema.h"
#include "platform/database/sql.h"
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
        session.ApptKind = 1;
        session.IsNewAppt = true;
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
    frmnore editor;
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

}  // namespace

void RegisterLookUpBenches() {
    for (const Typed& typed : cases) {
        const std::string name = std::string(typed.what) + "/100k";
        benchmark::RegisterBenchmark((name + "/bare").c_str(), bareLookUp, typed)->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((name + "/ours").c_str(), ourLookUp, typed)->Unit(benchmark::kMillisecond);
    }
}
