#pragma once

#include <array>
#include <QDialog>

class QRadioButton;

/// Asks for whom an Activity with several attendees is deleted, and deletes it on OK: for one attendee, whose last one
/// takes the Activity along, or for all. Its room is given back with the Activity itself. The steps of one choice are
/// done together or not at all; a failure is told, and the form stays. Nothing goes to the audit log. For specific
/// attendees nothing is deleted here: the caller lets the user change them.
class frmDeleteEvent : public QDialog {
    Q_OBJECT

  public:
    /// `key` is the Activity's nkeyid, `attendee` the id of the provider whose schedule is shown.
    frmDeleteEvent(int key, const QString& attendee, QWidget* parent = nullptr);

    /// optdelete: the selected attendee, all attendees, specific attendees.
    std::array<QRadioButton*, 3> optdelete{};

    /// Whether the user wants to say for which attendees: nothing was deleted then.
    [[nodiscard]] bool WantsSpecificAttendees() const { return wantsSpecificAttendees_; }

  private:
    void deleteChosen();

    int key_;
    QString attendee_;
    bool wantsSpecificAttendees_ = false;
};
