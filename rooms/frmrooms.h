#pragma once

#include <optional>
#include <QHash>

#include "rooms/roommeeting.h"
#include "shell/menuview.h"
#include "shell/schedulesheet.h"

class DayBoard;
class QComboBox;
class QLabel;
class QMenu;
class QPushButton;
class ctDEdit;
class ctMDay;
struct CalendarItem;
struct FoundBooking;

/// The room scheduler: one room, one day. Meetings are booked here without an appointment. A slot that belongs to an
/// appointment or an activity is shown, marked and locked; it moves with its owner.
///
/// Typing on a selected time makes a meeting there at once ("New mtg.") and edits its name. Dragging, sizing and naming
/// a meeting in the grid are also stored at once. The dialog starts from the date of the main window's calendar, while
/// the grid books on the date that it shows. A user who may only read can look and find.
///
/// The room that a user looked at last opens again next time. While patient names are hidden, the texts of the slots of
/// patients' appointments are hidden too, because they hold names.
class frmrooms : public MenuView {
    Q_OBJECT

  public:
    explicit frmrooms(MainWindow& main, QWidget* parent = nullptr);
    ~frmrooms() override;

    /// Reads the list of rooms. The chosen room stays chosen while it exists.
    void loadroomslist();
    /// Reads the selected room's day. A reload of the same day keeps the scroll position and the selected item. A
    /// failed read is shown to the user, so that nobody takes the room for free.
    void LoadRooms();
    /// Moves the date: `step` 0 goes one day back, 1 one day forward, and 2 to today.
    void cycledate(int step);
    /// Opens the dialog for a meeting of the grid.
    void editappt(int item);
    /// Stores a change of an item in the grid. When the text was emptied, the old text comes back without a message.
    void saveappt(int item, const QString& textBefore);
    /// Deletes the selected item after a question. The slot of an appointment can be deleted too; its appointment
    /// stays.
    void deleteappt();
    /// Shows the room's day on paper in the preview. With the print option "TimeStats", its foot tells how long the
    /// room is booked.
    void printS();
    void setmenuaccess();

    /// Reads the day again, and the rooms too when they could not be read.
    void Reload() override;
    void ShowDate(QDate date) override;
    bool StepOwnDate(int direction) override;
    [[nodiscard]] QDate ShownDay(QDate /*mainDate*/) const override { return date_; }
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override;
    void ApplyPreferences() override;
    /// Keeps the room.
    void AddContents(ViewContents& contents) const override;
    void ShowContents(const ViewContents& contents) override;
    /// Opens the dialog for a new meeting at the selected time.
    void AddAppointment() override;
    /// Finds a booking of any room and goes to it.
    void FindAppointment() override;
    [[nodiscard]] bool CanAdd() const override;
    [[nodiscard]] bool CanFind() const override { return true; }

  protected:
    void listsChanged() override;
    void reloadWhole() override { loadroomslist(); }

  private:
    void layOut();
    [[nodiscard]] ScheduleSheet sheet(const PrintOptions& options) const;
    QPushButton* stepButton(const char* name, const QString& tip, const char* icon, int step);
    void bindRoomCommands();
    void bindGrid();
    void setGrid();
    void chooseRoom(const ViewContents& contents);
    void followRoom();
    void followSelection();
    [[nodiscard]] static QString noRoomHint();
    [[nodiscard]] static QString unreadHint();
    [[nodiscard]] static QString boundHint();
    [[nodiscard]] static QString bookedElsewhereHint(QDate day);
    void addMeetings();
    int addMeeting(const RoomMeeting& meeting);
    [[nodiscard]] static CalendarItem itemOf(const RoomMeeting& meeting);
    void showMeeting(int item, const RoomMeeting& meeting);
    [[nodiscard]] int roomId() const;
    [[nodiscard]] const RoomMeeting* meetingAt(int item) const;
    void setDate(QDate date);
    void typeMeeting(const QString& text);
    void moveMeeting(int item);
    void save(int item, const RoomMeeting& wanted);
    /// Keeps a meeting whose text was typed in place and could not be saved.
    void keepMeeting(const RoomMeeting& read, const RoomMeeting& wanted) const;
    void showDialog(const RoomMeeting& meeting);
    void popup(int item, const QPoint& place);
    [[nodiscard]] QString goTo(const FoundBooking& booking);

    // frmrooms_slip.cpp
    void suitSlip();
    /// Shows the slip of the selected meeting, or of the appointment that the selected slot belongs to.
    void printSlip();
    void printMeetingSlip(const RoomMeeting& shown);

    QComboBox* cborooms = nullptr;
    ctDEdit* txtdate = nullptr;
    QLabel* lblhint_ = nullptr;
    DayBoard* board_ = nullptr;
    ctMDay* ctDays1 = nullptr;  ///< The board's grid.
    QMenu* popup_ = nullptr;

    QDate date_;                        ///< The last valid date of txtdate.
    QHash<QString, RoomMeeting> rows_;  ///< The meetings by their item's ItemKey.
    bool roomsRead_ = false;
    bool bookingsRead_ = false;
    std::optional<int> savedRoom_;  ///< The room of the saved view for which this view opens.
};
