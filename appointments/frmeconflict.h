#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

/// Names the providers who are busy at a selected date and time. The caller adds them.
class frmeConflict : public QDialog {
    Q_OBJECT

  public:
    explicit frmeConflict(QWidget* parent = nullptr);

    /// Adds a provider with the tip of the row: the times and the statuses of what is in the way.
    void AddProvider(const QString& name, const QString& tip);

    QListWidget* List1 = nullptr;
    QPushButton* cmdreschedule = nullptr;  ///< The button "&Close", which only closes the form.
};
