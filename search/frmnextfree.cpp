#include "search/frmnextfree.h"

#include <algorithm>
#include <iterator>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

#include "appointments/patientbox.h"
#include "data/minutetime.h"
#include "people/typelengths.h"
#include "platform/calendar/colour.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"
#include "session/preferences.h"
#include "session/session.h"
#include "shell/providerpanel.h"

using db::Recordset;

namespace {

constexpr char TypesStatement[] = "Select * from AptCategories Order by aptcategory";
constexpr char ServicesStatement[] = "Select * from session_types Order by sess_cpt_code";
constexpr char ChoiceCategory[] = "Scheduler";
constexpr char ChoiceDetail[] = "NextFreeProviders";
constexpr std::size_t Sunday = 0;
constexpr std::size_t Saturday = 6;

/// The parts of the day that the form offers, in its order; the last is entered in the fields beside.
struct Part {
    const char* name;
    int start;
    int end;
};
constexpr Part Parts[] = {{QT_TRANSLATE_NOOP("frmnextfree", "Any time"), 0, MinutesPerDay},
                          {QT_TRANSLATE_NOOP("frmnextfree", "Morning"), 0, 12 * 60},
                          {QT_TRANSLATE_NOOP("frmnextfree", "Afternoon"), 12 * 60, 17 * 60},
                          {QT_TRANSLATE_NOOP("frmnextfree", "Evening"), 17 * 60, MinutesPerDay},
                          {QT_TRANSLATE_NOOP("frmnextfree", "From - to"), 8 * 60, 18 * 60}};
constexpr int EnteredPart = static_cast<int>(std::size(Parts)) - 1;

QString weekStatement() {
    return PreferenceStatement(QStringLiteral("WeekCols"), QStringLiteral("SchedulerGeneral"),
                               QString::fromLatin1(AllUsers));
}

/// What tells the patient apart, and how to call back.
QString factsOf(const PatientFacts& patient) {
    QStringList facts{patient.account, patient.homePhone, patient.otherPhone};
    facts.removeAll(QString());
    return facts.join(QStringLiteral(" · "));
}

}  // namespace

frmnextfree::frmnextfree(const NextFreeRequest& request, QWidget* parent) : QDialog(parent), request_(request) {
    setObjectName(QStringLiteral("frmnextfree"));
    setWindowTitle(tr("Next Free Hour"));
    for (QTimer* timer : {&due_, &goesOn_}) {
        timer->setSingleShot(true);
        timer->setInterval(0);
    }
    buildForm();
    loadLists();
    followLength();
    showPart();
    showPanel();
    connectFields();
    startSearch();
}

// The focus leaves its field when the form goes, which must still find the whole form.
frmnextfree::~frmnextfree() {
    hide();
}

void frmnextfree::loadLists() {
    const db::ReadTogether together(Session().Connection,
                                    {QString::fromLatin1(TypesStatement), QString::fromLatin1(ServicesStatement),
                                     TypeLengthsStatement(), weekStatement(), ListedProvidersStatement()});
    cboatypes->addItem(tr("(any)"));
    const QHash<int, int> lengths = TypeLengths();
    try {
        for (Recordset rows(QString::fromLatin1(TypesStatement), Session().Connection); !rows.Eof(); rows.MoveNext()) {
            const int colour = static_cast<int>(rows["aptcategorycolor"].integer());
            cboatypes->addItem(OneLine(rows["aptcategory"].text()), colour);
            cboatypes->setItemData(cboatypes->count() - 1, ColorFromWindows(colour), Qt::DecorationRole);
            typeMinutes_.insert(colour, lengths.value(static_cast<int>(rows["aptcategoryid"].integer())));
        }
        for (Recordset rows(QString::fromLatin1(ServicesStatement), Session().Connection); !rows.Eof(); rows.MoveNext())
            services_.emplace_back(rows["sess_cpt_code"].text() + QStringLiteral("  ") + rows["sess_cpt_name"].text(),
                                   static_cast<int>(rows["sess_cpt_time"].integer()));
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading appointment types. "), error);
    }
    for (const Part& part : Parts)
        cbopart->addItem(tr(part.name));
    const bool wholeWeek =
        GetPreference(Session().SchedulerIni, QStringLiteral("WeekCols"), QStringLiteral("SchedulerGeneral"),
                      QString::fromLatin1(AllUsers)) == QLatin1String("7");
    for (std::size_t day = 0; day < ckdays.size(); ++day)
        ckdays[day]->setChecked(wholeWeek || (day != Sunday && day != Saturday));
    loadProviders();
}

