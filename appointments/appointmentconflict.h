#pragma once

#include <QDialog>
#include <QStringList>

class QLabel;
class QPushButton;
class ctList;

/// The dialog that lists the bookings in conflict with a proposed time, and lets the user accept the conflict or
/// reschedule. The caller fills ctList1 with rows of the five columns, shows the form modally and asks whether it
/// IsAccepted. The item text of a row tells how long its booking is in the way. A line under the list shows this text
/// for the selected row, together with the name of who or what is booked and its status, which the row's tip tells too.
///
/// Closing the dialog in any other way, by Escape or the window's close button, counts as rescheduling. Rescheduling is
/// also the default button, so that nothing is booked by accident.
class AppointmentConflict : public QDialog {
    Q_OBJECT

  public:
    explicit AppointmentConflict(QWidget* parent = nullptr);

    /// Changes the title, the text and the heading of the fifth column to those of a room conflict.
    void ShowAsRoomConflict();
    /// Sets the status of a row's booking, "" where it has none.
    void SetStatus(int row, const QString& status);
    /// Returns the tip of a row: who or what is booked, when, and with which status. A hidden name stays hidden.
    [[nodiscard]] QString TipOf(int row) const;
    [[nodiscard]] QSize sizeHint() const override;

    static constexpr int TextColumn = 4;

    /// Whether the user has accepted the conflict.
    [[nodiscard]] bool IsAccepted() const { return result() == Accepted; }

    ctList* ctList1 = nullptr;
    QLabel* lblmessage = nullptr;
    QLabel* lbllength = nullptr;
    QPushButton* cmdaccept = nullptr;
    QPushButton* cmdreschedule = nullptr;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void tellLength();
    void buildControls();
    void layOutForm();

    QStringList statuses_;  ///< By row.
};
