#pragma once

#include <QLabel>

/// A label beside two times that tells the duration between them, or that the end does not come after the start.
class DurationLabel : public QLabel {
    Q_OBJECT

  public:
    explicit DurationLabel(QWidget* parent = nullptr);

    /// Shows the duration between two times in minutes since midnight. The label is empty when one of them is -1, which
    /// stands for a missing time.
    void ShowTimes(int start, int end);
};
