#pragma once

#include <QDialog>
#include <vector>

#include "appointments/grouproster.h"

class QButtonGroup;
class QLabel;
class QPushButton;
class QTreeWidget;

/// Asks, after a repeating group appointment was saved with other members, for which of its dates they change too. A
/// list shows each other date with what happens to it; dates that are past, have a session note or belong to another
/// group stay, and so does who has attended. OK writes all chosen dates or, when the database refuses one, none, and
/// the form then stays.
class frmroster : public QDialog {
    Q_OBJECT

  public:
    /// `saved` is the appointment that was saved.
    frmroster(RosterChange change, RestRow saved, std::vector<RosterDate> dates, QWidget* parent = nullptr);

    QLabel* lblgroup = nullptr;
    QLabel* lbladded = nullptr;
    QLabel* lblremoved = nullptr;
    QButtonGroup* radWhich = nullptr;  ///< By RestScope.
    QTreeWidget* lstdates = nullptr;
    QLabel* lblcount = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

  private:
    void buildForm();
    [[nodiscard]] QWidget* buildWhich();
    void fillRows();
    void showChange();
    void showRows();
    [[nodiscard]] RestScope scope() const;
    [[nodiscard]] QString thenText(const RosterDate& date) const;
    [[nodiscard]] std::vector<RosterDate> chosen() const;
    void cmdOk_Click();
    static void tellChanged(int changed, int left);

    const RosterChange change_;
    const RestRow saved_;
    const std::vector<RosterDate> dates_;
};

/// Shows frmroster when the change reaches any other date of the series. It does nothing where none would be changed.
/// When the dates cannot be read, the user is told.
void OfferRoster(const RosterChange& change, QWidget* parent);
