#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <QImage>
#include <QWidget>
#include <string>

#include "platform/theme/colours.h"

/// One way in which a screen shows a calendar.
struct Look {
    const char* name;
    ThemeMode mode;
    double ratio;  ///< Pixels of the screen for one of the widget.
};

inline constexpr Look Looks[] = {{"Light", ThemeMode::Light, 1},
                                 {"LightOnAFineScreen", ThemeMode::Light, 2},
                                 {"Dark", ThemeMode::Dark, 1},
                                 {"DarkOnAFineScreen", ThemeMode::Dark, 2}};

inline std::string NameOfLook(const testing::TestParamInfo<Look>& look) {
    return look.param.name;
}

inline void PrintTo(const Look& look, std::ostream* out) {
    *out << look.name;
}

/// What was painted, asked by places in the widget's own pixels, whatever the fineness of the picture.
class Picture {
  public:
    explicit Picture(QImage image) : image_(std::move(image)) {}

    static Picture of(QWidget& widget, double ratio = 1) {
        QImage image(widget.size() * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::magenta);
        widget.render(&image);
        return Picture(image);
    }

    [[nodiscard]] const QImage& image() const { return image_; }
    [[nodiscard]] double ratio() const { return image_.devicePixelRatioF(); }

    /// The colour in the middle of the widget's pixel.
    [[nodiscard]] QColor at(QPoint place) const {
        return image_.pixelColor(static_cast<int>((place.x() + 0.5) * ratio()),
                                 static_cast<int>((place.y() + 0.5) * ratio()));
    }

    /// How much of the rectangle has the colour, 0 to 1. Parts outside the picture count as other colours.
    [[nodiscard]] double share(const QRect& where, const QColor& colour, int near = 12) const {
        const QRect all(where.topLeft() * ratio(), where.size() * ratio());
        const QRect inside = all & image_.rect();
        int count = 0;
        for (int y = inside.top(); y <= inside.bottom(); ++y)
            for (int x = inside.left(); x <= inside.right(); ++x)
                count += Distance(image_.pixelColor(x, y), colour) <= near ? 1 : 0;
        return all.isEmpty() ? 0 : static_cast<double>(count) / (static_cast<double>(all.width()) * all.height());
    }
    [[nodiscard]] bool shows(const QRect& where, const QColor& colour, int near = 12) const {
        return share(where, colour, near) > 0;
    }

    /// The least rectangle that holds every pixel of the colour in that part; null where there is none.
    [[nodiscard]] QRect bounds(const QRect& where, const QColor& colour, int near = 12) const {
        const QRect inside = QRect(where.topLeft() * ratio(), where.size() * ratio()) & image_.rect();
        QRect found;
        for (int y = inside.top(); y <= inside.bottom(); ++y)
            for (int x = inside.left(); x <= inside.right(); ++x)
                if (Distance(image_.pixelColor(x, y), colour) <= near)
                    found |= QRect(static_cast<int>(x / ratio()), static_cast<int>(y / ratio()), 1, 1);
        return found;
    }

    [[nodiscard]] bool isSame(const Picture& other, const QRect& where) const {
        const QRect pixels(where.topLeft() * ratio(), where.size() * ratio());
        return image_.copy(pixels) == other.image_.copy(pixels);
    }

    /// The least rectangle outside of which both pictures are the same; null where they are the same everywhere. What
    /// smooth edges are rounded by is no difference.
    [[nodiscard]] QRect changesTo(const Picture& other) const {
        constexpr int Rounding = 6;
        QRect changed;
        for (int y = 0; y < image_.height(); ++y)
            for (int x = 0; x < image_.width(); ++x)
                if (Distance(image_.pixel(x, y), other.image_.pixel(x, y)) > Rounding)
                    changed |= QRect(static_cast<int>(x / ratio()), static_cast<int>(y / ratio()), 1, 1);
        return changed;
    }

    /// The sum of what the three channels differ by.
    static int Distance(const QColor& one, const QColor& other) {
        return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
               std::abs(one.blue() - other.blue());
    }

  private:
    QImage image_;
};

/// A frame of that width along the inside of the rectangle, as its four sides: top, bottom, left, right.
inline std::array<QRect, 4> SidesOf(const QRect& rect, int width) {
    return {QRect(rect.left(), rect.top(), rect.width(), width),
            QRect(rect.left(), rect.bottom() + 1 - width, rect.width(), width),
            QRect(rect.left(), rect.top(), width, rect.height()),
            QRect(rect.right() + 1 - width, rect.top(), width, rect.height())};
}
