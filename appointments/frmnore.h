#pragma once

#include <array>
#include <optional>
#include <QDate>
#include <QTimer>
#include <vector>

#include "platform/database/value.h"
#include "session/editordialog.h"
#include "session/openview.h"
#include "session/session.h"

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

/// The editor of one entry of `appointments`: a patient appointment, an Activity/Event, a block of Unavailable Time or
/// a slot of an appointment type, by the session's ApptKind. With IsNewAppt it makes a row, else it edits the row
/// CurrentApptKey. The caller sets these values, makes the dialog, which loads itself, gives it the chosen time
/// (SetSlot), shows it modally, and reloads its view.
///
/// The fields stand in the order in which a receptionist asks: who, when, what, where, status, note. `dirty` is set by
/// whatever the user changes in them, so that OK never drops a choice; OK without a change writes nothing.
class frmnore : public EditorDialog {
    Q_OBJECT

  public:
    static constexpr int KindCount = 4;
    /// Milliseconds that a look-up by a typed letter may take so that the next one is made with its key; without a
    /// limit until the program sets one. After a slower one the keys that have come in the meantime are looked up
    /// together.
    static int QuickLookUp;

    explicit frmnore(QWidget* parent = nullptr);
    ~frmnore() override;

    /// Writes the time chosen in the view. It counts as a change, so that OK on a new entry with nothing chosen does
    /// nothing at all instead of closing.
    void SetSlot(const SelectedSlot& slot);
    /// The `patient_info.id` of the chosen patient; "" for none. What was shown of another patient's authorization and
    /// e-mail address is emptied with it.
    void SetPatientTag(const QString& patientId);
    /// To be called when the choice of a patient stands, not at each letter: shows the authorization, and looks up the
    /// address where an e-mail is wanted.
    void PatientChosen();
    /// Writes the entry into the row `key`, or into a new one where there is none (any more), and its room, both or
    /// neither. False when that failed, which the user has been told. A row that another desk has deleted and that is
    /// added again is told by a notice.
    ///
    /// A row that is not as this dialog read it is not written over: another desk has changed it, and the cursor
    /// service's own error of that case is told.
    bool saveappt(int key, const QString& providerId);
    /// Asks whether to write to the patient, and hands a message about the appointment to the desktop's mail program.
    void SendEmail(const QString& address, const QString& patientName, const QString& providerName,
                   const QString& apptDate, const QString& apptTime);

    void reject() override;

    [[nodiscard]] QString Subject() const override;
    [[nodiscard]] const QString& PatientTag() const { return patientTag_; }

    bool dirty = false;

    // Who: the pages of the four kinds, one of them shown.
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

    MatchList* pnlmatches = nullptr;  ///< Who fits what is typed into txtpatients, where more than one does.

    // The pop-up list of patients. While it is open OK is off: no key that is meant for the list saves.
    QWidget* pnlpatlist = nullptr;
    ctList* ctList1 = nullptr;
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
    void alignLabels();
    void orderFields();
    void placePatientList();

    // frmnore_load.cpp
    void load();
    [[nodiscard]] static QStringList loadStatements();
    [[nodiscard]] static QString rowStatement(int key);
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
    /// Writes row and room; whether the row is a new one. Throws db::DatabaseError.
    bool writeEntry(int key, const QString& providerId);
    /// The current row of `appointments` in the columns that a save writes: two of them are equal when nobody has
    /// changed in between what a save would write over.
    [[nodiscard]] static std::vector<db::Value> writtenState(const db::Recordset& row);
    void writeFields(db::Recordset& row, bool isNew, const QString& providerId);
    void writeKind(db::Recordset& row);
    void insertRoom(int apptKey);
    void auditSave(bool isNew) const;

    // frmnore_lookup.cpp
    void connectLookUp();
    void patientBoxEdited(const QString& text);
    void settleLookUp();
    void LookupPatient(const QString& text);
    /// What a key in the box of the patient's name does to the list of those who fit; whether it is done with.
    bool keyForMatches(const QKeyEvent& key);
    bool enterForMatches();
    /// Whether it has first to be said which of several patients is meant.
    bool asksForPatient();
    void focusLeavesBox(Qt::FocusReason reason);
    /// Takes the patient who is marked where the box holds another. Whether the choice stands.
    bool takesMarked();
    /// Whether it is done with.
    bool eventOfPatientList(const QEvent& event);
    void startPatientList();
    [[nodiscard]] bool leavesPatientBox() const;
    void leavePatientBox();
    void settlePatient();
    void showFacts(const PatientFacts& patient);
    void takePatientOfId(const QString& id);
    /// Without what is told of a choice that stands; false where the patient could not be read, which the user has been
    /// told.
    bool choosePatientOfId(const QString& id);
    void cmdpatients_Click();
    void showPatientList();
    void cmdPatientList_Click();
    void takeFromList(int row);
    /// Hands a name that nobody has to the form for new patients; whether one was added, who is chosen then.
    bool AddNewPatient();
    bool addPatient(const QString& lastName, const QString& firstName);
    bool closePatientList();

    // frmnore_email.cpp
    void sendConfirmation();

    // frmnore_lists.cpp
    void leaveList(Qt::FocusReason reason);
    void offerUnknownItems();

    // As they were when the form was opened: it may be opened again over another view.
    const int key_ = EditedApptKey();
    const View view_ = Session().CurrentView;
    const BookedProvider provider_ = ProviderOfView();

    QWidget* fields_ = nullptr;
    QString patientTag_;
    QString settledTag_;      ///< The chosen patient whose alerts were shown.
    bool takesAway_ = false;  ///< The key being worked on takes characters away.
    QTimer lookUpDue_;        ///< Runs while what was typed is still to be looked up.
    bool lookUpIsSlow_ = false;
    PatientFiller* patientFiller_ = nullptr;
    QString emailTag_;         ///< The address that ckemail stands for.
    QDate authorizationDate_;  ///< The day for which lblAuthorization speaks.
    QString originalSlot_;
    int alarmLeadMinutes_ = 0;
    int categoryColour_ = 0;  ///< What lblaptcolor shows.
    bool availOrEventTyped_ = false;
    bool locationTyped_ = false;
    bool roomUnread_ = false;  ///< Whether the row has a room could not be read, so that none may be taken from it.
    std::optional<std::vector<db::Value>> loadedState_;  ///< Of the row, in the columns that a save writes.
};
