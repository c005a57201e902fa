#include "followup/frmmsdapt.h"

#include <QHash>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>

#include "appointments/appointmentrows.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formstate.h"
#include "platform/controls/notefield.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/spelling/vsspell.h"
#include "platform/text/plaintext.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/rights.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr char ProvidersStatement[] = "Select * from provider_info Where archive = 0 Order by prov_lastname";

/// Returns the name by which a provider stands in the list. Those who bear the same name are told apart by their ids.
QString listedName(const QString& id, const QString& lastName, bool isAlone) {
    return isAlone && !lastName.isEmpty() ? lastName : QStringLiteral("%1 (%2)").arg(lastName, id).trimmed();
}

}  // namespace

frmmsdApt::frmmsdApt(const MissedNoteRequest& request, QWidget* parent)
    : EditorDialog(parent), request_(request), noteId_(request.NoteId), readOnly_(request.ReadOnly || !MayWrite()) {
    setObjectName(QStringLiteral("frmmsdApt"));
    setWindowTitle(QStringLiteral("Missed Appointment Note"));
    buildForm();
    connectFields();
    load();
    FollowHiddenNames(this, [this](bool) { showPatient(patientName_); });
    FitToScreen(*this);
}

// When the form goes, the focus leaves its field, and the spelling takes its underlines out of the text, of which the
// text tells. Both must still find the whole form.
frmmsdApt::~frmmsdApt() {
    hide();
    delete VSSpell1;
}

QString frmmsdApt::Subject() const {
    return tr("missed appointment note of %1").arg(ctdate->Text());
}

bool frmmsdApt::IsChanged() const {
    return savedState_ && *savedState_ != FormState(*this);
}

void frmmsdApt::load() {
    const BusyPointer busy;
    QStringList statements{AppointmentStatement(request_.ItemKey), QString::fromLatin1(ProvidersStatement)};
    if (noteId_ != 0)
        statements << MissedNoteStatement(noteId_);
    const db::ReadTogether together(Session().Connection, statements);
    loadAppointment();
    showType(MissedTypeOfColour(request_.ItemColor));
    ctdate->setDateOrder(Session().DateOrder);
    ctdate->setDate(request_.date);
    LoadProviders();
    if (noteId_ != 0)
        loadnote();
    if (readOnly_)
        SetRO();
    else
        enableFields();
    savedState_ = FormState(*this);
}

void frmmsdApt::loadAppointment() {
    TryAndTell(tr("The appointment could not be read. "), [this] {
        const Recordset row(AppointmentStatement(request_.ItemKey), Session().Connection);
        if (row.Eof())
            return;
        showPatient(row["cappttext"].text());
        appointmentNote_ = static_cast<int>(row["NoteID"].integer());
    });
}

void frmmsdApt::showPatient(const QString& name) {
    patientName_ = name;
    lblpatient->setText(OneLine(ShownName(name)));
    lblpatient->setToolTip(TipText(lblpatient->text()));
}

void frmmsdApt::LoadProviders() {
    TryAndTell(tr("The providers could not be read. "), [this] {
        struct Provider {
            QString id;
            QString lastName;
        };
        QList<Provider> providers;
        QHash<QString, int> bearers;
        for (Recordset rows(QString::fromLatin1(ProvidersStatement), Session().Connection); !rows.Eof();
             rows.MoveNext()) {
            providers.append({rows["id"].text(), OneLine(rows["prov_lastname"].text())});
            ++bearers[providers.back().lastName.toLower()];
        }
        for (const Provider& provider : providers)
            addProvider(provider.id, provider.lastName,
                        listedName(provider.id, provider.lastName, bearers.value(provider.lastName.toLower()) == 1));
    });
    cboprovider->SetListIndex(rowOfProvider(Session().ProviderId));
}

void frmmsdApt::addProvider(const QString& id, const QString& lastName, const QString& listed) {
    cboprovider->AddItem(listed);
    List1->addItem(id);
    List1->item(List1->count() - 1)->setData(Qt::UserRole, lastName.isEmpty() ? id : lastName);
}

QString frmmsdApt::providerId() const {
    return List1->item(cboprovider->ListIndex())->text();
}

