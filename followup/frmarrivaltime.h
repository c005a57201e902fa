#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class ctDEdit;

/// Asks for the time at which a patient arrived.
///
/// With a CheckInKey in the session the form checks that appointment in: OK stores the time and the status Checked-In,
/// and Cancel sets CheckInKey to 0. Without one the form only lets the user correct a time, and the caller stores the
/// time of the field.
class frmarrivalTime : public QDialog {
    Q_OBJECT

  public:
    explicit frmarrivalTime(QWidget* parent = nullptr);

    /// Fills the field with the stored arrival of the appointment, or with the present time.
    void LoadCheckedinStatus();
    /// Puts a time, in minutes since midnight, into the field.
    void SetArrival(int minutes);
    /// The minutes since midnight in the field, or -1 where it is empty or not understood.
    [[nodiscard]] int Arrival() const;

    ctDEdit* ctstart = nullptr;
    QLabel* lblproblem = nullptr;  ///< The reason why OK did not store; empty otherwise.
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;

  public Q_SLOTS:
    void reject() override;

  private:
    void buildForm();
    void cmdOk_Click();
    /// Writes the check-in. Returns false when it could not be written, of which the user has been told.
    [[nodiscard]] bool SaveCheckedIn();

    bool checksIn_;
};
