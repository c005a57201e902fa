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

/// The Activity Scheduler, the editor of an Activity/Event that several providers attend. An Activity is one row of
/// `appointments` under the pseudo provider "~EVT" with a row of `AppointmentsEvents` for each attendee. The caller
/// makes the form, which loads itself, shows it modally, and reloads its view.
///
/// An Activity that was dragged opens with its new times, which count as a change like times that are typed. An
/// attendee who is no longer on the provider list is shown as such and stays an attendee until the user removes them. A
/// row that another desk has changed meanwhile is not overwritten. A save writes the row, its attendees and its room
/// together, or nothing. A save that fails closes the form, and RunEditor keeps the form.
class frmactsc : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmactsc(const ActivityRequest& request, QWidget* parent = nullptr);
    ~frmactsc() override;

    [[nodiscard]] const ActivityRequest& Request() const { return request_; }
    /// Names in frmeConflict the attendees who are busy at the entered time. Times that only touch count, and so does
    /// the Activity itself if it was saved before. An attendee is named once for each appointment in the way.
    void busySearch();

    /// Returns the ids of the attendees for an IN list: "'REED', 'OBRIEN'".
    [[nodiscard]] QString ListedProviders() const;

    [[nodiscard]] QString Subject() const override;

    bool dirty = false;
    bool attendeesChanged = false;

    CompletingCombo* cboevents = nullptr;
    ctDEdit* ctDEditComp = nullptr;  ///< The date, with a drop-down calendar.
    QLabel* lblweekday = nullptr;
    ctDEdit* ctstart = nullptr;
    ctDEdit* ctend = nullptr;
    DurationLabel* lblduration = nullptr;  ///< The duration, or that the end is before the start, which OK accepts.
    CompletingCombo* cbolocation = nullptr;
    QLabel* lblcut = nullptr;  ///< Tells which text is too long to be kept whole.
    AttendeeList* List1 = nullptr;
    QLabel* lblattendees = nullptr;  ///< The names of the attendees, in words.
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
    void showCut();
    void leaveList(Qt::FocusReason reason);
    void offerUnknownItems();
    void settleFields();
    [[nodiscard]] QStringList busyNames() const;
    [[nodiscard]] QHash<QString, QStringList> busyStatuses() const;
    [[nodiscard]] bool searchIsComplete();
    bool refuse(const QString& message, QWidget* field, const QString& title = QStringLiteral("Missing Data"));

    // frmactsc_save.cpp
    void cmdOk_Click();
    [[nodiscard]] bool isComplete();
    /// The two saves return false when nothing was saved, which the user has been told.
    [[nodiscard]] bool SaveNewEvent();
    [[nodiscard]] bool SaveUpdateEvent();
    /// Returns whether a save succeeded, and tells the user when it did not.
    [[nodiscard]] static bool isSaved(const WriteOutcome& outcome);
    [[nodiscard]] ActivityFields entered() const;

    const ActivityRequest request_;
    const int key_ = request_.ActivityKey;  ///< The key of the row; 0 for a new one.
    db::RowState storedState_;              ///< The state of the row as it was read, in the columns that a save writes.
    QStringList storedAttendees_;           ///< The ids of the attendees in the database, as far as this form knows.
    bool eventTyped_ = false;
    bool locationTyped_ = false;
};
