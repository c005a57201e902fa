#pragma once

#include <QComboBox>
#include <QIcon>

/// A combo box that completes typed text to the first item that begins with it, in any case. The completion is
/// selected, so that the next key replaces it, and Backspace removes it. Each item carries a number as its data. A line
/// end in pasted text becomes a blank.
///
/// The list index always agrees with the text: it is the index of the item that equals the text (in any case), or -1.
class CompletingCombo : public QComboBox {
    Q_OBJECT

  public:
    enum class Entry {
        Free,     ///< Any text may be typed.
        ListOnly  ///< Only an item or nothing may be typed. A key that leads to no item is refused.
    };

    explicit CompletingCombo(Entry entry, QWidget* parent = nullptr);

    void AddItem(const QString& text, int itemData = 0, const QIcon& icon = {});
    /// Shows a text and selects the item that equals it; "" selects none. A text longer than the limit is shown whole.
    void SetText(const QString& text);
    /// Selects an item by its position. -1 selects none and empties the text.
    void SetListIndex(int index);
    /// Does what leaving the box does: in a ListOnly box it completes the beginning of an item, and it raises Click for
    /// an item that was typed or stepped to. A form that saves while the box still has the focus calls it.
    void Settle();
    /// Names the box and the field in it, because a screen reader is told of the field as a widget of its own.
    void SetAccessibleName(const QString& name);
    /// Limits how many characters the user may type.
    void SetMaxLength(int characters);
    /// Sets the characters that are removed from typed or pasted text.
    void SetForbidden(const QString& characters) { forbidden_ = characters; }

    [[nodiscard]] QString Text() const { return currentText(); }
    [[nodiscard]] int ListIndex() const { return currentIndex(); }
    /// Returns the selected item's data, or 0 when none is selected.
    [[nodiscard]] int ItemData() const { return currentData().toInt(); }
    /// Returns the first item whose data equals `itemData`, or -1.
    [[nodiscard]] int FindItemData(int itemData) const { return findData(itemData); }
    /// Returns the item that equals this text in any case, or -1.
    [[nodiscard]] int FindExact(const QString& text) const { return findText(text, Qt::MatchFixedString); }
    /// Returns the first item that begins with this text in any case, or -1.
    [[nodiscard]] int FindPrefix(const QString& text) const;

  Q_SIGNALS:
    /// Raised when the text or the item changed, by the user or by the program.
    void Change();
    /// Raised when the user has chosen an item: picked it from the list, or typed or stepped to it and then left the
    /// box or pressed Enter.
    void Click(int index);
    /// Raised when the box was left for another field of the form.
    void LostFocus(Qt::FocusReason reason);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void complete(const QString& edited);
    void show(const QString& text, int index);
    void noteChange();
    [[nodiscard]] QString cleaned(const QString& text) const;

    Entry entry_;
    QString forbidden_;
    QString typed_;          ///< The text as typed, without its completion.
    QString shownText_;      ///< The text for which Change was last raised.
    int shownIndex_ = -1;    ///< The item for which Change was last raised.
    int told_ = -1;          ///< The item that Click last reported or that the program selected.
    bool stepping_ = false;  ///< True while a key is handled: an item that the key steps to is not chosen yet.
    bool removing_ = false;  ///< True while a key that removes text is handled: the rest is not completed again.
};
