#include "followup/boardlist.h"

#include <algorithm>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolButton>

#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"

QString BoardCard::Spoken() const {
    return (spokenMark.isEmpty() ? QStringList{name, detail} : QStringList{name, spokenMark, detail})
        .join(QStringLiteral(", "));
}

/// The cards as a model.
class BoardModel : public QAbstractListModel {
  public:
    using QAbstractListModel::QAbstractListModel;

    void show(const std::vector<BoardCard>& cards) {
        beginResetModel();
        cards_ = cards;
        endResetModel();
    }
    [[nodiscard]] const std::vector<BoardCard>& cards() const { return cards_; }
    [[nodiscard]] const BoardCard& at(int row) const { return cards_[static_cast<std::size_t>(row)]; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(cards_.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid())
            return {};
        const BoardCard& card = at(index.row());
        if (role == Qt::DisplayRole)
            return card.name;
        if (role == Qt::AccessibleTextRole)
            return card.Spoken();
        return role == Qt::ToolTipRole ? TipText(card.tip) : QVariant();
    }

  private:
    std::vector<BoardCard> cards_;
};

namespace {

int padding() {
    return Space(8);
}

int rowHeight(const QFontMetrics& metrics) {
    return metrics.height() * 2 + padding() * 2 + Space(4);
}

/// Paints a card: the name on a line of its own; below it the detail and, at the right, the mark in a frame.
class CardDelegate : public QStyledItemDelegate {
  public:
    explicit CardDelegate(const BoardList& list, QObject* parent) : QStyledItemDelegate(parent), list_(list) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override {
        return {option.fontMetrics.averageCharWidth() * 10, rowHeight(option.fontMetrics)};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const BoardCard& card = list_.Card(index.row());
        const QPalette::ColorGroup group = list_.IsStale() ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        paintGround(*painter, option, group);
        const QRect inner = option.rect.adjusted(padding(), padding(), -padding(), -padding());
        const QRect top(inner.topLeft(), QSize(inner.width(), option.fontMetrics.height()));
        QRect bottom = top.translated(0, inner.height() - top.height());
        const QColor text =
            option.palette.color(group, isSelected(option) ? QPalette::HighlightedText : QPalette::Text);
        const QColor muted = isSelected(option) ? text : option.palette.color(QPalette::Disabled, QPalette::Text);
        QFont bold = option.font;
        bold.setWeight(QFont::DemiBold);
        painter->setPen(text);
        painter->setFont(bold);
        painter->drawText(top, Qt::AlignLeft | Qt::AlignVCenter,
                          QFontMetrics(bold).elidedText(card.name, Qt::ElideRight, top.width()));
        bottom.setRight(paintMark(*painter, option, card, bottom, text) - Space(4));
        painter->setFont(option.font);
        painter->setPen(muted);
        painter->drawText(bottom, Qt::AlignLeft | Qt::AlignVCenter,
                          option.fontMetrics.elidedText(card.detail, Qt::ElideRight, bottom.width()));
        painter->restore();
    }

  private:
    static bool isSelected(const QStyleOptionViewItem& option) { return option.state.testFlag(QStyle::State_Selected); }

    static void paintGround(QPainter& painter, const QStyleOptionViewItem& option, QPalette::ColorGroup group) {
        const QRectF ground = QRectF(option.rect).adjusted(2.5, 1.5, -2.5, -1.5);
        const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
        painter.setPen(Qt::NoPen);
        if (isSelected(option))
            painter.setBrush(option.palette.color(group, QPalette::Highlight));
        else if (isHovered)
            painter.setBrush(option.palette.color(QPalette::Midlight));
        else
            painter.setBrush(option.palette.color(QPalette::AlternateBase));
        if (option.state.testFlag(QStyle::State_HasFocus))
            painter.setPen(QPen(option.palette.color(QPalette::Link), 1.5));
        painter.drawRoundedRect(ground, Space(4), Space(4));
    }

    /// Returns where the mark begins.
    [[nodiscard]] int paintMark(QPainter& painter, const QStyleOptionViewItem& option, const BoardCard& card,
                                const QRect& line, const QColor& text) const {
        if (card.mark.isEmpty())
            return line.right() + 1;
        const ThemeColours& colours = ColoursOf(ModeOf(option.palette));
        const bool isLoud = card.isUrgent && !list_.IsStale();
        QFont font = option.font;
        font.setWeight(isLoud ? QFont::DemiBold : QFont::Normal);
        const int width = QFontMetrics(font).horizontalAdvance(card.mark) + Space(8);
        const QRect frame(line.right() + 1 - width, line.top() - 1, width, line.height() + 2);
        painter.setPen(QPen(isLoud ? colours.danger : colours.border, 1));
        painter.setBrush(option.palette.color(QPalette::Base));
        painter.drawRoundedRect(QRectF(frame).adjusted(0.5, 0.5, -0.5, -0.5), frame.height() / 2.0,
                                frame.height() / 2.0);
        painter.setFont(font);
        painter.setPen(isLoud ? colours.danger : (isSelected(option) ? colours.text : text));
        painter.drawText(frame, Qt::AlignCenter, card.mark);
        return frame.left();
    }

    const BoardList& list_;
};

}  // namespace

