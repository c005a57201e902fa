#pragma once

#include <array>
#include <optional>
#include <QDate>
#include <QDialog>

#include "session/openview.h"

class CompletingCombo;
class NoteField;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;
class ctDEdit;
class ctList;

/// The editor of one entry of `appointments`: a patient appointment, an Activity/Event, a block of Unavailable Time or
/// a slot of an appointment type, by the session's ApptKind. With IsNewAppt it makes a row, else it edits the row
/// CurrentApptKey. The caller sets these values, makes the dialog, which loads itself, gives it the chosen time
/// (SetSlot), shows it modally, and reloads its view.
///
/// The fields stand in the order in which a receptionist asks: who, when, what, where, status, note. `dirty` is set by
/// whatever the user changes in them, so that OK never drops a choice; OK without a change writes nothing.
class frmnore : public QDialog {
    Q_OBJECT

  public:
    static constexpr int KindCount = 4;

    explicit frmnore(QWidget* parent = nullptr);

    /// Writes the time chosen in the view. It counts as a change, so that OK on a new entry with nothing chosen does
    /// nothing at all instead of closing.
    void SetSlot(const SelectedSlot& slot);
    /// The `patient_info.id` of the chosen patient; "" for none. What was shown of another patient's authorization and
    /// e-mail address is emptied with it.
    void SetPatientTag(const QString& patientId);
    /// To be called when the choice of a patient stands, not at each letter: shows the authorization, and looks up the
    /// address where an e-mail is wanted.
    void PatientChosen();

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
    ctDEdit* ctstart = nullptr;
    ctDEdit* ctend = nullptr;
    QLabel* lblduration = nullptr;  ///< How long the entry lasts, or that it ends before it starts.
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

    // The pop-up list of patients.
    QWidget* pnlpatlist = nullptr;
    ctList* ctList1 = nullptr;
    QLineEdit* txtfind = nullptr;
    QPushButton* cmdfind = nullptr;
    QPushButton* cmdnew = nullptr;

  protected:
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
    void placePatientList();

    void showDuration();

    QString patientTag_;
};
