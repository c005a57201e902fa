#include "appointments/notice.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

namespace {

/// Painted at each showing, so that it follows the palette and the scale of its screen.
class WarningPicture : public QWidget {
  public:
    explicit WarningPicture(QWidget* parent) : QWidget(parent), icon_(Icon("warning")) {
        setFixedSize(Space(24), Space(24));
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        icon_.paint(&painter, rect());
    }

  private:
    QIcon icon_;
};

}  // namespace

QLabel* NoticeLabel(const QString& name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setMinimumWidth(label->fontMetrics().averageCharWidth() * 60);
    return label;
}

QLayout* NoticeLayout(QLayout* text, QWidget* parent) {
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(12));
    row->addWidget(new WarningPicture(parent), 0, Qt::AlignTop);
    row->addLayout(text, 1);
    return row;
}
