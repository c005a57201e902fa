#pragma once

#include <QDialog>
#include <QTimer>

class QLabel;
class QPushButton;
class ctList;

/// Today's checked-in patients, in a small window that stays open beside the schedule and reloads every minute. It
/// shows the patients of every provider when the user may work on all schedules, otherwise those of the user. A reload
/// keeps the selected line. A reload that fails leaves the list unchanged and says so in the window, because a box
/// every minute would be in the way.
///
/// A double click or Enter on a line corrects its arrival time, for users who may write.
class frmCheckedIn : public QDialog {
    Q_OBJECT

  public:
    explicit frmCheckedIn(QWidget* parent = nullptr);

    /// Opens the window, or brings the open one to the front.
    static void Open(QWidget* parent);
    /// Reloads the list of the open window. It does nothing when the window is not open.
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
