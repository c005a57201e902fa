#pragma once

#include <optional>
#include <QDate>
#include <QStringList>

#include "appointments/activitywrite.h"
#include "appointments/editorrequest.h"
#include "session/editordialog.h"

class AttendeeList;
class CompletingCombo;
class DurationLabel;
class QLabel;
class QPushButton;
class ctDEdit;
namespace db {
class Recordset;
}

/// The Activity Scheduler: an Activity/Event that several providers attend, one row of `appointments` under the pseudo
/// provider "~EVT" with a row of `AppointmentsEvents` for each attendee. The caller makes the form, which loads itself,
/// shows it modally, and reloads its view.
///
/// An Activity that was dragged opens with its new times, a change like one that is typed. What happened to an Activity
/// meanwhile is not lost: an attendee who is on the provider list no more stays an attendee, shown as such, until the
/// user takes them out; a row that another desk has changed is not written over. A save writes the row, its attendees
/// and its room together or nothing of them. One that fails closes the form, which RunEditor keeps.
class frmactsc : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmactsc(const ActivityRequest& request, QWidget* parent = nullptr);
    ~frmactsc() override;

    [[nodiscard]] const ActivityRequest& Request() const { return request_; }
    /// Names in frmeConflict who is busy at the time that is entered. Touching times count, and the Activity itself too
    /// if it was saved before. Whoever has two appointments in the way is named for each.
    void busySearch();

    /// The ids of the attendees for an IN list: "'REED', 'OBRIEN'".
    [[nodiscard]] QString ListedProviders() const;

    [[nodiscard]] QString Subject() const override;

    bool dirty = false;
    bool attendeesChanged = false;

    CompletingCombo* cboevents = nullptr;
    ctDEdit* ctDEditComp = nullptr;  ///< With the calendar that drops from it.
    QLabel* lblweekday = nullptr;
    ctDEdit* ctstart = nullptr;
    ctDEdit* ctend = nullptr;
    DurationLabel* lblduration = nullptr;  ///< How long it lasts, or that it ends before it starts, which OK accepts.
    CompletingCombo* cbolocation = nullptr;
    QLabel* lblcut = nullptr;  ///< Which text is too long to be kept whole.
    AttendeeList* List1 = nullptr;
    QLabel* lblattendees = nullptr;  ///< Who attends, in words.
    QPushButton* cmdbusy = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

  private:
    static constexpr int FirstValidDate = 2;
    static constexpr int NoTime = -1;
    static constexpr int LongestText = ActivityFields::LongestText;
    static constexpr int LongestLocation = ActivityFields::LongestLocation;

    // frmactsc_layout.cpp
    void buildForm();
    [[nodiscard]] QWidget* buildFields();
    [[nodiscard]] QWidget* buildAttendees();
    [[nodiscard]] QLayout* buildButtons();
    void connectFields();

    // frmactsc.cpp
    void load();
    [[nodiscard]] QStringList loadStatements() const;
    [[nodiscard]] static QString eventStatement(int key);
    void loadprovs();
    void LoadGroupEvent();
    void showAttendee(const QString& id);
    void showSlot();
    void showWeekday();
    void showAttendees();
    void showCut();
    void leaveList(Qt::FocusReason reason);
    void offerUnknownItems();
    void settleFields();
    [[nodiscard]] QStringList busyNames() const;
    [[nodiscard]] bool searchIsComplete();
    bool refuse(const QString& message, QWidget* field, const QString& title = QStringLiteral("Missing Data"));

    // frmactsc_save.cpp
    void cmdOk_Click();
    [[nodiscard]] bool isComplete();
    /// Both are false where nothing was saved, which the user has been told.
    [[nodiscard]] bool SaveNewEvent();
    [[nodiscard]] bool SaveUpdateEvent();
    /// Tells how a save ended where it did not go well.
    [[nodiscard]] static bool isSaved(const WriteOutcome& outcome);
    [[nodiscard]] ActivityFields entered() const;

    const ActivityRequest request_;
    const int key_ = request_.ActivityKey;  ///< Of the row; 0 for a new one.
    db::RowState storedState_;              ///< Of the row, in the columns that a save writes, as it was read.
    QStringList storedAttendees_;           ///< Whom the database holds, as far as this form knows.
    bool eventTyped_ = false;
    bool locationTyped_ = false;
};
