#pragma once

#include <QComboBox>
#include <QIcon>

/// A combo box that completes what is typed to the first item that begins with it, in any case: the completion is
/// selected, so that the next key replaces it, and Backspace takes it away. Items carry a number as their data. A line
/// end in a pasted text becomes a blank.
///
/// The list index always agrees with the text: it is the item's when the text is an item (in any case), else -1.
class CompletingCombo : public QComboBox {
    Q_OBJECT

  public:
    enum class Entry {
        Free,     ///< Any text may be typed.
        ListOnly  ///< Only an item or nothing: keys that lead to no item are not taken.
    };

    explicit CompletingCombo(Entry entry, QWidget* parent = nullptr);

    void AddItem(const QString& text, int itemData = 0, const QIcon& icon = {});
    /// Shows a text and selects the item that it is; "" selects none. A text longer than the limit is shown whole.
    void SetText(const QString& text);
    /// Selects an item by its position; -1 selects none and empties the text.
    void SetListIndex(int index);
    /// What leaving the box does: completes the beginning of an item in a ListOnly box, and tells Click of an item that
    /// was typed or stepped to. For a form that saves while the box still has the focus.
    void Settle();
    /// How many characters the user may type.
    void SetMaxLength(int characters);
    /// Characters that are left out of what is typed or pasted.
    void SetForbidden(const QString& characters) { forbidden_ = characters; }

    [[nodiscard]] QString Text() const { return currentText(); }
    [[nodiscard]] int ListIndex() const { return currentIndex(); }
    /// The selected item's data, 0 where none is selected.
    [[nodiscard]] int ItemData() const { return currentData().toInt(); }
    /// The first item whose data equals `itemData`, -1 where none does.
    [[nodiscard]] int FindItemData(int itemData) const { return findData(itemData); }
    /// The item that is this text in any case, -1 where none is.
    [[nodiscard]] int FindExact(const QString& text) const { return findText(text, Qt::MatchFixedString); }
    /// The first item that begins with this text in any case, -1 where none does.
    [[nodiscard]] int FindPrefix(const QString& text) const;

  Q_SIGNALS:
    /// The text changed, by the user or by the program.
    void Change();
    /// The user has chosen an item: picked it from the list, or typed or stepped to it and then left the box or pressed
    /// Enter.
    void Click(int index);
    /// The box was left for another field of the form.
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
    QString typed_;      ///< What the user typed, without its completion.
    QString shownText_;  ///< The text and item that Change last told.
    int shownIndex_ = -1;
    int told_ = -1;          ///< The item that Click last told or that the program selected.
    bool stepping_ = false;  ///< A key is at work: an item stepped to is not chosen yet.
    bool removing_ = false;  ///< The key at work takes text away, which is not completed again.
};
