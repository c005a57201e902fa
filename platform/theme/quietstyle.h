#pragma once

#include <QProxyStyle>

/// Draws flat, calm controls on top of Fusion: thin borders, rounded corners, one accent colour, and a focus ring that
/// can always be seen. Every colour comes from the palette, so that changing the palette changes the look.
class QuietStyle : public QProxyStyle {
    Q_OBJECT

  public:
    QuietStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                       const QWidget* widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                         const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returned) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                                     const QWidget* widget) const override;
    void polish(QWidget* widget) override;
    using QProxyStyle::polish;
};
