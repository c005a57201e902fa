#pragma once

#include <QDialog>
#include <QHash>
#include <vector>

#include "session/openview.h"

class DayBoard;
class QPushButton;
class ctMDay;

/// All rooms side by side for one day, to be read: which room is free at the wanted time. The wanted time is shaded in
/// every column. A double click on a room's heading or on its free time chooses that room, as Enter and the button do
/// for the column in which a time or a booking is selected.
class frmRoomView : public QDialog {
    Q_OBJECT

  public:
    /// `wanted` holds the editor's date and times; times that are not both above 0, or not in order, are not shaded.
    /// `dateText` is how the editor writes its date.
    frmRoomView(const SelectedSlot& wanted, const QString& dateText, QWidget* parent = nullptr);

    /// The RoomID of the room that the user chose; 0 where the form was only looked at.
    [[nodiscard]] int ChosenRoom() const { return chosenRoom_; }

    /// Reads the rooms.
    void LoadRooms();
    /// One column for each room, with the wanted time shaded.
    void resetcols();
    /// Reads the day's bookings. One whose room is gone stands in the first column.
    void loadRoomView();
    /// The place of a room in the list, counted from 0; -1 for a room that is not there.
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
