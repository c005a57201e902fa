#include "platform/controls/cttaskpane.h"

#include <algorithm>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

namespace {

QToolButton* flatButton(QWidget* parent, const QString& text, const QIcon& icon) {
    auto* button = new QToolButton(parent);
    button->setText(text);
    button->setIcon(icon);
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return button;
}

}  // namespace

ctTaskPane::ctTaskPane(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    column_ = new QWidget;
    setWidget(column_);
    layout_ = new QVBoxLayout(column_);
    layout_->setContentsMargins(Space(8), Space(4), Space(8), Space(8));
    layout_->setSpacing(Space(4));

    auto* top = new QHBoxLayout;
    heading_ = new QLabel(column_);
    heading_->setFont(HeadingFont());
    top->addWidget(heading_, 1);
    auto* close = new QToolButton(column_);
    close->setObjectName(QStringLiteral("cmdClosePane"));
    close->setIcon(Icon("close"));
    close->setIconSize({Space(12), Space(12)});
    close->setAutoRaise(true);
    close->setToolTip(tr("Hide the task pane"));
    close->setAccessibleName(close->toolTip());
    close->setFocusPolicy(Qt::TabFocus);
    close->installEventFilter(this);
    connect(close, &QToolButton::clicked, this, &ctTaskPane::CloseRequested);
    top->addWidget(close);
    layout_->addLayout(top);
    layout_->addStretch(1);
}

void ctTaskPane::SetHeading(const QString& caption, const QString& key) {
    heading_->setText(caption);
    headingKey_ = key;
    setAccessibleName(caption);
}

void ctTaskPane::AddGroup(const QString& caption, const QString& key) {
    Group group;
    group.box = new QWidget(column_);
    auto* inside = new QVBoxLayout(group.box);
    inside->setContentsMargins(0, 0, 0, Space(4));
    inside->setSpacing(Space(4));
    group.caption = flatButton(group.box, caption, Icon("down"));
    group.caption->setIconSize({Space(12), Space(12)});
    QFont font = group.caption->font();
    font.setWeight(QFont::DemiBold);
    group.caption->setFont(font);
    group.caption->installEventFilter(this);
    inside->addWidget(group.caption);
    group.content = new QWidget(group.box);
    auto* content = new QVBoxLayout(group.content);
    content->setContentsMargins(0, 0, 0, 0);
    content->setSpacing(1);
    inside->addWidget(group.content);
    layout_->insertWidget(layout_->count() - 1, group.box);
    connect(group.caption, &QToolButton::clicked, this, [this, key] { SetGroupExpanded(key, !GroupExpanded(key)); });
    groups_[key] = group;
    groupKeys_.push_back(key);
    showExpanded(group);
}

void ctTaskPane::AddWidget(const QString& groupKey, QWidget* content) {
    const auto group = groups_.find(groupKey);
    if (group != groups_.end())
        group->second.content->layout()->addWidget(content);
}

void ctTaskPane::AddItem(const QString& groupKey, const QString& text, const QString& key, const QIcon& icon,
                         const QString& hint) {
    const auto group = groups_.find(groupKey);
    if (group == groups_.end())
        return;
    QToolButton* button = flatButton(group->second.content, text, icon);
    button->setObjectName(QStringLiteral("item") + key);
    button->setCheckable(true);
    button->setIconSize({Space(16) + 2, Space(16) + 2});
    button->setToolTip(hint);
    button->setStatusTip(hint);
    button->setAccessibleDescription(hint);
    button->installEventFilter(this);
    connect(button, &QToolButton::clicked, this, [this, key] { choose(key); });
    group->second.content->layout()->addWidget(button);
    items_.push_back({key, button});
}

void ctTaskPane::SetGroupVisible(const QString& key, bool visible) {
    const auto group = groups_.find(key);
    if (group != groups_.end())
        group->second.box->setVisible(visible);
}

void ctTaskPane::SetGroupExpanded(const QString& key, bool expanded) {
    const auto group = groups_.find(key);
    if (group == groups_.end())
        return;
    group->second.content->setVisible(expanded);
    showExpanded(group->second);
}

void ctTaskPane::SetItemEnabled(const QString& key, bool enabled, const QString& hint) {
    QToolButton* button = Item(key);
    if (button == nullptr)
        return;
    button->setEnabled(enabled);
    button->setToolTip(hint);
    button->setStatusTip(hint);
    button->setAccessibleDescription(hint);
}

