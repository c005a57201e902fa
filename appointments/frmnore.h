#pragma once

#include <array>
#include <optional>
#include <QDate>
#include <QHash>
#include <QTimer>

#include "appointments/conflicts.h"
#include "appointments/editorrequest.h"
#include "appointments/entrywrite.h"
#include "people/frmnewpat.h"
#include "session/editordialog.h"

class CompletingCombo;
class DurationLabel;
class MatchList;
class NoteField;
class PatientFiller;
class QCheckBox;
class QGroupBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;
class ctDEdit;
class ctList;
struct PatientFacts;
namespace db {
class Recordset;
}

/// The editor of one entry of `appointments`. The ApptKind of the request decides whether this is a patient
/// appointment, an Activity/Event, a block of Unavailable Time or a slot of an appointment type. With IsNewAppt the
/// editor adds a row; otherwise it edits the row CurrentApptKey. The caller makes the dialog, which loads itself, shows
/// it modally, asks whether a new entry was GivenUp, and reloads its view.
///
/// The fields stand in the order in which a receptionist asks: who, when, what, where, status, note. Every change that
/// the user makes in them sets `dirty`, so that OK never drops a choice. OK without a change writes nothing.
class frmnore : public EditorDialog {
    Q_OBJECT

  public:
    static constexpr int KindCount = 4;
    /// The time in milliseconds that a look-up by a typed letter may take. After a slower look-up, the keys that have
    /// come in the meantime are looked up together instead of one by one. There is no limit until the program sets one.
    static int QuickLookUp;

    /// The time that was chosen in the view counts as a change. OK on a new entry without a patient therefore does
    /// nothing instead of closing the form.
    explicit frmnore(const EditorRequest& request, QWidget* parent = nullptr);
    ~frmnore() override;

    [[nodiscard]] const EditorRequest& Request() const { return request_; }
    /// Whether the user closed the form of a new entry without saving it.
    [[nodiscard]] bool GivenUp() const { return givenUp_; }
    /// Sets the `patient_info.id` of the chosen patient, or "" for none. For another patient than before, the form
    /// counts as changed, and the authorization and e-mail address of the previous patient are cleared.
    void SetPatientTag(const QString& patientId);
    /// Shows the patient's authorization, and looks up the e-mail address when an e-mail is wanted. It is to be called
    /// when the choice of a patient is final, not at each letter.
    void PatientChosen();
    /// Writes the entry and its room, both or neither. The entry goes into the row `key`, or into a new row when there
    /// is none or another desk has deleted it; in the latter case a notice tells so. Returns false when the write
    /// failed, which the user has been told.
    ///
    /// A row that another desk has changed since this dialog read it is not overwritten. The user is then told the
    /// cursor service's own error.
    bool saveappt(int key, const QString& providerId);
    /// Asks whether to write to the patient. A practice with a mail server of its own gets the form for a new message;
    /// otherwise the message about the appointment is handed to the desktop's mail program.
    void SendEmail(const QString& address, const QString& patientName, const QString& providerName,
                   const QString& apptDate, const QString& apptTime);

    void reject() override;

    [[nodiscard]] QString Subject() const override;
    [[nodiscard]] const QString& PatientTag() const { return patientTag_; }

    bool dirty = false;

    // Who: the pages of the four kinds, of which one is shown.
    std::array<QWidget*, KindCount> fraappttype{};
    QLabel* Label1 = nullptr;
    QLineEdit* txtpatients = nullptr;
    QToolButton* cmdpatients = nullptr;
    QPushButton* cmdPatientList = nullptr;
    QPushButton* cmdnewpat = nullptr;
    QLabel* Label14 = nullptr;
    QLineEdit* txtaccount = nullptr;
    QLabel* lblHPhone = nullptr;
    QLabel* lblwphone = nullptr;
    QLabel* lblcphone = nullptr;
    QLabel* lblemail = nullptr;
    QLabel* lblAuthorization = nullptr;
    CompletingCombo* cboevents = nullptr;
    CompletingCombo* cboavail = nullptr;
    CompletingCombo* cbocats = nullptr;
    QLabel* lblaptcolor = nullptr;

    // When.
    QLabel* lbldate = nullptr;
    ctDEdit* ctedate = nullptr;
    QLabel* lblweekday = nullptr;
    ctDEdit* ctstart = nullptr;
    ctDEdit* ctend = nullptr;
    DurationLabel* lblduration = nullptr;  ///< How long the entry lasts, or that it ends before it starts.
    QCheckBox* SSCheck1 = nullptr;

    // What: the rest of the patient page, below the time.
    QWidget* fraservice = nullptr;
    CompletingCombo* cbocpt = nullptr;
    CompletingCombo* cboapttype = nullptr;

    // Where.
    QWidget* Frame1 = nullptr;
    CompletingCombo* cbolocation = nullptr;
    QWidget* XPFrame201 = nullptr;
    CompletingCombo* cborooms = nullptr;
    QPushButton* cmdrooms = nullptr;

    // Status and note.
    QWidget* frastatus = nullptr;
    CompletingCombo* cbostatus = nullptr;
    NoteField* txtnotes = nullptr;
    QCheckBox* ckAlarm = nullptr;
    QCheckBox* ckemail = nullptr;
    QLabel* lblcreated = nullptr;
    QLabel* lblmodified = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

    MatchList* pnlmatches = nullptr;  ///< The patients who fit the text of txtpatients, where more than one does.

    // The pop-up list of patients. While it is open, OK is disabled, so that no key that is meant for the list saves.
    QWidget* pnlpatlist = nullptr;
    ctList* ctList1 = nullptr;
    QLabel* lblcount = nullptr;  ///< Counts the patients on the list.
    QLineEdit* txtfind = nullptr;
    QPushButton* cmdfind = nullptr;
    QPushButton* cmdnew = nullptr;

