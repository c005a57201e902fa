#pragma once

#include <QFrame>

#include "platform/controls/ctdate.h"

/// The month calendar that drops from a date field. A click on a day, Enter and "Today" choose a date and close the
/// calendar. Escape and a click elsewhere close it without a choice. The arrow keys move without choosing.
class DatePopup : public QFrame {
    Q_OBJECT

  public:
    explicit DatePopup(QWidget& field);

    /// Opens below the field, or above it where the screen ends. For an invalid date it opens at today.
    void drop(QDate date, int dateOrder);

    [[nodiscard]] ctDate& Calendar() { return *calendar_; }

  Q_SIGNALS:
    void Chosen(QDate date);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void choose(QDate date);

    QWidget& field_;
    ctDate* calendar_;
    bool dayPressed_ = false;
};
