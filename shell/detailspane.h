#pragma once

#include <QSplitter>
#include <QString>

class QPlainTextEdit;
class ctList;

/// The details of what is selected in a view: a list of labels with their values, and under it a note. What tells of a
/// patient is hidden with the patients' names, at once. A view may add panes of its own under these.
class DetailsPane : public QSplitter {
    Q_OBJECT

  public:
    enum class About { Nobody, Patient };

    /// `caption` stands over the list, with the letter that leads there.
    explicit DetailsPane(const QString& caption, QWidget* parent = nullptr);

    /// Adds a pane with a caption over its content, which takes the share `stretch` of the height.
    void AddPane(const QString& caption, QWidget* content, int stretch);

    /// Empties the list and the note.
    void Clear();
    /// Adds a label with its value, of which one about a patient is hidden.
    void AddRow(const QString& label, const QString& value, About about = About::Nobody);
    /// Shows a heading and behind it the note.
    void ShowNote(const QString& heading, const QString& note, About about = About::Nobody);

  private:
    void writeNote();

    ctList* ctListInfo;
    QPlainTextEdit* txtnote;
    QString heading_;
    QString note_;
    About noteIsAbout_ = About::Nobody;
};
