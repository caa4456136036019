#include "report-host/preview/PageView.h"

#include <QDeadlineTimer>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <cmath>
#include <exception>

#include "platform/RuntimeError.h"
#include "platform/TerminationSignal.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/render/RenderWatch.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kDotsPerMillimetre = 96.0 / 25.4;
constexpr int kMargin = 12;  // around the page
constexpr int kShadow = 3;
constexpr double kMostDots = 64e6;  // pixels of the page's pixmap, 256 MB
constexpr int kQuickly = 500;       // milliseconds that a page may take within a paint event
constexpr int kLater = 50;  // milliseconds; 0 would post an event, which nested event processing delivers at once

}  // namespace

PageView::PageView(PreparedReport& report) : report_(report) {
    InstallAccessibleText();
    setObjectName(u"page"_s);
    setFocusPolicy(Qt::StrongFocus);
}

QString PageView::AccessibleName() const { return u"プレビュ"_s; }
QString PageView::AccessibleDescription() const { return u"%1 / %2 ページ"_s.arg(page_ + 1).arg(report_.PageCount()); }

void PageView::ShowPage(int page) {
    page_ = page;
    shown_ = QPixmap();
    update();
    QAccessibleEvent turned(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&turned);
}

void PageView::SetZoom(double zoom) {
    const QSizeF sheet = report_.PageMillimetres() * kDotsPerMillimetre * devicePixelRatioF();
    zoom_ = qMin(zoom, std::sqrt(kMostDots / (sheet.width() * sheet.height())));
    shown_ = QPixmap();
    resize(sizeHint());
    updateGeometry();
    update();
}

double PageView::ZoomToFit(QSize available, bool wholePage) const {
    const QSizeF sheet = report_.PageMillimetres() * kDotsPerMillimetre;
    const double across = (available.width() - 2 * kMargin) / sheet.width();
    const double down = (available.height() - 2 * kMargin) / sheet.height();
    return qMax(0.05, wholePage ? qMin(across, down) : across);
}

QSize PageView::sizeHint() const {
    return (report_.PageMillimetres() * kDotsPerMillimetre * zoom_).toSize() + QSize(2 * kMargin, 2 * kMargin);
}

QPixmap PageView::Render(qreal dots) const {
    QPixmap sheet((report_.PageMillimetres() * kDotsPerMillimetre * zoom_ * dots).toSize());
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    painter.save();
    painter.scale(kDotsPerMillimetre * zoom_ * dots, kDotsPerMillimetre * zoom_ * dots);
    QString reason;
    try {
        report_.PaintPage(painter, page_);
    } catch (const ReportStopped&) {
        painter.restore();
        throw;
    } catch (const std::exception& error) {
        reason = platform::TextForPeople(error);
    }
    painter.restore();
    if (!reason.isEmpty())
        painter.drawText(sheet.rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         u"このページを表示できません。\n"_s + reason);
    painter.end();
    sheet.setDevicePixelRatio(dots);
    return sheet;
}

void PageView::paintEvent(QPaintEvent* /*event*/) {
    if (shown_.isNull()) RenderQuickly();
    QPainter painter(this);
    const QRectF sheet = shown_.isNull() ? QRectF(rect()).adjusted(kMargin, kMargin, -kMargin, -kMargin)
                                         : QRectF(QPointF(kMargin, kMargin), shown_.deviceIndependentSize());
    painter.fillRect(sheet.translated(kShadow, kShadow), QColor(0x60, 0x60, 0x60));
    painter.fillRect(sheet, Qt::white);
    if (!shown_.isNull()) painter.drawPixmap(sheet.topLeft(), shown_);
}

/// Most pages are rendered at once. No events can be processed within a paint event, so a slow page is rendered later.
void PageView::RenderQuickly() {
    if (RenderWatch::IsActive()) return RenderLater();
    const RenderWatch quick([end = QDeadlineTimer(kQuickly)] { return end.hasExpired(); });
    try {
        shown_ = Render(devicePixelRatioF());
    } catch (const ReportStopped&) {
        RenderLater();
    }
}

void PageView::RenderLater() {
    QTimer::singleShot(kLater, this, [this] { RenderSlowly(); });
}

void PageView::RenderSlowly() {
    if (!shown_.isNull() || !RunSlowJob || platform::TerminationRequested()) return;
    if (RenderWatch::IsActive()) return RenderLater();
    const int page = page_;
    const double zoom = zoom_;
    const auto paint = [&] {
        const QPixmap sheet = Render(devicePixelRatioF());
        if (page == page_ && zoom == zoom_) shown_ = sheet;
    };
    RunSlowJob(paint);
    update();
}
