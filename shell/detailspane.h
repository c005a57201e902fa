#pragma once

#include <QSplitter>
#include <QString>

class QPlainTextEdit;
class ctList;

/// The details of the item that is selected in a view: a list of labels with values, and a note under it. Values and
/// notes about a patient are hidden while the patients' names are hidden. A view may add panes of its own below.
class DetailsPane : public QSplitter {
    Q_OBJECT

  public:
    enum class About { Nobody, Patient };

    /// `caption` is the text over the list, with the letter of its Alt key. `labelCharacters` is the width of the
    /// labels in average characters.
    explicit DetailsPane(const QString& caption, QWidget* parent = nullptr, int labelCharacters = UsualLabelCharacters);

    static constexpr int UsualLabelCharacters = 29;

    /// Adds a pane with a caption over its content; `stretch` is its share of the height.
    void AddPane(const QString& caption, QWidget* content, int stretch);

    /// Empties the list and the note.
    void Clear();
    /// Adds a label with its value.
    void AddRow(const QString& label, const QString& value, About about = About::Nobody);
    /// Shows a heading, which is never hidden, followed by the note.
    void ShowNote(const QString& heading, const QString& note, About about = About::Nobody);

  private:
    void writeNote();

    ctList* ctListInfo;
    QPlainTextEdit* txtnote;
    QString heading_;
    QString note_;
    About noteIsAbout_ = About::Nobody;
};
