#pragma once

#include <functional>
#include <QLineEdit>

class FieldNotice;

/// A text field of one line that takes no more than its column keeps.
///
/// In every text, whether typed, pasted, dropped or set by the program, line breaks, tabs and other control characters
/// become blanks, and characters that the field does not accept are removed. Typed or pasted text beyond the limit is
/// removed where it was entered, so that the end of a long text is not pushed out unseen, and a line below the field
/// says so.
class TextField : public QLineEdit {
    Q_OBJECT

  public:
    explicit TextField(QWidget* parent = nullptr);

    /// Sets how many characters the column keeps. 0, the initial value, means any number.
    void SetMost(int characters) { most_ = characters; }
    /// Shows a text that may be longer than the limit, because it was stored elsewhere. The line below says how much of
    /// it is kept.
    void ShowWhole(const QString& text);
    /// Sets which texts are shown whole when the program sets them otherwise, such as the items of a list.
    void SetWholeTexts(std::function<bool(const QString&)> areWhole) { areWhole_ = std::move(areWhole); }
    /// Sets which characters are accepted, from the next change on. The text in the field stays.
    void SetAccepts(std::function<bool(QChar)> accepts) { accepts_ = std::move(accepts); }

    /// The part of the text that the column keeps.
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
    QString whole_;   ///< The text set by ShowWhole.
    QString before_;  ///< The text before the current change.
};
