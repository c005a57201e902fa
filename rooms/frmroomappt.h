#pragma once

#include "rooms/roommeeting.h"
#include "session/editordialog.h"

class QLabel;
class QLineEdit;
class QPushButton;
class ctDEdit;

/// Edits one meeting in a room: its date, times and subject. OK adds a new meeting or changes the stored one that the
/// form was given (its tag is then "EDIT"). OK without a change writes nothing. A failing save closes the form, and
/// RunEditor keeps it. The caller reloads its room when the form has closed.
class frmRoomAppt : public EditorDialog {
    Q_OBJECT

  public:
    /// A meeting without a key is new, and its date is the one that the schedule shows. The form shows `date`, which
    /// may differ from the meeting's date. The form then says so, and OK books the meeting on `date` or, with a change,
    /// moves it there. The date and the times of a slot that an appointment owns cannot be changed here.
    frmRoomAppt(const RoomMeeting& meeting, QDate date, const QString& roomName, QWidget* parent = nullptr);
    ~frmRoomAppt() override;

    /// The key of the meeting that was added or changed; 0 when nothing was saved.
    [[nodiscard]] int SavedKey() const { return savedKey_; }
    [[nodiscard]] QDate SavedDate() const { return wanted().date; }

    QLabel* lblRoom = nullptr;
    ctDEdit* ctedate = nullptr;
    QLabel* lblmoves = nullptr;  ///< Says that the meeting or its schedule is on another day.
    ctDEdit* ctstart = nullptr;
    ctDEdit* ctend = nullptr;
    QLineEdit* txtsubject = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

    [[nodiscard]] QString Subject() const override;
    /// Throws db::DatabaseError, as SaveUpdate does.
    void SaveNew();
    /// Returns false when another desk has deleted the meeting, of which the user has been told.
    [[nodiscard]] bool SaveUpdate();

  private:
    void buildForm(const QString& roomName);
    void layOutForm();
    void showMove();
    [[nodiscard]] RoomMeeting wanted() const;
    [[nodiscard]] bool isComplete();
    void cmdOk_Click();

    RoomMeeting meeting_;  ///< The meeting as it is stored.
    RoomMeeting shown_;    ///< The meeting as the form first showed it.
    int savedKey_ = 0;
};
