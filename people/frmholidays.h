#pragma once

#include "session/editordialog.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class ctDEdit;
class ctList;

/// The practice's holidays, the latest first: adds and removes them, each at once. One that recurs holds on its month
/// and day of every year (one of February 29, of every leap year).
class frmholidays : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmholidays(QWidget* parent = nullptr);

    void loadholidays();

    ctList* ctList1 = nullptr;
    QLineEdit* txtholiday = nullptr;
    ctDEdit* ctDateCDrop = nullptr;
    QCheckBox* ckRepeat = nullptr;
    QPushButton* cmdadd = nullptr;
    QPushButton* cmdremove = nullptr;
    QPushButton* cmdclose = nullptr;

    [[nodiscard]] QSize sizeHint() const override;
    /// Whether a name was typed; a date alone makes no holiday.
    [[nodiscard]] bool IsChanged() const override;

  private:
    void buildForm();
    void layOutForm();
    /// Whether a holiday of that name, in any case, is on the list for that date already.
    [[nodiscard]] bool listed(const QString& name, QDate date) const;
    void cmdadd_Click();
    void cmdremove_Click();
};
