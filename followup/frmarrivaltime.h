#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class ctDEdit;

/// Asks for the time at which a patient arrived.
///
/// With the key of an appointment it checks that one in: OK stores the time and the status Checked-In and accepts the
/// form. Without it only lets a time be corrected, and what the field then holds is the caller's to store.
class frmarrivalTime : public QDialog {
    Q_OBJECT

  public:
    /// `CheckInKey` is the nkeyid of the appointment, 0 for none.
    explicit frmarrivalTime(int CheckInKey, QWidget* parent = nullptr);

    /// Fills the field with the stored arrival of the appointment, or with the present time.
    void LoadCheckedinStatus();
    /// Puts a time, in minutes since midnight, into the field.
    void SetArrival(int minutes);
    /// The minutes since midnight in the field; -1 where it is empty or not understood.
    [[nodiscard]] int Arrival() const;

    ctDEdit* ctstart = nullptr;
    QLabel* lblproblem = nullptr;  ///< What keeps OK from storing; empty otherwise.
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;

  private:
    void buildForm();
    [[nodiscard]] bool checksIn() const { return checkInKey_ > 0; }
    void cmdOk_Click();
    /// Writes the check-in; false, with the reason told, where it could not be written.
    [[nodiscard]] bool SaveCheckedIn();

    const int checkInKey_;
};
