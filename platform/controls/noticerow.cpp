#include "platform/controls/noticerow.h"

#include <QAccessibleWidget>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>

#include "platform/controls/formparts.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

namespace {

QColor colourOf(Notice::Kind kind) {
    const ThemeColours& colours = Theme::Instance().colours();
    switch (kind) {
        case Notice::Kind::Caution:
            return colours.caution;
        case Notice::Kind::Failure:
            return colours.danger;
        case Notice::Kind::Information:
            break;
    }
    return colours.accent;
}

/// Lets a screen reader announce the notice when it appears.
class RowAccess : public QAccessibleWidget {
  public:
    explicit RowAccess(QWidget& row) : QAccessibleWidget(&row, QAccessible::AlertMessage) {}
};

QAccessibleInterface* makeRowAccess(const QString& className, QObject* object) {
    auto* row = className == QLatin1String("NoticeRow") ? qobject_cast<NoticeRow*>(object) : nullptr;
    return row == nullptr ? nullptr : new RowAccess(*row);
}

void installRowAccess() {
    static const bool installed = [] {
        QAccessible::installFactory(makeRowAccess);
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace

NoticeRow::NoticeRow(const Notice& notice, QWidget* parent)
    : QWidget(parent),
      text_(notice.text.simplified()),
      kind_(notice.kind),
      label_(new QLabel(this)),
      close_(Named(new QToolButton(this), "cmdCloseNotice")) {
    installRowAccess();
    setObjectName(QStringLiteral("notice"));
    setAccessibleName(text_);
    label_->setTextFormat(Qt::PlainText);
    label_->setObjectName(QStringLiteral("noticeText"));
    label_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(Space(12) + Space(24), Space(4), Space(8), Space(4));
    line->setSpacing(Space(8));
    line->addWidget(label_, 1);
    for (std::size_t action = 0; action < notice.actions.size(); ++action) {
        QPushButton* button = FormButton(notice.actions[action].text, "cmdNotice", this);
        button->setAccessibleDescription(text_);
        connect(button, &QPushButton::clicked, this, [this, action] { Q_EMIT Taken(action); });
        line->addWidget(button);
        buttons_.push_back(button);
    }
    close_->setIcon(Icon("close"));
    close_->setIconSize({Space(12), Space(12)});
    close_->setAutoRaise(true);
    close_->setFocusPolicy(Qt::TabFocus);
    close_->setToolTip(tr("Close this notice (Esc)"));
    close_->setAccessibleName(tr("Close this notice"));
    close_->setAccessibleDescription(text_);
    connect(close_, &QToolButton::clicked, this, &NoticeRow::Closed);
    line->addWidget(close_);
    buttons_.push_back(close_);
    elide();
}

QWidget* NoticeRow::FirstButton() const {
    return buttons_.front();
}

void NoticeRow::elide() {
    const QString shown = label_->fontMetrics().elidedText(text_, Qt::ElideRight, label_->width());
    label_->setText(shown);
    // The text is escaped, because a tip would read it as markup where it looks like markup.
    setToolTip(shown == text_ ? QString() : Qt::convertFromPlainText(text_));
}

void NoticeRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layout()->activate();
    elide();
}

void NoticeRow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        Q_EMIT Closed();
        return;
    }
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && button != nullptr) {
        button->click();
        return;
    }
    QWidget::keyPressEvent(event);
}

void NoticeRow::paintEvent(QPaintEvent* /*event*/) {
    const ThemeColours& colours = Theme::Instance().colours();
    const QColor mark = colourOf(kind_);
    QPainter painter(this);
    painter.fillRect(rect(), colours.base);
    painter.fillRect(QRect(0, 0, Space(4), height()), mark);
    painter.fillRect(QRect(0, height() - 1, width(), 1), colours.border);
    const int size = Space(16);
    const QString picture =
        kind_ == Notice::Kind::Information ? QStringLiteral("information") : QStringLiteral("warning");
    painter.drawPixmap(Space(12), (height() - size) / 2, IconPixmap(picture, mark, size, devicePixelRatioF()));
}
