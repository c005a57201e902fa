#pragma once

#include <QToolButton>
#include <QWidget>

class QLabel;

/// The heading above a view: what it shows, and beside it whose schedule that is. The name is a button that opens the
/// list of providers, for a user who may choose. A name that is too long for the window is cut, and shown whole as a
/// tip.
class TitleBar : public QWidget {
    Q_OBJECT

  public:
    explicit TitleBar(QWidget* parent = nullptr);

    /// Writes the heading, such as "March 11, 2026".
    void ShowTitle(const QString& text);
    /// Writes whose schedule is shown. An empty name, as in a view of all providers, hides the button.
    void ShowWhose(const QString& name);
    /// Lets the user choose another provider by a click, or by Space while the button has the focus.
    void LetChoose();

  Q_SIGNALS:
    /// Raised when the user asks for the list of providers.
    void ChoiceRequested();

  private:
    // A part of the bar alone.
    class WhoseButton;

    QLabel* pnltitle_;
    WhoseButton* cmdwhose_;
};
