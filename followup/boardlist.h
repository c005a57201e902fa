#pragma once

#include <functional>
#include <optional>
#include <QIcon>
#include <QListView>
#include <vector>

class BoardModel;
class CardButtons;

/// One card of the board, as it is shown.
struct BoardCard {
    int key = 0;         ///< `nkeyid`
    QString name;        ///< Hidden while names are hidden.
    QString detail;      ///< "9:00 AM · Reed"
    QString mark;        ///< "12 min"
    QString spokenMark;  ///< "12 min late", for who does not see in which place the card stands.
    bool isUrgent = false;
    QString tip;

    /// The card as a screen reader reads it.
    [[nodiscard]] QString Spoken() const;
    friend bool operator==(const BoardCard&, const BoardCard&) = default;
};

/// A button that a card shows while the pointer is over it.
struct CardButton {
    int command = 0;
    QString name;  ///< The object name.
    QString text;  ///< The tip, which names the key too.
    QIcon icon;
};

/// The cards of one place of the board. One card is selected.
///
/// Keys: Up, Down, Home, End, Page Up and Page Down go from card to card, Left and Right to the next place, Enter
/// opens, and a letter begins the search. A card shows its buttons while the pointer is over it; they belong to the
/// card that they appeared on, and go when the cards change.
class BoardList : public QListView {
    Q_OBJECT

  public:
    explicit BoardList(QWidget* parent = nullptr);

    /// Shows these cards. The selected card stays selected as long as it is there, and the list keeps its place.
    void Show(const std::vector<BoardCard>& cards);
    /// Sets what the list says while it has no card.
    void SetEmptyText(const QString& text);
    /// Paints everything dimly, because it may be old.
    void SetStale(bool stale);
    /// Sets the buttons of the cards. `suits` tells whether a card shows the button of a command.
    void SetButtons(const std::vector<CardButton>& buttons, std::function<bool(int command, int key)> suits);

    [[nodiscard]] int CardCount() const;
    [[nodiscard]] const BoardCard& Card(int row) const;
    /// The key of the selected card, or 0.
    [[nodiscard]] int SelectedKey() const;
    /// Selects a card. A row beyond the last one is taken for that.
    void SelectRow(int row);
    [[nodiscard]] int SelectedRow() const { return currentIndex().row(); }
    [[nodiscard]] bool IsStale() const { return stale_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    void SelectionChanged();
    void Opened();                       ///< By Enter or a double click on the selected card.
    void Pressed(int command, int key);  ///< A button of a card.
    void StepAside(int direction);       ///< Left (-1) or Right (+1).
    void Typed(const QString& letter);
    void PopupRequested(const QPoint& globalPosition);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    void showButtonsAt(const QPoint& place);
    void hideButtons();

    BoardModel* model_;
    CardButtons* buttons_;
    std::function<bool(int, int)> suits_;
    QString emptyText_;
    bool stale_ = false;
    bool filling_ = false;
};
