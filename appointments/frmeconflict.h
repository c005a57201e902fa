#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

/// Names the providers who are busy at a selected date and time. The caller fills List1.
class frmeConflict : public QDialog {
    Q_OBJECT

  public:
    explicit frmeConflict(QWidget* parent = nullptr);

    QListWidget* List1 = nullptr;
    QPushButton* cmdreschedule = nullptr;  ///< The button "&Close", which only closes the form.
};
