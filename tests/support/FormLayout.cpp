#include "support/FormLayout.h"

#include <QHeaderView>
#include <QStringList>
#include <algorithm>

#include "screen/Form.h"
#include "screen/ListView.h"
#include "support/ExpectedText.h"

using namespace Qt::StringLiterals;

namespace {

QString Place(const QRect& place) {
    return u"%1,%2 %3x%4"_s.arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
}

QString Colors(const QWidget& widget) {
    const QPalette& palette = widget.palette();
    return palette.color(widget.foregroundRole()).name() + u" on "_s + palette.color(widget.backgroundRole()).name();
}

QString State(const Control& control) {
    QStringList words;
    if (!control.Enabled()) words << u"disabled"_s;
    if (!control.Visible()) words << u"hidden"_s;
    words << (control.TabStop() ? u"stop "_s : u"no stop "_s) + QString::number(control.TabIndex());
    return words.join(u' ');
}

/// Empty for a class of control that has no such text.
QString TextBy(const Control& control, QString (Control::*property)() const) {
    try {
        return (control.*property)();
    } catch (const std::exception&) {
        return {};
    }
}

QString Columns(const QWidget& widget) {
    const auto* list = dynamic_cast<const ListView*>(&widget);
    if (list == nullptr) return {};
    QString columns;
    for (int i = 0; i < list->header()->count(); ++i)
        columns += u"\n    column "_s + list->model()->headerData(i, Qt::Horizontal).toString() + u' ' +
                   QString::number(list->header()->sectionSize(i));
    return columns;
}

QString LineOf(const Control& control) {
    const QWidget& widget = control.Widget();
    const QFont font = widget.font();
    const QString index = control.Index() == -1 ? QString() : u"(%1)"_s.arg(control.Index(), 2, 10, QChar(u'0'));
    return control.Name() + index + u": "_s + control.TypeName() + u' ' + Place(widget.geometry()) + u", "_s +
           font.family() + u' ' + QString::number(font.pixelSize()) + u", "_s + Colors(widget) + u", "_s +
           State(control) + u", '"_s + TextBy(control, &Control::Caption) + u"' '"_s + TextBy(control, &Control::Text) +
           u'\'' + Columns(widget);
}

}  // namespace

QString LayoutOf(const Form& form) {
    QStringList lines;
    for (const Control* control : form.Controls()) lines << LineOf(*control);
    std::sort(lines.begin(), lines.end());
    lines.prepend(form.Name() + u": '"_s + form.windowTitle() + u"' "_s + Place(QRect(QPoint(), form.size())) +
                  u", "_s + form.palette().color(QPalette::Window).name() + u", flags "_s +
                  QString::number(form.windowFlags().toInt(), 16));
    return lines.join(u'\n') + u'\n';
}

void ExpectLayout(const Form& form, const QString& folder) {
    ExpectText(LayoutOf(form), folder + u"/layouts/"_s + form.Name() + u".txt"_s);
}
