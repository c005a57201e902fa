#pragma once

#include <functional>
#include <QDialog>
#include <vector>

#include "appointments/appointmentdelete.h"

class ctList;
class QPushButton;

/// Lets the user choose which appointments of a series to delete; OK deletes them, each by itself. The caller adds the
/// rows and reads the calendar anew afterwards.
///
/// A row that another desk has deleted meanwhile counts as deleted. An appointment that the database refuses to delete
/// keeps its room and members, the others go on, and the user is told at the end; a notice offers to delete the rest.
class frmdelrepeat : public QDialog {
    Q_OBJECT

  public:
    /// `rowsChanged` reads the view anew where the user lets the rest be deleted later.
    explicit frmdelrepeat(std::function<void()> rowsChanged, QWidget* parent = nullptr);

    struct Row {
        int key = 0;
        QString date;
        QString time;
        QString text;
        bool isGroup = false;
        bool checked = false;
        bool namesPatient = false;  ///< The text does.
    };
    void AddAppointment(const Row& row);
    /// Checks or unchecks every row.
    void selecttodelete(bool state);

    ctList* ctList1 = nullptr;  ///< Item data: the key.
    QPushButton* cmdOk = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

  private:
    void deleteChecked();
    void allowOk();

    std::function<void()> rowsChanged_;
    std::vector<SeriesRow> rows_;  ///< As they were added.
};
