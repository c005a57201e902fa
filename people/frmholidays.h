#pragma once

#include "session/editordialog.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class ctDEdit;
class ctList;

/// The practice's holidays, the latest first. Each is added or removed at once. A recurring holiday falls on its month
/// and day in every year (one of February 29 in every leap year).
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
    /// Whether a name was typed. A date alone is no holiday.
    [[nodiscard]] bool IsChanged() const override;

  private:
    void buildForm();
    void layOutForm();
    /// Whether the list already has a holiday of that name, in any case, on that date.
    [[nodiscard]] bool listed(const QString& name, QDate date) const;
    void cmdadd_Click();
    void cmdremove_Click();
};
