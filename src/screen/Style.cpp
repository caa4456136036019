#include "screen/Style.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

#include "screen/fonts/Fonts.h"

using namespace Qt::StringLiterals;

namespace {

QPalette BusinessPalette() {
    const QColor face(0xF0, 0xEE, 0xE9);
    QPalette palette(face);
    palette.setColor(QPalette::Window, face);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::ButtonText, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0x31, 0x6A, 0xC5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xE4, 0xE2, 0xDD));
    return palette;
}

}  // namespace

void ApplySuiteStyle(QApplication& application) {
    application.setStyle(QStyleFactory::create(u"Fusion"_s));
    application.setPalette(BusinessPalette());
    application.setFont(SuiteFont(SuiteFace::PGothic, 10));
}
