#pragma once

#include <QHash>
#include <QPainter>
#include <QSizeF>
#include <functional>
#include <memory>

#include "report-host/layout/PreparedReport.h"

/// Fake report: draws only the page number, on paper of any size.
class DrawnReport : public PreparedReport {
  public:
    explicit DrawnReport(int pages, QSizeF paper = QSizeF(210, 297)) : pages_(pages), paper_(paper) {}

    int PageCount() const override { return pages_; }
    QSizeF PageMillimetres() const override { return paper_; }
    void PaintPage(QPainter& painter, int page) override {
        if (Painting) Painting(page);
        if (Fails && Fails(page)) throw ReportFailure(QStringLiteral("作業ファイルを読めません。"));
        painted = page;
        painter.fillRect(QRectF(10, 10 + 5 * page, 20, 3), Qt::black);
    }

    QStringList MissingCharacters(int page) override { return missing.value(page); }

    std::function<bool(int page)> Fails;
    std::function<void(int page)> Painting;  ///< called first
    QHash<int, QStringList> missing;         ///< characters without a font, by page
    int painted = -1;                        ///< page painted last

  private:
    int pages_;
    QSizeF paper_;
};
