#include <QImage>
#include <QPainter>

#include "screen/ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

class ScaledPaint : public ScreenTest {
  protected:
    ThreeItems form;

    /// The widget with its children as a screen of that scale shows it.
    static QImage Painted(QWidget& widget, double scale) {
        QImage image(widget.size() * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        widget.render(&image);
        return image;
    }
};

}  // namespace

TEST_F(ScaledPaint, ItemsLeaveTheLinesOfTheirPanelAtEveryScale) {
    Panel row(form, form, u"bak_dtla"_s, 0, QString());
    row.setGeometry(8, 0, 64, 64);
    for (int line = 0; line < 3; ++line) {
        auto* item = new DisplayItem(form, row, u"xField"_s, u"氏名"_s, line);
        item->setGeometry(1, 2 + 20 * line, 62, 20);
    }
    for (int sixteenths = 16; sixteenths <= 40; ++sixteenths) {
        const QImage image = Painted(row, sixteenths / 16.0);
        const QRgb line = row.palette().color(QPalette::Dark).rgb();
        for (int pixel = 0; pixel < image.height(); ++pixel) {
            EXPECT_EQ(image.pixel(image.width() - 1, pixel), line) << sixteenths << " right, " << pixel;
            EXPECT_EQ(image.pixel(pixel, image.height() - 1), line) << sixteenths << " bottom, " << pixel;
        }
    }
}

TEST_F(ScaledPaint, LinesAreOnePixelThickOnAnUnscaledScreen) {
    Panel title(form, form, u"itm_ttl"_s, -1, QString());
    title.setGeometry(0, 0, 8, 6);
    const QImage image = Painted(title, 1);
    const QRgb light = title.palette().color(QPalette::Light).rgb(), dark = title.palette().color(QPalette::Dark).rgb();
    EXPECT_EQ(image.pixel(0, 0), light);
    EXPECT_EQ(image.pixel(0, 4), light);
    EXPECT_EQ(image.pixel(6, 0), light);
    EXPECT_EQ(image.pixel(7, 0), dark);
    EXPECT_EQ(image.pixel(0, 5), dark);
    EXPECT_EQ(image.pixel(1, 1), title.BackColor().rgb());
    EXPECT_EQ(image.pixel(6, 4), title.BackColor().rgb());
}
