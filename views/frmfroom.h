#pragma once

#include <functional>
#include <QDate>
#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class ctList;

/// Where a found booking stands.
struct FoundBooking {
    int key = 0;
    int room = 0;  ///< RoomID.
    QDate date;
    int start = 0;  ///< Minutes since midnight.
};

/// Finds bookings of every room by a text in their description, and goes to the one that the user chooses.
class frmfroom : public QDialog {
    Q_OBJECT

  public:
    /// Shows a booking; false where its room is not in the list of rooms.
    using GoTo = std::function<bool(const FoundBooking& booking)>;

    explicit frmfroom(GoTo goTo, QWidget* parent = nullptr);

    QLineEdit* txtfind = nullptr;
    QPushButton* cmdfind = nullptr;
    ctList* ctList1 = nullptr;
    QLabel* lblcount = nullptr;
    QCheckBox* ckselected = nullptr;
    QPushButton* cmdprint = nullptr;
    QPushButton* cmdgoto = nullptr;
    QPushButton* cmdclose = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

  private:
    void buildForm();
    void layOutForm();
    void cmdfind_Click();
    void addHits();
    void cmdgoto_Click();
    void cmdprint_Click();
    void allowResults(bool allowed);

    GoTo goTo_;
};
