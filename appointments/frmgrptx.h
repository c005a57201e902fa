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

/// The dialog of a group appointment: one row of `appointments`, and a row of `AppointmentsGroup` for each scheduled
/// patient. The caller makes the form, which loads itself, shows it modally, and reloads its view.
///
/// Choosing a group loads its members on the form's date. In an existing appointment, the patients who are scheduled
/// and who attended then stay checked; only Refresh Members forgets them. A save writes the row, the room and the
/// members, or nothing. It does not overwrite what another desk has changed in them meanwhile; the user is told of it.
/// A row that another desk has deleted is added again, which a notice tells. A save that fails closes the form, and
/// RunEditor keeps the form. After the save of a group that repeats, with other members than before, frmroster asks for
/// which other dates they change too.
class frmgrptx : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmgrptx(const EditorRequest& request, QWidget* parent = nullptr);
    ~frmgrptx() override;

    /// Selects a group by its key, without loading its members. A key that is not on the list selects none.
    void setmembers(int groupId);
    /// Lists by name the members of the group whose time in the group includes the form's date. In a new appointment
    /// all of them are scheduled, in an existing one nobody is.
    void loadmembers();
    /// Returns the names of the scheduled patients, each followed by "; ".
    [[nodiscard]] QString getgrpmembers() const;
    /// Whether OK is enabled: both times are entered and somebody is on the list. In the week view the date must be
    /// entered too.
    [[nodiscard]] bool okenabled() const;

    [[nodiscard]] QString Subject() const override;
    /// The form also counts as changed when the stored members were deleted and no others have been saved in their
    /// place.
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
    QLabel* lblmembers = nullptr;  ///< How many are scheduled and have attended, and what a save leaves out.
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

    /// The data of the patient in a row of the list, kept as the item text {patient id}|{account}|{home phone}.
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
    /// Writes the appointment with its room and its members. Returns false when that failed, which the user has been
    /// told.
    [[nodiscard]] bool saveappt(int key, const QString& providerId);
    [[nodiscard]] bool conflicts(int key, const QString& providerId) const;
    [[nodiscard]] QStringList savingStatements(int key, const QString& providerId) const;
    [[nodiscard]] static QString savedMembersStatement(int key);
    [[nodiscard]] static QString savedPhonesStatement(int key);
    [[nodiscard]] GroupFields entered(const QString& providerId) const;
    void audit(bool isNew) const;
    /// Asks for which other dates of a repeating group the members change too.
    void offerRoster();

    const EditorRequest request_;
    const int key_ = request_.Key();  ///< The key of the row; 0 for a new one.
    GroupState stored_;
    int series_ = 0;       ///< `repeating_ref` of a stored appointment of a series, else 0.
    QString storedGroup_;  ///< The name of the group when the form was loaded.
    /// The members when the form was loaded; Refresh Members does not change them.
    std::optional<std::vector<GroupFields::Member>> firstMembers_;
    int groupOnList_ = 0;  ///< The key of the group whose members are on the list.
    QDate membersOf_;      ///< The date for which these members were listed.
    bool roomUnread_ = false;
    bool membersDeleted_ = false;  ///< Whether Refresh Members deleted the stored members, which Cancel does not undo.
    bool locationTyped_ = false;
};
