#pragma once

#include <QHash>

#include "rooms/roommeeting.h"
#include "shell/menuview.h"

class DayBoard;
class QComboBox;
class QLabel;
class QMenu;
class QPushButton;
class ctDEdit;
class ctMDay;
struct CalendarItem;
struct FoundBooking;

/// The room scheduler: one room, one day. Meetings are booked here without an appointment; a slot that belongs to an
/// appointment or an activity is shown, marked and locked, and moves with its owner.
///
/// Typing on a selected time makes a meeting there at once ("New mtg.") and names it; dragging, sizing and naming one
/// in the grid are stored at once, too. The dialog starts from the date of the main window's calendar, the grid
/// books on the date that it shows. Whoever may only read can look and find.
///
/// The room that a user looked at last is the one that opens next time. While patient names are hidden the texts of the
/// slots of patients' appointments are hidden here, as they hold names.
class frmrooms : public MenuView {
    Q_OBJECT

  public:
    explicit frmrooms(MainWindow& main, QWidget* parent = nullptr);
    ~frmrooms() override;

    /// Reads the rooms; the chosen one stays chosen while it is there.
    void loadroomslist();
    /// Reads the selected room's day. A reload of what is shown keeps the place and the selected item. A failed read is
    /// told, so that nobody takes the room for free.
    void LoadRooms();
    /// 0 one day back, 1 one day forward, 2 today.
    void cycledate(int step);
    /// Opens the dialog on a meeting of the grid.
    void editappt(int item);
    /// Stores what was changed on an item in the grid; an emptied text comes back without a word.
    void saveappt(int item, const QString& textBefore);
    /// Deletes the selected item after a question, a slot that belongs to an appointment too; its appointment stays.
    void deleteappt();
    /// The room's day on paper, through the preview.
    void printS();
    void setmenuaccess();

    /// The rooms too, where they could not be read.
    void Reload() override;
    void ShowDate(QDate date) override;
    bool StepOwnDate(int direction) override;
    [[nodiscard]] QDate ShownDay(QDate /*mainDate*/) const override { return date_; }
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override;
    void ApplyPreferences() override;
    /// The dialog for a new meeting at the selected time.
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
    QPushButton* stepButton(const char* name, const QString& tip, const char* icon, int step);
    void bindRoomCommands();
    void bindGrid();
    void setGrid();
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

    QComboBox* cborooms = nullptr;
    ctDEdit* txtdate = nullptr;
    QLabel* lblhint_ = nullptr;
    DayBoard* board_ = nullptr;
    ctMDay* ctDays1 = nullptr;  ///< The board's grid.
    QMenu* popup_ = nullptr;

    QDate date_;                        ///< The last date that txtdate held.
    QHash<QString, RoomMeeting> rows_;  ///< By ItemKey.
    bool roomsRead_ = false;
    bool bookingsRead_ = false;
};
