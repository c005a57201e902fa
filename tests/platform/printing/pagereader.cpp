#include "tests/platform/printing/pagereader.h"

#include <QImage>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

using printing::PageLayout;
using printing::TwipsPerInch;

namespace {

/// Keeps the texts that are painted with it.
class TextEngine : public QPaintEngine {
  public:
    TextEngine() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& /*state*/) override {}
    void drawPixmap(const QRectF& /*to*/, const QPixmap& /*pixmap*/, const QRectF& /*from*/) override {}
    void drawRects(const QRectF* /*rects*/, int /*count*/) override {}
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    void drawPolygon(const QPoint* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
        texts.push_back({item.text(), painter()->transform().map(place)});
    }
    [[nodiscard]] Type type() const override { return User; }

    std::vector<PaperText> texts;
};

class TextPaper : public QPaintDevice {
  public:
    explicit TextPaper(QSizeF size) : size_(size) {}
    [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine; }
    mutable TextEngine engine;

  protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
            case PdmWidth:
                return static_cast<int>(size_.width());
            case PdmHeight:
                return static_cast<int>(size_.height());
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return TwipsPerInch;
            case PdmDevicePixelRatio:
                return 1;
            default:
                return QPaintDevice::metric(metric);
        }
    }

  private:
    QSizeF size_;
};

}  // namespace

std::vector<PaperText> TextsOf(const PageLayout& layout, int page) {
    TextPaper paper(layout.setup().sizeTwips());
    QPainter painter(&paper);
    layout.paintPage(painter, page, QRectF(QPointF(), layout.setup().sizeTwips()));
    painter.end();
    return paper.engine.texts;
}

QStringList WordsOf(const PageLayout& layout, int page) {
    QStringList words;
    for (const PaperText& text : TextsOf(layout, page))
        words << text.text.trimmed();
    return words;
}

QImage PictureOf(const PageLayout& layout, int page, int pixelsPerInch) {
    const QSizeF size = layout.setup().sizeTwips() / TwipsPerInch * pixelsPerInch;
    QImage picture(size.toSize(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    layout.paintPage(painter, page, QRectF(QPointF(), size));
    return picture;
}
