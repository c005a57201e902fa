#pragma once

#include <functional>
#include <QLineEdit>

class FieldNotice;

/// A text of one line, no longer than its column keeps.
///
/// Whether typed, pasted, dropped or set by the program: line breaks, tabs and other control characters become blanks,
/// and characters that the field does not take are left out. What is more than the column keeps is left out where it
/// was typed or pasted, so that the end of a long text is not pushed out unseen, and a line below the field says so.
class TextField : public QLineEdit {
    Q_OBJECT

  public:
    explicit TextField(QWidget* parent = nullptr);

    /// How many characters the column keeps; 0, as at first, is any number.
    void SetMost(int characters) { most_ = characters; }
    /// Shows a text whole that is longer than what is kept, since it was stored elsewhere; the line says how much is.
    void ShowWhole(const QString& text);
    /// Which texts are shown whole when something else sets them, such as the items of a list.
    void SetWholeTexts(std::function<bool(const QString&)> areWhole) { areWhole_ = std::move(areWhole); }
    /// Leaves out what is not accepted, from the next change on: a text that stands in the field stays.
    void SetAccepts(std::function<bool(QChar)> accepts) { accepts_ = std::move(accepts); }

    /// What is kept of the text.
    [[nodiscard]] QString Stored() const;
    /// The line below the field; empty while all of the text is kept.
    [[nodiscard]] QString Notice() const;

  protected:
    void focusOutEvent(QFocusEvent* event) override;

  private:
    class Guard;
    void guard(QString& text, int& cursor);
    [[nodiscard]] bool cut(QString& text, int& cursor) const;

    FieldNotice* notice_;
    std::function<bool(QChar)> accepts_;
    std::function<bool(const QString&)> areWhole_;
    int most_ = 0;
    QString whole_;   ///< What the program showed whole.
    QString before_;  ///< The text before the change.
};
