#pragma once

#include <functional>
#include <optional>
#include <QDialog>
#include <QSet>
#include <QTimer>
#include <vector>

#include "appointments/restobstacles.h"
#include "appointments/seriesrest.h"
#include "session/slot.h"

class CompletingCombo;
class QButtonGroup;
class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
class ctDEdit;
class ctNEdit;
namespace db {
class DatabaseError;
}

/// A series, and the appointment of it with which the user begins.
struct RestSeries {
    int chosen = 0;     ///< The key of that appointment.
    int reference = 0;  ///< The `repeating_ref` of the series.
    std::vector<RestRow> rows;
};

/// Reads the series of an appointment. Where there is none, because another desk has deleted the appointment or taken
/// it out of its series, or the database does not answer, the user is told so and nothing is returned.
[[nodiscard]] std::optional<RestSeries> OpenSeries(int key);

/// Deletes, moves or cancels the rest of a series, or gives it another room or provider. The user chooses what and for
/// which appointments; a list shows every appointment of the series with what will happen to it and what stands in its
/// way, before anything is written. What has taken place, is settled or has a session note is shown and stays. The user
/// can take any appointment out.
///
/// OK reads the series and the bookings anew. When anything on the list is no longer as shown, the list is shown again
/// and nothing is written. Each row is then written in a transaction of its own, and never over another desk's change.
/// When the writing is cut off, a notice offers to do the rest, at the next start too.
class frmrest : public QDialog {
    Q_OBJECT

  public:
    /// `rowsChanged` reloads the view when the user does the rest of interrupted work later.
    frmrest(RestSeries series, std::function<void()> rowsChanged, QWidget* parent = nullptr);

    /// Reads what stands in the way now instead of in a moment.
    std::optional<db::DatabaseError> ReadObstacles();
    [[nodiscard]] QSize sizeHint() const override;

    QLabel* lblsource = nullptr;      ///< Who and when.
    QLabel* lblseries = nullptr;      ///< How many appointments, from when until when.
    QButtonGroup* radWhat = nullptr;  ///< By RestChange::Kind.
    ctNEdit* txtminutes = nullptr;
    QComboBox* cmblater = nullptr;    ///< 0 later, 1 earlier.
    QComboBox* cmbweekday = nullptr;  ///< 0 the same weekday, 1 Sunday to 7 Saturday.
    ctDEdit* ctstart = nullptr;
    CompletingCombo* cborooms = nullptr;
    QComboBox* cboproviders = nullptr;
    QButtonGroup* radWhich = nullptr;  ///< By RestScope.
    QTreeWidget* lstrows = nullptr;
    QLabel* lblway = nullptr;    ///< What stands in the way of the current row, in full.
    QLabel* lblcount = nullptr;  ///< How many will be changed.
    QPushButton* cmdskip = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

  private:
    enum Column { DateColumn, TimeColumn, ThenColumn, InTheWayColumn };

    // frmrest_layout.cpp
    void buildForm();
    [[nodiscard]] QWidget* buildWhat();
    [[nodiscard]] QWidget* buildWhich();
    void buildList();
    [[nodiscard]] QLayout* buildButtons();
    void connectControls();
    void limitToRights();

    // frmrest.cpp
    void load();
    void loadProviders();
    void showSource();
    void choose(RestChange::Kind kind);
    [[nodiscard]] RestChange wanted() const;
    void plan();
    void planAnew();

    // frmrest_list.cpp
    void fillRows();
    void showRow(QTreeWidgetItem& row, std::size_t place);
    void showRows();
    void showCount();
    void tick(QTreeWidgetItem& row);
    void cmdskip_Click();
    [[nodiscard]] QString thenText(std::size_t place) const;
    [[nodiscard]] QString wayText(std::size_t place) const;
    [[nodiscard]] bool isTicked(std::size_t place) const;
    [[nodiscard]] QStringList inTheWay(std::size_t place) const;

    // frmrest_save.cpp
    void cmdOk_Click();
    /// Whether the series and what is in its way are as the list shows them. If not, the list shows them as they are
    /// now, and the user is told.
    [[nodiscard]] bool standsAsShown();
    [[nodiscard]] bool offersStill();
    [[nodiscard]] bool mayOverlap() const;
    [[nodiscard]] SeriesWork work() const;
    void save();

    RestSeries series_;
    const std::function<void()> rowsChanged_;
    std::vector<BookedProvider> providers_;  ///< In the order of cboproviders.
    RestChange change_;                      ///< That the plans are made for.
    std::vector<RestPlan> plans_;
    RestObstacles obstacles_;
    QSet<int> leftOut_;  ///< The keys that the user has taken out.
    QTimer due_;
    bool filling_ = false;
};
