#include "screen/Control.h"

#include <QtMath>

#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

void Control::SetTop(int twips) { widget_.move(widget_.x(), qRound(double(twips) / kTwipsPerPixel)); }
void Control::SetHeight(int twips) { widget_.resize(widget_.width(), qRound(double(twips) / kTwipsPerPixel)); }

void Control::Unsupported(const char* property) const {
    throw platform::RuntimeError(platform::kPropertyNotSupported, name_ + u": "_s + QString::fromLatin1(property));
}

QString Control::Text() const { Unsupported("Text"); }
void Control::SetText(const QString&) { Unsupported("Text"); }
QString Control::Caption() const { Unsupported("Caption"); }
void Control::SetCaption(const QString&) { Unsupported("Caption"); }
int Control::Value() const { Unsupported("Value"); }
void Control::SetValue(int) { Unsupported("Value"); }
int Control::MinValue() const { Unsupported("MinValue"); }
int Control::MaxValue() const { Unsupported("MaxValue"); }
void Control::SetMinValue(int) { Unsupported("MinValue"); }
void Control::SetMaxValue(int) { Unsupported("MaxValue"); }
int Control::ListIndex() const { Unsupported("ListIndex"); }
void Control::SetListIndex(int) { Unsupported("ListIndex"); }
int Control::LargeChange() const { Unsupported("LargeChange"); }
void Control::SetLargeChange(int) { Unsupported("LargeChange"); }
void Control::ClearList() { Unsupported("List"); }
void Control::AddItem(const QString&) { Unsupported("AddItem"); }
int Control::MaxLength() const { Unsupported("MaxLength"); }
QColor Control::ForeColor() const { Unsupported("ForeColor"); }
void Control::SetForeColor(const QColor&) { Unsupported("ForeColor"); }
QColor Control::BackColor() const { Unsupported("BackColor"); }
void Control::SetBackColor(const QColor&) { Unsupported("BackColor"); }
