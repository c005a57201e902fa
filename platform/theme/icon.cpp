#include "platform/theme/icon.h"

#include <QBuffer>
#include <QFile>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>

#include "platform/theme/theme.h"

// The pictures are in a static library. The linker would leave its resources out without this macro, which may not
// stand in a namespace.
static void loadDrawings() {
    Q_INIT_RESOURCE(icons);
}

namespace {

QByteArray drawing(const QString& name) {
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QPixmap rendered(const QString& name, const QColor& colour, const QSize& pixels) {
    const QString key =
        QStringLiteral("icon/%1/%2/%3x%4").arg(name, colour.name()).arg(pixels.width()).arg(pixels.height());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    QByteArray svg = drawing(name);
    svg.replace("currentColor", colour.name().toLatin1());
    QBuffer buffer(&svg);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(pixels);
    pixmap = QPixmap::fromImage(reader.read());
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QColor colourFor(QIcon::Mode mode, QIcon::State state) {
    const ThemeColours& colours = Theme::Instance().colours();
    if (mode == QIcon::Disabled) {
        QColor faint = colours.mutedText;
        return QColor((faint.red() + colours.window.red()) / 2, (faint.green() + colours.window.green()) / 2,
                      (faint.blue() + colours.window.blue()) / 2);
    }
    if (mode == QIcon::Selected)
        return colours.selectedText;
    return state == QIcon::On ? colours.accent : colours.text;
}

/// Renders at the moment of painting, so that a change of palette or of screen needs no new icon.
class DrawnIconEngine : public QIconEngine {
  public:
    explicit DrawnIconEngine(QString name, QColor colour = {}) : name_(std::move(name)), colour_(colour) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const double ratio = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, square(rect.size() * ratio, mode, state));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return square(size, mode, state);
    }
    [[nodiscard]] QIconEngine* clone() const override { return new DrawnIconEngine(*this); }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
        const int edge = std::min(size.width(), size.height());
        return {edge, edge};
    }
    QString iconName() override { return name_; }

  private:
    [[nodiscard]] QPixmap square(const QSize& size, QIcon::Mode mode, QIcon::State state) const {
        const int edge = std::min(size.width(), size.height());
        return rendered(name_, colour_.isValid() ? colour_ : colourFor(mode, state), {edge, edge});
    }

    QString name_;
    QColor colour_;  ///< Invalid means the colours of the current palette.
};

}  // namespace

QIcon Icon(const QString& name) {
    loadDrawings();
    return QFile::exists(QStringLiteral(":/icons/%1.svg").arg(name)) ? QIcon(new DrawnIconEngine(name)) : QIcon();
}

QIcon Icon(const QString& name, const QColor& colour) {
    loadDrawings();
    return QIcon(new DrawnIconEngine(name, colour));
}

QPixmap IconPixmap(const QString& name, const QColor& colour, int size, double devicePixelRatio) {
    loadDrawings();
    const int pixels = qRound(size * devicePixelRatio);
    QPixmap pixmap = rendered(name, colour, {pixels, pixels});
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}
