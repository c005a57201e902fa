#pragma once

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

/// Shows facts about the program under a heading, as text that can be copied into a letter to whoever helps.
class frmabout : public QDialog {
    Q_OBJECT

  public:
    frmabout(const QString& caption, const QString& heading, const QString& facts, QWidget* parent = nullptr);

    QPlainTextEdit* txtfacts = nullptr;
    QPushButton* cmdcopy = nullptr;
    QPushButton* cmdclose = nullptr;

  private:
    void cmdcopy_Click();
};

/// Returns the versions of the program, of Qt, of the database's engine, driver and schema, and of the system, a line
/// each. Neither server nor user is named.
[[nodiscard]] QString ProgramFacts();

/// Shows ProgramFacts.
void ShowAbout(QWidget* parent);

/// Offers in the bar of the main window to show the note of a crash that the last run left. It does nothing where there
/// is none.
void OfferCrashNote(QWidget* parent);
