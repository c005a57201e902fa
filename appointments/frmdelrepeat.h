#pragma once

#include <functional>
#include <QDialog>
#include <vector>

#include "appointments/appointmentdelete.h"

class ctList;
class QPushButton;

/// Lets the user choose which appointments of a series to delete. OK deletes each of them in a transaction of its own.
/// The caller adds the rows and reloads the calendar afterwards.
///
/// A row that another desk has deleted meanwhile counts as deleted. An appointment that the database refuses to delete
/// keeps its room and members, and the others are deleted all the same. The user is told at the end, and a notice
/// offers to delete the rest.
class frmdelrepeat : public QDialog {
    Q_OBJECT

  public:
    /// `rowsChanged` reloads the view when the user deletes the rest later.
    explicit frmdelrepeat(std::function<void()> rowsChanged, QWidget* parent = nullptr);

    struct Row {
        int key = 0;
        QString date;
        QString time;
        QString text;
        bool isGroup = false;
        bool checked = false;
        bool namesPatient = false;  ///< Whether the text is a patient's name.
    };
    void AddAppointment(const Row& row);
    /// Checks or unchecks every row.
    void selecttodelete(bool state);

    ctList* ctList1 = nullptr;  ///< The item data is the key of the row.
    QPushButton* cmdOk = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

  private:
    void deleteChecked();
    void allowOk();

    std::function<void()> rowsChanged_;
    std::vector<SeriesRow> rows_;  ///< The rows in the order in which they were added.
};
