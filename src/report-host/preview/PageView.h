#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>
#include <functional>

#include "screen/Accessibility.h"

class PreparedReport;

/// One page of a report as it will be printed, on its sheet, at some zoom. A page that can't be painted shows why.
/// Takes the focus; keys are left to what scrolls it. Assistive tools are told which page it is.
class PageView : public QWidget, public AccessibleText {
  public:
    explicit PageView(PreparedReport& report);

    int Page() const { return page_; }
    void ShowPage(int page);
    /// 1 is the size on paper, at 96 dots an inch.
    double Zoom() const { return zoom_; }
    /// No larger than a picture of the sheet can be held in memory.
    void SetZoom(double zoom);
    /// The zoom at which the sheet fills a window's inside; without its height where only the width counts.
    double ZoomToFit(QSize room, bool wholePage) const;

    /// Runs the painting of a page that takes long in such a way that its window can be closed meanwhile. Without it
    /// such a page stays blank.
    std::function<void(const std::function<void()>& paint)> AtLength;

    QSize sizeHint() const override;

    QAccessible::Role SpokenRole() const override { return QAccessible::Graphic; }
    QString AccessibleName() const override;
    QString SpokenDescription() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPixmap Render(qreal dots) const;
    void RenderBriefly();
    void RenderLater();
    void RenderAtLength();

    PreparedReport& report_;
    int page_ = 0;
    double zoom_ = 1;
    QPixmap shown_;  ///< the page at this zoom; null when it has to be painted anew
};
