#pragma once

#include <optional>
#include <QDate>

#include "companion/companionevent.h"
#include "session/editordialog.h"

class AttendeeList;
class QCheckBox;
class QLabel;
class QPushButton;
class StartTimeField;
class TextField;
class ctDEdit;
class ctNEdit;

/// What the editor of a companion's event works on.
struct CompanionEventRequest {
    int ceveid = 0;    ///< The key of the event to edit; 0 for a new one, for which the others are the selection.
    QDate date = {};   ///< The day of the selection.
    int start = 0;     ///< In minutes since midnight.
    int duration = 0;  ///< In minutes.
    int provId = 0;    ///< The companion's provider of the column, who attends at first.
};

/// The editor of a single event of the companion's calendar. The caller makes the form, which loads itself, shows it
/// modally, and reloads its view when something was written.
///
/// A save or a delete that fails leaves the form open with what was typed. An event that the scheduler cannot change is
/// shown, and the form says why: it was deleted meanwhile, it could not be read, it has become a series, or nobody
/// attends it.
class frmFHEvents : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmFHEvents(const CompanionEventRequest& request, QWidget* parent = nullptr);
    ~frmFHEvents() override;

    /// Whether an event was added, changed or deleted.
    [[nodiscard]] bool IsWritten() const { return written_; }
    /// The key of the event that was added or changed; 0 when none was, also after a delete.
    [[nodiscard]] int SavedKey() const { return savedKey_; }

    [[nodiscard]] QString Subject() const override;

    QLabel* lblnotice = nullptr;  ///< Tells why the event cannot be changed, or what OK replaces; hidden otherwise.
    TextField* txtevent = nullptr;
    ctDEdit* txtdate = nullptr;
    QLabel* lblweekday = nullptr;
    StartTimeField* txtstarttime = nullptr;
    ctNEdit* txtduration = nullptr;
    QLabel* lblend = nullptr;  ///< When the event ends.
    QCheckBox* ckallday = nullptr;
    QCheckBox* ckAllProviders = nullptr;
    AttendeeList* List1 = nullptr;
    QPushButton* cmdDelete = nullptr;  ///< Hidden for a new event.
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

  private:
    // frmfhevents_layout.cpp
    void buildForm();
    [[nodiscard]] QWidget* buildNotice();
    [[nodiscard]] QWidget* buildFields();
    [[nodiscard]] QLayout* buildButtons();
    void connectFields();
    void showWeekday();
    void showEnd();

    // frmfhevents.cpp
    void load();
    void LoadProviders(db::Connection& companion);
    void LoadEvent(db::Connection& companion);
    void fillFields(const CompanionEvent& event);
    void showAttendees(const QList<int>& attendees);
    void showSelection();
    /// Shows a text above the fields.
    void notify(const QString& text);
    void lock(const QString& why);

    // frmfhevents_save.cpp
    void cmdOk_Click();
    void cmdDelete_Click();
    /// Lets the next OK replace what clashed, and says so.
    void showClash(const CompanionEvent& clashing);
    void settleFields();
    [[nodiscard]] bool ValidateEntries();
    [[nodiscard]] CompanionEvent entered() const;
    /// Returns whether a write succeeded, and tells the user when it did not.
    bool isWritten(const CompanionEventOutcome& outcome, const QString& trouble, const QString& recurs);

    const CompanionEventRequest request_;
    std::optional<CompanionEvent> loaded_;  ///< The event as it was read; none for a new one.
    QString nameShown_;                     ///< The event's name as the form first showed it.
    bool written_ = false;
    int savedKey_ = 0;
};
