#pragma once

#include <QProxyStyle>

/// Fusion, but every widget that has the focus shows it by a frame in kFocusColor. Fusion marks most widgets only if
/// the focus was moved by the Tab key, and lists, pages and scroll bars never.
class SuiteStyle : public QProxyStyle {
  public:
    SuiteStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

inline constexpr QColor kFocusColor(0x1A, 0x4F, 0xB5);
