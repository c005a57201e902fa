#pragma once

#include <QDialog>
#include <QHash>
#include <vector>

#include "session/openview.h"

class DayBoard;
class QPushButton;
class ctMDay;

/// Shows all rooms side by side for one day, for reading only, so that the user finds a room that is free at the wanted
/// time. The wanted time is shaded in every column. A double click on free time or a click on a room's heading chooses
/// that room. Enter and the button choose the room in whose column a time or a booking is selected.
class frmRoomView : public QDialog {
    Q_OBJECT

  public:
    /// `wanted` holds the editor's date and times. They are not shaded unless both are above 0 and in order. `dateText`
    /// is the date as the editor writes it.
    frmRoomView(const SelectedSlot& wanted, const QString& dateText, QWidget* parent = nullptr);

    /// The RoomID of the chosen room; 0 when the form was only looked at.
    [[nodiscard]] int ChosenRoom() const { return chosenRoom_; }

    /// Reads the rooms.
    void LoadRooms();
    /// Makes one column for each room, with the wanted time shaded.
    void resetcols();
    /// Reads the day's bookings. A booking whose room no longer exists is shown in the first column.
    void loadRoomView();
    /// Returns the place of a room in the list, from 0, or -1 for an unknown room.
    [[nodiscard]] int GetRoomPos(int roomId) const;

    ctMDay* ctMDay1 = nullptr;
    QPushButton* cmdselect = nullptr;
    QPushButton* cmdclose = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

  private:
    struct Room {
        int id = 0;
        QString name;
    };
    void buildForm();
    void addBookings();
    [[nodiscard]] int selectedColumn() const;
    void choose(int column);

    SelectedSlot wanted_;
    std::vector<Room> rooms_;
    DayBoard* board_ = nullptr;
    QHash<QString, qint64> owners_;  ///< The appointment of each item, by its key; 0 for a meeting.
    int chosenRoom_ = 0;
};
