#pragma once

#include <array>
#include <optional>
#include <QDate>

#include "followup/frmesign.h"
#include "followup/missednote.h"
#include "session/editordialog.h"

class CompletingCombo;
class NoteField;
class QHBoxLayout;
class QLabel;
class QListWidget;
class QPushButton;
class QToolButton;
class SigPlus;
class VSPrinter;
class VSSpell;
class ctDEdit;

/// What the missed-appointment note works on, as the view knows it when it opens the form.
struct MissedNoteRequest {
    int NoteId = 0;         ///< `sessions.id`; 0 for a new note.
    int ItemKey = 0;        ///< `nkeyid` of the appointment.
    int ItemColor = 0;      ///< `ncolor` of the appointment. It tells the type of a new note.
    QDate date;             ///< The date of a new note.
    bool ReadOnly = false;  ///< Whether the note is only shown. It is, too, where the user may not write.
};

/// The Missed Appointment Note, which tells why an appointment was missed or cancelled. It can be signed and printed.
///
/// A save that fails tells the reason and leaves the form open with everything that was typed. OK without a change
/// writes nothing, so that it never takes a signature away. What another desk has changed meanwhile is kept, and is not
/// signed before the user has seen it. A note that could not be read cannot be changed.
class frmmsdApt : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmmsdApt(const MissedNoteRequest& request, QWidget* parent = nullptr);
    ~frmmsdApt() override;

    [[nodiscard]] const MissedNoteRequest& Request() const { return request_; }
    /// Whether the note is stored: the view then shows ItemSessionIcon at the appointment. A new note may have been
    /// saved although the form was cancelled afterwards, because signing saves it first.
    [[nodiscard]] bool NoteSaved() const { return noteSaved_; }
    /// The `sessions.id` of the note; 0 while it has never been saved.
    [[nodiscard]] int NoteId() const { return noteId_; }

    [[nodiscard]] bool IsChanged() const override;
    [[nodiscard]] QString Subject() const override;
    [[nodiscard]] QSize sizeHint() const override;

    void LoadProviders();
    void loadnote();
    /// Both return whether the note is stored, and tell the user when it is not.
    bool savenewnote();
    bool savenote();
    /// Shows the signature as it is stored now. A drawn signature that does not fit the note is taken away.
    ///
    /// `signedHere` tells that the user has just signed it. Where another desk has changed the note meanwhile, that
    /// signature is taken away, because the user has not seen what it says now. Returns whether the note could be read.
    bool ReloadNote(bool signedHere = false);
    /// Lets the user read and print the note, but not change it.
    void SetRO();
    /// Shows the signature dialog for the provider of the note. Returns whether the user signed.
    bool SignMissedAppointmentNote(SignatureWay way);

    QLabel* Label1 = nullptr;
    QLabel* lblpatient = nullptr;
    QLabel* lbltype = nullptr;
    ctDEdit* ctdate = nullptr;
    CompletingCombo* cboprovider = nullptr;
    QListWidget* List1 = nullptr;  ///< The ids of the providers in cboprovider. It is never shown.
    NoteField* txtreason = nullptr;
    VSSpell* VSSpell1 = nullptr;
    QToolButton* btnspell = nullptr;
    QToolButton* btnprint = nullptr;
    QLabel* lblhint = nullptr;  ///< Says why the note cannot be changed or its spelling not be checked; else hidden.
    QLabel* pnlSig = nullptr;   ///< Shows a signature by password as its text, or SigPlus1.
    SigPlus* SigPlus1 = nullptr;
    QLabel* lblsignstatus = nullptr;        ///< Says who signed on the pad, or why the signature counts no more.
    std::array<QPushButton*, 3> btnsign{};  ///< By SignatureWay.
    QPushButton* Command1 = nullptr;        ///< Spell Check
    QPushButton* cmdprint = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

  private:
    static constexpr int FirstValidDate = 100;

    // frmmsdapt_layout.cpp
    void buildForm();
    [[nodiscard]] QLayout* buildHeading(QWidget* parent);
    [[nodiscard]] QLayout* buildReasonTitle(QWidget* parent);
    void buildReason(QWidget* parent);
    void buildSignature(QWidget* parent);
    [[nodiscard]] QHBoxLayout* buildSigning(QWidget* parent);
    [[nodiscard]] QLayout* buildButtons();
    void connectFields();
    void setTabOrders();

    // frmmsdapt.cpp
    void load();
    void loadAppointment();
    void showPatient(const QString& name);
    void showNote(const MissedNoteState& note);
    void showType(MissedType type);
    void chooseProvider(const QString& id);
    void addProvider(const QString& id, const QString& lastName, const QString& listed);
    [[nodiscard]] int rowOfProvider(const QString& id) const;
    /// The id of the chosen provider, who must be chosen.
    [[nodiscard]] QString providerId() const;
    /// The last name of the chosen provider, or the id of one who has no name. Empty when none is chosen.
    [[nodiscard]] QString providerName() const;
    [[nodiscard]] bool mayChange() const { return !readOnly_ && !unread_; }
    void enableFields();
    void offerPrint();
    void showHint();
    void checkSpelling();
    void audit(const char* action, const char* text) const;

    // frmmsdapt_save.cpp
    void cmdOk_Click();
    void settleFields();
    [[nodiscard]] bool hasReason() const;
    [[nodiscard]] bool isComplete();
    bool refuse(const QString& message, QWidget* field, const QString& title);
    bool save();
    bool saveAnew();
    /// The note as the fields show it.
    [[nodiscard]] MissedNoteState shownNote() const;
    /// The note as a save is to leave it: as it is stored, unless the user has changed something.
    [[nodiscard]] MissedNoteState entered() const;
    void keep(const MissedNoteState& stored);

    // frmmsdapt_sign.cpp
    void btnsign_Click(SignatureWay way);
    [[nodiscard]] std::optional<SignatureRequest> signatureRequest(SignatureWay way) const;
    void showSignature(const StoredSignature& signature);
    void showDrawn(const StoredSignature& signature);
    void showChangedNote(const MissedNoteState& note, const StoredSignature& signature, bool signedHere);
    void clearSignature();
    void voidSignature(const StoredSignature& signature);
    void warnOfSignature(const QString& text);

    // frmmsdapt_print.cpp
    void cmdprint_Click();
    [[nodiscard]] VSPrinter printedNote(const QString& header) const;

    const MissedNoteRequest request_;
    int noteId_;
    bool readOnly_;
    bool unread_ = false;  ///< The note exists but could not be read.
    bool signed_ = false;
    bool noteSaved_ = false;
    QString patientName_;
    MissedType type_ = MissedType::None;
    std::optional<int> appointmentNote_;     ///< `appointments.NoteID` as it was read.
    std::optional<MissedNoteState> stored_;  ///< The note as it was read or saved last.
    QString shownReason_;                    ///< The field's text for the reason in `stored_`.
    std::optional<QStringList> savedState_;  ///< The contents of the fields that are not to be lost.
};
