#pragma once

#include "rooms/roommeeting.h"
#include "session/editordialog.h"

class QLabel;
class QLineEdit;
class QPushButton;
class ctDEdit;

/// One meeting in a room: its date, its times and what it is about. A new one is added by OK; the stored one that the
/// form was given to edit (its tag is "EDIT" then) is changed by it. OK without a change writes nothing. A save that
/// fails closes the form, which RunEditor keeps. The caller reads its room anew when the form has closed.
class frmRoomAppt : public EditorDialog {
    Q_OBJECT

  public:
    /// A meeting without a key is new, and its date the one that the schedule shows. The form shows `date`, which may
    /// be another than the meeting's: the form says so, and is about to book it or, by a change, to move it there. Date
    /// and times of one that an appointment owns cannot be changed here.
    frmRoomAppt(const RoomMeeting& meeting, QDate date, const QString& roomName, QWidget* parent = nullptr);
    ~frmRoomAppt() override;

    /// The key of the meeting that was added or changed; 0 where nothing was saved.
    [[nodiscard]] int SavedKey() const { return savedKey_; }
    [[nodiscard]] QDate SavedDate() const { return wanted().date; }

    QLabel* lblRoom = nullptr;
    ctDEdit* ctedate = nullptr;
    QLabel* lblmoves = nullptr;  ///< Which other day the meeting or its schedule is on.
    ctDEdit* ctstart = nullptr;
    ctDEdit* ctend = nullptr;
    QLineEdit* txtsubject = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

    [[nodiscard]] QString Subject() const override;
    /// Both throw db::DatabaseError.
    void SaveNew();
    /// False where another desk has deleted the meeting, which the user has been told.
    [[nodiscard]] bool SaveUpdate();

  private:
    void buildForm(const QString& roomName);
    void layOutForm();
    void showMove();
    [[nodiscard]] RoomMeeting wanted() const;
    [[nodiscard]] bool isComplete();
    void cmdOk_Click();

    RoomMeeting meeting_;  ///< As it is stored.
    RoomMeeting shown_;    ///< As the form showed it first.
    int savedKey_ = 0;
};