  protected:
    bool takesEscape() override { return closePatientList(); }
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // frmnore_layout.cpp
    void buildForm();
    void buildPatientPage();
    void buildOtherPages();
    [[nodiscard]] QWidget* buildWhen();
    void buildService();
    void buildPlace();
    void buildStatus();
    [[nodiscard]] QWidget* buildNote();
    void buildPatientList();
    [[nodiscard]] QLayout* buildButtons();
    void headForm();
    void alignLabels();
    void orderFields();
    void placePatientList();

    // frmnore_load.cpp
    void load();
    [[nodiscard]] QStringList loadStatements() const;
    [[nodiscard]] QStringList statementsOfKind() const;
    void showFormats();
    void showCaptions();
    void loadKind();
    void loadPatientKind();
    void loadavail();
    void loadcats();
    void loadroomslist();
    void loadsesstypes();
    void fillStatus();
    void SetApptType(int key);
    void LoadAppointment();
    void showRow(const db::Recordset& row);
    void showPatient(const db::Recordset& row);
    void showCategory(const db::Recordset& row);
    void showRoom();
    void showSlot();
    void showKnown();
    void followLength();

    // frmnore.cpp
    void connectFields();
    void cbocpt_Click();
    void cbostatus_Click();
    void ckemail_Click();
    void SSCheck1_Click();
    void cmdrooms_Click();
    void showWeekday();
    void showDuration();
    void showCategoryColour();
    void showAuthorization();

    // frmnore_save.cpp
    void cmdOk_Click();
    [[nodiscard]] bool patientIsKnown();
    [[nodiscard]] QStringList savingStatements(int key, const QString& providerId) const;
    [[nodiscard]] bool conflicts(int key, const QString& providerId);
    [[nodiscard]] QString entryText() const;
    [[nodiscard]] EntryFields entered(const QString& providerId) const;
    [[nodiscard]] QString roomText() const;
    void auditSave(bool isNew) const;

    // frmnore_lookup.cpp
    void connectLookUp();
    void patientBoxEdited(const QString& text);
    void settleLookUp();
    void LookupPatient(const QString& text);
    /// Handles a key in the box of the patient's name that is meant for the list of matches. Returns whether the key is
    /// used up.
    bool keyForMatches(const QKeyEvent& key);
    bool enterForMatches();
    /// Whether the user first has to choose one of several patients who fit.
    bool asksForPatient();
    void focusLeavesBox(Qt::FocusReason reason);
    /// Chooses the marked patient of the list of matches if the box holds another one. Returns whether the choice of a
    /// patient is final.
    bool takesMarked();
    /// Handles an event of the pop-up list of patients. Returns whether the event is used up.
    bool eventOfPatientList(const QEvent& event);
    void startPatientList();
    [[nodiscard]] bool leavesPatientBox() const;
    void leavePatientBox();
    void settlePatient();
    void showFacts(const PatientFacts& patient);
    void takePatientOfId(const QString& id);
    /// Chooses a patient, without the authorization and alerts that a final choice shows. Returns false when the
    /// patient could not be read or does not exist, which the user has been told.
    bool choosePatientOfId(const QString& id);
    void cmdpatients_Click();
    void showPatientList();
    void filterPatients();
    void cmdPatientList_Click();
    void takeFromList(int row);
    /// Opens the form for new patients with the typed name, which nobody has. Returns whether a patient was added, who
    /// is then chosen.
    bool AddNewPatient();
    /// Opens the form for new patients with what the typed name and the appointment tell.
    void addTypedPatient();
    bool addPatient(frmnewpat::Names known);
    bool closePatientList();

    // frmnore_email.cpp
    void sendConfirmation();

    // frmnore_wait.cpp
    /// The entry of the wait list that a save closes; 0 for none.
    [[nodiscard]] int waitOfPatient() const;
    /// Whether the appointment may be saved although it is booked for an entry of the wait list, which another desk may
    /// have booked or closed meanwhile. The user is asked then.
    [[nodiscard]] bool waitIsSettled();
    [[nodiscard]] Cancelled cancelledRows() const;

    // frmnore_lists.cpp
    void leaveList(Qt::FocusReason reason);
    void offerUnknownItems();

    const EditorRequest request_;
    const int key_ = request_.Key();  ///< The key of the row; 0 for a new one.
    bool givenUp_ = false;
    int waitId_ = request_.waitId;  ///< The entry of the wait list that is offered; 0 for none.

    QWidget* fields_ = nullptr;
    QString patientTag_;
    QString settledTag_;      ///< The id of the chosen patient whose alerts were shown.
    bool takesAway_ = false;  ///< Whether the key that is being handled takes characters away.
    QTimer lookUpDue_;        ///< Runs while the typed text is still to be looked up.
    bool lookUpIsSlow_ = false;
    PatientFiller* patientFiller_ = nullptr;
    QString emailTag_;         ///< The address that ckemail stands for.
    QDate authorizationDate_;  ///< The day of the authorization that lblAuthorization shows.
    QString originalSlot_;
    int alarmLeadMinutes_ = 0;
    int categoryColour_ = 0;       ///< The colour that lblaptcolor shows.
    QHash<int, int> typeMinutes_;  ///< How long the visits of a type last, by the type's colour.
    int followedEnd_ = -1;  ///< The end that follows service and type while the user has entered no other; -1 for none.
    bool availOrEventTyped_ = false;
    bool locationTyped_ = false;
    bool roomUnread_ = false;   ///< Whether the room of the row could not be read, so that a save must keep it.
    db::RowState loadedState_;  ///< The state of the row as it was read, in the columns that a save writes.
};