void ctTaskPane::SetSelectedKey(const QString& key) {
    selectedKey_.clear();
    for (const PaneItem& item : items_) {
        item.button->setChecked(item.key == key);
        if (item.key == key)
            selectedKey_ = key;
    }
}

QString ctTaskPane::HeadingCaption() const {
    return heading_->text();
}

bool ctTaskPane::GroupVisible(const QString& key) const {
    const auto group = groups_.find(key);
    return group != groups_.end() && !group->second.box->isHidden();
}

bool ctTaskPane::GroupExpanded(const QString& key) const {
    const auto group = groups_.find(key);
    return group != groups_.end() && !group->second.content->isHidden();
}

QString ctTaskPane::GroupCaption(const QString& key) const {
    const QToolButton* button = GroupButton(key);
    return button == nullptr ? QString() : button->text();
}

QToolButton* ctTaskPane::Item(const QString& key) const {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&key](const PaneItem& item) { return item.key == key; });
    return found == items_.end() ? nullptr : found->button;
}

QToolButton* ctTaskPane::GroupButton(const QString& key) const {
    const auto group = groups_.find(key);
    return group == groups_.end() ? nullptr : group->second.caption;
}

QSize ctTaskPane::sizeHint() const {
    const int bar = verticalScrollBar()->isVisible() ? verticalScrollBar()->sizeHint().width() : 0;
    return {column_->sizeHint().width() + bar, column_->sizeHint().height()};
}

QSize ctTaskPane::minimumSizeHint() const {
    return {column_->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width(), Space(24) * 4};
}

bool ctTaskPane::eventFilter(QObject* watched, QEvent* event) {
    // The scroll area also watches its contents, which receive every key that a widget inside does not use.
    auto* button = qobject_cast<QToolButton*>(watched);
    if (event->type() != QEvent::KeyPress || button == nullptr)
        return QScrollArea::eventFilter(watched, event);
    const auto* pressed = static_cast<QKeyEvent*>(event);
    const Group* group = groupOf(button);
    if (pressed->modifiers() != Qt::NoModifier && pressed->modifiers() != Qt::KeypadModifier)
        return false;
    switch (pressed->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
            moveFocus(button, pressed->key() == Qt::Key_Up ? -1 : 1);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            button->click();
            return true;
        case Qt::Key_Left:
        case Qt::Key_Right:
            if (group == nullptr)
                return false;
            group->content->setVisible(pressed->key() == Qt::Key_Right);
            group->caption->setFocus(Qt::OtherFocusReason);
            showExpanded(*group);
            return true;
        default:
            return false;
    }
}

void ctTaskPane::choose(const QString& key) {
    SetSelectedKey(key);
    Q_EMIT ItemChosen(key);
}

void ctTaskPane::showExpanded(const Group& group) {
    const bool expanded = !group.content->isHidden();
    group.caption->setIcon(Icon(expanded ? "down" : "next"));
    group.caption->setToolTip(expanded ? tr("Fold up") : tr("Unfold"));
    group.caption->setAccessibleDescription(expanded ? tr("Expanded") : tr("Collapsed"));
}

void ctTaskPane::moveFocus(QWidget* from, int direction) {
    const std::vector<QWidget*> order = focusOrder();
    const auto at = std::find(order.begin(), order.end(), from);
    if (at == order.end())
        return;
    const auto position = at - order.begin() + direction;
    if (position < 0 || position >= static_cast<std::ptrdiff_t>(order.size()))
        return;
    QWidget* target = order[static_cast<std::size_t>(position)];
    target->setFocus(direction < 0 ? Qt::BacktabFocusReason : Qt::TabFocusReason);
    ensureWidgetVisible(target);
}

std::vector<QWidget*> ctTaskPane::focusOrder() const {
    std::vector<QWidget*> order;
    for (const QString& key : groupKeys_) {
        const Group& group = groups_.at(key);
        order.push_back(group.caption);
        for (const PaneItem& item : items_)
            if (group.content->isAncestorOf(item.button))
                order.push_back(item.button);
    }
    std::erase_if(order, [](const QWidget* widget) { return !widget->isVisible() || !widget->isEnabled(); });
    return order;
}

const ctTaskPane::Group* ctTaskPane::groupOf(const QWidget* widget) const {
    for (const auto& [key, group] : groups_)
        if (group.box->isAncestorOf(widget))
            return &group;
    return nullptr;
}
