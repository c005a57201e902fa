#pragma once

#include <QDialog>

class QListWidget;

/// A preview of dates. A date with something in its way carries a mark and says what.
class frmslist : public QDialog {
    Q_OBJECT

  public:
    explicit frmslist(QWidget* parent = nullptr);

    /// `note` is what is to be said of the date, "" for nothing; `warns` marks a date with a note.
    void AddDate(const QString& date, const QString& note, bool warns);

    QListWidget* List1 = nullptr;
};
