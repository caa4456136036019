#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>
#include <functional>

#include "screen/Accessibility.h"

class PreparedReport;

/// Widget that shows one page of a report at a zoom factor. If painting fails, it shows the reason instead. Accepts the
/// focus; scroll keys are passed on to the scroll area. Its accessible description is the page number.
class PageView : public QWidget, public AccessibleText {
  public:
    explicit PageView(PreparedReport& report);

    int Page() const { return page_; }
    /// Shows a page, from 0; it must exist.
    void ShowPage(int page);
    /// 1 is the paper size at 96 dpi.
    double Zoom() const { return zoom_; }
    /// Sets the zoom factor, limited so that the pixmap of the page has at most 64 million pixels (256 MB).
    void SetZoom(double zoom);
    /// The zoom factor at which the page fits into a viewport of this size (pixels); without `wholePage` only its width
    /// must fit.
    double ZoomToFit(QSize available, bool wholePage) const;

    /// Has to run `paint`, the rendering of a page that takes longer than 0.5 s, so that the window can be closed
    /// meanwhile. If not set, such a page stays blank.
    std::function<void(const std::function<void()>& paint)> RunSlowJob;

    QSize sizeHint() const override;

    QAccessible::Role AccessibleRole() const override { return QAccessible::Graphic; }
    QString AccessibleName() const override;
    QString AccessibleDescription() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPixmap Render(qreal dots) const;
    void RenderQuickly();
    void RenderLater();
    void RenderSlowly();

    PreparedReport& report_;
    int page_ = 0;
    double zoom_ = 1;
    QPixmap shown_;  ///< rendered page at this zoom; null if it must be rendered again
};
