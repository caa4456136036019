#include "screen/InputNotice.h"

#include <QAccessible>
#include <QLabel>

#include "screen/Form.h"

using namespace Qt::StringLiterals;

namespace {

const QString kDropped = u"入力できない文字を除きました。"_s;
const QString kLabelName = u"入力の注意"_s;

Control* NoticeItem(const Form& form) { return form.Find(u"お知らせ"_s); }

QLabel* FindLabel(const Form& form) { return form.findChild<QLabel*>(kLabelName, Qt::FindDirectChildrenOnly); }

QLabel& LabelOf(Form& form) {
    if (QLabel* label = FindLabel(form)) return *label;
    auto* label = new QLabel(&form);
    label->setObjectName(kLabelName);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setFrameStyle(QFrame::Box | QFrame::Plain);
    label->setMargin(2);
    label->setAutoFillBackground(true);
    QPalette colors = label->palette();
    colors.setColor(QPalette::Window, QColor(0xFF, 0xFF, 0xE1));
    colors.setColor(QPalette::WindowText, QColor(0xC0, 0, 0));
    label->setPalette(colors);
    return *label;
}

/// Above the item if there is no space below it.
void PlaceNextTo(QLabel& label, const Form& form, const QWidget& item) {
    label.adjustSize();
    const QPoint below = item.mapTo(&form, QPoint(0, item.height() + 1));
    const int left = qMax(0, qMin(below.x(), form.width() - label.width()));
    const bool fits = below.y() + label.height() <= form.height();
    label.move(left, fits ? below.y() : below.y() - item.height() - label.height() - 2);
}

void ShowBelow(Form& form, const QWidget& item) {
    QLabel& label = LabelOf(form);
    label.setText(kDropped);
    PlaceNextTo(label, form, item);
    label.raise();
    label.show();
    QAccessibleEvent alert(&label, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace

void ShowInputNotice(Form& form, const QWidget& item, bool kept) {
    Control* notice = NoticeItem(form);
    if (notice == nullptr) return ShowBelow(form, item);
    if (!kept || notice->Caption().isEmpty()) notice->SetCaption(kDropped);
}

void ClearInputNotice(Form& form) {
    Control* notice = NoticeItem(form);
    if (notice != nullptr && notice->Caption() == kDropped) notice->SetCaption(QString());
    HideInputNoticeBelow(form);
}

void HideInputNoticeBelow(Form& form) {
    if (QLabel* label = FindLabel(form)) label->hide();
}
