#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class ctDEdit;

/// Asks for the time at which a patient arrived.
///
/// With a CheckInKey in the session it checks that appointment in: OK stores the time and the status Checked-In, Cancel
/// sets CheckInKey to 0. With none it only lets a time be corrected, and what the field then holds is the caller's to
/// store.
class frmarrivalTime : public QDialog {
    Q_OBJECT

  public:
    explicit frmarrivalTime(QWidget* parent = nullptr);

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

  public Q_SLOTS:
    void reject() override;

  private:
    void buildForm();
    void cmdOk_Click();
    /// Writes the check-in; false, with the reason told, where it could not be written.
    [[nodiscard]] bool SaveCheckedIn();

    bool checksIn_;
};
