#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class ctList;

/// The list of what a proposed time conflicts with, and the choice to accept the conflict or to reschedule. The caller
/// fills ctList1 with rows of the five columns, shows the form modally and asks whether it IsAccepted. Under the list
/// stands who is in the way in the selected row, with its text item: for how long.
///
/// Closing the dialog in any other way, by Escape or the window's own button, is rescheduling, and rescheduling is what
/// Enter does first: nothing is booked by accident.
class AppointmentConflict : public QDialog {
    Q_OBJECT

  public:
    explicit AppointmentConflict(QWidget* parent = nullptr);

    /// Words the dialog for a room: title, text and the heading of the fifth column.
    void ShowAsRoomConflict();
    [[nodiscard]] QSize sizeHint() const override;

    static constexpr int TextColumn = 4;

    /// The user has accepted the conflict.
    [[nodiscard]] bool IsAccepted() const { return result() == Accepted; }

    ctList* ctList1 = nullptr;
    QLabel* lblmessage = nullptr;
    QLabel* lbllength = nullptr;
    QPushButton* cmdaccept = nullptr;
    QPushButton* cmdreschedule = nullptr;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void tellLength();
    void buildControls();
    void layOutForm();
};
