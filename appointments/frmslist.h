#pragma once

#include <QDialog>

class QListWidget;

/// A preview of dates. A date on which something is booked in the way carries a mark and says so.
class frmslist : public QDialog {
    Q_OBJECT

  public:
    explicit frmslist(QWidget* parent = nullptr);

    void AddDate(const QString& text, bool collides);

    QListWidget* List1 = nullptr;
};
