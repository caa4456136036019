#include "screen/SuiteStyle.h"

#include <QPainter>
#include <QScrollArea>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolButton>

namespace {

constexpr int kFocusWidth = 2;  // pixels

void DrawFocusFrame(QPainter& painter, const QRect& area) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    QPen pen(kFocusColor, kFocusWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    // A pen of two pixels is painted on both sides of its line.
    painter.drawRect(area.adjusted(1, 1, -1, -1));
    painter.restore();
}

/// The content of a scroll area can be larger than its view, so the view shows the focus.
bool ContentHasFocus(const QWidget* widget) {
    const auto* area = qobject_cast<const QScrollArea*>(widget);
    return area != nullptr && area->widget() != nullptr && area->widget()->hasFocus();
}

}  // namespace

SuiteStyle::SuiteStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void SuiteStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    if (element == PE_FrameFocusRect) {
        // That of a tool button would cross its text; drawComplexControl frames the button.
        if (qobject_cast<const QToolButton*>(widget) == nullptr) DrawFocusFrame(*painter, option->rect);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool framed = element == PE_Frame || element == PE_FrameLineEdit;
    if (framed && (option->state.testFlag(State_HasFocus) || ContentHasFocus(widget)))
        DrawFocusFrame(*painter, option->rect);
}

void SuiteStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    const bool unmarked = element == CE_PushButton || element == CE_TabBarTab;
    if (unmarked && option->state.testFlag(State_HasFocus))
        DrawFocusFrame(*painter, option->rect.adjusted(3, 3, -3, -3));
}

void SuiteStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const bool unmarked =
        control == CC_ComboBox || control == CC_ScrollBar || control == CC_SpinBox || control == CC_ToolButton;
    if (unmarked && option->state.testFlag(State_HasFocus)) DrawFocusFrame(*painter, option->rect);
}

int SuiteStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    // The view covers all of a list or scroll area but its frame, so a wider focus frame would be cut.
    if (metric == PM_DefaultFrameWidth && qobject_cast<const QAbstractScrollArea*>(widget) != nullptr)
        return kFocusWidth;
    return QProxyStyle::pixelMetric(metric, option, widget);
}
