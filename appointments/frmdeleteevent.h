#pragma once

#include <array>
#include <QDialog>

class QRadioButton;

/// Asks for whom an Activity with several attendees is deleted, and deletes it on OK, for one attendee or for all.
/// Removing the last attendee deletes the Activity. Deleting the Activity also frees its room. The steps of a choice
/// are done together or not at all; on a failure the user is told and the form stays open. Nothing goes to the audit
/// log. When the user chooses specific attendees, nothing is deleted here: the caller lets the user change the
/// attendees.
class frmDeleteEvent : public QDialog {
    Q_OBJECT

  public:
    /// `key` is the Activity's nkeyid, and `attendee` is the id of the provider whose schedule is shown.
    frmDeleteEvent(int key, const QString& attendee, QWidget* parent = nullptr);

    /// The choices in this order: the selected attendee, all attendees, specific attendees.
    std::array<QRadioButton*, 3> optdelete{};

    /// Whether the user chose specific attendees, so that nothing was deleted.
    [[nodiscard]] bool WantsSpecificAttendees() const { return wantsSpecificAttendees_; }

  private:
    void deleteChosen();

    int key_;
    QString attendee_;
    bool wantsSpecificAttendees_ = false;
};
