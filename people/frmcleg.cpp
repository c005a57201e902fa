#include "people/frmcleg.h"

#include <array>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <utility>

#include "data/codes.h"
#include "data/statuses.h"
#include "platform/calendar/colour.h"
#include "platform/calendar/glyphs.h"
#include "platform/calendar/style.h"
#include "platform/theme/theme.h"

namespace {

// In the order of the legend.
constexpr std::array legend{ncolor::Pending,  ncolor::LegendTentative, ncolor::Kept,    ncolor::Missed,
                            ncolor::Activity, ncolor::Unavailable,     ncolor::Holiday, ncolor::Group};

/// Paints the colours of a calendar card, with the glyph that tells them apart without colour.
class Swatch : public QWidget {
  public:
    Swatch(CalendarItem item, QWidget* parent) : QWidget(parent), item_(std::move(item)) {
        setObjectName(QStringLiteral("lblcolorcode"));
    }
    [[nodiscard]] QSize sizeHint() const override {
        return {fontMetrics().averageCharWidth() * 8, fontMetrics().height() * 3 / 2};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const CalendarStyle style = ScreenStyle(palette(), font());
        const CardColors colors = CardColorsFor(item_, style.base, style.ink);
        const QRectF card = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(colors.outline);
        painter.setBrush(colors.fill);
        painter.drawRoundedRect(card, style.radius, style.radius);
        painter.fillRect(QRectF(card.left(), card.top() + 1, style.edgeWidth, card.height() - 2), colors.edge);
        std::vector<Glyph> glyphs = GlyphsOf(item_);
        if (item_.ItemBanner)
            glyphs = {Glyph::Holiday};
        if (glyphs.empty())
            return;
        QRectF square(0, 0, style.icon, style.icon);
        square.moveCenter(card.center());
        PaintGlyph(painter, square, glyphs.front(), colors.text);
    }

  private:
    CalendarItem item_;
};

}  // namespace

std::vector<LegendEntry> AppointmentLegend() {
    std::vector<LegendEntry> entries;
    for (const int code : legend) {
        CalendarItem item;
        item.ItemColor = code;
        item.ItemStatusMark = StatusOf(code).mark;
        item.ItemBanner = code == ncolor::Holiday;
        entries.push_back({std::move(item), QString::fromLatin1(StatusOf(code).inLegend)});
    }
    return entries;
}

frmcleg::frmcleg(const std::vector<LegendEntry>& entries, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmcleg"));
    setWindowTitle(QStringLiteral("Color Legend"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    grid->setHorizontalSpacing(Space(12));
    grid->setVerticalSpacing(Space(8));
    int row = 0;
    for (const LegendEntry& entry : entries) {
        auto* text = new QLabel(entry.meaning, this);
        text->setObjectName(QStringLiteral("lblctext"));
        grid->addWidget(new Swatch(entry.item, this), row, 0);
        grid->addWidget(text, row++, 1);
    }
    auto* close = new QPushButton(tr("&Close"), this);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    grid->setRowMinimumHeight(row, Space(4));
    grid->addWidget(close, row + 1, 0, 1, 2, Qt::AlignRight);
    grid->setSizeConstraint(QLayout::SetFixedSize);
}
