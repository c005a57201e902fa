#pragma once

#include <QString>
#include <QWidget>

class QLabel;
class QLineEdit;
class ctList;

/// The words by which the rows of a list are counted: "patient", "patients".
struct CountWords {
    QString one;
    QString many;
};

/// Returns how many rows a list shows, in words: "12 patients", "1 patient", "No patients", or, when some are not
/// shown, "1 of 12 patients".
[[nodiscard]] QString CountText(int shown, int all, const CountWords& words);
[[nodiscard]] QString CountText(const ctList& list, const CountWords& words);

/// A field above a list that shows only the rows that contain the typed text, with their count. It is hidden while the
/// list fits on a page.
class ListFilter : public QWidget {
    Q_OBJECT

  public:
    /// The most rows of a list that needs no filter.
    static constexpr int PageRows = 12;

    ListFilter(ctList& list, CountWords words, QWidget* parent);

    /// Takes the rows into account that were added or removed since.
    void Refresh();
    /// Empties the field, so that a row which was just added is shown.
    void ShowAll();

    QLineEdit* txtfilter = nullptr;
    QLabel* lblcount = nullptr;

  private:
    ctList& list_;
    CountWords words_;
};
