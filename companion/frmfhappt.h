#pragma once

#include <QDate>

#include "companion/companionappointment.h"
#include "session/editordialog.h"

class CompletingCombo;
class NoteField;
class KeyedCombo;
class QLabel;
class QPushButton;
class ctDEdit;
class ctNEdit;
namespace db {
class Connection;
class Recordset;
}  // namespace db

/// What the editor of a companion appointment works on, as the schedule knows it.
struct CompanionAppointmentRequest {
    int CtrnKey = 0;   ///< The CtrnId of the appointment to edit; 0 for a new one, for which alone the next six count.
    int ClientId = 0;  ///< The client's ClntId.
    QString ClientName;
    QDate date;
    int start = 0;                ///< In minutes since midnight.
    int duration = 0;             ///< In minutes.
    int ProvId = 0;               ///< The provider of the column.
    bool HasSVSessionCol = true;  ///< Whether the companion has the column that links an appointment to its note.
};

/// The editor of one appointment of the companion, a row of ClientTransactions that is scheduled and in no series. OK
/// writes the row and closes the form. When the write fails, the form stays open with all that was typed.
///
/// The provider of an existing appointment can be chosen and is not saved. The companion program works on the same
/// rows: what it changed in the row while the form stood open is kept where the user left it alone, and the user is
/// told by a notice what was kept and what was replaced. A row that was charged or joined a series is not written, and
/// the user is told why: when it was so already, OK is off, and when it became so meanwhile, the form stays open.
class frmFHAppt : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmFHAppt(const CompanionAppointmentRequest& request, QWidget* parent = nullptr);
    ~frmFHAppt() override;

    /// Whether the user saved. The row may have been deleted in the companion meanwhile.
    [[nodiscard]] bool IsWritten() const { return written_; }
    /// The CtrnId of the appointment, once it was saved; 0 for a new one before that, or when its key is not known.
    [[nodiscard]] int CtrnKey() const { return ctrnKey_; }
    [[nodiscard]] QString Subject() const override;

    QLabel* lblClient = nullptr;
    ctDEdit* txtdate = nullptr;
    ctDEdit* txtstarttime = nullptr;
    ctNEdit* txtduration = nullptr;
    KeyedCombo* cboProviders = nullptr;
    KeyedCombo* cboChargetype = nullptr;
    QLabel* lblstatus = nullptr;  ///< What the user should know of this appointment.
    CompletingCombo* cbostatus = nullptr;
    NoteField* txtmemo = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

  private:
    // frmfhappt.cpp
    void buildForm();
    void layOutForm();
    void headForm();
    [[nodiscard]] bool ValidateEntries();
    void cmdOk_Click();
    void cbostatus_Click();
    void showAlerts(const char* alertType) const;

    // frmfhappt_load.cpp
    void load();
    void LoadProviders(db::Connection& companion);
    void LoadTransactions(db::Connection& companion);
    void LoadAppt(db::Connection& companion, int CtrnId);
    void showAppointment(db::Connection& companion, const db::Recordset& row);
    void showNew();
    void showStandardCharge(db::Connection& companion);
    void showClient(int ClientId, const QString& ClientName);
    /// Selects a provider, and adds the one who is not on the list.
    void showProvider(db::Connection& companion, int ProvId);
    void setStatusText(const QString& text);

    // frmfhappt_save.cpp
    [[nodiscard]] bool SaveFHAppointment();
    [[nodiscard]] bool UpdateAppt(int CtrnId);
    void CompareSVNoteToFHTrans() const;
    /// The fields as they stand in the form.
    [[nodiscard]] CompanionAppointment entered() const;
    /// What is to be written over a row that is `now` like this.
    [[nodiscard]] MergedAppointment mergedWith(const CompanionAppointment& now) const;
    /// Tells in the bar where the row is now another one than the form shows.
    void tellWhatDiffers(const MergedAppointment& merged) const;
    void warnOfMidnight(const CompanionAppointment& appointment) const;

    const CompanionAppointmentRequest request_;
    int ctrnKey_;
    int clientId_ = 0;
    bool written_ = false;

    // The row as loaded.
    QDate origDate_;
    int origTranId_ = 0;
    int origProvId_ = 0;
    int sessionId_ = 0;  ///< Above 0 when a note is linked.
    CompanionAppointment loaded_;
    CompanionAppointment shown_;  ///< The same as the fields show it.
};