/// The buttons of the card under the pointer.
class CardButtons : public QFrame {
  public:
    explicit CardButtons(QWidget* parent) : QFrame(parent) {
        setAutoFillBackground(true);
        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(0);
        hide();
    }
    void add(QToolButton* button, int command) {
        layout()->addWidget(button);
        buttons_.push_back({button, command});
    }
    void showFor(int key, const QRect& card, const std::function<bool(int, int)>& suits) {
        bool any = false;
        for (const auto& [button, command] : buttons_) {
            button->setVisible(suits(command, key));
            any = any || suits(command, key);
        }
        key_ = key;
        adjustSize();
        move(card.right() - width() - padding() + 2, card.bottom() - height() - Space(4));
        setVisible(any);
        raise();
    }
    [[nodiscard]] int key() const { return key_; }

  private:
    struct Made {
        QToolButton* button;
        int command;
    };
    std::vector<Made> buttons_;
    int key_ = 0;
};

BoardList::BoardList(QWidget* parent)
    : QListView(parent), model_(new BoardModel(this)), buttons_(new CardButtons(viewport())) {
    setModel(model_);
    setItemDelegate(new CardDelegate(*this, this));
    setUniformItemSizes(true);
    setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setFrameShape(QFrame::NoFrame);
    setTabKeyNavigation(false);
}

// The model is only set anew when something has changed, so that a tip or a press is not cut off each minute.
void BoardList::Show(const std::vector<BoardCard>& cards) {
    if (cards == model_->cards())
        return;
    const int key = SelectedKey();
    const int place = verticalScrollBar()->value();
    hideButtons();
    filling_ = true;
    model_->show(cards);
    const auto kept = std::ranges::find(cards, key, &BoardCard::key);
    if (kept != cards.end())
        SelectRow(static_cast<int>(kept - cards.begin()));
    filling_ = false;
    verticalScrollBar()->setValue(place);
    Q_EMIT SelectionChanged();
}

void BoardList::SetEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
}

void BoardList::SetStale(bool stale) {
    stale_ = stale;
    viewport()->update();
}

void BoardList::SetButtons(const std::vector<CardButton>& buttons, std::function<bool(int, int)> suits) {
    suits_ = std::move(suits);
    for (const CardButton& button : buttons) {
        auto* made = new QToolButton(buttons_);
        made->setObjectName(button.name);
        made->setAccessibleName(button.text);
        made->setToolTip(button.text);
        made->setIcon(button.icon);
        made->setAutoRaise(true);
        made->setFocusPolicy(Qt::NoFocus);
        made->setIconSize({Space(12) + 2, Space(12) + 2});
        made->setFixedSize(Space(24) - 2, fontMetrics().height() + Space(4));
        buttons_->add(made, button.command);
        connect(made, &QToolButton::clicked, this, [this, command = button.command] {
            const int key = buttons_->key();
            hideButtons();
            Q_EMIT Pressed(command, key);
        });
    }
}

int BoardList::CardCount() const {
    return model_->rowCount();
}

const BoardCard& BoardList::Card(int row) const {
    return model_->at(row);
}

int BoardList::SelectedKey() const {
    return currentIndex().isValid() ? Card(currentIndex().row()).key : 0;
}

void BoardList::SelectRow(int row) {
    setCurrentIndex(model_->index(std::clamp(row, 0, std::max(0, CardCount() - 1)), 0));
}

QSize BoardList::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 26, rowHeight(fontMetrics()) * 4};
}

QSize BoardList::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 16, rowHeight(fontMetrics()) * 2};
}

void BoardList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (CardCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(viewport()->rect().adjusted(padding(), padding(), -padding(), -padding()),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, emptyText_);
}

void BoardList::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const bool isPlain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
    if (isPlain && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right))
        Q_EMIT StepAside(event->key() == Qt::Key_Left ? -1 : 1);
    else if (isPlain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        Q_EMIT Opened();
    else if (isPlain && !text.isEmpty() && text[0].isPrint() && !text[0].isSpace())
        Q_EMIT Typed(text);
    else
        QListView::keyPressEvent(event);
}

void BoardList::mouseMoveEvent(QMouseEvent* event) {
    QListView::mouseMoveEvent(event);
    if (event->buttons() == Qt::NoButton)
        showButtonsAt(event->position().toPoint());
}

void BoardList::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid())
        Q_EMIT Opened();
}

void BoardList::leaveEvent(QEvent* event) {
    QListView::leaveEvent(event);
    hideButtons();
}

void BoardList::resizeEvent(QResizeEvent* event) {
    hideButtons();
    QListView::resizeEvent(event);
}

void BoardList::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    Q_EMIT PopupRequested(byKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

void BoardList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (!filling_)
        Q_EMIT SelectionChanged();
}

void BoardList::scrollContentsBy(int dx, int dy) {
    hideButtons();
    QListView::scrollContentsBy(dx, dy);
}

void BoardList::focusInEvent(QFocusEvent* event) {
    QListView::focusInEvent(event);
    if (!currentIndex().isValid() && CardCount() > 0 && event->reason() != Qt::MouseFocusReason)
        SelectRow(0);
    Q_EMIT SelectionChanged();
}

void BoardList::showButtonsAt(const QPoint& place) {
    const QModelIndex index = indexAt(place);
    if (!index.isValid() || !suits_)
        return hideButtons();
    if (!buttons_->isVisible() || buttons_->key() != Card(index.row()).key)
        buttons_->showFor(Card(index.row()).key, visualRect(index), suits_);
}

void BoardList::hideButtons() {
    buttons_->hide();
}
