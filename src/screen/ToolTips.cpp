#include "screen/ToolTips.h"

#include <QHelpEvent>
#include <QToolTip>
#include <algorithm>

namespace {

constexpr int kLongestLine = 60;  // characters; twice as wide would not fit on a small screen

bool IsLong(const QString& text) {
    const QStringList lines = text.split(QChar(u'\n'));
    return std::any_of(lines.begin(), lines.end(), [](const QString& line) { return line.size() > kLongestLine; });
}

}  // namespace

// Qt would interpret a text with tags as HTML, would not wrap one without, and wraps short texts of HTML narrowly.
QString ToolTipMarkup(const QString& plain) {
    if (plain.isEmpty()) return {};
    const QString wrapping = IsLong(plain) ? QStringLiteral("pre-wrap") : QStringLiteral("pre");
    return QStringLiteral("<p style=\"white-space:%1\">%2</p>").arg(wrapping, plain.toHtmlEscaped());
}

void ShowToolTip(const QHelpEvent& event, QWidget& widget, const QString& plain) {
    QToolTip::showText(event.globalPos(), ToolTipMarkup(plain), &widget);
}
