#pragma once

#include <QDialog>
#include <QTimer>

class QLabel;
class QPushButton;
class ctList;

/// Today's checked-in patients, a small window that stays open beside the schedule and reads itself anew every minute:
/// of every provider where the user may work on all schedules, else of the user. A refresh keeps the selected line; one
/// that fails says so in the window, since a box every minute would be in the way, and leaves the list as it was.
///
/// A double click or Enter on a line corrects its arrival time, for users who may write.
class frmCheckedIn : public QDialog {
    Q_OBJECT

  public:
    explicit frmCheckedIn(QWidget* parent = nullptr);

    /// Opens the window, or brings the open one to the front.
    static void Open(QWidget* parent);
    /// Reads the list of the open window anew; nothing where it is not open.
    static void ReloadIfOpen();

    void loadcheckedin();

    ctList* ctList1 = nullptr;
    QPushButton* cmdRefresh = nullptr;
    QPushButton* cmdclose = nullptr;
    QLabel* lblstatus = nullptr;
    QTimer Timer1;

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void buildForm();
    void readRows();
    void correctArrival(int row);
};
