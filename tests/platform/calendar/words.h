#pragma once

#include <algorithm>
#include <cmath>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <vector>

/// A text as it was painted.
struct Word {
    QString text;
    QRectF place;
    QColor colour;
    QFont font;
};

/// A surface that keeps the words that are painted on it instead of their pixels, so that a test reads them whatever
/// the font. Words wholly outside the clip are not there: nobody would see them.
class WordDevice : public QPaintDevice {
  public:
    explicit WordDevice(QSize size) : size_(size), engine_(words_) {}

    /// The words of a widget.
    static std::vector<Word> of(QWidget& widget) {
        WordDevice device(widget.size());
        widget.render(&device);
        return device.words_;
    }

    [[nodiscard]] const std::vector<Word>& words() const { return words_; }
    [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }

  protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
            case PdmWidth:
                return size_.width();
            case PdmHeight:
                return size_.height();
            case PdmDepth:
                return 32;
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return 96;
            case PdmDevicePixelRatio:
                return 1;
            default:
                return QPaintDevice::metric(metric);
        }
    }

  private:
    class Engine : public QPaintEngine {
      public:
        explicit Engine(std::vector<Word>& words) : QPaintEngine(AllFeatures), words_(words) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        [[nodiscard]] Type type() const override { return User; }

        void drawTextItem(const QPointF& base, const QTextItem& item) override {
            const QPainter& painter = *this->painter();
            const QRectF place = painter.combinedTransform().mapRect(
                QRectF(base.x(), base.y() - item.ascent(), item.width(), item.ascent() + item.descent()));
            if (painter.hasClipping() &&
                !painter.combinedTransform().mapRect(painter.clipBoundingRect()).intersects(place))
                return;
            // A text of several scripts comes in pieces.
            if (!words_.empty() && std::abs(words_.back().place.right() - place.left()) < 0.01 &&
                std::abs(words_.back().place.top() - place.top()) < 4 &&
                words_.back().colour == painter.pen().color()) {
                words_.back().text += item.text();
                words_.back().place |= place;
                return;
            }
            words_.push_back({item.text(), place, painter.pen().color(), painter.font()});
        }

      private:
        std::vector<Word>& words_;
    };

    QSize size_;
    std::vector<Word> words_;
    mutable Engine engine_;
};

/// The texts alone, in the order in which they were painted.
inline QStringList TextsOf(const std::vector<Word>& words) {
    QStringList texts;
    for (const Word& word : words)
        texts << word.text;
    return texts;
}

/// The texts whose middle lies in the rectangle, in the order in which they were painted.
inline QStringList TextsIn(const std::vector<Word>& words, const QRect& where) {
    QStringList texts;
    for (const Word& word : words)
        if (QRectF(where).contains(word.place.center()))
            texts << word.text;
    return texts;
}

/// The first of the words with that text; one without a place where none has it.
inline Word WordWith(const std::vector<Word>& words, const QString& text) {
    const auto found = std::find_if(words.begin(), words.end(), [&](const Word& word) { return word.text == text; });
    return found == words.end() ? Word() : *found;
}
