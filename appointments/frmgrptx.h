#pragma once

#include <QDate>
#include <QStringList>

#include "appointments/editorrequest.h"
#include "appointments/groupwrite.h"
#include "session/editordialog.h"

class CompletingCombo;
class DurationLabel;
class NoteField;
class QLabel;
class QPushButton;
class ctDEdit;
class ctList;
namespace db {
class Recordset;
}  // namespace db

/// The dialog of a group appointment: one row of `appointments`, and a row of `AppointmentsGroup` for each patient who
/// was scheduled for it. The caller makes the form, which loads itself, shows it modally, and reloads its view.
///
/// Choosing a group loads its members of the form's date. For an appointment that exists, those who are scheduled and
/// who attended stay checked then; only Refresh Members forgets them. A save writes row, room and members together or
/// nothing of them, and keeps what another desk did: where it has changed the row, its room or its members meanwhile,
/// the user is told. A row that it has deleted is added again, which a notice tells. A save that fails closes the form,
/// which RunEditor keeps.
class frmgrptx : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmgrptx(const EditorRequest& request, QWidget* parent = nullptr);
    ~frmgrptx() override;

    /// Selects a group of the list by its key, without loading its members; a key that is on no list selects none.
    void setmembers(int groupId);
    /// Puts the group's members of the form's date on the list: those whose time in the group holds that date, by name.
    /// Scheduled are all of a new appointment, none of an old one.
    void loadmembers();
    /// The names of who is scheduled, each followed by "; ".
    [[nodiscard]] QString getgrpmembers() const;
    /// Whether there is a time, and somebody on the list.
    [[nodiscard]] bool okenabled() const;

    [[nodiscard]] QString Subject() const override;
    /// Also where the stored members are deleted and no others are saved in their place.
    [[nodiscard]] bool IsChanged() const override { return membersDeleted_ || EditorDialog::IsChanged(); }

    bool dirty = false;

    CompletingCombo* cbogroup = nullptr;
    QLabel* lbldate = nullptr;
    ctDEdit* ctedate = nullptr;
    QLabel* lblweekday = nullptr;
    ctDEdit* ctstart = nullptr;
    ctDEdit* ctend = nullptr;
    DurationLabel* lblduration = nullptr;
    CompletingCombo* cbolocation = nullptr;
    CompletingCombo* cborooms = nullptr;
    NoteField* txtnotes = nullptr;
    ctList* ctList1 = nullptr;
    QLabel* lblmembers = nullptr;  ///< How many are scheduled and have attended, and what a save would leave out.
    QPushButton* cmdLoadMembers = nullptr;
    QPushButton* cmdkept = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

  private:
    static constexpr int SchdColumn = 1;
    static constexpr int NameColumn = 2;
    static constexpr int KeptColumn = 3;
    static constexpr int FirstValidTime = 1;
    static constexpr int FirstValidDate = 2;
    static constexpr int LongestLocation = GroupFields::LongestLocation;

    /// What a row of the list keeps of its patient, as its item text: {patient id}|{account}|{home phone}.
    struct Mark {
        QString patientId;
        QString account;
        QString homePhone;
    };
    struct Boxes {
        bool scheduled = false;
        bool kept = false;
    };

    // frmgrptx_layout.cpp
    void buildForm();
    [[nodiscard]] QWidget* buildFields();
    [[nodiscard]] QWidget* buildMembers();
    [[nodiscard]] QLayout* buildButtons();
    void connectFields();
    void connectMembers();

    // frmgrptx.cpp
    void load();
    [[nodiscard]] QStringList loadStatements() const;
    void loadgroups();
    void LoadAppointment();
    void showRow(const db::Recordset& row);
    void showSlot();
    void showWeekday();
    void leaveLocation(Qt::FocusReason reason);
    void offerUnknownLocation();
    void enableOk();

    // frmgrptx_members.cpp
    void chooseGroup();
    void cmdLoadMembers_Click();
    void cmdkept_Click();
    void loadsavedmembers();
    void loadgroupstatus();
    [[nodiscard]] bool DeleteSavedMembers();
    void addMember(const Mark& mark, const QString& name, const QString& homePhone, const QString& workPhone,
                   Boxes boxes);
    void showMembers();
    [[nodiscard]] QString patientId(int row) const;

    // frmgrptx_save.cpp
    void cmdOk_Click();
    void cmdCancel_Click();
    /// Whether the appointment, its room and its members are stored; the user has been told why they are not.
    [[nodiscard]] bool saveappt(int key, const QString& providerId);
    [[nodiscard]] bool conflicts(int key, const QString& providerId) const;
    [[nodiscard]] QStringList savingStatements(int key, const QString& providerId) const;
    [[nodiscard]] static QString savedMembersStatement(int key);
    [[nodiscard]] static QString savedPhonesStatement(int key);
    [[nodiscard]] GroupFields entered(const QString& providerId) const;
    void audit(bool isNew) const;

    const EditorRequest request_;
    const int key_ = request_.Key();  ///< Of the row, 0 for a new one.
    GroupState stored_;
    int groupOnList_ = 0;  ///< Whose members stand on the list.
    QDate membersOf_;      ///< And for which date.
    bool roomUnread_ = false;
    bool membersDeleted_ = false;  ///< By Refresh Members, which no Cancel takes back.
    bool locationTyped_ = false;
};