void frmnextfree::loadProviders() {
    cboproviders->addItem(OneLine(request_.provider.name));
    if (!Session().AllProviders) {
        cboproviders->setEnabled(false);
        cboproviders->setToolTip(tr("Your rights allow no other schedules."));
        return;
    }
    cboproviders->addItem(tr("Chosen providers"));
    cboproviders->addItem(tr("All providers"));
    try {
        for (Recordset rows(ListedProvidersStatement(), Session().Connection); !rows.Eof(); rows.MoveNext())
            panel->Add({rows["Id"].text(), rows["prov_lastname"].text(), rows["discipline"].text()});
        // The row into which a later choice is written is made by reading it.
        const QString kept = ReadChoice(QLatin1String(ChoiceCategory), QLatin1String(ChoiceDetail));
        if (request_.chosen.isEmpty())
            panel->Choose(kept);
        else
            panel->CheckThose([this](const ListedProvider& each) { return request_.chosen.contains(each.id); });
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading provider list. "), error);
    }
    if (request_.showsAll)
        cboproviders->setCurrentIndex(request_.chosen.isEmpty() ? AllProviders : ChosenProviders);
}

void frmnextfree::connectFields() {
    connect(&due_, &QTimer::timeout, this, &frmnextfree::startSearch);
    connect(&goesOn_, &QTimer::timeout, this, &frmnextfree::searchOn);
    connect(patient_, &PatientBox::Changed, this, &frmnextfree::showPatient);
    connect(patient_, &PatientBox::Settled, this, &frmnextfree::patientSettled);
    connect(txtpatients, &QLineEdit::textEdited, this, &frmnextfree::showPatient);
    connect(txtlength, &QSpinBox::valueChanged, this, [this] {
        lengthIsEntered_ = true;
        searchAgain();
    });
    // Whoever chooses a type means its length, also after another was entered.
    connect(cboatypes, &QComboBox::currentIndexChanged, this, [this] {
        lengthIsEntered_ = false;
        followLength();
    });
    connect(cboproviders, &QComboBox::currentIndexChanged, this, &frmnextfree::showPanel);
    connect(panel, &ProviderPanel::ChoiceChanged, this, [this] {
        db::Ignoring(
            [this] { WriteChoice(QLatin1String(ChoiceCategory), QLatin1String(ChoiceDetail), panel->Choice()); });
        searchAgain();
    });
    for (const QCheckBox* day : ckdays)
        connect(day, &QCheckBox::toggled, this, &frmnextfree::searchAgain);
    connect(ckholidays, &QCheckBox::toggled, this, &frmnextfree::searchAgain);
    connect(cbopart, &QComboBox::currentIndexChanged, this, &frmnextfree::showPart);
    for (const ctDEdit* field : {ctstart, ctend, ctdate})
        connect(field, &ctDEdit::Change, this, &frmnextfree::searchAgain);
    connect(ctList1, &ctList::RowActivated, this, &frmnextfree::book);
    connect(ctList1, &ctList::SelectionChanged, this, [this] { cmdbook->setEnabled(ctList1->SelectedRow() >= 0); });
    connect(cmdmore, &QPushButton::clicked, this, [this] {
        mostRows_ += MostRows;
        addRows();
        ctList1->setFocus();
    });
    // A mnemonic does not move the focus, and a field takes what was typed only when the focus leaves it.
    connect(cmdbook, &QPushButton::clicked, this, [this] {
        cmdbook->setFocus();
        book();
    });
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmnextfree::showPart() {
    const int index = cbopart->currentIndex();
    const bool entered = index == EnteredPart;
    ctstart->setEnabled(entered);
    ctend->setEnabled(entered);
    const Part& part = Parts[index];
    const bool wholeDay = part.start == 0 && part.end == MinutesPerDay;
    ctstart->setTime(wholeDay ? -1 : part.start);
    ctend->setTime(wholeDay ? -1 : part.end);
    searchAgain();
}

void frmnextfree::showPanel() {
    panel->setVisible(cboproviders->currentIndex() == ChosenProviders);
    searchAgain();
}

// While a name is typed, the openings stay those of whoever was settled last.
void frmnextfree::showPatient() {
    const std::optional<PatientFacts>& patient = patient_->Patient();
    if (patient)
        lblpatient->setText(factsOf(*patient));
    else
        lblpatient->clear();
}

void frmnextfree::patientSettled(bool byChoice) {
    const std::optional<PatientFacts>& patient = patient_->Patient();
    showPatient();
    if (!patient && !txtpatients->text().trimmed().isEmpty())
        lblpatient->setText(tr("Nobody has this name yet. The appointment's form offers to add it."));
    followLength();
    if (presentPatient() != searchedPatient_)
        searchAgain();
    // Who clicks an opening right after the name means that one.
    keepsRow_ = ctList1->hasFocus() || ctList1->SelectedRow() > 0;
    if (byChoice)
        goToList();
}

QString frmnextfree::presentPatient() const {
    return patient_->Patient() ? patient_->Patient()->id : QString();
}

int frmnextfree::proposedLength() const {
    const bool hasType = cboatypes->currentIndex() > 0;
    if (const int ofType = hasType ? typeMinutes_.value(cboatypes->currentData().toInt()) : 0; ofType > 0)
        return ofType;
    const QString service = patient_->Patient() ? patient_->Patient()->cpt : QString();
    for (const auto& [name, minutes] : services_)
        if (!service.isEmpty() && minutes > 0 && name.startsWith(service, Qt::CaseInsensitive))
            return minutes;
    return Session().VisitLength > 0 ? Session().VisitLength : Session().TimeUnit;
}

void frmnextfree::followLength() {
    if (lengthIsEntered_ || proposedLength() == txtlength->value())
        return;
    const QSignalBlocker quiet(txtlength);
    txtlength->setValue(proposedLength());
    searchAgain();
}

std::vector<BookedProvider> frmnextfree::wantedProviders() const {
    if (cboproviders->currentIndex() == ThisProvider)
        return {request_.provider};
    std::vector<BookedProvider> wanted;
    for (const ListedProvider& each : panel->Providers())
        if (each.shown || cboproviders->currentIndex() == AllProviders)
            wanted.push_back({each.id, each.name});
    return wanted;
}

OpeningWish frmnextfree::wish(QString& missing) const {
    OpeningWish wanted;
    wanted.minutes = txtlength->value();
    wanted.providers = wantedProviders();
    for (std::size_t day = 0; day < ckdays.size(); ++day)
        wanted.weekdays[day] = ckdays[day]->isChecked();
    if (cbopart->currentIndex() == EnteredPart)
        wanted.hours = {double(ctstart->Time()), double(ctend->Time())};
    else
        wanted.hours = {double(Parts[cbopart->currentIndex()].start), double(Parts[cbopart->currentIndex()].end)};
    wanted.from = ctdate->Date();
    wanted.patientId = presentPatient();
    wanted.holidays = ckholidays->isChecked();
    if (wanted.providers.empty())
        missing = tr("Choose a provider.");
    else if (std::find(wanted.weekdays.begin(), wanted.weekdays.end(), true) == wanted.weekdays.end())
        missing = tr("Choose a day of the week.");
    else if (wanted.hours.start < 0 || wanted.hours.end < 0)
        missing = tr("Enter the times between which to search.");
    else if (wanted.hours.end - wanted.hours.start < wanted.minutes)
        missing = tr("%1 minutes do not fit between these times.").arg(wanted.minutes);
    else if (!wanted.from.isValid())
        missing = tr("Enter a valid date.");
    return wanted;
}

// Keys that were typed ahead find the openings there.
void frmnextfree::goToList() {
    if (due_.isActive())
        startSearch();
    findFirst();
    ctList1->setFocus();
}

// What was chosen before the patient, or another field, was settled is booked only where it is still free.
void frmnextfree::book() {
    // Nobody is booked while it is asked who is meant, nor into the openings of another.
    if (patient_->IsAsking() || (!due_.isActive() && presentPatient() != searchedPatient_))
        return txtpatients->setFocus();
    std::optional<Opening> chosen = selected();
    if (chosen && due_.isActive()) {
        keepsRow_ = true;
        startSearch();
        findFirst();
        const std::optional<Opening> still = selected();
        if (!still || !still->BeginsAs(*chosen))
            return ctList1->setFocus();
        chosen = still;
    }
    if (!chosen)
        return;
    NextFree found{*chosen, searchedPatient_, {}, std::nullopt};
    if (!patient_->Patient())
        found.patientName = txtpatients->text().trimmed();
    if (cboatypes->currentIndex() > 0)
        found.category = cboatypes->currentData().toInt();
    found_ = found;
    accept();
}

void frmnextfree::reject() {
    if (!patient_->CloseMatches())
        QDialog::reject();
}

void frmnextfree::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QDialog::keyPressEvent(event);
    if (auto* button = qobject_cast<QPushButton*>(focusWidget()))
        button->click();
    else
        goToList();
}

void frmnextfree::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    patient_->PlaceMatches();
}
