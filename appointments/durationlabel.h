#pragma once

#include <QLabel>

/// Says beside two times how long it is from one to the other, or that the end does not come after the start.
class DurationLabel : public QLabel {
    Q_OBJECT

  public:
    explicit DurationLabel(QWidget* parent = nullptr);

    /// Minutes since midnight; -1 is a time that is not there, of which nothing is said.
    void ShowTimes(int start, int end);
};
