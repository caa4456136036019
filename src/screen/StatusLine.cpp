#include "screen/StatusLine.h"

#include "screen/ToolTips.h"

namespace {

const QString kName = QStringLiteral("状況");

}  // namespace

StatusLine::StatusLine(QWidget& parent) : QLabel(&parent) {
    InstallAccessibleText();
    setObjectName(kName);
    setTextFormat(Qt::PlainText);
}

void StatusLine::SetText(const QString& text) {
    if (text == text_) return;
    text_ = text;
    Shorten();
    setAccessibleName(text);  // emits NameChanged
    if (text.isEmpty() || !isVisible()) return;
    // Screen readers speak a notification when it is shown, not when its name changes.
    QAccessibleEvent shown(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void StatusLine::Shorten() {
    const QString shortened = fontMetrics().elidedText(text_, Qt::ElideMiddle, contentsRect().width());
    setText(shortened);
    setToolTip(shortened == text_ ? QString() : ToolTipMarkup(text_));
}

void StatusLine::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    Shorten();
}

void ShowStatus(const QWidget& window, const QString& text) {
    if (auto* line = static_cast<StatusLine*>(window.findChild<QLabel*>(kName))) line->SetText(text);
}
