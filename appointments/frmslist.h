#pragma once

#include <QDialog>

class QListWidget;

/// A preview of dates. A date with an obstacle carries a mark and names the obstacle.
class frmslist : public QDialog {
    Q_OBJECT

  public:
    explicit frmslist(QWidget* parent = nullptr);

    /// Adds a date. `note` is the remark about the date, "" for none; `warns` puts a mark on a date that has a remark.
    void AddDate(const QString& date, const QString& note, bool warns);

    QListWidget* List1 = nullptr;
};
