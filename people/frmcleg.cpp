#include "people/frmcleg.h"

#include <algorithm>
#include <array>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "data/codes.h"
#include "data/statuses.h"
#include "platform/calendar/colour.h"
#include "platform/calendar/glyphs.h"
#include "platform/calendar/style.h"
#include "platform/controls/formparts.h"
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

/// Paints a mark.
class MarkSwatch : public QWidget {
  public:
    MarkSwatch(LegendMark mark, QWidget* parent) : QWidget(parent), mark_(std::move(mark)) {
        setObjectName(QStringLiteral("lblmark"));
        setAccessibleName(mark_.meaning);
    }
    [[nodiscard]] QSize sizeHint() const override {
        return {fontMetrics().averageCharWidth() * 9, fontMetrics().height() * 3 / 2};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        mark_.paint(painter, rect(), ScreenStyle(palette(), font()));
    }

  private:
    LegendMark mark_;
};

QGridLayout* legendGrid() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Space(12));
    grid->setVerticalSpacing(Space(8));
    return grid;
}

QLabel* heading(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setFont(HeadingFont());
    return label;
}

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

frmcleg::frmcleg(const std::vector<LegendEntry>& entries, QWidget* parent, const std::vector<LegendMark>& marks)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmcleg"));
    setWindowTitle(QStringLiteral("Color Legend"));
    auto* halves = new QHBoxLayout;
    halves->setSpacing(Space(24));
    halves->addLayout(makeColors(entries));
    if (!marks.empty())
        halves->addLayout(makeMarks(marks));
    auto* close = new QPushButton(tr("&Close"), this);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addLayout(halves);
    column->addLayout(ButtonRow({close}));
    column->setSizeConstraint(QLayout::SetFixedSize);
}

QGridLayout* frmcleg::makeColors(const std::vector<LegendEntry>& entries) {
    QGridLayout* grid = legendGrid();
    int row = 0;
    grid->addWidget(heading(tr("Colors"), this), row++, 0, 1, 2);
    for (const LegendEntry& entry : entries) {
        auto* text = new QLabel(entry.meaning, this);
        text->setObjectName(QStringLiteral("lblctext"));
        grid->addWidget(new Swatch(entry.item, this), row, 0);
        grid->addWidget(text, row++, 1);
    }
    grid->setRowStretch(row, 1);
    return grid;
}

QGridLayout* frmcleg::makeMarks(const std::vector<LegendMark>& marks) {
    constexpr int MostRows = 10;
    QGridLayout* grid = legendGrid();
    const int count = static_cast<int>(marks.size());
    const int rows = std::min(count, MostRows);
    grid->addWidget(heading(tr("Signs"), this), 0, 0, 1, 4);
    for (int i = 0; i < count; ++i) {
        const LegendMark& mark = marks[static_cast<std::size_t>(i)];
        auto* text = new QLabel(mark.meaning, this);
        text->setObjectName(QStringLiteral("lblmarktext"));
        grid->addWidget(new MarkSwatch(mark, this), 1 + i % rows, 2 * (i / rows));
        grid->addWidget(text, 1 + i % rows, 2 * (i / rows) + 1);
    }
    grid->setRowStretch(rows + 1, 1);
    return grid;
}