QString frmmsdApt::providerName() const {
    const QListWidgetItem* provider = List1->item(cboprovider->ListIndex());
    return provider == nullptr ? QString() : provider->data(Qt::UserRole).toString();
}

int frmmsdApt::rowOfProvider(const QString& id) const {
    const QList<QListWidgetItem*> found = List1->findItems(id, Qt::MatchFixedString);
    return found.isEmpty() ? -1 : List1->row(found.first());
}

void frmmsdApt::loadnote() {
    std::optional<StoredSignature> signature;
    bool found = true;
    unread_ = !TryAndTell(tr("The note could not be read. "), [&] {
        Recordset rows(MissedNoteStatement(noteId_), Session().Connection);
        found = !rows.Eof();
        if (!found)
            return;
        showPatient(rows["Patient"].text());
        showNote(MissedNoteStateOf(rows));
        signature = StoredSignatureOf(rows);
    });
    if (signature) {
        showSignature(*signature);
        audit("View", "Viewed Missed Appointment Note of %1 for patient, %2");
    } else if (!found) {
        MsgBox(QStringLiteral("Another user has deleted this note."), ExclamationBox, QStringLiteral("Solvane"));
        cmdOk->setFocus();
    }
}

void frmmsdApt::showNote(const MissedNoteState& note) {
    stored_ = note;
    ctdate->setDate(note.session.Find(QStringLiteral("DateMarker"))->date());
    txtreason->setPlainText(ManyLines(note.missed.Find(QStringLiteral("reason"))->text()));
    shownReason_ = txtreason->toPlainText();
    const MissedType type = MissedTypeOfSession(note.session.Find(QStringLiteral("stype"))->integer());
    if (type != MissedType::None)
        showType(type);
    chooseProvider(note.session.Find(QStringLiteral("providerid"))->text());
}

void frmmsdApt::showType(MissedType type) {
    type_ = type;
    lbltype->setText(MissedTypeText(type));
}

// A note keeps its provider when they have left the practice since. They are on no list, so they are added to it here;
// the note would otherwise show the current provider, and the next save would hand it to them.
void frmmsdApt::chooseProvider(const QString& id) {
    if (id.trimmed().isEmpty())
        return;
    if (rowOfProvider(id) < 0) {
        QString name;
        db::Ignoring([&] {
            const Recordset provider(Sql("Select prov_lastname from provider_info Where id = '{}'", id),
                                     Session().Connection);
            if (!provider.Eof())
                name = OneLine(provider["prov_lastname"].text());
        });
        addProvider(id, name, tr("%1 (no longer on the list)").arg(name.isEmpty() ? id : name));
    }
    cboprovider->SetListIndex(rowOfProvider(id));
}

void frmmsdApt::SetRO() {
    readOnly_ = true;
    enableFields();
}

// The text is set to read-only and not disabled, because a disabled field could neither be scrolled nor copied from.
void frmmsdApt::enableFields() {
    txtreason->setReadOnly(!mayChange());
    for (QWidget* field : std::initializer_list<QWidget*>{ctdate, cboprovider, btnspell, Command1})
        field->setEnabled(mayChange());
    for (QPushButton* button : btnsign)
        button->setEnabled(mayChange() && !signed_);
    offerPrint();
    showHint();
}

void frmmsdApt::offerPrint() {
    btnprint->setEnabled(hasReason());
    cmdprint->setEnabled(hasReason());
}

void frmmsdApt::showHint() {
    QString hint = VSSpell1->Hint();
    if (unread_)
        hint = tr("The note could not be read. Close this window and open the note again.");
    else if (readOnly_ && noteId_ == 0)
        hint = tr("There is no note yet, and you may not write one.");
    else if (readOnly_)
        hint = tr("You may read and print this note, but not change it.");
    lblhint->setText(hint);
    lblhint->setVisible(!hint.isEmpty());
}

void frmmsdApt::checkSpelling() {
    VSSpell1->CheckSpelling();
}

void frmmsdApt::audit(const char* action, const char* text) const {
    AuditLog(Session().UID, QStringLiteral("Patient"), QString::fromLatin1(action), {},
             QString::fromLatin1(text).arg(AuditDate(ctdate->Date()), patientName_));
}
